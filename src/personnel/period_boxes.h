#pragma once

class DateBox;
class QLineEdit;
class QWidget;

// The start, end and days boxes of the holiday and absence dialogs ("txtStartDate",
// "txtEndDate", "txtDays"). Both calendars open on today, the end one on the start date once
// there is one. A day picked on either calendar, with a date in the other box too, fills
// "Days" with the working days between, over what was typed.
struct PeriodBoxes {
    DateBox* start = nullptr;
    DateBox* end = nullptr;
    QLineEdit* days = nullptr;
};
PeriodBoxes makePeriodBoxes(QWidget* dialog);
