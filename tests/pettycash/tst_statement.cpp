#include "session.h"
#include "statement.h"
#include "testdb.h"

#include <QtTest>

using core::Money;
using testsupport::TestDatabase;

namespace {

// A ledger entry written as "2024-11-03 +20 Float".
void write(core::Db& db, const QString& line) {
    const QStringList p = line.split(' ');
    db.insert("pettycash", "pettyid",
              {{"Date", QDate::fromString(p[0], Qt::ISODate)},
               {"amount", p[1]},
               {"reason", p.mid(2).join(' ')}});
}

// Each row as "date|purpose|in|out|balance".
QStringList rowsOf(const pettycash::Statement& s) {
    QStringList out;
    for (const auto& r : s.rows)
        out << QStringList{r.date, r.purpose, r.cashIn, r.cashOut, r.balance}.join('|');
    return out;
}

// Written in shuffled order, so that the statement's own order is what the test sees.
const QStringList Ledger{"2023-12-20 +50 Float",      "2024-01-31 -10 Stamps",
                         "2024-01-05 +5.25 Refund ",  "2024-03-01 +100 Cash from bank",
                         "2024-11-30 -0.5 Milk",      "2024-11-01 +20 Top up",
                         "2024-11-01 -3.125 Parking", "2024-12-31 -1 Card",
                         "2025-01-01 +999 Next year", "2024-10-31 -4.5 Taxi"};

} // namespace

class TestStatement : public QObject {
    Q_OBJECT
private slots:
    void monthNames_data();
    void monthNames();
    void months_data();
    void months();
};

void TestStatement::monthNames_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("number");
    QTest::newRow("first") << "January" << 1;
    QTest::newRow("eleventh, spelt right") << "November" << 11;
    QTest::newRow("misspelt") << "Novenmber" << 0;
    QTest::newRow("last") << "December" << 12;
    QTest::newRow("case and blanks") << " march " << 3;
    QTest::newRow("short form") << "Mar" << 0;
    QTest::newRow("empty") << "" << 0;
}

void TestStatement::monthNames() {
    QFETCH(QString, name);
    QFETCH(int, number);
    QCOMPARE(pettycash::monthNumber(name), number);
    QCOMPARE(pettycash::monthNames().size(), 12);
}

void TestStatement::months_data() {
    QTest::addColumn<QStringList>("ledger");
    QTest::addColumn<int>("year");
    QTest::addColumn<int>("month");
    QTest::addColumn<QString>("language");
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<QString>("closing");

    QTest::newRow("empty ledger") << QStringList() << 2024 << 3 << "English (UK)"
                                  << QStringList{"29/02/2024||||£0", "31/03/2024||||£0"} << "0";
    QTest::newRow("January opens on 31 December of the year before")
        << Ledger << 2024 << 1 << "English (UK)"
        << QStringList{"31/12/2023||||£50", "|Refund|£5.25||", "|Stamps||£10|",
                       "31/01/2024||||£45.25"}
        << "45.25";
    QTest::newRow("month without entries")
        << Ledger << 2024 << 2 << "English (UK)"
        << QStringList{"31/01/2024||||£45.25", "29/02/2024||||£45.25"} << "45.25";
    QTest::newRow("November") << Ledger << 2024 << 11 << "English (UK)"
                              << QStringList{"31/10/2024||||£140.75", "|Top up|£20||",
                                             "|Parking||£3.125|", "|Milk||£0.5|",
                                             "30/11/2024||||£157.125"}
                              << "157.125";
    QTest::newRow("December ends on the 31st, next year's entries left out")
        << Ledger << 2024 << 12 << "English (UK)"
        << QStringList{"30/11/2024||||£157.125", "|Card||£1|", "31/12/2024||||£156.125"}
        << "156.125";
    QTest::newRow("US dates and dollars")
        << Ledger << 2024 << 11 << "English (US)"
        << QStringList{"10/31/2024||||$140.75", "|Top up|$20||", "|Parking||$3.125|",
                       "|Milk||$0.5|", "11/30/2024||||$157.125"}
        << "157.125";
    QTest::newRow("before the first entry")
        << Ledger << 2023 << 11 << "English (UK)"
        << QStringList{"31/10/2023||||£0", "30/11/2023||||£0"} << "0";
    QTest::newRow("leap February")
        << QStringList{"2024-02-29 +1 Leap"} << 2024 << 2 << "English (UK)"
        << QStringList{"31/01/2024||||£0", "|Leap|£1||", "29/02/2024||||£1"} << "1";
}

void TestStatement::months() {
    QFETCH(QStringList, ledger);
    QFETCH(int, year);
    QFETCH(int, month);
    QFETCH(QString, language);
    QFETCH(QStringList, rows);
    QFETCH(QString, closing);
    TestDatabase fixture;
    for (const QString& line : ledger)
        write(fixture.db(), line);
    const pettycash::Statement s = pettycash::monthStatement(fixture.db(), year, month, language);
    QCOMPARE(rowsOf(s), rows);
    QCOMPARE(s.closing, *Money::parse(closing));
    QCOMPARE(s.rows.back().balanceValue, std::optional<Money>(s.closing));
    QCOMPARE(s.rows.front().balanceValue, std::optional<Money>(s.opening));
}

QTEST_MAIN(TestStatement)
#include "tst_statement.moc"
