#include "directory.h"
#include "frmaddcompany.h"
#include "frmaddperson.h"
#include "frmaddsupplier.h"
#include "frmoffice.h"
#include "frmteldir.h"
#include "recordlist.h"
#include "seams.h"
#include "session.h"
#include "supplier_record.h"
#include "testdb.h"

#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using core::MsgAnswer;
using testsupport::DialogDriver;
using testsupport::MessageRecorder;
using testsupport::TestDatabase;

namespace {

// Each kind of row: its table and key, and the noun its refusal names. All four keep a phone.
struct Kind {
    QString table;
    QString key;
    QString noun;
};

Kind kindOf(const QString& name) {
    if (name == "supplier") return {"Supplier", "Supplier_ID", "supplier"};
    if (name == "office") return {"supplieroffice", "supplieroffice_id", "office"};
    return {"contact", "contact_id", "contact"};
}

struct Rows {
    qint64 supplier = 0;
    qint64 office = 0;
    qint64 person = 0;
    qint64 company = 0;
    qint64 of(const QString& name) const {
        if (name == "supplier") return supplier;
        if (name == "office") return office;
        return name == "person" ? person : company;
    }
};

Rows addRows(core::Db& db) {
    Rows r;
    r.supplier = suppliers::insertSupplier(
        db, {"Acme", "1 High St", "", "Leeds", "LS1 1AA", "0100", "Sam", "", ""});
    r.office = suppliers::addOffice(db, r.supplier,
                                    {"York", "2 Low St", "", "YO1 1AA", "0100", "", "", ""});
    r.person = suppliers::addPersonContact(db, {"Tim", "Small", "0100", "", ""});
    r.company = suppliers::addCompanyContact(db, {"Zeta Couriers", "Fay", "0100", "", ""});
    return r;
}

QVariant phone(core::Db& db, const QString& name, qint64 id) {
    const Kind k = kindOf(name);
    return db.scalar(QStringLiteral("SELECT phone FROM %1 WHERE %2 = ?").arg(k.table, k.key), {id});
}

int count(core::Db& db, const QString& name) {
    return db.scalar(QStringLiteral("SELECT COUNT(*) FROM %1").arg(kindOf(name).table)).toInt();
}

QTreeWidgetItem* rowNamed(RecordList* list, const QString& text) {
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        if (list->topLevelItem(i)->text(0) == text) return list->topLevelItem(i);
    return nullptr;
}

// What the user saw of their save.
struct Seen {
    bool refused = false;
    QString typedAfter;       // the phone box after the refusal
    bool savedAtLast = false; // the second try, after the row was offered again
};

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
    TestDatabase fixture;
    auto& db = fixture.db();
    const Rows rows = addRows(db);
    const Kind k = kindOf(kind);
    const qint64 id = rows.of(kind);
    auto userB = fixture.openSecond("user-b");
    auto actAsB = [&] {
        if (change == "change")
            userB->update(k.table, k.key, id, {{"phone", "0200"}, {"email", "b@x.test"}});
        else
            userB->remove(k.table, k.key, id);
    };
    const int before = count(db, kind) - (change == "delete" ? 1 : 0);
    MessageRecorder boxes;
    if (reload) boxes.answerNext(MsgAnswer::Yes);

    // A types a new phone and presses OK; offered the row as it now is, A types once more.
    Seen seen;
    auto typeAndSave = [&](QWidget& screen) {
        auto* box = screen.findChild<QLineEdit*>("txtPhone");
        auto* ok = screen.findChild<QPushButton*>("cmdOK");
        actAsB();
        box->setText("0300");
        ok->click();
        seen.refused = phone(db, kind, id).toString() != "0300";
        seen.typedAfter = box->text();
        if (!seen.refused || !reload) return;
        box->setText("0400");
        ok->click();
        seen.savedAtLast = phone(db, kind, id).toString() == "0400";
    };
    frmaddsupplier supplierScreen;
    if (kind == "supplier") {
        supplierScreen.load(id);
        typeAndSave(supplierScreen);
    } else {
        DialogDriver dialogs;
        dialogs.then([&](QDialog& d) {
            typeAndSave(d);
            return d.result();
        });
        if (kind == "office") {
            supplierScreen.load(rows.supplier);
            supplierScreen.lstOffices->setCurrentItem(supplierScreen.lstOffices->findRecord(id));
            supplierScreen.cmdViewOffice->click();
        } else {
            frmTelDir dir;
            dir.openPerson(
                rowNamed(dir.ListView1, kind == "person" ? "Small, Tim" : "Zeta Couriers"));
        }
        QCOMPARE(dialogs.shown(), 1);
    }

    QVERIFY(seen.refused);
    QVERIFY(!boxes.calls().isEmpty());
    QVERIFY2(boxes.calls()[0].text.startsWith(
                 QStringLiteral("This %1 has been changed by another user since you opened it. "
                                "Your changes have not been saved.")
                     .arg(k.noun)),
             qPrintable(boxes.calls()[0].text));
    QCOMPARE(count(db, kind), before);
    if (change == "delete") {
        // Offered or not, nothing comes back and the typing stays.
        QVERIFY(phone(db, kind, id).isNull());
        QCOMPARE(seen.typedAfter, QString("0300"));
        QVERIFY(!seen.savedAtLast);
        return;
    }
    QCOMPARE(boxes.calls().size(), 1);
    QCOMPARE(seen.typedAfter, QString(reload ? "0200" : "0300"));
    // Reloaded, the save goes through over B's row, keeping B's other change.
    QCOMPARE(seen.savedAtLast, reload);
    QCOMPARE(phone(db, kind, id).toString(), QString(reload ? "0400" : "0200"));
    QCOMPARE(
        db.scalar(QStringLiteral("SELECT email FROM %1 WHERE %2 = ?").arg(k.table, k.key), {id})
            .toString(),
        QString("b@x.test"));
}

QTEST_MAIN(TestSupplierEdits)
#include "tst_supplier_edits.moc"
