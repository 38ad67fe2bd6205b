#include "callassets.h"
#include "calllists.h"
#include "calllistview.h"
#include "callrows.h"
#include "calls.h"
#include "combos.h"
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

    void checkCall();
    void logWritesTheCallAndItsOpenedRow();
    void closeReopenAndSaveAgain();
    void actionSetsTheStatus();
    void writesRefusedAfterAnotherUsersChange();
    void search();
    void listsOrderAndColourCalls();
    void headerClickSortsByColumn();
    void shownClosingDate();
    void problemAndNoteTexts();
};

void TestCalls::checkCall() {
    const QString missing = helpdesk::MissingProblem;
    const QString logged = "Please enter Date Logged in the format DD/MM/YYYY";
    const struct {
        const char* name;
        void (*change)(CallText&);
        bool isNew;
        QString message;
    } cases[] = {
        {"complete", [](CallText&) {}, true, ""},
        {"blank problem", [](CallText& c) { c.description = "  \n "; }, true, missing},
        {"blank fault type", [](CallText& c) { c.faultType = " "; }, false, missing},
        {"new call closed", [](CallText& c) { c.status = "Closed "; }, true,
         helpdesk::CloseBeforeLogging},
        {"logged call closed", [](CallText& c) { c.status = "Closed"; }, false, ""},
        {"date logged no date", [](CallText& c) { c.dateLogged = "31/02/2024"; }, false, logged},
        {"date logged blank", [](CallText& c) { c.dateLogged = " "; }, false, logged},
        {"date required no date", [](CallText& c) { c.dateRequired = "next week"; }, false,
         "Please enter Date Required in the format DD/MM/YYYY"},
        {"date required blank", [](CallText& c) { c.dateRequired.clear(); }, false, ""},
        // The problem is named first: it is what the screen puts the focus in.
        {"problem before dates",
         [](CallText& c) {
             c.description.clear();
             c.dateLogged = "x";
         },
         false, missing},
    };
    for (const auto& k : cases) {
        CallText c = call(0);
        k.change(c);
        const QString message = helpdesk::checkCall(c, k.isNew).message;
        QVERIFY2(message == k.message, qPrintable(QString("%1: %2").arg(k.name, message)));
    }
}

void TestCalls::logWritesTheCallAndItsOpenedRow() {
    TestDatabase t;
    auto& db = t.db();
    const qint64 ann = addPerson(db, "O'Neil", "Ann", "214");
    const qint64 pc = addComputer(db, "PC1", ann);
    // The first row says the call was opened, whatever status it was logged with.
    for (const auto& [caller, status] :
         {std::pair{ann, "Open"}, {qint64(0), "Open"}, {ann, "Awaiting parts"}}) {
        CallText c = call(caller, status, "  Outlook will not open ");
        c.computerId = pc;
        const auto written = helpdesk::logCall(db, c, Now);
        QCOMPARE(history(db, written.callId), QStringList{"Open/Opened Call"});
        QCOMPARE(written.added.size(), size_t(1));
        QCOMPARE(written.added[0].id, db.scalar("SELECT CallHistory_ID FROM CallHistory "
                                                "WHERE Call_ID = ?",
                                                {written.callId})
                                          .toLongLong());
        QCOMPARE(written.added[0].at, Now);
        const auto record = helpdesk::loadCall(db, written.callId);
        QVERIFY(record);
        QCOMPARE(record->text.status, QString(status));
        QCOMPARE(record->text.faultType, QString("Computer/Software"));
        QCOMPARE(record->text.description, QString("Outlook will not open"));
        QCOMPARE(record->text.dateLogged, QString("11/03/2024"));
        QCOMPARE(record->text.dateRequired, QString("14/03/2024"));
        QCOMPARE(record->text.computerId, pc);
        QVERIFY(!record->dateClosed.isValid());
        QCOMPARE(column(db, written.callId, "person_id").isNull(), caller == 0);
        QCOMPARE(record->callerText, caller ? QString("%1 - O'Neil, Ann").arg(ann) : QString());
        QCOMPARE(record->extension, caller ? QString("214") : QString());
    }
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

void TestCalls::actionSetsTheStatus() {
    TestDatabase t;
    auto& db = t.db();
    const QDateTime at = Now.addSecs(3600);
    for (const auto& [status, closes] :
         {std::pair{"Open", false}, {"With supplier", false}, {"Closed ", true}}) {
        const QString chosen = QString(status).trimmed();
        const qint64 id = helpdesk::logCall(db, call(0), Now).callId;
        const auto row = helpdesk::addAction(db, id, " Telephoned user - rebooted \n", status, at);
        QCOMPARE(row.action, QString("Telephoned user - rebooted"));
        QCOMPARE(history(db, id),
                 (QStringList{chosen + "/Telephoned user - rebooted", "Open/Opened Call"}));
        QCOMPARE(column(db, id, "currentstatus").toString(), chosen);
        QCOMPARE(core::Db::toDate(column(db, id, "DateClosed")), closes ? at.date() : QDate());
        // A status must be chosen: nothing is written without one.
        QVERIFY_THROWS_EXCEPTION(std::invalid_argument, helpdesk::addAction(db, id, "x", " ", at));
        QCOMPARE(history(db, id).size(), 2);
    }
}

void TestCalls::writesRefusedAfterAnotherUsersChange() {
    TestDatabase t;
    auto& db = t.db();
    auto userB = t.openSecond("user-b");
    for (const QString write : {"save", "reopen"}) {
        const qint64 id = helpdesk::logCall(db, call(0), Now).callId;
        if (write == "reopen")
            helpdesk::saveCall(db, id, call(0, "Closed"), helpdesk::loadedCallRow(db, id), Now);
        const core::LoadedRow loaded = helpdesk::loadedCallRow(db, id);
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
}

void TestCalls::search() {
    TestDatabase t;
    auto& db = t.db();
    const qint64 ann = addPerson(db, "Brown", "Ann");
    const qint64 bob = addPerson(db, "Cole", "Bob");
    const qint64 id = helpdesk::logCall(db, call(ann), Now).callId;
    helpdesk::logCall(db, call(0), Now);
    const QString number = QString::number(id);
    using R = SearchResult;
    // The caller is -1 when no name is typed, 0 for a typed name that is no one's.
    const struct {
        const char* name;
        QString job;
        qint64 caller;
        R found;
    } cases[] = {
        {"number found", number, -1, {R::OpenCall, id, {}}},
        {"number with blanks", " " + number + " ", ann, {R::OpenCall, id, {}}},
        {"unknown number", "999999", -1, {R::Refused, 0, helpdesk::NoCallWithId}},
        {"number beyond any key",
         "123456789012345678901234",
         -1,
         {R::Refused, 0, helpdesk::NoCallWithId}},
        {"not a number", "12a", ann, {}},
        {"nothing typed", "", -1, {}},
        {"caller with calls", "", ann, {R::ListCalls, ann, {}}},
        {"caller without calls", "", bob, {R::Refused, 0, helpdesk::NoCallsForUser}},
        {"name typed that is no one's", "", 0, {}},
        {"caller without a Person row", "", bob + 1000, {R::Refused, 0, helpdesk::NoCallsForUser}},
    };
    for (const auto& k : cases) {
        const R r = helpdesk::searchCalls(db, k.job, k.caller);
        QVERIFY2(r.kind == k.found.kind && r.id == k.found.id && r.message == k.found.message,
                 k.name);
    }
    QCOMPARE(helpdesk::searchedCaller(" ", ann), qint64(-1));
    QCOMPARE(helpdesk::searchedCaller("Nobody, Ann", core::NoComboId), qint64(0));
    QCOMPARE(helpdesk::searchedCaller("Brown, Ann", ann), ann);
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

void TestCalls::headerClickSortsByColumn() {
    auto row = [](qint64 id, const QString& name, const QDate& logged, const QDate& required) {
        helpdesk::CallListRow r;
        r.id = id;
        r.originator = name;
        r.logged = logged;
        r.required = required;
        return r;
    };
    const std::vector<helpdesk::CallListRow> rows{
        row(9, "brown, Ann", QDate(2024, 3, 5), QDate(2024, 4, 1)),
        row(10, "Zed, Al", QDate(2024, 2, 12), QDate(2024, 2, 28)), row(2, "", QDate(), QDate())};
    // Each order differs from the one the other kind of comparison would give.
    const struct {
        const char* name;
        int column;
        QList<int> order;
    } cases[] = {{"Call Ref, as text", 0, {10, 2, 9}},
                 {"Originator, ignoring case", 1, {2, 9, 10}},
                 {"Logged, as dates, none first", 3, {2, 10, 9}},
                 {"Required, as dates, none first", 4, {2, 10, 9}}};
    for (const auto& k : cases) {
        CallListModel model;
        model.setRows(rows);
        model.sort(k.column);
        QList<int> ids;
        for (const auto& r : model.rows())
            ids << int(r.id);
        QVERIFY2(ids == k.order, k.name);
    }
}

void TestCalls::shownClosingDate() {
    const QDate stored(2024, 3, 11), today(2024, 5, 1);
    QCOMPARE(helpdesk::shownClosingDate("Open", QDate(), today), QDate());
    QCOMPARE(helpdesk::shownClosingDate("Closed", stored, today), stored);
    QCOMPARE(helpdesk::shownClosingDate("Closed ", QDate(), today), today); // never written
    QCOMPARE(helpdesk::shownClosingDate("Open", stored, today), stored);    // reopened, not saved
}

void TestCalls::problemAndNoteTexts() {
    const QStringList rows{"Adobe Reader 11", "Microsoft Office 2021", "Sage Payroll 9"};
    QCOMPARE(helpdesk::softwareRowOf(rows, helpdesk::problemAbout(rows[1]) + "Crashes"), 1);
    QCOMPARE(helpdesk::softwareRowOf(rows, "Word crashes"), -1); // typed by hand
    QCOMPARE(helpdesk::softwareRowOf(rows, ""), -1);
    QCOMPARE(helpdesk::notePrefix("Telephoned user"), QString("Telephoned user - "));
    QCOMPARE(helpdesk::notePrefix("Note/Comment only"), QString());
}

QTEST_MAIN(TestCalls)
#include "tst_calls.moc"
