#include "money.h"
#include "regional.h"
#include "routines.h"
#include "seams.h"
#include "session.h"
#include "typedfields.h"

#include <QRandomGenerator>
#include <QtTest>

using core::Money;
namespace regional = core::regional;

namespace {
const QString UK = QStringLiteral("English (UK)");
const QString US = QStringLiteral("English (US)");

// The plain definition, a day at a time.
int workingDaysByWalking(QDate day, const QDate& last) {
    int n = 0;
    for (; day <= last; day = day.addDays(1))
        if (day.dayOfWeek() < 6) ++n;
    return n;
}
} // namespace

class TestRoutines : public QObject {
    Q_OBJECT
private slots:
    void cleanup() { core::session().language.clear(); }

    void roundcurrencyRoundsHalfAwayFromZero_data();
    void roundcurrencyRoundsHalfAwayFromZero();
    void isdateorblankFollowsTheProfile_data();
    void isdateorblankFollowsTheProfile();
    void isnumerickeyLetsDigitsPointAndBackspaceThrough_data();
    void isnumerickeyLetsDigitsPointAndBackspaceThrough();
    void daysinmonthIsTheDaysOfTheDatesOwnMonth_data();
    void daysinmonthIsTheDaysOfTheDatesOwnMonth();
    void workingdaysNamedCases_data();
    void workingdaysNamedCases();
    void workingdaysAgreesWithADayByDayCount();

    void parseDateReadsTheProfilesOrder_data();
    void parseDateReadsTheProfilesOrder();
    void formatDateWritesTheProfilesOrder_data();
    void formatDateWritesTheProfilesOrder();
    void profileCaptionsAndOrderTakeTheOtherwiseBranch_data();
    void profileCaptionsAndOrderTakeTheOtherwiseBranch();

    void moneyParse_data();
    void moneyParse();
    void moneyToString_data();
    void moneyToString();
    void moneyAsPeopleTypeIt_data();
    void moneyAsPeopleTypeIt();
    void typedFieldsRefuseWhatCannotBeStored_data();
    void typedFieldsRefuseWhatCannotBeStored();
};

void TestRoutines::roundcurrencyRoundsHalfAwayFromZero_data() {
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("expected");
    // clang-format off
    QTest::newRow("carry into tens of pence") << "12.056" << "12.06";
    QTest::newRow("carry into the pounds") << "12.996" << "13.00";
    QTest::newRow("half rounds up") << "12.345" << "12.35";
    QTest::newRow("below half rounds down") << "12.344" << "12.34";
    QTest::newRow("one decimal unchanged") << "1.5" << "1.50";
    QTest::newRow("fourth decimal carries through") << "2.9951" << "3.00";
    QTest::newRow("carry into hundreds") << "99.995" << "100.00";
    QTest::newRow("just under half a penny") << "0.0049" << "0.00";
    QTest::newRow("negative half away from zero") << "-12.345" << "-12.35";
    QTest::newRow("negative half a penny") << "-0.005" << "-0.01";
    QTest::newRow("large salary") << "1234567.125" << "1234567.13";
    // clang-format on
}

void TestRoutines::roundcurrencyRoundsHalfAwayFromZero() {
    QFETCH(QString, value);
    QFETCH(QString, expected);
    const Money result = core::roundcurrency(*Money::parse(value));
    QCOMPARE(result, *Money::parse(expected));
    QCOMPARE(result.toString(4), Money::parse(expected)->toString(4));
}

void TestRoutines::isdateorblankFollowsTheProfile_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("expected");
    // clang-format off
    QTest::newRow("UK day first") << UK << "31/12/2024" << true;
    QTest::newRow("US refuses day first") << US << "31/12/2024" << false;
    QTest::newRow("US month first") << US << "12/31/2024" << true;
    QTest::newRow("UK refuses month first") << UK << "12/31/2024" << false;
    QTest::newRow("empty") << UK << "" << true;
    QTest::newRow("blanks only") << US << "   " << true;
    QTest::newRow("words") << UK << "next week" << false;
    QTest::newRow("leap day") << UK << "29/02/2024" << true;
    QTest::newRow("no leap day") << UK << "29/02/2023" << false;
    QTest::newRow("surrounding blanks") << UK << " 01/02/2024 " << true;
    QTest::newRow("no such month") << UK << "01/13/2024" << false;
    QTest::newRow("unknown profile reads day first") << "English (Canada)" << "31/12/2024"
                                                     << true;
    QTest::newRow("empty profile reads day first") << "" << "31/12/2024" << true;
    // clang-format on
}

void TestRoutines::isdateorblankFollowsTheProfile() {
    QFETCH(QString, language);
    QFETCH(QString, text);
    QFETCH(bool, expected);
    core::session().language = language;
    QCOMPARE(core::isdateorblank(text), expected);
}

void TestRoutines::isnumerickeyLetsDigitsPointAndBackspaceThrough_data() {
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("expected");
    // clang-format off
    QTest::newRow("backspace") << 8 << true;
    QTest::newRow("point") << 46 << true;
    QTest::newRow("0") << 48 << true;
    QTest::newRow("5") << 53 << true;
    QTest::newRow("9") << 57 << true;
    QTest::newRow("slash just below 0") << 47 << false;
    QTest::newRow("colon just above 9") << 58 << false;
    QTest::newRow("minus") << 45 << false;
    QTest::newRow("comma") << 44 << false;
    QTest::newRow("letter") << int('a') << false;
    QTest::newRow("enter") << 13 << false;
    QTest::newRow("tab") << 9 << false;
    QTest::newRow("delete") << 127 << false;
    QTest::newRow("none") << 0 << false;
    // clang-format on
}

void TestRoutines::isnumerickeyLetsDigitsPointAndBackspaceThrough() {
    QFETCH(int, key);
    QFETCH(bool, expected);
    QCOMPARE(core::isnumerickey(key), expected);
}

void TestRoutines::daysinmonthIsTheDaysOfTheDatesOwnMonth_data() {
    QTest::addColumn<QDate>("date");
    QTest::addColumn<int>("expected");
    // clang-format off
    QTest::newRow("31 January of a leap year") << QDate(2024, 1, 31) << 31;
    QTest::newRow("31 January") << QDate(2023, 1, 31) << 31;
    QTest::newRow("February of a leap year") << QDate(2024, 2, 15) << 29;
    QTest::newRow("leap day itself") << QDate(2024, 2, 29) << 29;
    QTest::newRow("February") << QDate(2023, 2, 1) << 28;
    QTest::newRow("century without leap day") << QDate(1900, 2, 10) << 28;
    QTest::newRow("fourth century with leap day") << QDate(2000, 2, 10) << 29;
    QTest::newRow("April") << QDate(2024, 4, 30) << 30;
    QTest::newRow("no date") << QDate() << 0;
    // clang-format on
}

void TestRoutines::daysinmonthIsTheDaysOfTheDatesOwnMonth() {
    QFETCH(QDate, date);
    QFETCH(int, expected);
    QCOMPARE(core::daysinmonth(date), expected);
}

void TestRoutines::workingdaysNamedCases_data() {
    QTest::addColumn<QDate>("first");
    QTest::addColumn<QDate>("last");
    QTest::addColumn<int>("expected");
    // 6 January 2024 is a Saturday.
    // clang-format off
    QTest::newRow("Saturday to the following Sunday") << QDate(2024, 1, 6) << QDate(2024, 1, 7)
                                                      << 0;
    QTest::newRow("one Saturday") << QDate(2024, 1, 6) << QDate(2024, 1, 6) << 0;
    QTest::newRow("one Monday") << QDate(2024, 1, 8) << QDate(2024, 1, 8) << 1;
    QTest::newRow("Monday to Friday") << QDate(2024, 1, 8) << QDate(2024, 1, 12) << 5;
    QTest::newRow("Friday to Monday") << QDate(2024, 1, 12) << QDate(2024, 1, 15) << 2;
    QTest::newRow("Sunday to Saturday") << QDate(2024, 1, 7) << QDate(2024, 1, 13) << 5;
    QTest::newRow("leap year 2024") << QDate(2024, 1, 1) << QDate(2024, 12, 31) << 262;
    QTest::newRow("last before first") << QDate(2024, 1, 12) << QDate(2024, 1, 8) << 0;
    QTest::newRow("last a day before first") << QDate(2024, 1, 9) << QDate(2024, 1, 8) << 0;
    QTest::newRow("no last date") << QDate(2024, 1, 8) << QDate() << 0;
    QTest::newRow("no first date") << QDate() << QDate(2024, 1, 8) << 0;
    // clang-format on
}

void TestRoutines::workingdaysNamedCases() {
    QFETCH(QDate, first);
    QFETCH(QDate, last);
    QFETCH(int, expected);
    QCOMPARE(core::workingdays(first, last), expected);
}

void TestRoutines::workingdaysAgreesWithADayByDayCount() {
    QRandomGenerator random(20240106);
    const QDate base(1990, 1, 1);
    for (int i = 0; i < 3000; ++i) {
        const QDate first = base.addDays(random.bounded(20000));
        // Mostly short ranges, some years long, some backwards.
        const int span = i % 10 == 0 ? random.bounded(3000) : random.bounded(-3, 40);
        const QDate last = first.addDays(span);
        const int expected = workingDaysByWalking(first, last);
        if (core::workingdays(first, last) != expected)
            QFAIL(qPrintable(QStringLiteral("%1 to %2: expected %3, got %4")
                                 .arg(first.toString(Qt::ISODate), last.toString(Qt::ISODate))
                                 .arg(expected)
                                 .arg(core::workingdays(first, last))));
    }
}

void TestRoutines::parseDateReadsTheProfilesOrder_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDate>("expected");
    // clang-format off
    QTest::newRow("UK day first") << UK << "05/03/2024" << QDate(2024, 3, 5);
    QTest::newRow("US month first") << US << "05/03/2024" << QDate(2024, 5, 3);
    QTest::newRow("empty profile: day first") << "" << "05/03/2024" << QDate(2024, 3, 5);
    QTest::newRow("unknown profile: day first") << "Deutsch" << "05/03/2024" << QDate(2024, 3, 5);
    QTest::newRow("profile with blanks is US") << " English (US) " << "05/03/2024"
                                               << QDate(2024, 5, 3);
    QTest::newRow("single digits") << UK << "5/3/2024" << QDate(2024, 3, 5);
    QTest::newRow("two-digit year, this century") << UK << "5/3/24" << QDate(2024, 3, 5);
    QTest::newRow("two-digit year, last century") << UK << "5/3/30" << QDate(1930, 3, 5);
    QTest::newRow("dots") << UK << "05.03.2024" << QDate(2024, 3, 5);
    QTest::newRow("ISO under UK") << UK << "2024-03-05" << QDate(2024, 3, 5);
    QTest::newRow("ISO under US") << US << "2024-03-05" << QDate(2024, 3, 5);
    QTest::newRow("US has no 13th month") << US << "13/01/2024" << QDate();
    QTest::newRow("31 April") << UK << "31/04/2024" << QDate();
    QTest::newRow("words") << UK << "tomorrow" << QDate();
    QTest::newRow("empty") << UK << "" << QDate();
    // clang-format on
}

void TestRoutines::parseDateReadsTheProfilesOrder() {
    QFETCH(QString, language);
    QFETCH(QString, text);
    QFETCH(QDate, expected);
    QCOMPARE(regional::parseDate(text, language), expected);
    core::session().language = language;
    QCOMPARE(core::parseDate(text), expected);
    QCOMPARE(core::isDate(text), expected.isValid());
}

void TestRoutines::formatDateWritesTheProfilesOrder_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QDate>("date");
    QTest::addColumn<QString>("expected");
    // clang-format off
    QTest::newRow("UK") << UK << QDate(2024, 3, 5) << "05/03/2024";
    QTest::newRow("US") << US << QDate(2024, 3, 5) << "03/05/2024";
    QTest::newRow("empty profile") << "" << QDate(2024, 3, 5) << "05/03/2024";
    QTest::newRow("unknown profile") << "english (us)" << QDate(2024, 3, 5) << "05/03/2024";
    QTest::newRow("no date") << UK << QDate() << "";
    // clang-format on
}

void TestRoutines::formatDateWritesTheProfilesOrder() {
    QFETCH(QString, language);
    QFETCH(QDate, date);
    QFETCH(QString, expected);
    core::session().language = language;
    QCOMPARE(core::formatDate(date), expected);
    // What is written must read back as the same date.
    if (date.isValid()) QCOMPARE(core::parseDate(expected), date);
}

void TestRoutines::profileCaptionsAndOrderTakeTheOtherwiseBranch_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("sign");
    QTest::addColumn<QString>("postcode");
    QTest::addColumn<QString>("order");
    QTest::addColumn<QString>("message");
    const QString ukMessage = QStringLiteral("Please enter the date in the format DD/MM/YYYY");
    const QString usMessage = QStringLiteral("Please enter the date in the format MM/DD/YYYY");
    // clang-format off
    QTest::newRow("UK") << UK << "£" << "Post Code" << "dmy" << ukMessage;
    QTest::newRow("US") << US << "$" << "Zip Code" << "mdy" << usMessage;
    // Tests for US and tests for UK disagree about a value that is neither.
    QTest::newRow("empty") << "" << "£" << "Post Code" << "mdy" << ukMessage;
    QTest::newRow("lower case") << "english (uk)" << "£" << "Post Code" << "mdy" << ukMessage;
    QTest::newRow("unknown") << "Français" << "£" << "Post Code" << "mdy" << ukMessage;
    // clang-format on
}

void TestRoutines::profileCaptionsAndOrderTakeTheOtherwiseBranch() {
    QFETCH(QString, language);
    QFETCH(QString, sign);
    QFETCH(QString, postcode);
    QFETCH(QString, order);
    QFETCH(QString, message);
    QCOMPARE(regional::currencySign(language), sign);
    QCOMPARE(regional::postcodeCaption(language), postcode);
    QCOMPARE(regional::sqlDateOrder(language), order);
    core::session().language = language;
    QCOMPARE(core::currencySign(), sign);
    QCOMPARE(core::postcodeCaption(), postcode);
    testsupport::MessageRecorder boxes;
    core::showdateformat();
    QCOMPARE(boxes.texts(), QStringList{message});
    QCOMPARE(boxes.calls().first().title, QString());
}

void TestRoutines::moneyParse_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<qint64>("units");
    // clang-format off
    QTest::newRow("whole") << "12" << true << qint64(120000);
    QTest::newRow("negative") << "-3.5" << true << qint64(-35000);
    QTest::newRow("four decimals") << "0.1234" << true << qint64(1234);
    QTest::newRow("no whole part") << ".5" << true << qint64(5000);
    QTest::newRow("trailing point") << "5." << true << qint64(50000);
    QTest::newRow("blanks around") << " 7.25 " << true << qint64(72500);
    QTest::newRow("fifth decimal rounds up") << "0.00005" << true << qint64(1);
    QTest::newRow("rounding carries into the whole") << "1.99995" << true << qint64(20000);
    QTest::newRow("negative rounding") << "-0.00005" << true << qint64(-1);
    QTest::newRow("empty") << "" << false << qint64(0);
    QTest::newRow("point alone") << "." << false << qint64(0);
    QTest::newRow("two points") << "1.2.3" << false << qint64(0);
    QTest::newRow("thousands separator") << "1,000" << false << qint64(0);
    QTest::newRow("letters") << "abc" << false << qint64(0);
    QTest::newRow("exponent") << "1e5" << false << qint64(0);
    QTest::newRow("largest amount") << "99999999999999.9999" << true
                                    << qint64(999999999999999999);
    QTest::newRow("fifteen whole digits would wrap") << "999999999999999" << false << qint64(0);
    QTest::newRow("rounding past the largest") << "99999999999999.99995" << false << qint64(0);
    QTest::newRow("twenty digits") << "-12345678901234567890" << false << qint64(0);
    // clang-format on
}

void TestRoutines::moneyParse() {
    QFETCH(QString, text);
    QFETCH(bool, valid);
    QFETCH(qint64, units);
    const auto m = Money::parse(text);
    QCOMPARE(m.has_value(), valid);
    if (valid) QCOMPARE(m->units(), units);
}

void TestRoutines::moneyToString_data() {
    QTest::addColumn<qint64>("units");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<QString>("expected");
    // clang-format off
    QTest::newRow("pads to two decimals") << qint64(15000) << 2 << "1.50";
    QTest::newRow("negative below one") << qint64(-5000) << 2 << "-0.50";
    QTest::newRow("half a penny rounds up") << qint64(50) << 2 << "0.01";
    QTest::newRow("negative half a penny") << qint64(-50) << 2 << "-0.01";
    QTest::newRow("negative rounding to zero has no sign") << qint64(-49) << 2 << "0.00";
    QTest::newRow("whole only") << qint64(1234567890000) << 0 << "123456789";
    QTest::newRow("all four decimals") << qint64(12345) << 4 << "1.2345";
    QTest::newRow("leading zero decimals") << qint64(10005) << 4 << "1.0005";
    QTest::newRow("zero") << qint64(0) << 2 << "0.00";
    // clang-format on
}

void TestRoutines::moneyToString() {
    QFETCH(qint64, units);
    QFETCH(int, decimals);
    QFETCH(QString, expected);
    QCOMPARE(Money::fromUnits(units).toString(decimals), expected);
    // Four decimals is what is bound to the database: it must read back exactly.
    QCOMPARE(Money::parse(Money::fromUnits(units).toString(4))->units(), units);
}

void TestRoutines::moneyAsPeopleTypeIt_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<qint64>("units");
    // clang-format off
    QTest::newRow("thousands") << "30,000" << true << qint64(300000000);
    QTest::newRow("pound sign and pence") << QString::fromUtf8("£30,000.50") << true
                                          << qint64(300005000);
    QTest::newRow("dollar sign") << "$1,234.5" << true << qint64(12345000);
    QTest::newRow("minus before the sign") << QString::fromUtf8("-£5") << true << qint64(-50000);
    QTest::newRow("minus after the sign") << QString::fromUtf8("£-5") << true << qint64(-50000);
    QTest::newRow("millions") << "12,345,678" << true << qint64(123456780000);
    QTest::newRow("plain figure") << "1000" << true << qint64(10000000);
    QTest::newRow("groups of two") << "1,00" << false << qint64(0);
    QTest::newRow("group of four") << "1,0000" << false << qint64(0);
    QTest::newRow("leading separator") << ",100" << false << qint64(0);
    QTest::newRow("separator in the pence") << "1.000,5" << false << qint64(0);
    QTest::newRow("sign alone") << QString::fromUtf8("£") << false << qint64(0);
    QTest::newRow("sign after the figure") << QString::fromUtf8("30£") << false << qint64(0);
    QTest::newRow("exponent") << "1e5" << false << qint64(0);
    QTest::newRow("too large to hold") << "999,999,999,999,999" << false << qint64(0);
    // clang-format on
}

void TestRoutines::moneyAsPeopleTypeIt() {
    QFETCH(QString, text);
    QFETCH(bool, valid);
    QFETCH(qint64, units);
    const auto m = Money::parseTyped(text);
    QCOMPARE(m.has_value(), valid);
    if (valid) QCOMPARE(m->units(), units);
}

void TestRoutines::typedFieldsRefuseWhatCannotBeStored_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("stored"); // "" when refused or blank
    QTest::addColumn<QString>("message");
    // clang-format off
    QTest::newRow("money typed with sign") << "money" << QString::fromUtf8("£30,000") << "30000.0000" << "";
    QTest::newRow("money blank is nothing") << "money" << "  " << "" << "";
    QTest::newRow("money letters") << "money" << "abc" << ""
        << "Please enter Car Allowance as an amount, such as 30000 or 30,000.50";
    QTest::newRow("money exponent") << "money" << "1e5" << ""
        << "Please enter Car Allowance as an amount, such as 30000 or 30,000.50";
    QTest::newRow("money beyond the column") << "money" << "999999999999999" << ""
        << "Car Allowance is too large: the most it can hold is 99999999999.9999";
    QTest::newRow("money just beyond the column") << "money" << "100,000,000,000" << ""
        << "Car Allowance is too large: the most it can hold is 99999999999.9999";
    QTest::newRow("hours rounded to the column") << "hours" << "12.345678" << "12.3500" << "";
    QTest::newRow("hours half rounds up") << "hours" << "37.125" << "37.1300" << "";
    QTest::newRow("hours with a sign") << "hours" << QString::fromUtf8("£37") << ""
        << "Please enter Employee hours as a number";
    QTest::newRow("hours beyond the column") << "hours" << "10000000" << ""
        << "Employee hours is too large: the most it can hold is 9999999.99";
    QTest::newRow("hours rounding beyond the column") << "hours" << "9999999.995" << ""
        << "Employee hours is too large: the most it can hold is 9999999.99";
    QTest::newRow("date") << "date" << "31/01/2024" << "2024-01-31" << "";
    QTest::newRow("date that is none") << "date" << "31/02/2024" << ""
        << "Please enter DOB in the format DD/MM/YYYY";
    QTest::newRow("time") << "time" << "9:05" << "09:05" << "";
    QTest::newRow("time blank mask") << "time" << ":" << "" << "";
    QTest::newRow("time beyond the day") << "time" << "25:61" << ""
        << "Please enter Time as a time of day in the format HH:MM";
    QTest::newRow("time 99:99") << "time" << "99:99" << ""
        << "Please enter Time as a time of day in the format HH:MM";
    // clang-format on
}

void TestRoutines::typedFieldsRefuseWhatCannotBeStored() {
    QFETCH(QString, kind);
    QFETCH(QString, text);
    QFETCH(QString, stored);
    QFETCH(QString, message);
    core::session().language = UK;
    core::TypedFields fields;
    QString got;
    if (kind == "money") {
        if (const auto m = fields.money("Car Allowance", text)) got = m->toString(4);
    } else if (kind == "hours") {
        if (const auto m = fields.number("Employee hours", text, {9, 2})) got = m->toString(4);
    } else if (kind == "date") {
        got = fields.date("DOB", text).toString(Qt::ISODate);
    } else {
        got = fields.time("Time", text);
    }
    QCOMPARE(got, stored);
    QCOMPARE(fields.message(), message);
    QCOMPARE(fields.ok(), message.isEmpty());
    // The first refusal is the one shown; later fields do not replace it.
    fields.number("Days Holiday", "x", {9, 2});
    if (!message.isEmpty()) QCOMPARE(fields.message(), message);
}

QTEST_MAIN(TestRoutines)
#include "tst_routines.moc"
