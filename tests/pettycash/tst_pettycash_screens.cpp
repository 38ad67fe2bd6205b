#include "commands.h"
#include "datebox.h"
#include "frmfunds.h"
#include "frmpettycash.h"
#include "mdimain.h"
#include "recordlist.h"
#include "regional.h"
#include "rptpettycash.h"
#include "seams.h"
#include "session.h"
#include "testdb.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QtTest>

using core::MsgAnswer;
using testsupport::DialogDriver;
using testsupport::MessageRecorder;
using testsupport::TestDatabase;

namespace {

const QString NoFunds = QStringLiteral("There are no funds available");
const QString Insufficient = QStringLiteral("There are insufficient funds");
const QString SureDelete = QStringLiteral("Are you sure you want to delete this entry?");

qint64 write(core::Db& db, const QDate& date, const QString& amount, const QString& reason) {
    return db.insert("pettycash", "pettyid",
                     {{"Date", date}, {"amount", amount}, {"reason", reason}});
}

// Each row as "date|amount|reason", with "red" after it for money out.
QStringList rowsOf(const RecordList* list) {
    QStringList out;
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        const QTreeWidgetItem* item = list->topLevelItem(i);
        QStringList cells;
        for (int c = 0; c < list->columnCount(); ++c)
            cells << item->text(c);
        bool red = true;
        for (int c = 0; c < list->columnCount(); ++c)
            red = red && item->foreground(c).color() == QColor(Qt::red);
        out << cells.join('|') + (red ? "|red" : "");
    }
    return out;
}

// A dialog handler that types an entry and presses OK.
DialogDriver::Handler typeEntry(const QString& date, const QString& amount,
                                const QString& reason = {}) {
    return [=](QDialog& d) {
        auto& f = static_cast<frmFunds&>(d);
        f.txtDate->setText(date);
        f.txtAmount->setText(amount);
        f.txtReason->setText(reason);
        f.cmdOK->click();
        return f.result();
    };
}

QString today() {
    return core::formatDate(QDate::currentDate());
}

void select(RecordList* list, qint64 id) {
    list->setCurrentItem(list->findRecord(id));
}

} // namespace

class TestPettyCashScreens : public QObject {
    Q_OBJECT
private slots:
    void init() { core::session().language = "English (UK)"; }

    void fundsDialogChecks_data();
    void fundsDialogChecks();
    void ledgerListsNewestFirstInRed();
    void addAndRemoveAppendRows();
    void removeStopsBeforeTheDialog();
    void deleteAsksAndChecksFunds();
    void editKeepsDirectionAndChecksFunds();
    void editOfAChangedEntryKeepsTheTyping_data();
    void editOfAChangedEntryKeepsTheTyping();
    void reportRunsAMonth_data();
    void reportRunsAMonth();
    void menuOpensTheScreens();
};

void TestPettyCashScreens::fundsDialogChecks_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<int>("dayOffset");
    QTest::addColumn<QString>("amount");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("amountCaption");
    QTest::newRow("today") << "English (UK)" << 0 << "5"
                           << ""
                           << "Amount    £";
    QTest::newRow("tomorrow") << "English (UK)" << 1 << "5"
                              << "You cannot enter a date in the future"
                              << "Amount    £";
    QTest::newRow("no amount") << "English (UK)" << 0 << ""
                               << "Please enter a date in the format DD/MM/YYYY and an amount"
                               << "Amount    £";
    QTest::newRow("US negative") << "English (US)" << -3 << "-5"
                                 << "Please enter a date in the format MM/DD/YYYY and an amount"
                                 << "Amount    $";
}

void TestPettyCashScreens::fundsDialogChecks() {
    QFETCH(QString, language);
    QFETCH(int, dayOffset);
    QFETCH(QString, amount);
    QFETCH(QString, message);
    QFETCH(QString, amountCaption);
    core::session().language = language;
    MessageRecorder boxes;
    frmFunds dialog;
    QCOMPARE(dialog.lblAmount->text(), amountCaption);
    QCOMPARE(dialog.txtDate->date(), QDate::currentDate());
    QVERIFY(!dialog.ok());
    dialog.txtDate->setDate(QDate::currentDate().addDays(dayOffset));
    dialog.txtAmount->setText(amount);
    QCOMPARE(dialog.dirty(), dayOffset != 0 || !amount.isEmpty());
    dialog.cmdOK->click();
    QCOMPARE(boxes.texts(), message.isEmpty() ? QStringList() : QStringList{message});
    QCOMPARE(dialog.ok(), message.isEmpty());
    QCOMPARE(dialog.result(), message.isEmpty() ? int(QDialog::Accepted) : 0);
}

void TestPettyCashScreens::ledgerListsNewestFirstInRed() {
    TestDatabase fixture;
    auto& db = fixture.db();
    write(db, QDate(2024, 3, 1), "+100", "Cash from bank");
    write(db, QDate(2024, 3, 4), "-4.5", " Milk ");
    write(db, QDate(2024, 3, 2), "-0.12345", "Stamp");
    frmPettyCash screen;
    screen.load();
    QCOMPARE(screen.windowTitle(), QString("Petty Cash Information"));
    QCOMPARE(rowsOf(screen.ListView1),
             (QStringList{"04/03/2024|- £4.5|Milk|red", "02/03/2024|- £0.12345|Stamp|red",
                          "01/03/2024|+ £100|Cash from bank"}));
    QCOMPARE(screen.lblCaption->text(), QString("Current petty cash total:   £"));
    QCOMPARE(screen.lblTotal->text(), QString("95.3765"));

    core::session().language = "English (US)";
    frmPettyCash us;
    us.load();
    QCOMPARE(us.lblCaption->text(), QString("Current petty cash total:   $"));
    QCOMPARE(rowsOf(us.ListView1).first(), QString("03/04/2024|- $4.5|Milk|red"));
}

void TestPettyCashScreens::addAndRemoveAppendRows() {
    TestDatabase fixture;
    auto& db = fixture.db();
    write(db, QDate::currentDate(), "+10", "Float");
    frmPettyCash screen;
    screen.load();
    MessageRecorder boxes;
    DialogDriver dialogs;
    dialogs.then(typeEntry(today(), " 7.50 ", " Top up "));
    screen.cmdAdd->click();
    dialogs.then(typeEntry(today(), "17.51", "Too much"));
    screen.cmdRemove->click();
    dialogs.then(typeEntry(today(), "17.5", "All of it"));
    screen.cmdRemove->click();
    dialogs.then([](QDialog&) { return int(QDialog::Rejected); });
    screen.cmdAdd->click(); // cancelled
    QCOMPARE(dialogs.shownClasses(), QStringList(4, "frmFunds"));
    QCOMPARE(boxes.texts(), QStringList{Insufficient});
    QCOMPARE(rowsOf(screen.ListView1),
             (QStringList{today() + "|+ £10|Float", today() + "|+ £7.50|Top up",
                          today() + "|- £17.5|All of it|red"}));
    QCOMPARE(screen.lblTotal->text(), QString("0"));
    QCOMPARE(db.scalar("SELECT COUNT(*) FROM pettycash").toInt(), 3);
    // Each new row carries its entry's key.
    const qint64 last = RecordList::idAt(screen.ListView1->topLevelItem(2));
    QCOMPARE(db.scalar("SELECT amount FROM pettycash WHERE pettyid = ?", {last}).toString(),
             QString("-17.5"));
}

void TestPettyCashScreens::removeStopsBeforeTheDialog() {
    TestDatabase fixture;
    frmPettyCash screen;
    screen.load();
    QCOMPARE(screen.lblTotal->text(), QString("0"));
    MessageRecorder boxes;
    DialogDriver dialogs;
    screen.cmdRemove->click();
    // Another user puts money in: the next Remove Funds sees it.
    write(fixture.db(), QDate::currentDate(), "+3", "Float");
    dialogs.then(typeEntry(today(), "3"));
    screen.cmdRemove->click();
    screen.cmdRemove->click();
    QCOMPARE(boxes.texts(), (QStringList{NoFunds, NoFunds}));
    QCOMPARE(dialogs.shown(), 1);
    QCOMPARE(screen.lblTotal->text(), QString("0"));
}

void TestPettyCashScreens::deleteAsksAndChecksFunds() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 in = write(db, QDate(2024, 3, 1), "+10", "Float");
    const qint64 out = write(db, QDate(2024, 3, 2), "-6", "Taxi");
    frmPettyCash screen;
    screen.load();
    MessageRecorder boxes;
    screen.cmdDelete->click(); // no row picked
    select(screen.ListView1, out);
    screen.cmdDelete->click(); // answered No
    boxes.answerNext(MsgAnswer::Yes);
    select(screen.ListView1, in);
    screen.cmdDelete->click(); // would leave -6
    QCOMPARE(boxes.texts(), (QStringList{SureDelete, SureDelete, Insufficient}));
    QCOMPARE(screen.ListView1->count(), 2);
    boxes.answerNext(MsgAnswer::Yes);
    select(screen.ListView1, out);
    screen.cmdDelete->click();
    QCOMPARE(rowsOf(screen.ListView1), QStringList{"01/03/2024|+ £10|Float"});
    QCOMPARE(screen.lblTotal->text(), QString("10"));
    QCOMPARE(db.scalar("SELECT COUNT(*) FROM pettycash").toInt(), 1);
}

void TestPettyCashScreens::editKeepsDirectionAndChecksFunds() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 in = write(db, QDate(2024, 3, 1), "+10", "Float");
    const qint64 out = write(db, QDate(2024, 3, 2), "-6", "Taxi");
    frmPettyCash screen;
    screen.load();
    MessageRecorder boxes;
    DialogDriver dialogs;
    QString shownDate, shownAmount, shownReason, caption;
    dialogs.then([&](QDialog& d) {
        auto& f = static_cast<frmFunds&>(d);
        caption = f.windowTitle();
        shownDate = f.txtDate->text();
        shownAmount = f.txtAmount->text();
        shownReason = f.txtReason->text();
        return typeEntry("05/03/2024", "8", "Taxi home")(d);
    });
    select(screen.ListView1, out);
    emit screen.ListView1->itemDoubleClicked(screen.ListView1->findRecord(out), 0);
    QCOMPARE(caption, QString("Edit entry"));
    QCOMPARE(QStringList({shownDate, shownAmount, shownReason}),
             (QStringList{"02/03/2024", "6", "Taxi"}));
    dialogs.then(typeEntry("01/03/2024", "7.99", "Float"));
    select(screen.ListView1, in);
    screen.cmdEdit->click(); // 7.99 - 8 would be below nothing
    QCOMPARE(boxes.texts(), QStringList{Insufficient});
    QCOMPARE(rowsOf(screen.ListView1),
             (QStringList{"05/03/2024|- £8|Taxi home|red", "01/03/2024|+ £10|Float"}));
    QCOMPARE(screen.lblTotal->text(), QString("2"));
    QCOMPARE(db.scalar("SELECT amount FROM pettycash WHERE pettyid = ?", {in}).toString(),
             QString("+10"));
    QCOMPARE(db.scalar("SELECT amount FROM pettycash WHERE pettyid = ?", {out}).toString(),
             QString("-8"));
}

void TestPettyCashScreens::editOfAChangedEntryKeepsTheTyping_data() {
    QTest::addColumn<QString>("change");   // what another user does while the dialog is open
    QTest::addColumn<bool>("reload");      // the answer to the offer of the entry as it now is
    QTest::addColumn<QString>("reopened"); // amount|reason the dialog opens again with
    QTest::addColumn<QString>("stored");   // the amount stored at the end
    QTest::addColumn<QString>("total");
    // Kept: the typing comes back, and OK again is refused again (then Cancel).
    QTest::newRow("changed, typing kept") << "change" << false << "5|Bus"
                                          << "-7"
                                          << "3";
    // Reloaded: the dialog shows the entry as it now is; OK saves over that.
    QTest::newRow("changed, reloaded") << "change" << true << "7|Taxi"
                                       << "-5"
                                       << "5";
    QTest::newRow("deleted") << "delete" << false << ""
                             << ""
                             << "10";
}

void TestPettyCashScreens::editOfAChangedEntryKeepsTheTyping() {
    QFETCH(QString, change);
    QFETCH(bool, reload);
    QFETCH(QString, reopened);
    QFETCH(QString, stored);
    QFETCH(QString, total);
    TestDatabase fixture;
    auto& db = fixture.db();
    write(db, QDate(2024, 3, 1), "+10", "Float");
    const qint64 out = write(db, QDate(2024, 3, 2), "-6", "Taxi");
    frmPettyCash screen;
    screen.load();
    auto other = fixture.openSecond("other");
    MessageRecorder boxes;
    if (reload) boxes.answerNext(MsgAnswer::Yes);
    DialogDriver dialogs;
    dialogs.then([&](QDialog& d) {
        if (change == "change")
            other->update("pettycash", "pettyid", out, {{"amount", "-7"}});
        else
            other->remove("pettycash", "pettyid", out);
        return typeEntry("02/03/2024", "5", "Bus")(d);
    });
    QString retyped;
    dialogs.then([&](QDialog& d) {
        auto& f = static_cast<frmFunds&>(d);
        retyped = f.txtAmount->text() + "|" + f.txtReason->text();
        if (reload) f.txtAmount->setText("5");
        f.cmdOK->click();
        return d.result();
    });
    select(screen.ListView1, out);
    screen.cmdEdit->click();
    QVERIFY(!boxes.texts().isEmpty());
    QVERIFY(boxes.texts().first().startsWith("This entry has been changed by another user since "
                                             "you opened it. Your changes have not been saved."));
    QCOMPARE(retyped, reopened);
    QCOMPARE(db.scalar("SELECT amount FROM pettycash WHERE pettyid = ?", {out}).toString(), stored);
    QCOMPARE(screen.lblTotal->text(), total);
    QCOMPARE(boxes.texts().size(), reload || change == "delete" ? 1 : 2);
}

void TestPettyCashScreens::reportRunsAMonth_data() {
    QTest::addColumn<QString>("month");
    QTest::addColumn<QString>("year");
    QTest::addColumn<QStringList>("rows");
    const QString ask = "Please enter the month and year of the report you wish to run.";
    QTest::newRow("no month") << ""
                              << "2024" << QStringList{ask};
    QTest::newRow("no year") << "March"
                             << " " << QStringList{ask};
    QTest::newRow("misspelt month") << "Novenmber"
                                    << "2024" << QStringList{ask};
    QTest::newRow("March") << "March"
                           << "2024"
                           << QStringList{"29/02/2024||||£0", "|Float|£10||", "|Taxi||£6|",
                                          "31/03/2024||||£4"};
}

void TestPettyCashScreens::reportRunsAMonth() {
    QFETCH(QString, month);
    QFETCH(QString, year);
    QFETCH(QStringList, rows);
    TestDatabase fixture;
    write(fixture.db(), QDate(2024, 3, 1), "+10", "Float");
    write(fixture.db(), QDate(2024, 3, 2), "-6", "Taxi");
    RptPettyCash report;
    report.load();
    QCOMPARE(report.cboYear->currentText(), QString::number(QDate::currentDate().year()));
    QCOMPARE(report.cboYear->itemText(report.cboYear->count() - 1), QString("2024"));
    QVERIFY(!report.cmdExport->isEnabled());
    MessageRecorder boxes;
    report.cboMonth->setEditText(month);
    report.cboYear->setEditText(year);
    report.cmdRun->click();
    if (rows.size() == 1) {
        QCOMPARE(boxes.texts(), rows);
        QCOMPARE(report.ListView1->count(), 0);
        QVERIFY(!report.cmdExport->isEnabled());
        return;
    }
    QCOMPARE(boxes.texts(), QStringList());
    QStringList shown;
    for (const QString& r : rowsOf(report.ListView1))
        shown << r;
    QCOMPARE(shown, rows);
    const QTreeWidgetItem* closing = report.ListView1->topLevelItem(rows.size() - 1);
    QCOMPARE(closing->foreground(4).color(), QColor(Qt::red));
    QVERIFY(report.cmdExport->isEnabled());
}

void TestPettyCashScreens::menuOpensTheScreens() {
    TestDatabase fixture;
    mdiMain w;
    registerPettyCashCommands(w);
    for (const auto& [item, opens] :
         {std::pair<QString, QString>{"mnuPettyCash", "frmPettyCash:Petty Cash Information"},
          {"mnuRepPetty", "RptPettyCash:Petty Cash Report"}}) {
        QAction* action = w.item(item);
        QVERIFY2(action && action->isEnabled(), qPrintable(item));
        action->trigger();
        QWidget* screen = w.mdiArea()->activeSubWindow()->widget();
        QCOMPARE(screen->objectName() + ":" + screen->windowTitle(), opens);
    }
}

QTEST_MAIN(TestPettyCashScreens)
#include "tst_pettycash_screens.moc"
