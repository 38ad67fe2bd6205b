#include "ledger.h"
#include "session.h"
#include "testdb.h"

#include <QtTest>

using core::Money;
using pettycash::Direction;
using pettycash::Entry;
using pettycash::Refusal;
using testsupport::TestDatabase;

Q_DECLARE_METATYPE(Refusal)

namespace {

Money money(const char* text) {
    return *Money::parse(QString::fromLatin1(text));
}

// Writes the stored amounts as entries a day apart, the first on 1 March 2024.
std::vector<qint64> seed(core::Db& db, const QStringList& amounts) {
    std::vector<qint64> ids;
    QDate day(2024, 3, 1);
    for (const QString& a : amounts) {
        ids.push_back(db.insert("pettycash", "pettyid",
                                {{"Date", day}, {"amount", a}, {"reason", "Seed " + a}}));
        day = day.addDays(1);
    }
    return ids;
}

QStringList amountsOf(core::Db& db) {
    QStringList out;
    for (const auto& r : db.rows("SELECT amount FROM pettycash ORDER BY pettyid"))
        out << r.value(0).toString();
    return out;
}

} // namespace

class TestLedger : public QObject {
    Q_OBJECT
private slots:
    void init() { core::session().language = "English (UK)"; }

    void typedAmounts_data();
    void typedAmounts();
    void storedAmounts_data();
    void storedAmounts();
    void anEditKeepsTheDirection();
    void entryChecks_data();
    void entryChecks();
    void commandsKeepTheTotalAtOrAboveNothing_data();
    void commandsKeepTheTotalAtOrAboveNothing();
    void removeNeedsFundsBeforeItsDialog();
    void totalCountsOtherUsersEntries();
    void staleEntriesAreNotOverwritten();
    void listIsNewestFirst();
};

void TestLedger::typedAmounts_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QString>("value"); // four decimals
    QTest::addColumn<QString>("stored");
    QTest::newRow("whole") << " 20 " << true << "20.0000"
                           << "20";
    QTest::newRow("pence kept as typed") << "4.50" << true << "4.5000"
                                         << "4.50";
    QTest::newRow("leading point") << ".5" << true << "0.5000"
                                   << ".5";
    QTest::newRow("more decimals rounded in the value only") << "5.12345" << true << "5.1235"
                                                             << "5.12345";
    QTest::newRow("smallest") << "0.0001" << true << "0.0001"
                              << "0.0001";
    QTest::newRow("zero") << "0" << false << ""
                          << "";
    QTest::newRow("rounds to zero") << "0.00004" << false << ""
                                    << "";
    QTest::newRow("negative") << "-5" << false << ""
                              << "";
    QTest::newRow("blank") << "  " << false << ""
                           << "";
    QTest::newRow("words") << "ten" << false << ""
                           << "";
    QTest::newRow("two points") << "1.2.3" << false << ""
                                << "";
    QTest::newRow("exponent") << "1e3" << false << ""
                              << "";
    QTest::newRow("too large") << "123456789012345678" << false << ""
                               << "";
    QTest::newRow("thousands") << "30,000" << true << "30000.0000"
                               << "30000";
    QTest::newRow("sign and pence") << "£30,000.50" << true << "30000.5000"
                                    << "30000.5";
    QTest::newRow("largest money holds") << "99,999,999,999.9999" << true << "99999999999.9999"
                                         << "99999999999.9999";
    QTest::newRow("beyond any money column") << "100000000000" << false << ""
                                             << "";
    QTest::newRow("badly grouped") << "30,00" << false << ""
                                   << "";
}

void TestLedger::typedAmounts() {
    QFETCH(QString, typed);
    QFETCH(bool, accepted);
    QFETCH(QString, value);
    QFETCH(QString, stored);
    const std::optional<Money> m = pettycash::readFigure(typed);
    QCOMPARE(m.has_value(), accepted);
    if (!accepted) return;
    QCOMPARE(m->toString(4), value);
    QCOMPARE(pettycash::figureText(typed), stored);
}

void TestLedger::storedAmounts_data() {
    QTest::addColumn<QString>("stored");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("value"); // "" when unreadable
    QTest::newRow("money in") << "+20"
                              << "+ £20"
                              << "20.0000";
    QTest::newRow("money out") << "-4.5"
                               << "- £4.5"
                               << "-4.5000";
    QTest::newRow("blank after the sign") << "+ 3"
                                          << "+ £3"
                                          << "3.0000";
    QTest::newRow("no sign is money out") << "7"
                                          << "- £7"
                                          << "-7.0000";
    QTest::newRow("sign twice") << "+-5"
                                << "+ £-5"
                                << "";
    QTest::newRow("nothing") << ""
                             << "- £"
                             << "";
}

void TestLedger::storedAmounts() {
    QFETCH(QString, stored);
    QFETCH(QString, shown);
    QFETCH(QString, value);
    QCOMPARE(pettycash::displayAmount(stored, "£"), shown);
    const std::optional<Money> v = pettycash::amountValue(stored);
    QCOMPARE(v ? v->toString(4) : QString(), value);
}

void TestLedger::anEditKeepsTheDirection() {
    const Entry out{7, QDate(2024, 3, 2), "-6", " Taxi "};
    const pettycash::EntryText shown = pettycash::entryText(out);
    QCOMPARE(QStringList({shown.date, shown.figure, shown.reason}),
             QStringList({"02/03/2024", "6", "Taxi"}));
    const Entry edited = pettycash::editedEntry(out, {"03/03/2024", "£1,000", " Bus "});
    QCOMPARE(edited.id, qint64(7));
    QCOMPARE(edited.date, QDate(2024, 3, 3));
    QCOMPARE(edited.amount, QString("-1000"));
    QCOMPARE(edited.reason, QString("Bus"));
    QCOMPARE(pettycash::editedEntry({8, {}, "+20", ""}, {"", "5", ""}).amount, QString("+5"));
}

void TestLedger::entryChecks_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("amount");
    QTest::addColumn<QString>("message");
    const QString uk = "Please enter a date in the format DD/MM/YYYY and an amount";
    const QString us = "Please enter a date in the format MM/DD/YYYY and an amount";
    const QString future = "You cannot enter a date in the future";
    // Today is 15 June 2024 throughout.
    QTest::newRow("today") << "English (UK)"
                           << "15/06/2024"
                           << "5"
                           << "";
    QTest::newRow("tomorrow") << "English (UK)"
                              << "16/06/2024"
                              << "5" << future;
    QTest::newRow("next year") << "English (UK)"
                               << "01/01/2025"
                               << "5" << future;
    QTest::newRow("no date") << "English (UK)"
                             << ""
                             << "5" << uk;
    QTest::newRow("day 31 of June") << "English (UK)"
                                    << "31/06/2024"
                                    << "5" << uk;
    QTest::newRow("no amount") << "English (UK)"
                               << "14/06/2024"
                               << "" << uk;
    QTest::newRow("zero") << "English (UK)"
                          << "14/06/2024"
                          << "0" << uk;
    QTest::newRow("negative") << "English (UK)"
                              << "14/06/2024"
                              << "-3" << uk;
    QTest::newRow("US order") << "English (US)"
                              << "06/15/2024"
                              << "5"
                              << "";
    QTest::newRow("US tomorrow") << "English (US)"
                                 << "06/16/2024"
                                 << "5" << future;
    QTest::newRow("UK order in US") << "English (US)"
                                    << "15/06/2024"
                                    << "5" << us;
    QTest::newRow("unknown profile reads UK") << ""
                                              << "15/06/2024"
                                              << "x" << uk;
    QTest::newRow("as people type money") << "English (UK)"
                                          << "14/06/2024"
                                          << "£1,250.50"
                                          << "";
    QTest::newRow("too large") << "English (UK)"
                               << "14/06/2024"
                               << "£250,000,000,000"
                               << "Amount is too large: the most it can hold is 99999999999.9999";
    QTest::newRow("too large, no date") << "English (UK)"
                                        << ""
                                        << "250000000000" << uk;
}

void TestLedger::entryChecks() {
    QFETCH(QString, language);
    QFETCH(QString, date);
    QFETCH(QString, amount);
    QFETCH(QString, message);
    QCOMPARE(pettycash::checkFundsEntry(date, amount, QDate(2024, 6, 15), language), message);
}

void TestLedger::commandsKeepTheTotalAtOrAboveNothing_data() {
    QTest::addColumn<QStringList>("ledger");
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("entry"); // index into the ledger, for delete and edit
    QTest::addColumn<QString>("figure");
    QTest::addColumn<Refusal>("refusal");
    QTest::addColumn<QString>("total");
    QTest::addColumn<QStringList>("stored");

    const QStringList tenIn{"+10"};
    const QStringList tenInSixOut{"+10", "-6"};
    QTest::newRow("add to empty") << QStringList() << "add" << -1 << "5.12345" << Refusal::None
                                  << "5.1235" << QStringList{"+5.12345"};
    QTest::newRow("remove exactly all")
        << tenIn << "remove" << -1 << "10" << Refusal::None << "0" << QStringList{"+10", "-10"};
    QTest::newRow("remove a penny too many")
        << tenIn << "remove" << -1 << "10.01" << Refusal::Insufficient << "10" << tenIn;
    QTest::newRow("remove sub-penny too many")
        << tenIn << "remove" << -1 << "10.0001" << Refusal::Insufficient << "10" << tenIn;
    QTest::newRow("three thirds") << QStringList{"+0.33333", "+0.33333", "+0.33333"} << "remove"
                                  << -1 << "1" << Refusal::Insufficient << "0.9999"
                                  << QStringList{"+0.33333", "+0.33333", "+0.33333"};
    QTest::newRow("delete money in, rest negative")
        << tenInSixOut << "delete" << 0 << "" << Refusal::Insufficient << "4" << tenInSixOut;
    QTest::newRow("delete money in, rest exactly nothing")
        << QStringList{"+10", "-6", "+6"} << "delete" << 0 << "" << Refusal::None << "0"
        << QStringList{"-6", "+6"};
    QTest::newRow("delete money out")
        << tenInSixOut << "delete" << 1 << "" << Refusal::None << "10" << tenIn;
    QTest::newRow("edit money in down too far")
        << tenInSixOut << "edit" << 0 << "5.99" << Refusal::Insufficient << "4" << tenInSixOut;
    QTest::newRow("edit money in down to nothing")
        << tenInSixOut << "edit" << 0 << "6" << Refusal::None << "0" << QStringList{"+6", "-6"};
    QTest::newRow("edit money in up") << tenInSixOut << "edit" << 0 << "12.5" << Refusal::None
                                      << "6.5" << QStringList{"+12.5", "-6"};
    QTest::newRow("edit money out up too far")
        << tenInSixOut << "edit" << 1 << "10.01" << Refusal::Insufficient << "4" << tenInSixOut;
    QTest::newRow("edit money out up to everything")
        << tenInSixOut << "edit" << 1 << "10" << Refusal::None << "0" << QStringList{"+10", "-10"};
    QTest::newRow("edit money out down") << tenInSixOut << "edit" << 1 << "0.5" << Refusal::None
                                         << "9.5" << QStringList{"+10", "-0.5"};
}

void TestLedger::commandsKeepTheTotalAtOrAboveNothing() {
    QFETCH(QStringList, ledger);
    QFETCH(QString, command);
    QFETCH(int, entry);
    QFETCH(QString, figure);
    QFETCH(Refusal, refusal);
    QFETCH(QString, total);
    QFETCH(QStringList, stored);

    TestDatabase fixture;
    auto& db = fixture.db();
    const std::vector<qint64> ids = seed(db, ledger);
    const QDate day(2024, 4, 2);
    pettycash::Outcome outcome;
    if (command == "add") {
        outcome = pettycash::addFunds(db, day, figure, " Float ");
    } else if (command == "remove") {
        outcome = pettycash::removeFunds(db, day, figure, "Stamps");
    } else {
        const Entry shown = *pettycash::entry(db, ids.at(entry));
        outcome = command == "delete" ? pettycash::deleteEntry(db, shown)
                                      : pettycash::editEntry(db, shown, day, figure, "Edited");
    }
    QCOMPARE(outcome.refusal, refusal);
    QCOMPARE(outcome.total, money(qPrintable(total)));
    QCOMPARE(pettycash::total(db), outcome.total);
    QCOMPARE(amountsOf(db), stored);
    if (refusal == Refusal::None && (command == "add" || command == "remove")) {
        const Entry added = *pettycash::entry(db, outcome.id);
        QCOMPARE(added.date, day);
        QCOMPARE(added.reason, command == "add" ? QString("Float") : QString("Stamps"));
    }
    if (refusal == Refusal::None && command == "edit") {
        const Entry edited = *pettycash::entry(db, ids.at(entry));
        QCOMPARE(edited.date, day);
        QCOMPARE(edited.reason, QString("Edited"));
    }
}

void TestLedger::removeNeedsFundsBeforeItsDialog() {
    QCOMPARE(pettycash::checkRemoveStart(Money()), Refusal::NoFunds);
    QCOMPARE(pettycash::checkRemoveStart(money("-1")), Refusal::NoFunds);
    QCOMPARE(pettycash::checkRemoveStart(money("0.0001")), Refusal::None);
    QCOMPARE(pettycash::refusalMessage(Refusal::NoFunds), QString("There are no funds available"));
    QCOMPARE(pettycash::refusalMessage(Refusal::Insufficient),
             QString("There are insufficient funds"));
}

void TestLedger::totalCountsOtherUsersEntries() {
    TestDatabase fixture;
    auto& db = fixture.db();
    seed(db, {"+10"});
    // Another user takes 8 out after this user's screen read a total of 10: removing 5 must
    // now be refused, since only 2 are left in the box.
    auto other = fixture.openSecond("other");
    QCOMPARE(pettycash::removeFunds(*other, QDate(2024, 4, 1), "8", "Taxi").refusal, Refusal::None);
    const pettycash::Outcome mine = pettycash::removeFunds(db, QDate(2024, 4, 1), "5", "Milk");
    QCOMPARE(mine.refusal, Refusal::Insufficient);
    QCOMPARE(mine.total, money("2"));
    QCOMPARE(amountsOf(db), (QStringList{"+10", "-8"}));
}

void TestLedger::staleEntriesAreNotOverwritten() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const std::vector<qint64> ids = seed(db, {"+10", "-2", "-3"});
    const Entry first = *pettycash::entry(db, ids[0]);
    const Entry second = *pettycash::entry(db, ids[1]);
    const Entry third = *pettycash::entry(db, ids[2]);
    auto other = fixture.openSecond("other");
    pettycash::editEntry(*other, second, second.date, "2.5", "Changed elsewhere");
    pettycash::deleteEntry(*other, third);

    // A refused edit hands back the entry as it now stands, or none when it has gone.
    const pettycash::Outcome stale = pettycash::editEntry(db, second, second.date, "1", "Mine");
    QCOMPARE(stale.refusal, Refusal::Changed);
    QCOMPARE(stale.current->amount, QString("-2.5"));
    QCOMPARE(pettycash::deleteEntry(db, second).refusal, Refusal::Changed);
    QCOMPARE(pettycash::entry(db, ids[1])->reason, QString("Changed elsewhere"));
    const pettycash::Outcome deleted = pettycash::editEntry(db, third, third.date, "1", "Mine");
    QCOMPARE(deleted.refusal, Refusal::Changed);
    QVERIFY(!deleted.current);
    // Deleting what someone else has deleted already is what the user asked for.
    const pettycash::Outcome gone = pettycash::deleteEntry(db, third);
    QCOMPARE(gone.refusal, Refusal::None);
    QCOMPARE(gone.total, money("7.5"));
    QCOMPARE(pettycash::editEntry(db, first, first.date, "11", "Float").refusal, Refusal::None);
    QCOMPARE(pettycash::total(db), money("8.5"));
}

void TestLedger::listIsNewestFirst() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const QDate day(2024, 5, 1);
    const qint64 a =
        db.insert("pettycash", "pettyid", {{"Date", day}, {"amount", "+1"}, {"reason", "a"}});
    const qint64 b = db.insert("pettycash", "pettyid",
                               {{"Date", day.addDays(1)}, {"amount", "+2"}, {"reason", "b"}});
    const qint64 c =
        db.insert("pettycash", "pettyid", {{"Date", day}, {"amount", "-1"}, {"reason", "c"}});
    std::vector<qint64> order;
    for (const Entry& e : pettycash::entries(db))
        order.push_back(e.id);
    QCOMPARE(order, (std::vector<qint64>{b, c, a}));
}

QTEST_MAIN(TestLedger)
#include "tst_ledger.moc"
