#include "commands.h"
#include "directory.h"
#include "frmaddcompany.h"
#include "frmaddperson.h"
#include "frmaddsupplier.h"
#include "frmemployee.h"
#include "frmfindsupplier.h"
#include "frmoffice.h"
#include "frmservices.h"
#include "frmteldir.h"
#include "mdimain.h"
#include "recordlist.h"
#include "seams.h"
#include "session.h"
#include "supplier_record.h"
#include "testdb.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDesktopServices>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QToolBar>
#include <QtTest>

using suppliers::EntryKind;
using testsupport::DialogDriver;
using testsupport::MessageRecorder;
using testsupport::TestDatabase;

namespace {

QStringList rows(const RecordList* list) {
    QStringList out;
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* item = list->topLevelItem(i);
        out << (list->columnCount() > 1 && !item->text(1).isEmpty()
                    ? item->text(0) + " | " + item->text(1)
                    : item->text(0));
    }
    return out;
}

QTreeWidgetItem* rowNamed(RecordList* list, const QString& text) {
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        if (list->topLevelItem(i)->text(0) == text) return list->topLevelItem(i);
    return nullptr;
}

void pick(RecordList* list, const QString& text) {
    QTreeWidgetItem* item = rowNamed(list, text);
    QVERIFY2(item, qPrintable(text));
    list->setCurrentItem(item);
}

qint64 count(const QString& sql, const core::Params& params = {}) {
    return core::db().scalar(sql, params).toLongLong();
}

template <class T> QList<T*> openScreens() {
    QList<T*> out;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* s = qobject_cast<T*>(w); s && s->isVisible()) out << s;
    return out;
}

struct Fixture {
    qint64 smith = 0, contact = 0, acme = 0, best = 0, carHire = 0, printing = 0;
};

Fixture fillDirectory(core::Db& db) {
    Fixture f;
    auto person = [&](const char* surname, const char* first, const char* ext, int left = 0) {
        return db.insert("Person", "Person_ID",
                         {{"firstnames", first},
                          {"surname", surname},
                          {"extno", ext},
                          {"startdate", QDate(2020, 1, 1)},
                          {"HasLeft", left},
                          {"blndeleted", 0}});
    };
    f.smith = person("Smith", "Ann", "101");
    person("Smithers", "Carl", "102", 1);
    person("Jones", "Bob", "103");
    f.contact = suppliers::addPersonContact(db, {"Tim", "Small", "0207", "", ""});
    suppliers::SupplierText s;
    s.name = "Acme Cars";
    s.phone = "111";
    f.acme = suppliers::insertSupplier(db, s);
    s.name = "Best Print";
    s.phone = "222";
    f.best = suppliers::insertSupplier(db, s);
    f.carHire = suppliers::addService(db, "Car Hire");
    f.printing = suppliers::addService(db, "Printing");
    suppliers::addSupplierServices(db, f.acme, {f.carHire});
    suppliers::addSupplierServices(db, f.best, {f.printing});
    return f;
}

// Keeps the mail links the desktop would have been asked to open.
class MailCatcher : public QObject {
    Q_OBJECT
public:
    QList<QUrl> urls;
public slots:
    void open(const QUrl& url) { urls << url; }
};

} // namespace

class TestSupplierScreens : public QObject {
    Q_OBJECT
private slots:
    void init() { core::session().language = QStringLiteral("English (UK)"); }
    void cleanup() {
        QList<QPointer<QWidget>> screens;
        for (QWidget* w : QApplication::topLevelWidgets())
            if (qobject_cast<frmemployee*>(w) || qobject_cast<frmaddsupplier*>(w) ||
                qobject_cast<frmTelDir*>(w))
                screens << w;
        for (const QPointer<QWidget>& w : screens)
            delete w.data();
    }

    void directoryListsKindsAndFollowsTyping();
    void letterStrip_data();
    void letterStrip();
    void serviceFilterMessages();
    void contactAddEditDelete();
    void companyContactFromTheDirectory();
    void employeeRowsOpenTheEmployeeScreen();
    void supplierDeleteFromEitherList();
    void supplierEditAndAddRenewTheDirectory();
    void duplicateServiceIsRefused();
    void serviceInUseIsNotDeleted();
    void earlySavedSupplierGoesOnCancel_data();
    void earlySavedSupplierGoesOnCancel();
    void listPagesNeedANameFirst();
    void officesAddViewRemove();
    void postcodeCaptionFollowsTheProfile();
    void emailOpensAMailLink();
    void findSupplierByService();
    void menuCommandsOpenTheScreens();
};

void TestSupplierScreens::directoryListsKindsAndFollowsTyping() {
    TestDatabase t;
    const Fixture f = fillDirectory(t.db());
    frmTelDir dir;
    dir.show();
    QCOMPARE(dir.windowTitle(), QString("Telephone Directory"));
    QCOMPARE(rows(dir.ListView1),
             (QStringList{"Jones, Bob | 103", "Smith, Ann | 101", "Small, Tim | 0207"}));
    QCOMPARE(rows(dir.ListView2), (QStringList{"Acme Cars | 111", "Best Print | 222"}));
    QCOMPARE(rows(dir.ListView4), rows(dir.ListView2));
    // The kind travels with the row; the key is the record's own.
    QCOMPARE(frmTelDir::kindAt(rowNamed(dir.ListView1, "Smith, Ann")), EntryKind::Employee);
    QCOMPARE(RecordList::idAt(rowNamed(dir.ListView1, "Smith, Ann")), f.smith);
    QCOMPARE(frmTelDir::kindAt(rowNamed(dir.ListView1, "Small, Tim")), EntryKind::Contact);
    QCOMPARE(RecordList::idAt(rowNamed(dir.ListView1, "Small, Tim")), f.contact);
    QCOMPARE(frmTelDir::kindAt(rowNamed(dir.ListView2, "Acme Cars")), EntryKind::Supplier);

    QTest::keyClicks(dir.txtSurname, "sm");
    QCOMPARE(rows(dir.ListView1), (QStringList{"Smith, Ann | 101", "Small, Tim | 0207"}));
    QVERIFY(dir.cmdDelete->isEnabled());
    QTest::keyClicks(dir.txtSurname, "%'");
    QCOMPARE(rows(dir.ListView1), QStringList{"No matching entries"});
    QVERIFY(!frmTelDir::kindAt(dir.ListView1->topLevelItem(0)));
    QVERIFY(!dir.cmdDelete->isEnabled());
    // Nothing happens on the empty row.
    MessageRecorder messages;
    DialogDriver dialogs;
    dir.openPerson(dir.ListView1->topLevelItem(0));
    QCOMPARE(dialogs.shown(), 0);
    QVERIFY(messages.calls().isEmpty());

    QTest::keyClicks(dir.txtCompany, "BEST");
    QCOMPARE(rows(dir.ListView2), QStringList{"Best Print | 222"});
    // Leaving a page empties its boxes.
    dir.showPage(1);
    QVERIFY(dir.txtSurname->text().isEmpty());
    QCOMPARE(dir.ListView1->topLevelItemCount(), 3);
    dir.showPage(0);
    QVERIFY(dir.txtCompany->text().isEmpty());
    QCOMPARE(dir.ListView2->topLevelItemCount(), 2);
}

void TestSupplierScreens::letterStrip_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("tab");
    QTest::newRow("letter") << "jo"
                            << "J";
    QTest::newRow("capital") << "S"
                             << "S";
    QTest::newRow("digit keeps the last tab") << "7"
                                              << "ALL";
    QTest::newRow("apostrophe keeps the last tab") << "'"
                                                   << "ALL";
}

void TestSupplierScreens::letterStrip() {
    QFETCH(QString, typed);
    QFETCH(QString, tab);
    TestDatabase t;
    fillDirectory(t.db());
    frmTelDir dir;
    dir.show();
    QCOMPARE(dir.tabLetters->count(), 27);
    QTest::keyClicks(dir.txtSurname, typed);
    QCOMPARE(dir.tabLetters->tabText(dir.tabLetters->currentIndex()), tab);

    // A click filters the list in front by its letter; "ALL" lists everyone.
    MessageRecorder messages;
    const int s = 19; // "S"
    QCOMPARE(dir.tabLetters->tabText(s), QString("S"));
    dir.letterClicked(s);
    QCOMPARE(rows(dir.ListView1), (QStringList{"Smith, Ann | 101", "Small, Tim | 0207"}));
    dir.letterClicked(0);
    QCOMPARE(dir.ListView1->topLevelItemCount(), 3);
    dir.showPage(1);
    dir.letterClicked(2); // "B"
    QCOMPARE(rows(dir.ListView2), QStringList{"Best Print | 222"});
    QVERIFY(messages.calls().isEmpty());
}

void TestSupplierScreens::serviceFilterMessages() {
    TestDatabase t;
    fillDirectory(t.db());
    frmTelDir dir;
    dir.show();
    dir.showPage(1);
    dir.SSTab2->setCurrentIndex(1);
    MessageRecorder messages;
    // A key with no service chosen is refused and goes nowhere.
    QTest::keyClick(dir.txtCompany2, 'a');
    QCOMPARE(messages.texts(),
             QStringList{"Please enter the service required before entering the company name"});
    QVERIFY(dir.txtCompany2->text().isEmpty());
    // Text put there otherwise (a paste) is not searched.
    messages.clear();
    dir.txtCompany2->setText("Acme");
    QCOMPARE(messages.texts(),
             QStringList{"Please select the service required before entering the company name"});
    QCOMPARE(dir.ListView4->topLevelItemCount(), 2);
    messages.clear();
    dir.letterClicked(1);
    QCOMPARE(messages.texts(), QStringList{"Please select the service required first."});

    // A chosen service empties the box and lists its suppliers; typing narrows them.
    dir.cboService->setCurrentIndex(dir.cboService->findText("Car Hire"));
    emit dir.cboService->activated(dir.cboService->currentIndex());
    QVERIFY(dir.txtCompany2->text().isEmpty());
    QCOMPARE(rows(dir.ListView4), QStringList{"Acme Cars | 111"});
    messages.clear();
    QTest::keyClicks(dir.txtCompany2, "b");
    QCOMPARE(rows(dir.ListView4), QStringList{"No matching entries"});
    QCOMPARE(dir.tabLetters->tabText(dir.tabLetters->currentIndex()), QString("B"));
    dir.txtCompany2->clear();
    dir.letterClicked(1); // "A"
    QCOMPARE(rows(dir.ListView4), QStringList{"Acme Cars | 111"});
    QVERIFY(messages.calls().isEmpty());
}

void TestSupplierScreens::contactAddEditDelete() {
    TestDatabase t;
    const Fixture f = fillDirectory(t.db());
    frmTelDir dir;
    MessageRecorder messages;
    DialogDriver dialogs;
    // A contact without a phone is refused by the dialog itself, which stays open. Once added,
    // it is listed whatever the search box held.
    QTest::keyClicks(dir.txtSurname, "Sm");
    dialogs.then([&](QDialog& d) {
        auto& p = static_cast<frmAddPerson&>(d);
        p.txtSurname->setText("O'Hara");
        p.cmdOK->click();
        if (p.ok) return int(QDialog::Accepted);
        p.txtFirstName->setText("Kim");
        p.txtPhone->setText("0300");
        p.cmdOK->click();
        return p.ok ? int(QDialog::Accepted) : int(QDialog::Rejected);
    });
    dir.cmdAddContact->click();
    QCOMPARE(messages.texts(), QStringList{"Please enter name and phone number"});
    QCOMPARE(rows(dir.ListView1).last(), QString("O'Hara, Kim | 0300"));
    QVERIFY(rowNamed(dir.ListView1, "Jones, Bob"));
    QCOMPARE(dir.txtSurname->text(), QString());
    QCOMPARE(count("SELECT COUNT(*) FROM contact WHERE contact_type = 'Person'"), 2);

    // Edit: the dialog comes filled, captioned "Edit Person"; the row is renewed.
    dialogs.then([&](QDialog& d) {
        auto& p = static_cast<frmAddPerson&>(d);
        if (p.windowTitle() != "Edit Person" || p.txtSurname->text() != "Small")
            return int(QDialog::Rejected);
        p.txtSurname->setText("Smalls");
        p.txtPhone->setText("0999");
        p.cmdOK->click();
        return int(QDialog::Accepted);
    });
    dir.openPerson(rowNamed(dir.ListView1, "Small, Tim"));
    QVERIFY(rowNamed(dir.ListView1, "Smalls, Tim"));
    QCOMPARE(rowNamed(dir.ListView1, "Smalls, Tim")->text(1), QString("0999"));
    QCOMPARE(suppliers::loadPersonContact(t.db(), f.contact)->surname, QString("Smalls"));

    // An employee is never deleted from here.
    messages.clear();
    pick(dir.ListView1, "Smith, Ann");
    dir.cmdDelete->click();
    QCOMPARE(
        messages.texts(),
        QStringList{" You cannot delete this person because he is an employee at your company"});
    QCOMPARE(count("SELECT COUNT(*) FROM Person WHERE blndeleted = 0"), 3);

    // A contact: asked first; No keeps it, Yes deletes it.
    messages.clear();
    pick(dir.ListView1, "Smalls, Tim");
    dir.cmdDelete->click();
    QCOMPARE(messages.calls().size(), 1);
    QCOMPARE(messages.calls()[0].text, QString("Are you sure you want to delete Smalls, Tim"));
    QCOMPARE(messages.calls()[0].title, QString("Confirm Delete"));
    QVERIFY(rowNamed(dir.ListView1, "Smalls, Tim"));
    messages.answerNext(core::MsgAnswer::Yes);
    dir.cmdDelete->click();
    QVERIFY(!rowNamed(dir.ListView1, "Smalls, Tim"));
    QVERIFY(!suppliers::loadPersonContact(t.db(), f.contact));

    // The last row deleted leaves "No matching entries".
    QTest::keyClicks(dir.txtSurname, "o'h");
    QCOMPARE(rows(dir.ListView1), QStringList{"O'Hara, Kim | 0300"});
    pick(dir.ListView1, "O'Hara, Kim");
    messages.answerNext(core::MsgAnswer::Yes);
    dir.cmdDelete->click();
    QCOMPARE(rows(dir.ListView1), QStringList{"No matching entries"});
    QVERIFY(!dir.cmdDelete->isEnabled());
}

void TestSupplierScreens::companyContactFromTheDirectory() {
    TestDatabase t;
    fillDirectory(t.db());
    frmTelDir dir;
    MessageRecorder messages;
    DialogDriver dialogs;
    dialogs.then([&](QDialog& d) {
        auto& c = static_cast<frmAddCompany&>(d);
        c.txtCompany->setText("Zeta Couriers");
        c.cmdOK->click(); // no phone yet
        c.txtContact->setText("Fay");
        c.txtPhone->setText("0400");
        c.cmdOK->click();
        return c.ok ? int(QDialog::Accepted) : int(QDialog::Rejected);
    });
    dir.cmdAddCompany->click();
    QCOMPARE(messages.texts(), QStringList{"Please enter the company name and phone number"});
    QTest::keyClicks(dir.txtSurname, "ze");
    QCOMPARE(rows(dir.ListView1), QStringList{"Zeta Couriers | 0400"});
    QCOMPARE(frmTelDir::kindAt(dir.ListView1->topLevelItem(0)), EntryKind::CompanyContact);
    dialogs.then([&](QDialog& d) {
        auto& c = static_cast<frmAddCompany&>(d);
        if (c.txtContact->text() != "Fay") return int(QDialog::Rejected);
        c.txtPhone->setText("0401");
        c.cmdOK->click();
        return int(QDialog::Accepted);
    });
    dir.openPerson(dir.ListView1->topLevelItem(0));
    QCOMPARE(rows(dir.ListView1), QStringList{"Zeta Couriers | 0401"});
}

void TestSupplierScreens::employeeRowsOpenTheEmployeeScreen() {
    TestDatabase t;
    const Fixture f = fillDirectory(t.db());
    frmTelDir dir;
    DialogDriver dialogs;
    dir.openPerson(rowNamed(dir.ListView1, "Smith, Ann"));
    QCOMPARE(dialogs.shown(), 0);
    const auto screens = openScreens<frmemployee>();
    QCOMPARE(screens.size(), 1);
    QVERIFY(screens.front()->windowTitle().contains("Smith"));
    Q_UNUSED(f);
}

void TestSupplierScreens::supplierDeleteFromEitherList() {
    TestDatabase t;
    core::Db& db = t.db();
    const Fixture f = fillDirectory(db);
    db.insert("Computers", "Computer_ID", {{"Model", "PC"}, {"supplier_id", f.acme}});
    frmTelDir dir;
    MessageRecorder messages;
    pick(dir.ListView2, "Acme Cars");
    dir.cmdDeleteSupplier->click(); // answered No
    QCOMPARE(messages.texts(), QStringList{"Are you sure you want to delete Acme Cars"});
    QVERIFY(suppliers::loadSupplier(db, f.acme));
    messages.answerNext(core::MsgAnswer::Yes);
    dir.cmdDeleteSupplier->click();
    QVERIFY(!suppliers::loadSupplier(db, f.acme));
    QCOMPARE(count("SELECT COUNT(*) FROM Computers WHERE supplier_id IS NULL"), 1);
    QCOMPARE(rows(dir.ListView2), QStringList{"Best Print | 222"});
    QCOMPARE(rows(dir.ListView4), QStringList{"Best Print | 222"});
    // The by-service list's own Delete, down to the empty row.
    pick(dir.ListView4, "Best Print");
    messages.answerNext(core::MsgAnswer::Yes);
    dir.cmdDeleteSupplier2->click();
    QCOMPARE(rows(dir.ListView2), QStringList{"No matching entries"});
    QCOMPARE(rows(dir.ListView4), QStringList{"No matching entries"});
    QCOMPARE(count("SELECT COUNT(*) FROM supplierservices"), 0);
    messages.clear();
    dir.ListView2->setCurrentItem(dir.ListView2->topLevelItem(0));
    dir.cmdDeleteSupplier->click();
    QVERIFY(messages.calls().isEmpty());
}

void TestSupplierScreens::supplierEditAndAddRenewTheDirectory() {
    TestDatabase t;
    const Fixture f = fillDirectory(t.db());
    frmTelDir dir;
    MessageRecorder messages;
    dir.openSupplier(dir.ListView4, rowNamed(dir.ListView4, "Acme Cars"));
    auto screens = openScreens<frmaddsupplier>();
    QCOMPARE(screens.size(), 1);
    frmaddsupplier* s = screens.front();
    QCOMPARE(s->windowTitle(), QString("View/Edit Supplier details"));
    QCOMPARE(s->txtName->text(), QString("Acme Cars"));
    QCOMPARE(rows(s->lstServices), QStringList{"Car Hire"});
    s->txtName->setText("Acme Car Hire");
    s->txtPhone->setText("112");
    s->cmdOK->click();
    QCOMPARE(rows(dir.ListView2), (QStringList{"Acme Car Hire | 112", "Best Print | 222"}));
    QCOMPARE(rows(dir.ListView4), rows(dir.ListView2));
    QCOMPARE(suppliers::loadSupplier(t.db(), f.acme)->name, QString("Acme Car Hire"));
    QCOMPARE(count("SELECT COUNT(*) FROM Supplier"), 2);

    // "Add Supplier" puts the new one in both lists.
    dir.cmdAddSupplier->click();
    screens = openScreens<frmaddsupplier>();
    QCOMPARE(screens.size(), 1);
    s = screens.front();
    QCOMPARE(s->windowTitle(), QString("Add Supplier"));
    s->cmdOK->click();
    QCOMPARE(messages.texts(), QStringList{"Please enter a supplier name"});
    s->txtName->setText("Couriers R Us");
    s->txtPhone->setText("333");
    s->cmdOK->click();
    QVERIFY(rowNamed(dir.ListView2, "Couriers R Us"));
    QVERIFY(rowNamed(dir.ListView4, "Couriers R Us"));
    QCOMPARE(frmTelDir::kindAt(rowNamed(dir.ListView2, "Couriers R Us")), EntryKind::Supplier);
    QCOMPARE(count("SELECT COUNT(*) FROM Supplier WHERE Name = 'Couriers R Us'"), 1);
}

void TestSupplierScreens::duplicateServiceIsRefused() {
    TestDatabase t;
    const Fixture f = fillDirectory(t.db());
    frmaddsupplier s;
    s.load(f.best);
    QCOMPARE(rows(s.lstServices), QStringList{"Printing"});
    MessageRecorder messages;
    DialogDriver dialogs;
    // Picks "Car Hire" and "Printing", walked in the list's order: the second is already
    // there, which ends the step after the first.
    auto pickBoth = [&](QDialog& d) {
        auto& services = static_cast<frmServices&>(d);
        rowNamed(services.lstServices, "Car Hire")->setSelected(true);
        rowNamed(services.lstServices, "Printing")->setSelected(true);
        services.cmdSelect->click();
        return services.ok ? int(QDialog::Accepted) : int(QDialog::Rejected);
    };
    dialogs.then(pickBoth);
    s.cmdAddService->click();
    QCOMPARE(messages.texts(),
             QStringList{"That service has already been selected for this supplier"});
    QCOMPARE(rows(s.lstServices), (QStringList{"Printing", "Car Hire"}));
    const QString links =
        "SELECT COUNT(*) FROM supplierservices WHERE supplier_id = ? AND Services_ID = ?";
    QCOMPARE(count(links, {f.best, f.printing}), 1);
    QCOMPARE(count(links, {f.best, f.carHire}), 1);
    // Again: the first is now the duplicate, and nothing more is written.
    dialogs.then(pickBoth);
    s.cmdAddService->click();
    QCOMPARE(messages.count("That service has already been selected for this supplier"), 2);
    QCOMPARE(count("SELECT COUNT(*) FROM supplierservices WHERE supplier_id = ?", {f.best}), 2);
    // "Remove" takes the selected one away at once.
    pick(s.lstServices, "Car Hire");
    s.cmdRemoveService->click();
    QCOMPARE(rows(s.lstServices), QStringList{"Printing"});
    QCOMPARE(suppliers::supplierServices(t.db(), f.best).size(), size_t(1));
}

void TestSupplierScreens::serviceInUseIsNotDeleted() {
    TestDatabase t;
    fillDirectory(t.db());
    MessageRecorder messages;
    DialogDriver dialogs;
    frmServices services;
    QCOMPARE(services.windowTitle(), QString("Select services provided"));
    QVERIFY(services.selectedIds().empty());
    dialogs.then([&](QDialog& d) {
        auto& n = static_cast<newservice&>(d);
        n.cmdOK->click(); // blank
        n.txtService->setText("Window Cleaning");
        n.cmdOK->click();
        return n.ok ? int(QDialog::Accepted) : int(QDialog::Rejected);
    });
    services.cmdNew->click();
    QCOMPARE(messages.texts(), QStringList{"Please enter a new service or press cancel to exit"});
    QCOMPARE(rows(services.lstServices).mid(rows(services.lstServices).size() - 3),
             (QStringList{"Car Hire", "Printing", "Window Cleaning"}));
    const qint64 before = count("SELECT COUNT(*) FROM services");
    messages.clear();
    pick(services.lstServices, "Car Hire");
    services.lstServices->currentItem()->setSelected(true);
    services.cmdDelete->click();
    QCOMPARE(messages.texts(), QStringList{"You cannot delete a service while a supplier is listed "
                                           "as providing that service."});
    QCOMPARE(count("SELECT COUNT(*) FROM services"), before);
    pick(services.lstServices, "Window Cleaning");
    services.lstServices->currentItem()->setSelected(true);
    services.cmdDelete->click();
    QVERIFY(!rowNamed(services.lstServices, "Window Cleaning"));
    QVERIFY(rowNamed(services.lstServices, "Car Hire"));
    QCOMPARE(count("SELECT COUNT(*) FROM services"), before - 1);
    // "Exit" leaves ok unset; "Select" with nothing picked closes with nothing to add.
    services.show();
    services.cmdExit->click();
    QVERIFY(!services.ok);
    services.show();
    services.lstServices->clearSelection();
    services.cmdSelect->click();
    QVERIFY(services.ok);
    QVERIFY(!services.isVisible());
    QVERIFY(services.selectedIds().empty());
}

void TestSupplierScreens::earlySavedSupplierGoesOnCancel_data() {
    QTest::addColumn<bool>("office");
    QTest::addColumn<bool>("dialogAccepted");
    QTest::addColumn<bool>("pressOK");
    QTest::newRow("service added, screen cancelled") << false << true << false;
    QTest::newRow("service dialog cancelled, screen cancelled") << false << false << false;
    QTest::newRow("office added, screen cancelled") << true << true << false;
    QTest::newRow("office added, OK keeps it") << true << true << true;
}

void TestSupplierScreens::earlySavedSupplierGoesOnCancel() {
    QFETCH(bool, office);
    QFETCH(bool, dialogAccepted);
    QFETCH(bool, pressOK);
    TestDatabase t;
    fillDirectory(t.db());
    DialogDriver dialogs;
    MessageRecorder messages;
    auto* s = new frmaddsupplier;
    s->setAttribute(Qt::WA_DeleteOnClose);
    s->show();
    s->txtName->setText("Early Ltd");
    dialogs.then([&](QDialog& d) {
        if (!dialogAccepted) return int(QDialog::Rejected);
        if (auto* o = qobject_cast<frmOffice*>(&d)) {
            o->txtTown->setText("Leeds");
            o->cmdOK->click();
            return int(QDialog::Accepted);
        }
        auto& services = static_cast<frmServices&>(d);
        services.lstServices->topLevelItem(0)->setSelected(true);
        services.cmdSelect->click();
        return int(QDialog::Accepted);
    });
    (office ? s->cmdAddOffice : s->cmdAddService)->click();
    // Saved the moment a child row needed it.
    const qint64 id = s->supplierid;
    QVERIFY(id != 0);
    QCOMPARE(count("SELECT COUNT(*) FROM Supplier WHERE Supplier_ID = ?", {id}), 1);
    const qint64 children =
        count("SELECT COUNT(*) FROM supplierservices WHERE supplier_id = ?", {id}) +
        count("SELECT COUNT(*) FROM supplieroffice WHERE supplier_id = ?", {id});
    QCOMPARE(children, dialogAccepted ? 1 : 0);
    QPointer<frmaddsupplier> alive(s);
    (pressOK ? s->cmdOK : s->cmdCancel)->click();
    QTRY_VERIFY(!alive);
    QCOMPARE(count("SELECT COUNT(*) FROM Supplier WHERE Name = 'Early Ltd'"), pressOK ? 1 : 0);
    QCOMPARE(count("SELECT COUNT(*) FROM supplierservices WHERE supplier_id = ?", {id}) +
                 count("SELECT COUNT(*) FROM supplieroffice WHERE supplier_id = ?", {id}),
             pressOK ? children : 0);
    QVERIFY(messages.calls().isEmpty());
}

void TestSupplierScreens::listPagesNeedANameFirst() {
    TestDatabase t;
    MessageRecorder messages;
    DialogDriver dialogs;
    frmaddsupplier s;
    s.SSTab1->setCurrentIndex(2);
    s.cmdAddOffice->click();
    s.cmdAddService->click();
    QCOMPARE(messages.count("Please enter the supplier details before adding extra offices"), 2);
    QCOMPARE(dialogs.shown(), 0);
    QCOMPARE(s.SSTab1->currentIndex(), 0);
    QCOMPARE(count("SELECT COUNT(*) FROM Supplier"), 0);
}

void TestSupplierScreens::officesAddViewRemove() {
    TestDatabase t;
    const Fixture f = fillDirectory(t.db());
    frmaddsupplier s;
    s.load(f.acme);
    MessageRecorder messages;
    DialogDriver dialogs;
    dialogs.then([&](QDialog& d) {
        auto& o = static_cast<frmOffice&>(d);
        o.cmdOK->click(); // no town
        o.txtTown->setText("Leeds");
        o.txtPhone->setText("0113");
        o.txtPCode->setText("ls1 1aa");
        emit o.txtPCode->editingFinished();
        o.cmdOK->click();
        return int(QDialog::Accepted);
    });
    s.cmdAddOffice->click();
    QCOMPARE(messages.texts(), QStringList{"You must enter a town or city in the relevant box"});
    QCOMPARE(rows(s.lstOffices), QStringList{"Leeds | 0113"});
    QCOMPARE(suppliers::loadOffice(t.db(), RecordList::idAt(s.lstOffices->topLevelItem(0)))->pcode,
             QString("LS1 1AA"));

    dialogs.then([&](QDialog& d) {
        auto& o = static_cast<frmOffice&>(d);
        if (o.windowTitle() != "Leeds Branch") return int(QDialog::Rejected);
        o.txtTown->setText("York");
        o.cmdOK->click();
        return int(QDialog::Accepted);
    });
    pick(s.lstOffices, "Leeds");
    s.cmdViewOffice->click();
    QCOMPARE(rows(s.lstOffices), QStringList{"York | 0113"});

    messages.clear();
    pick(s.lstOffices, "York");
    s.cmdRemoveOffice->click(); // answered No
    QCOMPARE(messages.texts(), QStringList{"Are you sure you want to delete the York Branch"});
    QCOMPARE(s.lstOffices->topLevelItemCount(), 1);
    messages.answerNext(core::MsgAnswer::Yes);
    s.cmdRemoveOffice->click();
    QCOMPARE(s.lstOffices->topLevelItemCount(), 0);
    QVERIFY(suppliers::supplierOffices(t.db(), f.acme).empty());
}

void TestSupplierScreens::postcodeCaptionFollowsTheProfile() {
    core::session().language = QStringLiteral("English (US)");
    frmaddsupplier s;
    frmOffice o;
    QCOMPARE(s.lblPCode->text(), QString("Zip Code"));
    QCOMPARE(o.lblPCode->text(), QString("Zip Code"));
    core::session().language = QStringLiteral("English (UK)");
    frmaddsupplier uk;
    QCOMPARE(uk.lblPCode->text(), QString("Post Code"));
    QCOMPARE(uk.SSTab1->tabText(0) + "/" + uk.SSTab1->tabText(1) + "/" + uk.SSTab1->tabText(2),
             QString("General/Services Provided/Other Offices"));
}

void TestSupplierScreens::emailOpensAMailLink() {
    MailCatcher catcher;
    QDesktopServices::setUrlHandler("mailto", &catcher, "open");
    frmAddPerson p;
    p.txtEmail->setText("ann.o'neil@example.org");
    p.cmdEmail->click();
    QDesktopServices::unsetUrlHandler("mailto");
    QCOMPARE(catcher.urls.size(), 1);
    QCOMPARE(catcher.urls[0].scheme(), QString("mailto"));
    QCOMPARE(catcher.urls[0].path(), QString("ann.o'neil@example.org"));
}

void TestSupplierScreens::findSupplierByService() {
    TestDatabase t;
    const Fixture f = fillDirectory(t.db());
    frmFindSupplier find;
    find.load();
    QCOMPARE(rows(find.ListView1), (QStringList{"Acme Cars", "Best Print"}));
    find.cboService->setCurrentIndex(find.cboService->findText("Printing"));
    emit find.cboService->activated(find.cboService->currentIndex());
    QCOMPARE(rows(find.ListView2), QStringList{"Best Print"});
    find.cboService->setCurrentIndex(find.cboService->findText("Car Hire"));
    emit find.cboService->activated(find.cboService->currentIndex());
    QTest::keyClicks(find.txtCompany2, "x");
    QCOMPARE(rows(find.ListView2), QStringList{"There are no matching entries"});
    find.txtCompany2->clear();
    find.SSTab1->setCurrentIndex(1);
    pick(find.ListView2, "Acme Cars");
    find.cmdView->click();
    const auto screens = openScreens<frmaddsupplier>();
    QCOMPARE(screens.size(), 1);
    QCOMPARE(screens.front()->supplierid, f.acme);
}

void TestSupplierScreens::menuCommandsOpenTheScreens() {
    TestDatabase t;
    fillDirectory(t.db());
    mdiMain w;
    registerCommands(w);
    w.show();
    auto* area = w.findChild<QMdiArea*>();
    auto active = [&]() -> QWidget* {
        return area->activeSubWindow() ? area->activeSubWindow()->widget() : nullptr;
    };
    struct Case {
        const char* item;
        const char* screen;
        int page;
    };
    for (const Case c : {Case{"mnuTel", "frmTelDir", 0}, Case{"mnuSuppliersEdit", "frmTelDir", 1},
                         Case{"mnuSuppliersAdd", "frmaddsupplier", -1},
                         Case{"mnuSuppliersFind", "frmFindSupplier", -1}}) {
        QAction* item = w.findChild<QAction*>(c.item);
        QVERIFY2(item && item->isEnabled(), c.item);
        item->trigger();
        QWidget* screen = active();
        QVERIFY2(screen && screen->objectName() == c.screen, c.item);
        if (auto* dir = qobject_cast<frmTelDir*>(screen))
            QCOMPARE(dir->SSTab1->currentIndex(), c.page);
    }
    QAction* button = nullptr;
    for (QAction* a : w.findChild<QToolBar*>("Toolbar1")->actions())
        if (a->objectName() == "frmteldir") button = a;
    QVERIFY(button && button->isEnabled());
    button->trigger();
    auto* dir = qobject_cast<frmTelDir*>(active());
    QVERIFY(dir);
    QCOMPARE(dir->SSTab1->currentIndex(), 0);
    area->closeAllSubWindows();
}

QTEST_MAIN(TestSupplierScreens)
#include "tst_supplier_screens.moc"
