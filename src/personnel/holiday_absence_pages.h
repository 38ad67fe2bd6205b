#pragma once

#include "absence_records.h"
#include "employee_list_pages.h"
#include "holiday_bookings.h"

#include <optional>

class QComboBox;
class QLabel;

// "Holiday": the bookings of one calendar year, the entitlement and the days taken.
class HolidayPage : public EmployeeListPage {
    Q_OBJECT
public:
    explicit HolidayPage(QWidget* parent = nullptr);

    // The year on show; the list is filled for it.
    void showYear(int year);
    int year() const { return year_; }
    // "Total days" follows the employee's "Days Holiday".
    void setTotalDays(const QString& text);
    // A year picked in the box: refills the list (writing a new employee first).
    void yearChosen();
    const personnel::HolidayBookings& bookings() const { return bookings_; }

    QComboBox* cboHolidayYear = nullptr;
    QLabel* lblTotalDays = nullptr;
    QLabel* lblDaysTaken = nullptr;

protected:
    personnel::ListRows rows(core::Db& db, qint64 personId) override;
    qint64 addRow(qint64 personId) override;
    bool editRow(qint64 id, const QTreeWidgetItem& row) override;
    void deleteRow(qint64 id) override;
    void reloaded() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fillYears();
    // "Days taken so far" from the list; red above a numeric total.
    void showholidaytotals();

    int year_ = 0;
    personnel::HolidayBookings bookings_;
};

// "Absence": every absence of the employee, of all years.
class AbsencePage : public EmployeeListPage {
    Q_OBJECT
public:
    explicit AbsencePage(QWidget* parent = nullptr);

    // "Absent": today's sickness.
    void absentToday();
    const personnel::AbsenceRows& absences() const { return absences_; }

    QPushButton* cmdAbsent = nullptr;

protected:
    personnel::ListRows rows(core::Db& db, qint64 personId) override;
    qint64 addRow(qint64 personId) override;
    bool editRow(qint64 id, const QTreeWidgetItem& row) override;
    void deleteRow(qint64 id) override;
    void activate() override;
    void reloaded() override;

private:
    void remindTraining(qint64 personId, const QDate& start, const QDate& end);
    void checksickdays(const QDate& start);
    void remindCertificate(const personnel::AbsenceEntry& entry);
    const personnel::AbsenceRow* rowOf(qint64 id) const;

    personnel::AbsenceRows absences_;
    bool trainingOnEdit_ = false;
    // What a written row still has to say once the list shows it.
    struct Pending {
        personnel::AbsenceEntry entry;
        bool countSickDays = false;
    };
    std::optional<Pending> pending_;
};
