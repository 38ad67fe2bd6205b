#pragma once

class DateBox;
class QLineEdit;

// The start and end boxes of the holiday and absence dialogs. Both calendars open on today,
// the end one on the start date once there is one. A day picked on either calendar, with a
// date in the other box too, fills "Days" with the working days between, over what was typed.
void wirePeriodBoxes(DateBox* start, DateBox* end, QLineEdit* days);
