#pragma once

#include <QDialog>
#include <QStringList>

class QListWidget;
class QPushButton;

// The pick of one line from a list: the action taken on a call ("Select action taken") or the
// status the call then has ("Select current status", which cannot be cancelled).
class frmAction : public QDialog {
    Q_OBJECT
public:
    explicit frmAction(QWidget* parent = nullptr);

    // The actions, none picked.
    void loadActions();
    // The statuses, the call's own status picked; Cancel is hidden.
    void loadStatuses(const QString& current);
    // Fills the list with these lines, picking the one equal to `current` (trimmed).
    void fill(const QStringList& lines, const QString& current = {});

    qint64 CallID = 0;
    QString Status; // the call's status when the dialog opened

    // The line picked last, trimmed; "" until OK with a line picked.
    QString currentstatus() const { return picked_; }

    // Accepts the dialog when a line is picked; with none it stays.
    void ok();

    QListWidget* lstAction = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    QString picked_;
};
