#pragma once

#include "booking_report.h"

#include <QWidget>

class DateBox;
class QCheckBox;
class QComboBox;
class QPushButton;
class RecordList;

// What "Holiday Report" and "Absence Report" have in common: a date range, a selection of
// employees, "Run", the list, and its export.
class BookingReportScreen : public QWidget {
    Q_OBJECT
public:
    BookingReportScreen(reports::BookingKind kind, QWidget* parent = nullptr);

    // Refills the second combo for the chosen criterion.
    void criterionChanged();
    void run();
    void exportToExcel();

    DateBox* txtFrom = nullptr;
    DateBox* txtTo = nullptr;
    QComboBox* cboCriteria = nullptr;
    QComboBox* cboChoice = nullptr;
    QCheckBox* chkLeavers = nullptr;
    QPushButton* cmdRun = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdExport = nullptr;
    RecordList* ListView1 = nullptr;

private:
    void fillEmployees();

    reports::BookingKind kind_;
    std::vector<reports::BookingRow> rows_; // what the list shows, for the export
};

// "Holiday Report".
class frmHolidayReport : public BookingReportScreen {
    Q_OBJECT
public:
    explicit frmHolidayReport(QWidget* parent = nullptr);
};

// "Absence Report".
class frmAbsenceReport : public BookingReportScreen {
    Q_OBJECT
public:
    explicit frmAbsenceReport(QWidget* parent = nullptr);
};
