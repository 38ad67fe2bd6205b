#pragma once

#include "job_history.h"
#include "loadedrow.h"

#include <QWidget>
#include <map>

class QPushButton;
class RecordList;

// What the Job History page asks of the employee screen that holds it.
class JobHistoryHost {
public:
    virtual ~JobHistoryHost() = default;
    // The Job Details page as it stands, with the screen's change flags.
    virtual personnel::JobDetails jobDetails() const = 0;
    // The names check and the early insert of a new employee; 0 when the Add must stop.
    virtual qint64 ensurePerson() = 0;
    virtual void loadcombos() = 0;
    virtual QStringList positionNames() const = 0;
    // The Job Details page takes over the present post; empty texts leave their box alone.
    virtual void takePresentPost(const QString& position, const QString& salary,
                                 const QDate& jhDate, const QString& jhNote) = 0;
};

// "Job History": the present post on top, closed periods below, newest first.
class JobHistoryPage : public QWidget {
    Q_OBJECT
public:
    explicit JobHistoryPage(JobHistoryHost* host, QWidget* parent = nullptr);

    // Shows the periods as loaded (present post first).
    void setRows(personnel::JobPeriods rows);
    const personnel::JobPeriods& rows() const { return rows_; }
    const personnel::JobHistoryFlags& flags() const { return flags_; }
    // A new sitting (the employee loaded again): nothing added or archived yet.
    void resetFlags() { flags_ = {}; }
    // The page comes up, or the save starts: the list catches up with Job Details.
    void pageChange();
    // The person whose rows come next; their stored periods are taken as they are now, so
    // that an edit is checked against the row the user saw.
    void setPersonId(qint64 id);

    void add();
    // The button edits the list and the table; a double click on the present post hands it
    // to the Job Details page instead.
    void edit(bool doubleClick = false);
    void remove();

    RecordList* lvwJobHistory = nullptr;
    QPushButton* cmdAddJH = nullptr;
    QPushButton* cmdEditJH = nullptr;
    QPushButton* cmdDeleteJH = nullptr;

private:
    void show(int select = -1);
    void updateButtons();
    int selectedRow() const;
    // Writes an edited stored period. Kept: refused as changed by another user, the dialog's
    // typing kept for another try.
    core::SaveOutcome saveStored(const personnel::JobPeriod& period);
    // The stored periods again as they are now, after the user chose to see another user's
    // change; the present post stays as the Job Details page holds it.
    void reloadStored();

    JobHistoryHost* host_;
    qint64 personId_ = 0;
    personnel::JobPeriods rows_;
    std::map<qint64, core::LoadedRow> loaded_;
    personnel::JobHistoryFlags flags_;
};
