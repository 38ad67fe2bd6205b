#pragma once

#include "money.h"

#include <QDate>
#include <QString>

namespace core {

// Rounds to whole pennies (cents), half away from zero: 12.345 -> 12.35, -12.345 -> -12.35.
Money roundcurrency(Money value);

// True for a date in the session's regional profile, or for text that is blank once trimmed.
// The save-time check of optional date boxes.
bool isdateorblank(const QString& text);

// True for backspace (8), the point (46) and the digits (48-57): the keys a numeric box lets
// through. The caller swallows every other key.
bool isnumerickey(int key);

// The number of days in the month of the given date (0 for an invalid date).
int daysinmonth(const QDate& date);

// The days from first through last, both included, that are neither Saturday nor Sunday.
// 0 when last is before first or either date is invalid.
int workingdays(const QDate& first, const QDate& last);

} // namespace core
