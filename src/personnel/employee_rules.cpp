#include "employee_rules.h"

#include "regional.h"

#include <cmath>

namespace personnel {

namespace {

using core::Money;

// value / divisor rounded half away from zero, divisor positive.
qint64 divideRounded(__int128 value, __int128 divisor) {
    __int128 q = value / divisor;
    __int128 r = value % divisor;
    if (r < 0) r = -r;
    if (2 * r >= divisor) q += value < 0 ? -1 : 1;
    return static_cast<qint64>(q);
}

Money fromPennies(qint64 pennies) {
    return Money::fromUnits(pennies * (Money::Scale / 100));
}

// The whole number a percent box counts as: rounded, halves to the even neighbour as the
// conversion to a whole number has always done.
std::optional<long long> wholePercent(const QString& text) {
    const auto m = Money::parseTyped(text);
    if (!m) return std::nullopt;
    return std::llrint(static_cast<double>(m->units()) / Money::Scale);
}

} // namespace

bool isNumeric(const QString& text) {
    return Money::parseTyped(text).has_value();
}

std::optional<ServiceLength> lengthOfService(const QDate& start, const QDate& today) {
    if (!start.isValid() || !today.isValid()) return std::nullopt;
    const int months = (today.year() - start.year()) * 12 + (today.month() - start.month());
    if (months <= 12) return ServiceLength{0, months};
    return ServiceLength{months / 12, months % 12};
}

QString capitaliseFirst(const QString& text) {
    if (text.isEmpty()) return text;
    return text.left(1).toUpper() + text.mid(1);
}

QString employeeCaption(const QString& surname, const QString& firstnames,
                        const QString& personnelNumber) {
    return QStringLiteral("Employee : %1 , %2 : %3").arg(surname, firstnames, personnelNumber);
}

QString workingTimeWarning(const QString& language, const QString& hoursText) {
    if (!core::regional::checksWorkingHours(language)) return {};
    const auto hours = Money::parseTyped(hoursText);
    if (!hours || *hours <= Money::fromInt(48)) return {};
    return QStringLiteral("Under the working time regulations (1998) this employee is required "
                          "to 'Opt Out' if he/she is to work on average more than 48 hours per "
                          "week.");
}

QString firstAiderDateMessage(const QString& language) {
    return core::regional::isUS(language)
               ? QStringLiteral("Please enter First Aider Qualification Date in the format "
                                "MM/DD/YYYY")
               : QStringLiteral("Please enter First Aider Qualification Date in the format "
                                "DD/MM/YYYY");
}

OkOutcome checkOk(const OkInput& in) {
    OkOutcome out;
    if (in.firstAider && !in.firstAiderDate.isValid()) {
        out.message = QStringLiteral("If you specify this employee as a first aider you must "
                                     "must enter the date they qualified");
        out.save = false;
        return out;
    }
    if (in.firstnames.trimmed().isEmpty() || in.surname.trimmed().isEmpty() ||
        !in.startDate.isValid()) {
        out.message = QStringLiteral(
            "You need to enter a Firstname,Surname and Startdate before saving an employee");
        out.save = false;
        return out;
    }
    out.message = allocationDateMessage(in.allocationDate, in.startDate, AllocationEntry::Typed);
    out.clearAllocationDate = !out.message.isEmpty();
    return out;
}

QString allocationDateMessage(const QDate& allocation, const QDate& start, AllocationEntry entry) {
    if (!allocation.isValid() || !start.isValid() || allocation >= start) return {};
    const QString shown = core::formatDate(start);
    return entry == AllocationEntry::Typed
               ? QStringLiteral("You cannot enter a car allocation date before the employees "
                                "startdate %1")
                     .arg(shown)
               : QStringLiteral("You cannot allocate a car to an employee before their start "
                                "date %1")
                     .arg(shown);
}

Money showcompanypension(Money salary, Money percent) {
    // salary * percent / 100 / 12, in pennies: both operands carry four decimals.
    const __int128 product = static_cast<__int128>(salary.units()) * percent.units();
    const __int128 divisor = static_cast<__int128>(Money::Scale) * Money::Scale * 12;
    return fromPennies(divideRounded(product, divisor));
}

Money showemployeepension(Money salary, Money percent, int baserate) {
    // gross * (100 - baserate) / 100 / 12 with gross = salary * percent / 100, in pennies.
    const __int128 product =
        static_cast<__int128>(salary.units()) * percent.units() * (100 - baserate);
    const __int128 divisor = static_cast<__int128>(Money::Scale) * Money::Scale * 12 * 100;
    return fromPennies(divideRounded(product, divisor));
}

QString pensionMissingMessage(PensionKind kind) {
    return kind == PensionKind::Company
               ? QStringLiteral("You need to enter a percentage into Company Contribution box "
                                "and make sure you have entered a salary.")
               : QStringLiteral("You need to enter a percentage into the Employee contribution "
                                "box and make sure you have entered a salary");
}

QString pensionConfirmText(PensionKind kind, const QString& salaryText, const QString& percentText,
                           int baserate) {
    const QString salary = salaryText.trimmed();
    const QString percent = percentText.trimmed();
    if (kind == PensionKind::Company)
        return QStringLiteral("The calculation used to show the monthly amount contributed by "
                              "the company is\n(%1/100 * %2) / 12\n"
                              "Would you like to use this calculation?")
            .arg(salary, percent);
    return QStringLiteral("The calculation used to show the monthly amount contributed by the "
                          "employee is\n(%1 / 100 * %2) - ( %3 / 100 * (%1 / 100 * %2))\n"
                          "Would you like to use this calculation?")
        .arg(percent, salary, QString::number(baserate));
}

bool pensionPercentInBounds(PensionKind kind, const QString& percentText) {
    const auto whole = wholePercent(percentText);
    if (!whole) return false;
    return *whole > 0 && *whole < (kind == PensionKind::Company ? 100 : 101);
}

std::optional<Money> pensionFigure(PensionKind kind, const QString& salaryText,
                                   const QString& percentText, int baserate) {
    const auto salary = Money::parseTyped(salaryText);
    const auto percent = Money::parseTyped(percentText);
    if (!salary || !percent || !pensionPercentInBounds(kind, percentText)) return std::nullopt;
    return kind == PensionKind::Company ? showcompanypension(*salary, *percent)
                                        : showemployeepension(*salary, *percent, baserate);
}

PensionTick tickPension(PensionKind kind, const QString& salaryText, const QString& percentText,
                        int baserate, bool loadingRecord) {
    PensionTick out;
    if (!isNumeric(salaryText) || !isNumeric(percentText)) {
        out.refusal = pensionMissingMessage(kind);
        return out;
    }
    if (!loadingRecord) out.question = pensionConfirmText(kind, salaryText, percentText, baserate);
    out.figure = pensionFigure(kind, salaryText, percentText, baserate);
    return out;
}

PercentLeft leavePensionPercent(PensionKind kind, bool ticked, const QString& salaryText,
                                const QString& percentText, int baserate) {
    PercentLeft out;
    if (!isNumeric(salaryText) || !isNumeric(percentText) ||
        !pensionPercentInBounds(kind, percentText))
        return out;
    out.keepTicked = ticked;
    if (ticked) out.figure = pensionFigure(kind, salaryText, percentText, baserate);
    return out;
}

LeaverTick tickLeaver(bool ticked, bool loadingRecord, bool firstAider, const QDate& today) {
    LeaverTick out;
    if (!ticked) return out;
    if (!loadingRecord && firstAider)
        out.warning = QStringLiteral(
            "Warning, This employee is a first aider. Please ensure that there is a replacement");
    out.dateLeft = today;
    return out;
}

} // namespace personnel
