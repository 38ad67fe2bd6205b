#include "directory.h"
#include "frmaddsupplier.h"
#include "frmteldir.h"
#include "recordlist.h"
#include "seams.h"
#include "session.h"
#include "supplier_record.h"
#include "testdb.h"
#include "twousers.h"

#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using core::MsgAnswer;
using testsupport::DialogDriver;
using testsupport::StoredRow;
using testsupport::TwoUsers;

namespace {

// A supplier with a branch, a person and a company, all with the phone "0100"; the row of the
// kind asked for. `supplier` is set to the supplier's key.
StoredRow addRows(core::Db& db, const QString& kind, qint64& supplier) {
    supplier = suppliers::insertSupplier(
        db, {"Acme", "1 High St", "", "Leeds", "LS1 1AA", "0100", "Sam", "", ""});
    const qint64 office =
        suppliers::addOffice(db, supplier, {"York", "2 Low St", "", "YO1 1AA", "0100", "", "", ""});
    const qint64 person = suppliers::addPersonContact(db, {"Tim", "Small", "0100", "", ""});
    const qint64 company =
        suppliers::addCompanyContact(db, {"Zeta Couriers", "Fay", "0100", "", ""});
    if (kind == "supplier") return {"Supplier", "Supplier_ID", supplier};
    if (kind == "office") return {"supplieroffice", "supplieroffice_id", office};
    return {"contact", "contact_id", kind == "person" ? person : company};
}

} // namespace

class TestSupplierEdits : public QObject {
    Q_OBJECT
private slots:
    void init() { core::session().language = QStringLiteral("English (UK)"); }

    void anotherUsersChangeIsNotOverwritten_data();
    void anotherUsersChangeIsNotOverwritten();
};

void TestSupplierEdits::anotherUsersChangeIsNotOverwritten_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("change"); // what user B does while A has the screen open
    QTest::addColumn<bool>("reload");    // A's answer to the offer of the row as it now is
    for (const QString kind : {"supplier", "office", "person", "company"}) {
        QTest::newRow(qPrintable(kind + ", changed, kept")) << kind << "change" << false;
        QTest::newRow(qPrintable(kind + ", changed, reloaded")) << kind << "change" << true;
        QTest::newRow(qPrintable(kind + ", deleted")) << kind << "delete" << true;
    }
}

void TestSupplierEdits::anotherUsersChangeIsNotOverwritten() {
    QFETCH(QString, kind);
    QFETCH(QString, change);
    QFETCH(bool, reload);
    TwoUsers users;
    auto& db = users.db;
    qint64 supplier = 0;
    const StoredRow row = addRows(db, kind, supplier);
    const int before = row.rowsInTable(db) - (change == "delete" ? 1 : 0);
    if (reload) users.boxes.answerNext(MsgAnswer::Yes);

    // B acts once A's screen is open; A types a new phone and presses OK and, offered the row
    // as it now is, types once more.
    bool refused = false, savedAtLast = false;
    QString typedAfter; // the phone box after the refusal
    auto typeAndSave = [&](QWidget& screen) {
        auto* box = screen.findChild<QLineEdit*>("txtPhone");
        auto* ok = screen.findChild<QPushButton*>("cmdOK");
        if (change == "change")
            users.userB->update(row.table, row.key, row.id,
                                {{"phone", "0200"}, {"email", "b@x.test"}});
        else
            users.userB->remove(row.table, row.key, row.id);
        box->setText("0300");
        ok->click();
        refused = row.value(db, "phone").toString() != "0300";
        typedAfter = box->text();
        if (!refused || !reload) return;
        box->setText("0400");
        ok->click();
        savedAtLast = row.value(db, "phone").toString() == "0400";
    };
    frmaddsupplier supplierScreen;
    if (kind == "supplier") {
        supplierScreen.load(row.id);
        typeAndSave(supplierScreen);
    } else {
        DialogDriver dialogs;
        dialogs.then([&](QDialog& d) {
            typeAndSave(d);
            return d.result();
        });
        if (kind == "office") {
            supplierScreen.load(supplier);
            supplierScreen.lstOffices->setCurrentItem(
                supplierScreen.lstOffices->findRecord(row.id));
            supplierScreen.cmdViewOffice->click();
        } else {
            frmTelDir dir;
            const QString name = kind == "person" ? "Small, Tim" : "Zeta Couriers";
            dir.openPerson(dir.ListView1->findItems(name, Qt::MatchExactly).value(0));
        }
        QCOMPARE(dialogs.shown(), 1);
    }

    QVERIFY(refused);
    // The refusal names a person or a company as a contact.
    const QString noun = kind == "person" || kind == "company" ? "contact" : kind;
    QVERIFY2(users.refusedAsChanged(noun), qPrintable(users.firstBox()));
    QCOMPARE(row.rowsInTable(db), before);
    if (change == "delete") {
        // Offered or not, nothing comes back and the typing stays.
        QVERIFY(row.value(db, "phone").isNull());
        QCOMPARE(typedAfter, QString("0300"));
        QVERIFY(!savedAtLast);
        return;
    }
    QCOMPARE(users.boxes.calls().size(), 1);
    QCOMPARE(typedAfter, QString(reload ? "0200" : "0300"));
    // Reloaded, the save goes through over B's row, keeping B's other change.
    QCOMPARE(savedAtLast, reload);
    QCOMPARE(row.value(db, "phone").toString(), QString(reload ? "0400" : "0200"));
    QCOMPARE(row.value(db, "email").toString(), QString("b@x.test"));
}

QTEST_MAIN(TestSupplierEdits)
#include "tst_supplier_edits.moc"
