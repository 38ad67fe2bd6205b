#pragma once

#include "backup.h"

#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;
class QToolButton;
class RecordList;

// "Backup/Restore Database": the backup page in a normal session, the restore page in a
// Restore Mode session, never both. After a restore the user signs in again (restored()).
class frmBackup : public QWidget {
    Q_OBJECT
public:
    explicit frmBackup(QWidget* parent = nullptr);

    QTabWidget* SSTab1 = nullptr;
    QLineEdit* Text1 = nullptr; // name of the backup file, without extension
    QLineEdit* Text2 = nullptr; // description
    QLabel* Label4 = nullptr;   // the full target path
    QToolButton* cmdDirectory = nullptr;
    QPushButton* cmdBackup = nullptr;
    RecordList* ListView1 = nullptr; // the backup log
    QPushButton* cmdBrowse = nullptr;
    QPushButton* cmdRestore = nullptr;
    QPushButton* cmdClose = nullptr;

    // The folder the backup goes to; empty for the installation's backups folder.
    void setFolder(const QString& folder);
    // Backup Now. Returns true when the backup was made and logged.
    bool backupNow();
    // Restores from the file; true when the database was replaced.
    bool restoreFrom(const QString& file);

signals:
    // The database was replaced: the session must sign in again.
    void restored();

private:
    void fillLog();
    void nameChanged();
    void chooseFolder();
    void browse();
    void restoreSelected();
    void showFailure(const admin::BackupFailed& failure, bool restoring);

    QString folder_;
};

namespace admin {
// The characters a backup's name may not hold; a key that would type one types nothing.
bool isFileNameCharacter(QChar c);
} // namespace admin
