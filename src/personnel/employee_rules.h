#pragma once

#include "money.h"

#include <QDate>
#include <QString>
#include <optional>

// The employee screen's rules that need no window: service length, the working-time warning,
// the OK checks, the pension figures, the car allocation date and the leaver's side effects.
namespace personnel {

// A number as the boxes take it: optional sign, digits, an optional point and decimals.
bool isNumeric(const QString& text);

// Whole calendar months from the start date to today: 12 months and less count as 0 years.
struct ServiceLength {
    int years = 0;
    int months = 0;
};
// nullopt when the start date is no date (the labels are left as they are).
std::optional<ServiceLength> lengthOfService(const QDate& start, const QDate& today);

// Names typed in lower case get their very first letter raised, the rest stays as typed.
QString capitaliseFirst(const QString& text);

// "Employee : {surname} , {firstnames} : {personnel number}".
QString employeeCaption(const QString& surname, const QString& firstnames,
                        const QString& personnelNumber);

// The "Opt Out" message when "Employee hours" is left above 48 under the UK profile, else "".
QString workingTimeWarning(const QString& language, const QString& hoursText);

// The message when the first aider's qualification date box is left with text that is no
// date, worded for the profile.
QString firstAiderDateMessage(const QString& language);

// What OK finds before it saves. Dates are invalid when their box holds no date.
struct OkInput {
    bool firstAider = false;
    QDate firstAiderDate;
    QString firstnames;
    QString surname;
    QDate startDate;
    QDate allocationDate;
};
struct OkOutcome {
    QString message;                  // the first message to show, "" for none
    bool save = true;                 // false: the screen stays open
    bool clearAllocationDate = false; // the allocation date box is emptied; the save goes on
};
// The checks in their order; the start date in the message is shown in the session's profile.
OkOutcome checkOk(const OkInput& input);

// The car allocation date against the start date. The calendar has its own wording.
enum class AllocationEntry { Typed, Calendar };
// "" when the dates are in order or either is missing; otherwise the message, and the
// allocation date is to be cleared.
QString allocationDateMessage(const QDate& allocation, const QDate& start, AllocationEntry entry);

// Pension contributions, monthly, in exact money rounded to pennies.
// (percent / 100 * salary) / 12.
core::Money showcompanypension(core::Money salary, core::Money percent);
// The employee's contribution net of basic rate relief: (gross - baserate / 100 * gross) / 12.
core::Money showemployeepension(core::Money salary, core::Money percent, int baserate);

enum class PensionKind { Company, Employee };
// The refusal when salary or percent is not numeric.
QString pensionMissingMessage(PensionKind kind);
// The question asked before a calculation box is ticked; salary and percent as typed, trimmed.
QString pensionConfirmText(PensionKind kind, const QString& salaryText, const QString& percentText,
                           int baserate);
// The percent rounded to a whole number lies in the kind's bounds: 1..99 for the company,
// 1..100 for the employee.
bool pensionPercentInBounds(PensionKind kind, const QString& percentText);
// The result label: the figure when salary and percent are numeric and in bounds, else empty.
std::optional<core::Money> pensionFigure(PensionKind kind, const QString& salaryText,
                                         const QString& percentText, int baserate);

// Ticking a calculation box. refusal set: show it, clear the box and the label. question set:
// ask it (Yes/No, No the default) and clear the box unless Yes. figure: the label afterwards.
struct PensionTick {
    QString refusal;
    QString question;
    std::optional<core::Money> figure;
};
PensionTick tickPension(PensionKind kind, const QString& salaryText, const QString& percentText,
                        int baserate, bool loadingRecord);

// Leaving a percent box (not while loading): whether the calculation box stays ticked, and
// the label afterwards.
struct PercentLeft {
    bool keepTicked = false;
    std::optional<core::Money> figure;
};
PercentLeft leavePensionPercent(PensionKind kind, bool ticked, const QString& salaryText,
                                const QString& percentText, int baserate);

// Ticking or clearing "Leaver".
struct LeaverTick {
    QString warning; // the first aider warning; the leaving goes on
    QDate dateLeft;  // ticked: today goes into "Date Left"; invalid: the box is left alone
};
LeaverTick tickLeaver(bool ticked, bool loadingRecord, bool firstAider, const QDate& today);

} // namespace personnel
