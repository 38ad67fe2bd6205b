#pragma once

#include "holiday_bookings.h"

#include <QDialog>

class DateBox;
class QLineEdit;
class QPushButton;

// "Add Holiday": one booking's dates, days and notes.
class frmHoliday : public QDialog {
    Q_OBJECT
public:
    explicit frmHoliday(QWidget* parent = nullptr);

    // Set when the dialog ended through OK.
    bool ok = false;

    void setBooking(const personnel::HolidayBooking& booking);
    personnel::HolidayEntry entry() const;

    DateBox* txtStartDate = nullptr;
    DateBox* txtEndDate = nullptr;
    QLineEdit* txtDays = nullptr;
    QLineEdit* txtNotes = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void confirm();
};
