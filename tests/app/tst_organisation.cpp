#include "commands.h"
#include "companieslist.h"
#include "frmcompany.h"
#include "frmlookupentry.h"
#include "logins.h"
#include "mdimain.h"
#include "orgowner.h"
#include "recordlist.h"
#include "screenhost.h"
#include "seams.h"
#include "session.h"
#include "testdb.h"

#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QtTest>

using core::MsgAnswer;
using testsupport::MessageRecorder;
using testsupport::TestDatabase;

namespace {

// Catches the screens that a command opens instead of showing them.
struct OpenedScreens {
    QList<QWidget*> screens;
    OpenedScreens() {
        core::setScreenHost([this](QWidget* w) { screens << w; });
    }
    ~OpenedScreens() {
        core::setScreenHost({});
        qDeleteAll(screens);
    }
};

// Stands in for the employee screen until it exists.
class StandInOwner : public QWidget, public OrgOwner {
public:
    QStringList calls;
    void loadcombos() override { calls << "loadcombos"; }
    void setnew(const QString& list, const QString& text) override {
        calls << "setnew " + list + ": " + text;
    }
};

bool selectByName(companieslist& list, const QString& name) {
    for (int i = 0; i < list.ListView1->topLevelItemCount(); ++i)
        if (list.ListView1->topLevelItem(i)->text(0) == name) {
            list.ListView1->setCurrentItem(list.ListView1->topLevelItem(i));
            return true;
        }
    return false;
}

QStringList names(const companieslist& list) {
    QStringList out;
    for (int i = 0; i < list.ListView1->topLevelItemCount(); ++i)
        out << list.ListView1->topLevelItem(i)->text(0);
    return out;
}

struct Table {
    const char* title;
    const char* table;
    const char* key;
    const char* column;
    const char* personColumn;
};

const Table Tables[] = {
    {"Delete Company", "Company", "Company_ID", "Company_Name", "Company_ID"},
    {"Delete Department", "Department", "Department_ID", "Department", "Department_ID"},
    {"Delete Location", "Location", "Location_ID", "Location", "Location_ID"},
    {"Delete Position", "Position", "PositionID", "Position_name", "Position_ID"},
};

} // namespace

class TestOrganisation : public QObject {
    Q_OBJECT
private slots:
    void deleteGuards_data();
    void deleteGuards();
    void titlesThatDoNothing_data();
    void titlesThatDoNothing();
    void selectCompanyOpensItForEditing();
    void companyRoundTripOfEveryColumn();
    void companyChangedByAnotherUserIsNotOverwritten();
    void companyFilterBindsAndKeepsTrailingBlank();
    void lookupScreensAddAndCallBackTheirOwner_data();
    void lookupScreensAddAndCallBackTheirOwner();
    void deleteUserRemovesLoginAndRowTogether();
    void menuCommandsOpenTheirScreens_data();
    void menuCommandsOpenTheirScreens();
};

void TestOrganisation::menuCommandsOpenTheirScreens_data() {
    QTest::addColumn<QString>("item");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("okCaption");
    QTest::addColumn<QStringList>("rows");
    QTest::newRow("company delete") << "mnuCompanyDelete"
                                    << "Delete Company"
                                    << "Delete" << QStringList{"Acme", "Zenith"};
    QTest::newRow("company display") << "mnuCompanyDisplayAll"
                                     << "Select Company"
                                     << "OK" << QStringList{"Acme", "Zenith"};
    QTest::newRow("department delete") << "mnuDepartmentDelete"
                                       << "Delete Department"
                                       << "Delete" << QStringList{"Sales"};
    QTest::newRow("location delete") << "mnuLocationDelete"
                                     << "Delete Location"
                                     << "Delete" << QStringList{"Leeds"};
    QTest::newRow("position delete") << "mnuPositionDelete"
                                     << "Delete Position"
                                     << "Delete" << QStringList{"Clerk"};
    QTest::newRow("user delete") << "mnuAdminSecurityDeleteUser"
                                 << "Delete User"
                                 << "OK" << QStringList{"clerk"};
}

void TestOrganisation::menuCommandsOpenTheirScreens() {
    QFETCH(QString, item);
    QFETCH(QString, title);
    QFETCH(QString, okCaption);
    QFETCH(QStringList, rows);
    TestDatabase tdb;
    auto& db = tdb.db();
    for (const char* n : {"Zenith", "Acme"})
        db.insert("Company", "Company_ID", {{"Company_Name", n}});
    db.insert("Department", "Department_ID", {{"Department", "Sales"}});
    db.insert("Location", "Location_ID", {{"Location", "Leeds"}});
    db.insert("Position", "PositionID", {{"Position_name", "Clerk"}});
    db.insertRow("users", {{"users", "clerk"}});
    mdiMain window;
    registerCommands(window);
    window.item(item)->trigger();
    const auto subs = window.mdiArea()->subWindowList();
    QCOMPARE(subs.size(), 1);
    auto* list = qobject_cast<companieslist*>(subs[0]->widget());
    QVERIFY(list);
    QCOMPARE(list->windowTitle(), title);
    QCOMPARE(list->cmdOK->text(), okCaption);
    QCOMPARE(list->deletecompany, item == "mnuCompanyDelete");
    QCOMPARE(names(*list), rows);
    QCOMPARE(subs[0]->pos(), QPoint(0, 0));

    // The four organisation screens exist once each.
    for (const char* shared :
         {"mnuCompanyNew", "mnuDepartmentNew", "mnuLocationNew", "mnuPositionNew"}) {
        window.item(shared)->trigger();
        window.item(shared)->trigger();
    }
    QCOMPARE(window.mdiArea()->subWindowList().size(), 5);
}

void TestOrganisation::deleteGuards_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("refused");
    QTest::newRow("company")
        << 0 << "Cannot delete O'Brien & Sons whilst employees are listed as working there.";
    QTest::newRow("department")
        << 1
        << "Cannot delete O'Brien & Sons whilst employees are listed as working in this Department";
    QTest::newRow("location")
        << 2 << "Cannot delete O'Brien & Sons whilst employees are listed as working there";
    QTest::newRow("position")
        << 3
        << "Cannot delete O'Brien & Sons whilst employees are listed as employed in this position";
}

void TestOrganisation::deleteGuards() {
    QFETCH(int, index);
    QFETCH(QString, refused);
    const Table& t = Tables[index];
    TestDatabase tdb;
    auto& db = tdb.db();
    const qint64 used = db.insert(t.table, t.key, {{t.column, "O'Brien & Sons"}});
    db.insert(t.table, t.key, {{t.column, "Unused"}});
    db.insert("Person", "Person_ID",
              {{"firstnames", "Kim"}, {"surname", "Ng"}, {t.personColumn, used}});

    MessageRecorder boxes;
    companieslist list;
    list.setWindowTitle(t.title);
    list.deletecompany = true;
    if (index == 0)
        list.load("");
    else
        list.loadall(t.column, t.key, t.table);
    QCOMPARE(names(list), (QStringList{"O'Brien & Sons", "Unused"}));

    QVERIFY(selectByName(list, "O'Brien & Sons"));
    boxes.answerNext(MsgAnswer::Yes);
    list.ok();
    QCOMPARE(boxes.texts(),
             (QStringList{"Are you sure you want to delete O'Brien & Sons", refused}));
    QCOMPARE(boxes.calls()[0].title, QString("Confirm Delete"));
    QCOMPARE(names(list).size(), 2);

    boxes.clear();
    QVERIFY(selectByName(list, "Unused"));
    boxes.answerNext(MsgAnswer::Yes);
    list.ok();
    QCOMPARE(boxes.texts(), QStringList{"Are you sure you want to delete Unused"});
    QCOMPARE(names(list), QStringList{"O'Brien & Sons"});
    QCOMPARE(db.scalar(QStringLiteral("SELECT COUNT(*) FROM %1").arg(t.table)).toInt(), 1);
}

void TestOrganisation::titlesThatDoNothing_data() {
    QTest::addColumn<QString>("title");
    QTest::addColumn<bool>("armed");
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("empty");
    QTest::newRow("unknown title") << "Pick Something" << true << int(MsgAnswer::Yes) << false;
    QTest::newRow("company delete not armed")
        << "Delete Company" << false << int(MsgAnswer::Yes) << false;
    QTest::newRow("answered No") << "Delete Company" << true << int(MsgAnswer::No) << false;
    QTest::newRow("empty list") << "Delete Company" << true << int(MsgAnswer::Yes) << true;
}

void TestOrganisation::titlesThatDoNothing() {
    QFETCH(QString, title);
    QFETCH(bool, armed);
    QFETCH(int, answer);
    QFETCH(bool, empty);
    TestDatabase tdb;
    if (!empty) tdb.db().insert("Company", "Company_ID", {{"Company_Name", "Stays Ltd"}});
    MessageRecorder boxes;
    OpenedScreens opened;
    companieslist list;
    list.setWindowTitle(title);
    list.deletecompany = armed;
    list.load("");
    if (!empty) list.ListView1->setCurrentItem(list.ListView1->topLevelItem(0));
    boxes.answerNext(MsgAnswer(answer));
    list.ok();
    list.ListView1->activateSelected();
    QCOMPARE(tdb.db().scalar("SELECT COUNT(*) FROM Company").toInt(), empty ? 0 : 1);
    QCOMPARE(list.ListView1->topLevelItemCount(), empty ? 0 : 1);
    QVERIFY(opened.screens.isEmpty());
    // Only the confirmation may have been asked.
    for (const auto& c : boxes.calls())
        QCOMPARE(c.title, QString("Confirm Delete"));
}

void TestOrganisation::selectCompanyOpensItForEditing() {
    TestDatabase tdb;
    const qint64 id = tdb.db().insert("Company", "Company_ID",
                                      {{"Company_Name", "Acme"}, {"Tel_NO", "0113 496 0000"}});
    OpenedScreens opened;
    MessageRecorder boxes;
    companieslist list;
    list.load("");
    QCOMPARE(list.windowTitle(), QString("Select Company"));
    list.ListView1->setCurrentItem(list.ListView1->topLevelItem(0));
    list.ok();
    QCOMPARE(opened.screens.size(), 1);
    auto* screen = qobject_cast<frmCompany*>(opened.screens[0]);
    QVERIFY(screen);
    QVERIFY(screen->isEditing());
    QCOMPARE(screen->companyId(), id);
    QCOMPARE(screen->box("txtTelNo")->text(), QString("0113 496 0000"));
    QVERIFY(boxes.calls().isEmpty());
}

void TestOrganisation::companyRoundTripOfEveryColumn() {
    TestDatabase tdb;
    MessageRecorder boxes;
    QStringList typed;
    {
        frmCompany screen;
        screen.box("txtCompany")->setText("   ");
        screen.cmdOK->click();
        QCOMPARE(boxes.texts(), QStringList{"Please enter company name"});
        QCOMPARE(tdb.db().scalar("SELECT COUNT(*) FROM Company").toInt(), 0);
        int n = 0;
        for (const auto& f : organisation::CompanyFields)
            typed << QStringLiteral("%1 it's #%2").arg(f.column).arg(++n);
        typed[0] = "  Leading Blanks Ltd";
        n = 0;
        for (const auto& f : organisation::CompanyFields)
            screen.box(f.box)->setText(typed[n++]);
        screen.cmdOK->click();
    }
    const qint64 id = tdb.db().scalar("SELECT Company_ID FROM Company").toLongLong();
    QCOMPARE(tdb.db().scalar("SELECT Company_Name FROM Company").toString(),
             QString("  Leading Blanks Ltd"));
    {
        frmCompany screen;
        screen.load(id);
        int n = 0;
        for (const auto& f : organisation::CompanyFields) {
            const QString expected = n == 0 ? typed[0].trimmed() : typed[n];
            QCOMPARE(screen.box(f.box)->text(), expected);
            ++n;
        }
        screen.box("txtFinancePh")->setText("changed");
        screen.cmdOK->click();
    }
    QCOMPARE(tdb.db().scalar("SELECT COUNT(*) FROM Company").toInt(), 1);
    QCOMPARE(tdb.db().scalar("SELECT Finance_Phone FROM Company").toString(), QString("changed"));
    // A column left NULL loads as an empty box, without a failure box.
    tdb.db().exec("UPDATE Company SET fax = NULL, MD_Name = NULL");
    frmCompany screen;
    screen.load(id);
    QCOMPARE(screen.box("txtFax")->text(), QString());
    QCOMPARE(screen.box("txtITPh")->text(), typed[13]);
    QCOMPARE(boxes.calls().size(), 1);
}

void TestOrganisation::companyChangedByAnotherUserIsNotOverwritten() {
    TestDatabase tdb;
    const qint64 id = tdb.db().insert("Company", "Company_ID",
                                      {{"Company_Name", "Acme"}, {"Tel_NO", "0113 496 0000"}});
    MessageRecorder boxes;
    frmCompany screen;
    screen.load(id);
    screen.show();
    // User B renames the company while A has it open; A then changes the phone number.
    auto userB = tdb.openSecond("user-b");
    userB->update("Company", "Company_ID", id, {{"Company_Name", "Acme Holdings"}});
    screen.box("txtTelNo")->setText("0113 496 9999");
    screen.cmdOK->click(); // No: keep the screen and the typing
    const QString told = "This company has been changed by another user since you opened it. "
                         "Your changes have not been saved.";
    QCOMPARE(boxes.calls().size(), 1);
    QVERIFY(boxes.calls()[0].text.startsWith(told));
    QVERIFY(screen.isVisible());
    QCOMPARE(screen.box("txtTelNo")->text(), QString("0113 496 9999"));
    QCOMPARE(screen.box("txtCompany")->text(), QString("Acme"));
    const auto stored = [&](const char* column) {
        return userB
            ->scalar(QStringLiteral("SELECT %1 FROM Company WHERE Company_ID = ?").arg(column),
                     {id})
            .toString();
    };
    QCOMPARE(stored("Company_Name"), QString("Acme Holdings"));
    QCOMPARE(stored("Tel_NO"), QString("0113 496 0000"));

    // Yes: the row as it is now; a save from there goes through.
    boxes.answerNext(MsgAnswer::Yes);
    screen.cmdOK->click();
    QCOMPARE(screen.box("txtCompany")->text(), QString("Acme Holdings"));
    screen.box("txtTelNo")->setText("0113 496 9999");
    screen.cmdOK->click();
    QCOMPARE(boxes.calls().size(), 2);
    QCOMPARE(stored("Company_Name"), QString("Acme Holdings"));
    QCOMPARE(stored("Tel_NO"), QString("0113 496 9999"));
}

void TestOrganisation::companyFilterBindsAndKeepsTrailingBlank() {
    TestDatabase tdb;
    for (const char* n : {"O'Brien Ltd", "o'brien holdings", "Acme Ltd", "AcmeCorp", "Zed"})
        tdb.db().insert("Company", "Company_ID", {{"Company_Name", n}});
    const auto found = [&](const QString& filter) {
        QStringList out;
        for (const auto& r : selectionlist::companies(tdb.db(), filter))
            out << r.name;
        out.sort();
        return out;
    };
    QCOMPARE(found("O'B"), (QStringList{"O'Brien Ltd", "o'brien holdings"}));
    QCOMPARE(found("Acme "), QStringList{"Acme Ltd"});
    QCOMPARE(found("acme"), (QStringList{"Acme Ltd", "AcmeCorp"}));
    QCOMPARE(found("x' OR '1'='1"), QStringList{});
    QCOMPARE(found("   ").size(), 5);

    OpenedScreens opened;
    frmcsearch search;
    search.txtCompany->setText("o'b");
    search.cmdSearch->click();
    QCOMPARE(opened.screens.size(), 1);
    auto* list = qobject_cast<companieslist*>(opened.screens[0]);
    QVERIFY(list);
    QCOMPARE(list->ListView1->topLevelItemCount(), 2);
}

void TestOrganisation::lookupScreensAddAndCallBackTheirOwner_data() {
    QTest::addColumn<int>("which");
    QTest::addColumn<bool>("child");
    QTest::newRow("department, child") << 0 << true;
    QTest::newRow("location, child") << 1 << true;
    QTest::newRow("position, child") << 2 << true;
    QTest::newRow("department, from the menu") << 0 << false;
}

void TestOrganisation::lookupScreensAddAndCallBackTheirOwner() {
    QFETCH(int, which);
    QFETCH(bool, child);
    TestDatabase tdb;
    MessageRecorder boxes;
    StandInOwner owner;
    std::unique_ptr<frmLookupEntry> screen;
    if (which == 0)
        screen = std::make_unique<frmDept>();
    else if (which == 1)
        screen = std::make_unique<frmLocation>();
    else
        screen = std::make_unique<frmPosition>();
    const auto& list = screen->list();
    screen->ischild = child;
    screen->addpos = &owner;

    screen->txtName->setText("  ");
    screen->cmdAdd->click();
    QCOMPARE(boxes.texts(), QStringList{list.emptyMessage});
    QVERIFY(owner.calls.isEmpty());

    screen->txtName->setText(" Night Shift's ");
    screen->cmdAdd->click();
    QCOMPARE(tdb.db()
                 .scalar(QStringLiteral("SELECT %1 FROM %2").arg(list.column, list.table))
                 .toString(),
             QString(" Night Shift's "));
    const QStringList expected =
        child ? QStringList{"loadcombos", QString("setnew %1:  Night Shift's ").arg(list.ownerList)}
              : QStringList{};
    QCOMPARE(owner.calls, expected);
}

void TestOrganisation::deleteUserRemovesLoginAndRowTogether() {
    TestDatabase tdb;
    auto& db = tdb.db();
    const QString name = QStringLiteral("o'clerk%1").arg(QCoreApplication::applicationPid());
    std::unique_ptr<core::Db> admin;
    if (testsupport::testingPostgres()) {
        admin = core::Db::open(testsupport::postgresAdminParams(), "admin");
        admin->exec("DROP ROLE IF EXISTS " + admin->quoteIdentifier(name));
        admin->exec("CREATE ROLE " + admin->quoteIdentifier(name) + " LOGIN PASSWORD 'pw'");
        // A login of this database: a member of its group role.
        admin->exec(
            "GRANT " +
            admin->quoteIdentifier(db.scalar("SELECT rolename FROM logingroup").toString()) +
            " TO " + admin->quoteIdentifier(name));
    } else {
        core::setEmbeddedLogin(db, name, "pw");
    }
    db.insertRow("users", {{"users", name}});
    db.insertRow("users", {{"users", "ghost"}}); // a row without a login behind it

    const auto loginExists = [&](const QString& n) {
        if (admin)
            return admin->scalar("SELECT COUNT(*) FROM pg_roles WHERE rolname = ?", {n}).toInt() ==
                   1;
        return db.scalar("SELECT COUNT(*) FROM logins WHERE login = ?", {n}).toInt() == 1;
    };
    const auto rowExists = [&](const QString& n) {
        return db.scalar("SELECT COUNT(*) FROM users WHERE users = ?", {n}).toInt() == 1;
    };

    MessageRecorder boxes;
    {
        companieslist list;
        list.setWindowTitle("Delete User");
        list.loadUsers();
        QVERIFY(selectByName(list, "ghost"));
        boxes.answerNext(MsgAnswer::Ok);
        list.ok();
        QCOMPARE(boxes.texts(), (QStringList{"Are you sure you want to delete ghost",
                                             "Error. Cannot delete selection"}));
        QVERIFY(rowExists("ghost"));

        boxes.clear();
        QVERIFY(selectByName(list, name));
        boxes.answerNext(MsgAnswer::Cancel);
        list.ok();
        QVERIFY(loginExists(name) && rowExists(name));

        boxes.answerNext(MsgAnswer::Ok);
        list.ok();
        QCOMPARE(boxes.calls().last().title, QString());
    }
    QVERIFY(!loginExists(name));
    QVERIFY(!rowExists(name));
    if (admin) admin->exec("DROP ROLE IF EXISTS " + admin->quoteIdentifier(name));
}

QTEST_MAIN(TestOrganisation)
#include "tst_organisation.moc"
