#pragma once

#include "db.h"
#include "money.h"

#include <QDate>
#include <QString>
#include <optional>

namespace admin {

// The percentage typed for the rise: up to four decimals, sign allowed; nullopt otherwise.
std::optional<core::Money> parsePercent(const QString& text);

// salary + salary * percent / 100, rounded half away from zero to the penny, computed exactly.
core::Money raisedSalary(core::Money salary, core::Money percent);

// "Are you sure you want to increase all employees salary by {pct}%. ..."
QString salaryIncreaseQuestion(const QString& percentText);

// Raises the salary of every current employee (not deleted, not left) who has one: each gets
// a job-history row closing the period just ended (from JHDate, or the start date when there
// is none, to today, with the position's name, the old salary and the period's note), then
// the new salary, today's date in JHDate and "{pct}% Salary increase" in jhnote. One
// transaction: on any failure nothing is changed and the failure is thrown. Returns how
// many employees were raised.
int increaseSalaries(core::Db& db, const QString& percentText, const QDate& today);

} // namespace admin
