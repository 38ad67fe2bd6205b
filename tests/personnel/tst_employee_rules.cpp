#include "employee_lists.h"
#include "employee_rules.h"
#include "person_record.h"
#include "session.h"
#include "testdb.h"

#include <QtTest>

using core::Money;
using personnel::AllocationEntry;
using personnel::PensionKind;
using testsupport::TestDatabase;

namespace {
const QString UK = QStringLiteral("English (UK)");
const QString US = QStringLiteral("English (US)");
const QString OptOut = QStringLiteral(
    "Under the working time regulations (1998) this employee is required to 'Opt Out' if "
    "he/she is to work on average more than 48 hours per week.");

QString figure(const std::optional<Money>& m) {
    return m ? m->toString(2) : QStringLiteral("<empty>");
}

qint64 addPerson(core::Db& db, const QString& first, const QString& last) {
    personnel::PersonRecord r;
    r.firstnames = first;
    r.surname = last;
    r.startDate = QDate(2020, 1, 6);
    return personnel::insertPerson(db, r);
}

QList<qint64> ids(const personnel::ListRows& rows) {
    QList<qint64> out;
    for (const auto& r : rows)
        out << r.id;
    return out;
}
} // namespace

Q_DECLARE_METATYPE(PensionKind)
Q_DECLARE_METATYPE(AllocationEntry)

class TestEmployeeRules : public QObject {
    Q_OBJECT
private slots:
    void init() { core::session().language = UK; }

    void lengthOfService_data();
    void lengthOfService();
    void workingTimeWarning_data();
    void workingTimeWarning();
    void capitaliseFirstRaisesOnlyTheFirstLetter_data();
    void capitaliseFirstRaisesOnlyTheFirstLetter();
    void okChecksInTheirOrder_data();
    void okChecksInTheirOrder();
    void captionAndProfileMessages();

    void pensionFigures_data();
    void pensionFigures();
    void tickingACalculationBox_data();
    void tickingACalculationBox();
    void leavingAPercentBox_data();
    void leavingAPercentBox();
    void carAllocationDate_data();
    void carAllocationDate();
    void leaverTick_data();
    void leaverTick();

    void listsComeInTheirOrders();
    void listEditsAndDeletesTouchOnlyTheirRow();
    void documentsKeepThePathApart();
    void appraisalsNeedACurrentLineManager_data();
    void appraisalsNeedACurrentLineManager();
    void dialogChecks_data();
    void dialogChecks();
};

void TestEmployeeRules::lengthOfService_data() {
    QTest::addColumn<QDate>("start");
    QTest::addColumn<QDate>("today");
    QTest::addColumn<int>("years");
    QTest::addColumn<int>("months");
    const QDate today(2024, 6, 15);
    // clang-format off
    QTest::newRow("started today")              << today            << today << 0 << 0;
    QTest::newRow("a month boundary counts")    << QDate(2024, 5, 31) << today << 0 << 1;
    QTest::newRow("12 months stay months")      << QDate(2023, 6, 30) << today << 0 << 12;
    QTest::newRow("13 months are 1 and 1")      << QDate(2023, 5, 1)  << today << 1 << 1;
    QTest::newRow("24 months are 2 and 0")      << QDate(2022, 6, 1)  << today << 2 << 0;
    QTest::newRow("across years")               << QDate(2013, 12, 31) << today << 10 << 6;
    // clang-format on
}

void TestEmployeeRules::lengthOfService() {
    QFETCH(QDate, start);
    QFETCH(QDate, today);
    QFETCH(int, years);
    QFETCH(int, months);
    const auto service = personnel::lengthOfService(start, today);
    QVERIFY(service.has_value());
    QCOMPARE(service->years, years);
    QCOMPARE(service->months, months);
    QVERIFY(!personnel::lengthOfService(QDate(), today));
}

void TestEmployeeRules::workingTimeWarning_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("hours");
    QTest::addColumn<bool>("warns");
    // clang-format off
    QTest::newRow("48 exactly")        << UK << "48"    << false;
    QTest::newRow("48.5")              << UK << "48.5"  << true;
    QTest::newRow("60 with blanks")    << UK << " 60 "  << true;
    QTest::newRow("not a number")      << UK << "lots"  << false;
    QTest::newRow("blank")             << UK << ""      << false;
    QTest::newRow("US profile")        << US << "60"    << false;
    QTest::newRow("unknown profile")   << "English" << "60" << false;
    // clang-format on
}

void TestEmployeeRules::workingTimeWarning() {
    QFETCH(QString, language);
    QFETCH(QString, hours);
    QFETCH(bool, warns);
    QCOMPARE(personnel::workingTimeWarning(language, hours), warns ? OptOut : QString());
}

void TestEmployeeRules::capitaliseFirstRaisesOnlyTheFirstLetter_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::newRow("lower case") << "mary ann"
                                << "Mary ann";
    QTest::newRow("apostrophe kept") << "o'neil"
                                     << "O'neil";
    QTest::newRow("rest left as typed") << "mcDONALD"
                                        << "McDONALD";
    QTest::newRow("empty stays empty") << ""
                                       << "";
    QTest::newRow("leading blank") << " anna"
                                   << " anna";
}

void TestEmployeeRules::capitaliseFirstRaisesOnlyTheFirstLetter() {
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    QCOMPARE(personnel::capitaliseFirst(typed), shown);
}

void TestEmployeeRules::okChecksInTheirOrder_data() {
    QTest::addColumn<bool>("firstAider");
    QTest::addColumn<QDate>("qualified");
    QTest::addColumn<QString>("surname");
    QTest::addColumn<QDate>("start");
    QTest::addColumn<QDate>("allocation");
    QTest::addColumn<QString>("message");
    QTest::addColumn<bool>("save");
    QTest::addColumn<bool>("clearAllocation");
    const QDate start(2020, 3, 2);
    const QString firstAid = "If you specify this employee as a first aider you must must enter "
                             "the date they qualified";
    const QString names =
        "You need to enter a Firstname,Surname and Startdate before saving an employee";
    const QString car = "You cannot enter a car allocation date before the employees startdate "
                        "02/03/2020";
    // clang-format off
    QTest::newRow("first aider date comes first") << true << QDate() << "" << QDate() << QDate(2019, 1, 1) << firstAid << false << false;
    QTest::newRow("blank surname")                << false << QDate() << "  " << start << QDate() << names << false << false;
    QTest::newRow("no start date")                << true << start << "Lee" << QDate() << QDate() << names << false << false;
    QTest::newRow("car before start still saves") << false << QDate() << "Lee" << start << QDate(2020, 3, 1) << car << true << true;
    QTest::newRow("car on the start date")        << false << QDate() << "Lee" << start << start << "" << true << false;
    QTest::newRow("all in order")                 << true << start << "Lee" << start << QDate() << "" << true << false;
    // clang-format on
}

void TestEmployeeRules::okChecksInTheirOrder() {
    QFETCH(bool, firstAider);
    QFETCH(QDate, qualified);
    QFETCH(QString, surname);
    QFETCH(QDate, start);
    QFETCH(QDate, allocation);
    QFETCH(QString, message);
    QFETCH(bool, save);
    QFETCH(bool, clearAllocation);
    const auto out = personnel::checkOk({firstAider, qualified, "Ann", surname, start, allocation});
    QCOMPARE(out.message, message);
    QCOMPARE(out.save, save);
    QCOMPARE(out.clearAllocationDate, clearAllocation);
}

void TestEmployeeRules::captionAndProfileMessages() {
    QCOMPARE(personnel::employeeCaption("O'Neil", "Mary", "42"),
             QStringLiteral("Employee : O'Neil , Mary : 42"));
    QCOMPARE(
        personnel::firstAiderDateMessage(US),
        QStringLiteral("Please enter First Aider Qualification Date in the format MM/DD/YYYY"));
    QCOMPARE(
        personnel::firstAiderDateMessage(UK),
        QStringLiteral("Please enter First Aider Qualification Date in the format DD/MM/YYYY"));
}

void TestEmployeeRules::pensionFigures_data() {
    QTest::addColumn<PensionKind>("kind");
    QTest::addColumn<QString>("salary");
    QTest::addColumn<QString>("percent");
    QTest::addColumn<int>("baserate");
    QTest::addColumn<QString>("expected");
    // clang-format off
    QTest::newRow("company 5% of 30000")       << PensionKind::Company  << "30000" << "5"   << 22 << "125.00";
    QTest::newRow("employee 5% at base 22")    << PensionKind::Employee << "30000" << "5"   << 22 << "97.50";
    QTest::newRow("half a penny rounds up")    << PensionKind::Company  << "6"     << "1"   << 0  << "0.01";
    QTest::newRow("company pennies")           << PensionKind::Company  << "25999.99" << "7.5" << 0 << "162.50";
    QTest::newRow("employee with no base rate")<< PensionKind::Employee << "12000" << "3"   << 0  << "30.00";
    QTest::newRow("company 100 is out")        << PensionKind::Company  << "30000" << "100" << 22 << "<empty>";
    QTest::newRow("company 99.6 counts as 100")<< PensionKind::Company  << "30000" << "99.6" << 22 << "<empty>";
    QTest::newRow("company 99.4 counts as 99") << PensionKind::Company  << "30000" << "99.4" << 22 << "2485.00";
    QTest::newRow("employee 100 is in")        << PensionKind::Employee << "30000" << "100" << 22 << "1950.00";
    QTest::newRow("employee 101 is out")       << PensionKind::Employee << "30000" << "101" << 22 << "<empty>";
    QTest::newRow("zero percent is out")       << PensionKind::Employee << "30000" << "0.4" << 22 << "<empty>";
    QTest::newRow("salary not numeric")        << PensionKind::Company  << "lots"  << "5"   << 22 << "<empty>";
    // clang-format on
}

void TestEmployeeRules::pensionFigures() {
    QFETCH(PensionKind, kind);
    QFETCH(QString, salary);
    QFETCH(QString, percent);
    QFETCH(int, baserate);
    QFETCH(QString, expected);
    QCOMPARE(figure(personnel::pensionFigure(kind, salary, percent, baserate)), expected);
}

void TestEmployeeRules::tickingACalculationBox_data() {
    QTest::addColumn<PensionKind>("kind");
    QTest::addColumn<QString>("salary");
    QTest::addColumn<QString>("percent");
    QTest::addColumn<bool>("loading");
    QTest::addColumn<QString>("refusal");
    QTest::addColumn<QString>("question");
    QTest::addColumn<QString>("label");
    const QString companyMissing = "You need to enter a percentage into Company Contribution box "
                                   "and make sure you have entered a salary.";
    const QString employeeMissing = "You need to enter a percentage into the Employee "
                                    "contribution box and make sure you have entered a salary";
    const QString companyAsk = "The calculation used to show the monthly amount contributed by "
                               "the company is\n(30000/100 * 5) / 12\nWould you like to use this "
                               "calculation?";
    const QString employeeAsk = "The calculation used to show the monthly amount contributed by "
                                "the employee is\n(5 / 100 * 30000) - ( 22 / 100 * (5 / 100 * "
                                "30000))\nWould you like to use this calculation?";
    // clang-format off
    QTest::newRow("company asks, as typed")   << PensionKind::Company  << " 30000 " << "5 " << false << "" << companyAsk << "125.00";
    QTest::newRow("employee asks")            << PensionKind::Employee << "30000" << "5" << false << "" << employeeAsk << "97.50";
    QTest::newRow("loading asks nothing")     << PensionKind::Company  << "30000" << "5" << true  << "" << "" << "125.00";
    QTest::newRow("company without percent")  << PensionKind::Company  << "30000" << ""  << false << companyMissing << "" << "<empty>";
    QTest::newRow("employee without salary")  << PensionKind::Employee << "" << "5" << false << employeeMissing << "" << "<empty>";
    QTest::newRow("company 100 asks, no figure") << PensionKind::Company << "30000" << "100" << false << "" << QString(companyAsk).replace("* 5)", "* 100)") << "<empty>";
    // clang-format on
}

void TestEmployeeRules::tickingACalculationBox() {
    QFETCH(PensionKind, kind);
    QFETCH(QString, salary);
    QFETCH(QString, percent);
    QFETCH(bool, loading);
    QFETCH(QString, refusal);
    QFETCH(QString, question);
    QFETCH(QString, label);
    const auto tick = personnel::tickPension(kind, salary, percent, 22, loading);
    QCOMPARE(tick.refusal, refusal);
    QCOMPARE(tick.question, question);
    QCOMPARE(figure(tick.figure), label);
}

void TestEmployeeRules::leavingAPercentBox_data() {
    QTest::addColumn<PensionKind>("kind");
    QTest::addColumn<bool>("ticked");
    QTest::addColumn<QString>("percent");
    QTest::addColumn<bool>("keepTicked");
    QTest::addColumn<QString>("label");
    // clang-format off
    QTest::newRow("ticked recomputes")        << PensionKind::Company  << true  << "6"   << true  << "150.00";
    QTest::newRow("unticked empties label")   << PensionKind::Company  << false << "6"   << false << "<empty>";
    QTest::newRow("company 100 clears box")   << PensionKind::Company  << true  << "100" << false << "<empty>";
    QTest::newRow("employee 100 stays")       << PensionKind::Employee << true  << "100" << true  << "1950.00";
    QTest::newRow("not numeric clears box")   << PensionKind::Employee << true  << "5%"  << false << "<empty>";
    // clang-format on
}

void TestEmployeeRules::leavingAPercentBox() {
    QFETCH(PensionKind, kind);
    QFETCH(bool, ticked);
    QFETCH(QString, percent);
    QFETCH(bool, keepTicked);
    QFETCH(QString, label);
    const auto left = personnel::leavePensionPercent(kind, ticked, "30000", percent, 22);
    QCOMPARE(left.keepTicked, keepTicked);
    QCOMPARE(figure(left.figure), label);
}

void TestEmployeeRules::carAllocationDate_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QDate>("allocation");
    QTest::addColumn<AllocationEntry>("entry");
    QTest::addColumn<QString>("message");
    const QDate before(2020, 3, 1);
    // clang-format off
    QTest::newRow("typed before start")    << UK << before << AllocationEntry::Typed
        << "You cannot enter a car allocation date before the employees startdate 02/03/2020";
    QTest::newRow("calendar before start") << UK << before << AllocationEntry::Calendar
        << "You cannot allocate a car to an employee before their start date 02/03/2020";
    QTest::newRow("US shows month first")  << US << before << AllocationEntry::Typed
        << "You cannot enter a car allocation date before the employees startdate 03/02/2020";
    QTest::newRow("on the start date")     << UK << QDate(2020, 3, 2) << AllocationEntry::Calendar << "";
    QTest::newRow("no allocation date")    << UK << QDate() << AllocationEntry::Typed << "";
    // clang-format on
}

void TestEmployeeRules::carAllocationDate() {
    QFETCH(QString, language);
    QFETCH(QDate, allocation);
    QFETCH(AllocationEntry, entry);
    QFETCH(QString, message);
    core::session().language = language;
    QCOMPARE(personnel::allocationDateMessage(allocation, QDate(2020, 3, 2), entry), message);
    QCOMPARE(personnel::allocationDateMessage(allocation, QDate(), entry), QString());
}

void TestEmployeeRules::leaverTick_data() {
    QTest::addColumn<bool>("ticked");
    QTest::addColumn<bool>("loading");
    QTest::addColumn<bool>("firstAider");
    QTest::addColumn<bool>("warns");
    QTest::addColumn<bool>("dated");
    // clang-format off
    QTest::newRow("first aider ticked warns")  << true  << false << true  << true  << true;
    QTest::newRow("not a first aider")         << true  << false << false << false << true;
    QTest::newRow("loading does not warn")     << true  << true  << true  << false << true;
    QTest::newRow("unticking does not warn")   << false << false << true  << false << false;
    // clang-format on
}

void TestEmployeeRules::leaverTick() {
    QFETCH(bool, ticked);
    QFETCH(bool, loading);
    QFETCH(bool, firstAider);
    QFETCH(bool, warns);
    QFETCH(bool, dated);
    const QDate today(2024, 6, 15);
    const auto out = personnel::tickLeaver(ticked, loading, firstAider, today);
    QCOMPARE(out.warning, warns ? QStringLiteral("Warning, This employee is a first aider. Please "
                                                 "ensure that there is a replacement")
                                : QString());
    QCOMPARE(out.dateLeft, dated ? today : QDate());
}

void TestEmployeeRules::listsComeInTheirOrders() {
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 p = addPerson(db, "Mary", "O'Neil");
    const QDate d1(2023, 1, 10), d2(2024, 2, 20), d3(2022, 12, 5);

    const qint64 n1 = personnel::addNote(db, p, {d1, "  first "});
    const qint64 n2 = personnel::addNote(db, p, {d2, "second"});
    const qint64 n3 = personnel::addNote(db, p, {d3, "third"});
    const qint64 n4 = personnel::addNote(db, p, {d2, "same day, later"});
    const auto notes = personnel::noteRows(db, p);
    QCOMPARE(ids(notes), QList<qint64>({n2, n4, n1, n3}));
    QCOMPARE(notes[2].cells, QStringList({"10/01/2023", "first"}));

    const qint64 r1 = personnel::addReprimand(db, p, {d3, "Verbal", "Late", "x"});
    const qint64 r2 = personnel::addReprimand(db, p, {d1, "Written", "Absent", "O'Hara saw"});
    const qint64 r3 = personnel::addReprimand(db, p, {QDate(), "Oral", "", ""});
    const auto reprimands = personnel::reprimandRows(db, p);
    QCOMPARE(ids(reprimands), QList<qint64>({r2, r1, r3}));
    QCOMPARE(reprimands[0].cells, QStringList({"10/01/2023", "Written", "Absent", "O'Hara saw"}));
    QCOMPARE(reprimands[2].cells.first(), QString());

    const qint64 a1 = personnel::addAppraisal(db, p, {d3, "Brown, Pat", "Good", ""});
    const qint64 a2 = personnel::addAppraisal(db, p, {d2, "Brown, Pat", "Excellent", "n"});
    QCOMPARE(ids(personnel::appraisalRows(db, p)), QList<qint64>({a2, a1}));

    core::session().language = US;
    const qint64 doc1 = personnel::attachDocument(db, p, {"Contract", "/docs/c.pdf", ""}, d2);
    const qint64 doc2 = personnel::attachDocument(db, p, {"CV", "/docs/cv.pdf", "old"}, d3);
    const qint64 doc3 = personnel::attachDocument(db, p, {"Photo", "/docs/p.png", ""}, d2);
    const auto docs = personnel::documentRows(db, p);
    QCOMPARE(ids(docs), QList<qint64>({doc2, doc1, doc3}));
    QCOMPARE(docs[0].cells, QStringList({"12/05/2022", "CV", "old", "/docs/cv.pdf"}));

    // Another person's rows never show.
    const qint64 other = addPerson(db, "Kate", "Other");
    personnel::addNote(db, other, {d1, "not hers"});
    QCOMPARE(personnel::noteRows(db, p).size(), std::size_t(4));
    QCOMPARE(personnel::noteRows(db, other).size(), std::size_t(1));
}

void TestEmployeeRules::listEditsAndDeletesTouchOnlyTheirRow() {
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 p = addPerson(db, "Mary", "Lee");
    const QDate d(2024, 1, 2);
    const qint64 keep = personnel::addNote(db, p, {d, "keep"});
    const qint64 note = personnel::addNote(db, p, {d, "old"});
    personnel::updateNote(db, note, {QDate(2024, 3, 4), " new "});
    QCOMPARE(personnel::noteRows(db, p).front().cells, QStringList({"04/03/2024", "new"}));
    personnel::deleteNote(db, note);
    QCOMPARE(ids(personnel::noteRows(db, p)), QList<qint64>({keep}));

    const qint64 rep = personnel::addReprimand(db, p, {d, "Verbal", "", ""});
    const qint64 rep2 = personnel::addReprimand(db, p, {d, "Verbal", "", ""});
    personnel::updateReprimand(db, rep, {d, "Final", "Theft", "n"});
    QCOMPARE(personnel::reprimandRows(db, p).front().cells,
             QStringList({"02/01/2024", "Final", "Theft", "n"}));
    personnel::deleteReprimand(db, rep);
    QCOMPARE(ids(personnel::reprimandRows(db, p)), QList<qint64>({rep2}));

    const qint64 app = personnel::addAppraisal(db, p, {d, "Brown, Pat", "Fair", ""});
    personnel::updateAppraisal(db, app, {d, "Smith, Jo", "Good", "ok"});
    QCOMPARE(personnel::appraisalRows(db, p).front().cells,
             QStringList({"02/01/2024", "Smith, Jo", "Good", "ok"}));
    personnel::deleteAppraisal(db, app);
    QVERIFY(personnel::appraisalRows(db, p).empty());
}

void TestEmployeeRules::documentsKeepThePathApart() {
    TestDatabase t;
    core::Db& db = t.db();
    const qint64 p = addPerson(db, "Mary", "Lee");
    const QDate attached(2024, 1, 2);
    // A path with " k" in it travels whole, since the key is not built from text.
    const QString path = "/home/o'neil/work k files/offer.pdf";
    const qint64 doc = personnel::attachDocument(db, p, {"Offer", path, "signed"}, attached);
    auto rows = personnel::documentRows(db, p);
    QCOMPARE(rows.front().id, doc);
    QCOMPARE(rows.front().path, path);

    personnel::updateDocument(db, doc, {"Offer v2", "/home/x/offer2.pdf", ""});
    const auto loaded = personnel::loadDocument(db, doc);
    QCOMPARE(loaded.title, QStringLiteral("Offer v2"));
    QCOMPARE(loaded.path, QStringLiteral("/home/x/offer2.pdf"));
    rows = personnel::documentRows(db, p);
    QCOMPARE(rows.front().date, attached); // editing keeps the date

    personnel::detachDocument(db, doc);
    QVERIFY(personnel::documentRows(db, p).empty());

    QCOMPARE(personnel::joinDocumentPath("/docs/", "a.pdf"), QStringLiteral("/docs/a.pdf"));
    QCOMPARE(personnel::joinDocumentPath("/docs", "a.pdf"), QStringLiteral("/docs/a.pdf"));
    QCOMPARE(
        personnel::missingDocumentMessage("/x/a.pdf"),
        QStringLiteral("Cannot find the specified document at location /x/a.pdf. Please check and "
                       "try again."));
}

void TestEmployeeRules::appraisalsNeedACurrentLineManager_data() {
    QTest::addColumn<int>("deleted");
    QTest::addColumn<int>("left");
    QTest::addColumn<bool>("counts");
    QTest::newRow("current manager") << 0 << 0 << true;
    QTest::newRow("manager who left") << 0 << 1 << false;
    QTest::newRow("deleted manager") << 1 << 0 << false;
}

void TestEmployeeRules::appraisalsNeedACurrentLineManager() {
    QFETCH(int, deleted);
    QFETCH(int, left);
    QFETCH(bool, counts);
    TestDatabase t;
    core::Db& db = t.db();
    addPerson(db, "Not", "Manager");
    QVERIFY(!personnel::hasCurrentLineManagers(db));
    const qint64 m = addPerson(db, "Pat", "O'Brien");
    db.exec("UPDATE Person SET IsManager = 1, blndeleted = ?, HasLeft = ? WHERE Person_ID = ?",
            {deleted, left, m});
    QCOMPARE(personnel::hasCurrentLineManagers(db), counts);
    // The dialog's own list shows every manager, whatever the check counted.
    const auto managers = personnel::appraisalManagerEntries(db);
    QCOMPARE(managers.size(), std::size_t(1));
    QCOMPARE(managers.front().text, QStringLiteral("O'Brien, Pat"));
}

void TestEmployeeRules::dialogChecks_data() {
    QTest::addColumn<QString>("dialog");
    QTest::addColumn<QString>("date");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<bool>("dateFormat");
    QTest::addColumn<QString>("message");
    const QString future = "You cannot enter a date in the future";
    const QString minimum = "You must enter a minimum of a date and action";
    const QString appraiser = "Please enter a date and Appraiser";
    // Today is 15/06/2024 in every row.
    // clang-format off
    QTest::newRow("note ok")                   << "note" << "15/06/2024" << "x"   << true  << false << "";
    QTest::newRow("note empty text is silent") << "note" << "15/06/2024" << " "   << false << false << "";
    QTest::newRow("note no date is silent")    << "note" << ""           << "x"   << false << false << "";
    QTest::newRow("note bad date")             << "note" << "31/02/2024" << "x"   << false << true  << "";
    QTest::newRow("reprimand today passes")    << "reprimand" << "15/06/2024" << "Verbal" << true << false << "";
    QTest::newRow("reprimand tomorrow refused")<< "reprimand" << "16/06/2024" << "Verbal" << false << false << future;
    QTest::newRow("reprimand no action")       << "reprimand" << "15/06/2024" << ""  << false << false << minimum;
    QTest::newRow("reprimand bad date")        << "reprimand" << "June"  << "Verbal" << false << true << "";
    QTest::newRow("appraisal ok")              << "appraisal" << "01/06/2024" << "Brown, Pat" << true << false << "";
    QTest::newRow("appraisal bad date first")  << "appraisal" << "June"  << "" << false << true << "";
    QTest::newRow("appraisal blank date")      << "appraisal" << ""      << "Brown, Pat" << false << false << appraiser;
    QTest::newRow("appraisal no manager")      << "appraisal" << "01/06/2024" << "" << false << false << appraiser;
    QTest::newRow("appraisal future")          << "appraisal" << "16/06/2024" << "Brown, Pat" << false << false << future;
    QTest::newRow("document ok")               << "document" << "Contract" << "/docs/c.pdf" << true << false << "";
    QTest::newRow("document no location")      << "document" << "Contract" << "" << false << false << "Please enter a description";
    QTest::newRow("document no description")   << "document" << " " << "/docs/c.pdf" << false << false << "Please enter a description";
    // clang-format on
}

void TestEmployeeRules::dialogChecks() {
    QFETCH(QString, dialog);
    QFETCH(QString, date);
    QFETCH(QString, text);
    QFETCH(bool, ok);
    QFETCH(bool, dateFormat);
    QFETCH(QString, message);
    const QDate today(2024, 6, 15);
    personnel::DialogCheck check;
    if (dialog == "note")
        check = personnel::checkNote(date, text);
    else if (dialog == "reprimand")
        check = personnel::checkReprimand(date, text, today);
    else if (dialog == "appraisal")
        check = personnel::checkAppraisal(date, text, today);
    else
        check = personnel::checkDocument(date, text);
    QCOMPARE(check.ok, ok);
    QCOMPARE(check.dateFormat, dateFormat);
    QCOMPARE(check.message, message);
}

QTEST_MAIN(TestEmployeeRules)
#include "tst_employee_rules.moc"
