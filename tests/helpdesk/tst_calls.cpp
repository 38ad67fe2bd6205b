#include "callassets.h"
#include "calllists.h"
#include "calllistview.h"
#include "callrows.h"
#include "calls.h"
#include "session.h"
#include "testdb.h"

#include <QtTest>

using namespace callrows;
using helpdesk::CallText;
using helpdesk::SearchResult;
using testsupport::TestDatabase;

class TestCalls : public QObject {
    Q_OBJECT
private slots:
    void init() { core::session().language = "English (UK)"; }

    void checkCall_data();
    void checkCall();
    void logWritesTheCallAndItsOpenedRow_data();
    void logWritesTheCallAndItsOpenedRow();
    void closeReopenAndSaveAgain();
    void actionSetsTheStatus_data();
    void actionSetsTheStatus();
    void writesRefusedAfterAnotherUsersChange_data();
    void writesRefusedAfterAnotherUsersChange();
    void search_data();
    void search();
    void listsOrderAndColourCalls();
    void headerClickSortsByColumn_data();
    void headerClickSortsByColumn();
    void assetDetails_data();
    void assetDetails();
    void softwareRowOfProblem_data();
    void softwareRowOfProblem();
};

void TestCalls::checkCall_data() {
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("isNew");
    QTest::addColumn<QString>("message");
    const QString missing = helpdesk::MissingProblem;
    QTest::newRow("complete") << ""
                              << "" << true << "";
    QTest::newRow("blank problem") << "problem"
                                   << "  \n " << true << missing;
    QTest::newRow("blank fault type") << "fault"
                                      << " " << false << missing;
    QTest::newRow("new call closed") << "status"
                                     << "Closed " << true << helpdesk::CloseBeforeLogging;
    QTest::newRow("logged call closed") << "status"
                                        << "Closed" << false << "";
    QTest::newRow("date logged no date")
        << "logged"
        << "31/02/2024" << false << "Please enter Date Logged in the format DD/MM/YYYY";
    QTest::newRow("date logged blank")
        << "logged"
        << " " << false << "Please enter Date Logged in the format DD/MM/YYYY";
    QTest::newRow("date required no date")
        << "required"
        << "next week" << false << "Please enter Date Required in the format DD/MM/YYYY";
    QTest::newRow("date required blank") << "required"
                                         << "" << false << "";
    // The problem is named first: it is what the screen puts the focus in.
    QTest::newRow("problem before dates") << "both"
                                          << "x" << false << missing;
}

void TestCalls::checkCall() {
    QFETCH(QString, field);
    QFETCH(QString, value);
    QFETCH(bool, isNew);
    QFETCH(QString, message);
    CallText c = call(0);
    if (field == "problem") c.description = value;
    if (field == "fault") c.faultType = value;
    if (field == "status") c.status = value;
    if (field == "logged") c.dateLogged = value;
    if (field == "required") c.dateRequired = value;
    if (field == "both") {
        c.description.clear();
        c.dateLogged = value;
    }
    QCOMPARE(helpdesk::checkCall(c, isNew).message, message);
}

void TestCalls::logWritesTheCallAndItsOpenedRow_data() {
    QTest::addColumn<bool>("withCaller");
    QTest::addColumn<QString>("status");
    QTest::newRow("open, with a caller") << true << "Open";
    QTest::newRow("no caller") << false << "Open";
    // The first row says the call was opened, whatever status it was logged with.
    QTest::newRow("logged as awaiting parts") << true << "Awaiting parts";
}

void TestCalls::logWritesTheCallAndItsOpenedRow() {
    QFETCH(bool, withCaller);
    QFETCH(QString, status);
    TestDatabase t;
    auto& db = t.db();
    const qint64 ann = addPerson(db, "O'Neil", "Ann", "214");
    const qint64 pc = addComputer(db, "PC1", ann);
    CallText c = call(withCaller ? ann : 0, status, "  Outlook will not open ");
    c.computerId = pc;
    const auto written = helpdesk::logCall(db, c, Now);

    QVERIFY(written.callId > 0);
    QCOMPARE(history(db, written.callId), QStringList{"Open/Opened Call"});
    QCOMPARE(written.added.size(), size_t(1));
    QCOMPARE(written.added[0].id,
             db.scalar("SELECT CallHistory_ID FROM CallHistory WHERE Call_ID = ?", {written.callId})
                 .toLongLong());
    QCOMPARE(written.added[0].at, Now);
    const auto record = helpdesk::loadCall(db, written.callId);
    QVERIFY(record);
    QCOMPARE(record->text.status, status);
    QCOMPARE(record->text.faultType, QString("Computer/Software"));
    QCOMPARE(record->text.description, QString("Outlook will not open"));
    QCOMPARE(record->text.dateLogged, QString("11/03/2024"));
    QCOMPARE(record->text.dateRequired, QString("14/03/2024"));
    QCOMPARE(record->text.computerId, pc);
    QVERIFY(!record->dateClosed.isValid());
    QCOMPARE(column(db, written.callId, "person_id").isNull(), !withCaller);
    QCOMPARE(record->callerText, withCaller ? QString("%1 - O'Neil, Ann").arg(ann) : QString());
    QCOMPARE(record->extension, withCaller ? QString("214") : QString());
}

void TestCalls::closeReopenAndSaveAgain() {
    TestDatabase t;
    auto& db = t.db();
    const qint64 ann = addPerson(db, "Brown", "Ann");
    const qint64 id = helpdesk::logCall(db, call(ann), Now).callId;

    // A blank "Date Required" keeps the stored date; the caller stays when none is given.
    CallText closing = call(0, "Closed");
    closing.dateRequired = "";
    closing.resolution = " Profile rebuilt ";
    auto written = helpdesk::saveCall(db, id, closing, helpdesk::loadedCallRow(db, id), Now);
    QCOMPARE(history(db, id), (QStringList{"Closed/Closed Call", "Open/Opened Call"}));
    QCOMPARE(written.added.size(), size_t(1));
    auto record = helpdesk::loadCall(db, id);
    QCOMPARE(record->dateClosed, Now.date());
    QCOMPARE(record->text.dateRequired, QString("14/03/2024"));
    QCOMPARE(record->text.resolution, QString("Profile rebuilt"));
    QCOMPARE(record->text.personId, ann);

    const QDateTime later = Now.addDays(2);
    written = helpdesk::reopenCall(db, id, written.loaded, later);
    QCOMPARE(history(db, id),
             (QStringList{"Open/Reopened Call", "Closed/Closed Call", "Open/Opened Call"}));
    QCOMPARE(written.added[0].at, later);
    record = helpdesk::loadCall(db, id);
    QCOMPARE(record->text.status, QString("Open"));
    QCOMPARE(record->dateClosed, Now.date()); // until the next save

    written = helpdesk::saveCall(db, id, record->text, written.loaded, later);
    QVERIFY(written.added.empty());
    QCOMPARE(history(db, id).size(), 3);
    QVERIFY(column(db, id, "DateClosed").isNull());
}

void TestCalls::actionSetsTheStatus_data() {
    QTest::addColumn<QString>("status");
    QTest::addColumn<bool>("closes");
    QTest::newRow("stays open") << "Open" << false;
    QTest::newRow("a status of the site's own") << "With supplier" << false;
    QTest::newRow("closed") << "Closed " << true;
}

void TestCalls::actionSetsTheStatus() {
    QFETCH(QString, status);
    QFETCH(bool, closes);
    TestDatabase t;
    auto& db = t.db();
    const qint64 id = helpdesk::logCall(db, call(0), Now).callId;
    const QDateTime at = Now.addSecs(3600);
    const auto row = helpdesk::addAction(db, id, " Telephoned user - rebooted \n", status, at);
    QCOMPARE(row.action, QString("Telephoned user - rebooted"));
    QCOMPARE(history(db, id),
             (QStringList{status.trimmed() + "/Telephoned user - rebooted", "Open/Opened Call"}));
    QCOMPARE(column(db, id, "currentstatus").toString(), status.trimmed());
    QCOMPARE(core::Db::toDate(column(db, id, "DateClosed")), closes ? at.date() : QDate());

    // A status must be chosen: nothing is written without one.
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, helpdesk::addAction(db, id, "x", " ", at));
    QCOMPARE(history(db, id).size(), 2);

    QCOMPARE(helpdesk::notePrefix("Telephoned user"), QString("Telephoned user - "));
    QCOMPARE(helpdesk::notePrefix("Note/Comment only"), QString());
}

void TestCalls::writesRefusedAfterAnotherUsersChange_data() {
    QTest::addColumn<QString>("write");
    QTest::newRow("save") << "save";
    QTest::newRow("reopen") << "reopen";
}

void TestCalls::writesRefusedAfterAnotherUsersChange() {
    QFETCH(QString, write);
    TestDatabase t;
    auto& db = t.db();
    const qint64 id = helpdesk::logCall(db, call(0), Now).callId;
    if (write == "reopen")
        helpdesk::saveCall(db, id, call(0, "Closed"), helpdesk::loadedCallRow(db, id), Now);
    const core::LoadedRow loaded = helpdesk::loadedCallRow(db, id);
    auto userB = t.openSecond("user-b");
    helpdesk::addAction(*userB, id, "Visited user", "With supplier", Now);
    const QStringList before = history(db, id);

    if (write == "save")
        QVERIFY_THROWS_EXCEPTION(core::RowChanged,
                                 helpdesk::saveCall(db, id, call(0, "Closed"), loaded, Now));
    else
        QVERIFY_THROWS_EXCEPTION(core::RowChanged, helpdesk::reopenCall(db, id, loaded, Now));
    QCOMPARE(history(db, id), before);
    QCOMPARE(column(db, id, "currentstatus").toString(), QString("With supplier"));
}

void TestCalls::search_data() {
    QTest::addColumn<QString>("job");
    QTest::addColumn<QString>("caller"); // "ann", "bob" (no calls), "none", "typed", "gone"
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("message");
    QTest::newRow("number found") << "call"
                                  << "none" << int(SearchResult::OpenCall) << "";
    QTest::newRow("number with blanks") << " call "
                                        << "ann" << int(SearchResult::OpenCall) << "";
    QTest::newRow("unknown number")
        << "999999"
        << "none" << int(SearchResult::Refused) << helpdesk::NoCallWithId;
    QTest::newRow("number beyond any key")
        << "123456789012345678901234"
        << "none" << int(SearchResult::Refused) << helpdesk::NoCallWithId;
    QTest::newRow("not a number") << "12a"
                                  << "ann" << int(SearchResult::Nothing) << "";
    QTest::newRow("nothing typed") << ""
                                   << "none" << int(SearchResult::Nothing) << "";
    QTest::newRow("caller with calls") << ""
                                       << "ann" << int(SearchResult::ListCalls) << "";
    QTest::newRow("caller without calls")
        << ""
        << "bob" << int(SearchResult::Refused) << helpdesk::NoCallsForUser;
    QTest::newRow("name typed that is no one's") << ""
                                                 << "typed" << int(SearchResult::Nothing) << "";
    QTest::newRow("caller without a Person row")
        << ""
        << "gone" << int(SearchResult::Refused) << helpdesk::NoCallsForUser;
}

void TestCalls::search() {
    QFETCH(QString, job);
    QFETCH(QString, caller);
    QFETCH(int, kind);
    QFETCH(QString, message);
    TestDatabase t;
    auto& db = t.db();
    const qint64 ann = addPerson(db, "Brown", "Ann");
    const qint64 bob = addPerson(db, "Cole", "Bob");
    const qint64 id = helpdesk::logCall(db, call(ann), Now).callId;
    helpdesk::logCall(db, call(0), Now);
    job.replace("call", QString::number(id));
    const qint64 callerId = caller == "ann"     ? ann
                            : caller == "bob"   ? bob
                            : caller == "typed" ? 0
                            : caller == "gone"  ? bob + 1000
                                                : -1;
    const SearchResult r = helpdesk::searchCalls(db, job, callerId);
    QCOMPARE(int(r.kind), kind);
    QCOMPARE(r.message, message);
    if (kind == SearchResult::OpenCall) QCOMPARE(r.id, id);
    if (kind == SearchResult::ListCalls) {
        QCOMPARE(r.id, ann);
        QCOMPARE(helpdesk::callerCalls(db, ann).size(), size_t(1));
    }
}

void TestCalls::listsOrderAndColourCalls() {
    TestDatabase t;
    auto& db = t.db();
    const qint64 ann = addPerson(db, "Brown", "Ann");
    const qint64 zed = addPerson(db, "Zed", "Al");
    auto log = [&](qint64 person, int day, const QString& status) {
        CallText c = call(person, "Open", QString("day %1").arg(day));
        c.dateLogged = core::formatDate(QDate(2024, 3, day));
        const qint64 id = helpdesk::logCall(db, c, Now).callId;
        if (status != "Open") helpdesk::addAction(db, id, "", status, Now);
        return id;
    };
    const qint64 a = log(zed, 5, "Open");
    const qint64 b = log(ann, 5, "Closed");
    const qint64 c = log(0, 5, "Open");
    const qint64 d = log(ann, 12, "With supplier");
    const qint64 e = log(zed, 1, "Closed");

    auto ids = [](const std::vector<helpdesk::CallListRow>& rows) {
        QList<qint64> out;
        for (const auto& r : rows)
            out << r.id;
        return out;
    };
    // Latest first; among equal days the call without a caller, then by name.
    const auto all = helpdesk::callList(db, false);
    QCOMPARE(ids(all), (QList<qint64>{d, c, b, a, e}));
    QCOMPARE(all[0].originator, QString("Brown, Ann"));
    QCOMPARE(all[1].originator, QString());
    QCOMPARE(all[0].status, QString("With supplier"));
    QCOMPARE(all[0].logged, QDate(2024, 3, 12));
    QCOMPARE(all[0].required, QDate(2024, 3, 14));
    QCOMPARE(all[2].closed, true);
    QCOMPARE(all[3].closed, false);
    QCOMPARE(ids(helpdesk::callList(db, true)), (QList<qint64>{d, c, a}));
    QCOMPARE(ids(helpdesk::callerCalls(db, ann)), (QList<qint64>{d, b}));
}

void TestCalls::headerClickSortsByColumn_data() {
    QTest::addColumn<int>("column");
    QTest::addColumn<QList<int>>("order");
    // Each order differs from the one the other kind of comparison would give.
    QTest::newRow("Call Ref, as text") << 0 << QList<int>{10, 2, 9};
    QTest::newRow("Originator, ignoring case") << 1 << QList<int>{2, 9, 10};
    QTest::newRow("Logged, as dates, none first") << 3 << QList<int>{2, 10, 9};
    QTest::newRow("Required, as dates, none first") << 4 << QList<int>{2, 10, 9};
}

void TestCalls::headerClickSortsByColumn() {
    QFETCH(int, column);
    QFETCH(QList<int>, order);
    auto row = [](qint64 id, const QString& name, const QDate& logged, const QDate& required) {
        helpdesk::CallListRow r;
        r.id = id;
        r.originator = name;
        r.logged = logged;
        r.required = required;
        return r;
    };
    CallListModel model;
    model.setRows({row(9, "brown, Ann", QDate(2024, 3, 5), QDate(2024, 4, 1)),
                   row(10, "Zed, Al", QDate(2024, 2, 12), QDate(2024, 2, 28)),
                   row(2, "", QDate(), QDate())});
    model.sort(column);
    QList<int> ids;
    for (const auto& r : model.rows())
        ids << int(r.id);
    QCOMPARE(ids, order);
}

void TestCalls::assetDetails_data() {
    QTest::addColumn<QString>("asset");
    QTest::addColumn<bool>("invoiced");
    QTest::addColumn<QString>("expiry");
    QTest::addColumn<QString>("invoiceNo");
    QTest::newRow("computer with invoice") << "computer" << true << "31/01/2025"
                                           << "INV-PC1";
    QTest::newRow("computer without invoice") << "computer" << false << ""
                                              << "";
    QTest::newRow("printer with invoice") << "printer" << true << "31/01/2026"
                                          << "PI-LJ4";
    QTest::newRow("printer without invoice") << "printer" << false << ""
                                             << "";
}

void TestCalls::assetDetails() {
    QFETCH(QString, asset);
    QFETCH(bool, invoiced);
    QFETCH(QString, expiry);
    QFETCH(QString, invoiceNo);
    TestDatabase t;
    auto& db = t.db();
    // The last day of January plus a year of calendar months.
    const QDate bought = invoiced ? QDate(2024, 1, 31) : QDate();
    const qint64 pc = addComputer(db, "PC1", 0, bought);
    std::optional<helpdesk::AssetDetails> d;
    if (asset == "computer") {
        d = helpdesk::computerDetails(db, pc);
        QVERIFY(d);
        QCOMPARE(d->model, QString("OptiPlex PC1"));
        QCOMPARE(d->contactNo, QString("0800 PC1"));
        QCOMPARE(d->warrantyRef, QString("WR-PC1"));
    } else {
        d = helpdesk::peripheralDetails(db, addPeripheral(db, "Printer", "LJ4", pc, bought));
        QVERIFY(d);
        QCOMPARE(d->assetNo, QString("P-LJ4"));
        QCOMPARE(d->contactNo, QString("0800 HP"));
    }
    QCOMPARE(d->warrantyExpiry, expiry);
    QCOMPARE(d->invoiceNo, invoiceNo);
    QCOMPARE(helpdesk::knownOrNot(d->invoiceNo), invoiced ? invoiceNo : QString("Not Known"));
    QVERIFY(!helpdesk::computerDetails(db, pc + 100));
}

void TestCalls::softwareRowOfProblem_data() {
    QTest::addColumn<QString>("problem");
    QTest::addColumn<int>("row");
    const QString office = "Microsoft Office 2021";
    QTest::newRow("started from the row") << helpdesk::problemAbout(office) + "Crashes" << 1;
    QTest::newRow("typed by hand") << "Word crashes" << -1;
    QTest::newRow("blank") << "" << -1;
}

void TestCalls::softwareRowOfProblem() {
    QFETCH(QString, problem);
    QFETCH(int, row);
    const QStringList rows{"Adobe Reader 11", "Microsoft Office 2021", "Sage Payroll 9"};
    QCOMPARE(helpdesk::softwareRowOf(rows, problem), row);
}

QTEST_MAIN(TestCalls)
#include "tst_calls.moc"
