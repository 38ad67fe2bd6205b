#include "frmbackup.h"

#include "backuplog.h"
#include "failure.h"
#include "messagebox.h"
#include "modal.h"
#include "ownerfiles.h"
#include "recordlist.h"
#include "regional.h"
#include "screenbase.h"
#include "screenhost.h"
#include "session.h"
#include "settings.h"
#include "waitpanels.h"
#include "widgetkit.h"

#include <QApplication>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>
#include <QValidator>

namespace admin {

bool isFileNameCharacter(QChar c) {
    const char16_t u = c.unicode();
    if (u < 32 || u > 122) return false;
    return !QStringLiteral("\"'*./:<>?\\").contains(c);
}

} // namespace admin

namespace {

class FileNameValidator : public QValidator {
public:
    using QValidator::QValidator;
    State validate(QString& input, int&) const override {
        for (QChar c : input)
            if (!admin::isFileNameCharacter(c)) return Invalid;
        return Acceptable;
    }
};

// Shown while a backup or restore runs, which can take a while on a large database.
class Working {
public:
    Working(QWidget* parent, const QString& text)
        : dialog_(text, QString(), 0, 0, parent) {
        dialog_.setWindowModality(Qt::WindowModal);
        dialog_.setMinimumDuration(0);
        dialog_.show();
        QApplication::processEvents();
        QApplication::setOverrideCursor(Qt::WaitCursor);
    }
    ~Working() { QApplication::restoreOverrideCursor(); }

private:
    QProgressDialog dialog_;
};

const char* const WaitText =
    "Please wait. This process may take a couple of minutes depending on the size of database.";

} // namespace

frmBackup::frmBackup(QWidget* parent)
    : QWidget(parent) {
    setObjectName("frmBackup");
    setWindowTitle("Backup/Restore Database");
    core::placeTopLeft(this);

    SSTab1 = new QTabWidget(this);
    SSTab1->setObjectName("SSTab1");

    auto* backupPage = new QWidget;
    Text1 = new QLineEdit(backupPage);
    Text1->setObjectName("Text1");
    Text1->setValidator(new FileNameValidator(Text1));
    Text2 = new QLineEdit(backupPage);
    Text2->setObjectName("Text2");
    Label4 = new QLabel(backupPage);
    Label4->setObjectName("Label4");
    Label4->setTextInteractionFlags(Qt::TextSelectableByMouse);
    cmdDirectory = new QToolButton(backupPage);
    cmdDirectory->setObjectName("cmdDirectory");
    cmdDirectory->setText("...");
    cmdBackup = core::makeButton(backupPage, "Backup Now", "cmdBackup", true);
    auto* g = new QGridLayout(backupPage);
    g->addWidget(new QLabel("Name"), 0, 0);
    g->addWidget(Text1, 0, 1, 1, 2);
    g->addWidget(new QLabel("Description"), 1, 0);
    g->addWidget(Text2, 1, 1, 1, 2);
    g->addWidget(new QLabel("Directory Location"), 2, 0);
    g->addWidget(Label4, 2, 1);
    g->addWidget(cmdDirectory, 2, 2);
    g->addLayout(core::buttonRow({cmdBackup}), 3, 0, 1, 3);
    g->setRowStretch(4, 1);

    auto* restorePage = new QWidget;
    ListView1 = new RecordList(restorePage);
    ListView1->setObjectName("ListView1");
    ListView1->setColumns({"Date", "Description", "Restore From", "Size"}, {140, 180, 260, 90});
    cmdBrowse = core::makeButton(restorePage, "Browse", "cmdBrowse");
    cmdRestore = core::makeButton(restorePage, "Restore Now", "cmdRestore");
    auto* r = new QVBoxLayout(restorePage);
    r->addWidget(ListView1);
    r->addLayout(core::buttonRow({cmdBrowse, cmdRestore}));

    SSTab1->addTab(backupPage, "Backup");
    SSTab1->addTab(restorePage, "Restore");
    cmdClose = core::makeButton(this, "Close", "cmdClose");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(SSTab1);
    layout->addLayout(core::buttonRow({cmdClose}));
    resize(720, 380);

    connect(Text1, &QLineEdit::textChanged, this, &frmBackup::nameChanged);
    connect(cmdDirectory, &QToolButton::clicked, this, &frmBackup::chooseFolder);
    connect(cmdBackup, &QPushButton::clicked, this, [this] { backupNow(); });
    connect(cmdBrowse, &QPushButton::clicked, this, &frmBackup::browse);
    connect(cmdRestore, &QPushButton::clicked, this, &frmBackup::restoreSelected);
    connect(ListView1, &QTreeWidget::itemClicked, this, [this] { cmdRestore->setEnabled(true); });
    connect(cmdClose, &QPushButton::clicked, this, &QWidget::close);

    cmdRestore->setEnabled(false);
    cmdBackup->setEnabled(false);
    cmdDirectory->setEnabled(false);
    if (core::isrestoremode()) {
        SSTab1->setCurrentIndex(1);
        SSTab1->setTabEnabled(0, false);
        core::setScreenButtons(this, cmdRestore, cmdClose);
        fillLog();
    } else {
        SSTab1->setCurrentIndex(0);
        SSTab1->setTabEnabled(1, false);
        core::setScreenButtons(this, cmdBackup, cmdClose);
        Label4->setText(
            QDir::toNativeSeparators(core::InstallSettings::instance().backupFolder() + '/'));
    }
}

void frmBackup::fillLog() {
    ListView1->clearRecords();
    try {
        for (const admin::BackupLogEntry& e : admin::readBackupLog(admin::backupLogPath()))
            ListView1->addRecord(0, {e.when, e.description, e.path, e.size});
    } catch (const std::exception& e) {
        core::msgbox(QString::fromUtf8(e.what()), {}, core::MsgButtons::Ok, core::MsgIcon::None,
                     this);
    }
}

void frmBackup::setFolder(const QString& folder) {
    folder_ = folder;
    nameChanged();
}

void frmBackup::nameChanged() {
    const QString name = Text1->text().trimmed();
    const bool named = !name.isEmpty();
    cmdDirectory->setEnabled(named);
    const QString folder =
        folder_.isEmpty() ? core::InstallSettings::instance().backupFolder() : folder_;
    if (named) Label4->setText(QDir::toNativeSeparators(QDir(folder).filePath(name + ".dat")));
    cmdBackup->setEnabled(named && !Label4->text().isEmpty());
}

void frmBackup::chooseFolder() {
    QFileDialog dialog(this, "Select Directory",
                       folder_.isEmpty() ? core::InstallSettings::instance().backupFolder()
                                         : folder_);
    dialog.setObjectName("frmfilelist");
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    if (core::showModal(dialog) != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
    setFolder(dialog.selectedFiles().constFirst());
}

bool frmBackup::backupNow() {
    const QString path = QDir::fromNativeSeparators(Label4->text().trimmed());
    if (Text1->text().trimmed().isEmpty() || path.isEmpty()) return false;
    if (QFileInfo::exists(path) &&
        core::msgbox("You will be overwriting a previous backup. Do you wish to proceed?", {},
                     core::MsgButtons::YesNo, core::MsgIcon::None, this) != core::MsgAnswer::Yes)
        return false;
    admin::BackupLogEntry entry;
    try {
        qint64 size = 0;
        // The installation's own folder is made again when someone has removed it.
        QString why;
        if (folder_.isEmpty() &&
            !core::makeOwnerFolder(core::InstallSettings::instance().backupFolder(), &why))
            throw admin::BackupFailed(admin::BackupFailed::Reason::Other,
                                      QStringLiteral("The folder does not exist: %1").arg(why));
        {
            Working working(this, WaitText);
            size = admin::backupDatabase(core::db().params(), path);
        }
        const QDateTime now = QDateTime::currentDateTime();
        entry = {core::formatDate(now.date()) + ' ' + now.time().toString("HH:mm:ss"),
                 Text2->text().trimmed(), QDir::toNativeSeparators(path), QString::number(size)};
        admin::recordBackup(admin::backupLogPath(), entry);
    } catch (const admin::BackupFailed& e) {
        showFailure(e, false);
        return false;
    } catch (const std::exception& e) {
        core::msgbox("Backup Failed.", {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
        core::msgbox(QString::fromUtf8(e.what()), {}, core::MsgButtons::Ok, core::MsgIcon::None,
                     this);
        return false;
    }
    ListView1->addRecord(0, {entry.when, entry.description, entry.path, entry.size});
    cmdBackup->setEnabled(false);
    core::msgbox("Backup complete", {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
    const QString today = core::formatDate(QDate::currentDate());
    core::InstallSettings::instance().setValue(core::InstallSettings::LastBackup, today);
    core::session().lastbackup = today;
    return true;
}

void frmBackup::showFailure(const admin::BackupFailed& e, bool restoring) {
    using Reason = admin::BackupFailed::Reason;
    const auto box = [this](const QString& text, const QString& title = {}) {
        core::msgbox(text, title, core::MsgButtons::Ok, core::MsgIcon::None, this);
    };
    if (restoring) {
        if (e.reason() == Reason::PermissionDenied)
            box("You must be an admin to perform a restore");
        else if (e.reason() == Reason::Missing || e.reason() == Reason::NotABackup)
            box(e.message());
        else
            box(e.message(),
                QStringLiteral("Error Code : %1").arg(core::DbError::CommandFailedNumber));
        return;
    }
    if (e.reason() == Reason::PermissionDenied) {
        const bool folderProblem =
            e.message().contains("cannot be written") || e.message().contains("does not exist");
        box(folderProblem ? "Please make sure that the directory has been created and it is not "
                            "read only"
                          : "You need to be an admin to backup the database");
        return;
    }
    if (e.message().contains("does not exist")) {
        box("Please make sure that the directory has been created and it is not read only");
        return;
    }
    box("Backup Failed.");
    box(e.message());
}

void frmBackup::browse() {
    QFileDialog dialog(this, "Select Backup file", core::InstallSettings::instance().backupFolder(),
                       "Backup files (*.dat)");
    dialog.setObjectName("frmDocList");
    dialog.setFileMode(QFileDialog::ExistingFile);
    while (core::showModal(dialog) == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
        const QString file = dialog.selectedFiles().constFirst();
        if (file.right(3).toLower() == QLatin1String("dat")) {
            restoreFrom(file);
            return;
        }
        core::msgbox("The file extension of the backup file must be .dat", {}, core::MsgButtons::Ok,
                     core::MsgIcon::None, this);
    }
}

void frmBackup::restoreSelected() {
    QTreeWidgetItem* item = ListView1->currentItem();
    if (!item) return;
    cmdRestore->setEnabled(false);
    restoreFrom(QDir::fromNativeSeparators(item->text(2).trimmed()));
}

bool frmBackup::restoreFrom(const QString& file) {
    core::Form2 wait(this);
    core::showModal(wait);
    // This process lets go of the database while it is replaced, and connects again after.
    const core::ConnectionParams params = core::db().params();
    const auto reconnect = [&] {
        core::guarded(
            windowTitle(), [&] { core::setDb(core::Db::open(params, "session")); }, this);
    };
    core::setDb(nullptr);
    try {
        Working working(this, WaitText);
        admin::restoreDatabase(params, file);
    } catch (const admin::BackupFailed& e) {
        reconnect();
        showFailure(e, true);
        return false;
    }
    reconnect();
    core::msgbox("Restore Complete", {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
    close();
    emit restored();
    return true;
}
