#pragma once

#include <QDate>
#include <QWidget>

class AttendanceModel;
class QCheckBox;
class QLabel;
class QPushButton;
class QTableView;

// "Attendance/Sickness report": one calendar month as a grid of day codes, one row per
// employee. Writes nothing to the database.
class frmsickness : public QWidget {
    Q_OBJECT
public:
    explicit frmsickness(QWidget* parent = nullptr);

    // Lists the employees who started by `date` and had not left before the shown month
    // (with includeleavers, leavers too); the rows have no codes until "GO".
    void loadall(const QDate& date, bool includeleavers);

    // The commands of the screen's buttons.
    void previousMonth();
    void nextMonth();
    void go();
    void exportToExcel();

    // The month shown, from its first day.
    QDate shownMonth() const { return shown_; }
    void showMonth(const QDate& anyDayOfMonth);

    QLabel* lblMonth = nullptr;
    QPushButton* cmdPrevious = nullptr;
    QPushButton* cmdNext = nullptr;
    QCheckBox* chkLeavers = nullptr;
    QPushButton* cmdGo = nullptr;
    QPushButton* cmdExport = nullptr;
    QPushButton* cmdExit = nullptr;
    QTableView* ListView1 = nullptr;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void moveMonth(int months);
    void leaversChanged();
    void openSelected(const QModelIndex& index);
    void fitWidth(int days);

    AttendanceModel* model_ = nullptr;
    QDate shown_;      // first day of the shown month
    QDate monthstart_; // set by a month change and "GO"; invalid on opening
    bool sized_ = false;
};
