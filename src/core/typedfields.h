#pragma once

#include "money.h"

#include <QDate>
#include <QString>
#include <optional>

namespace core {

// A numeric column as the schema declares it: digits in all, and after the point.
struct NumericColumn {
    int precision;
    int scale;
    // The largest value the column holds ("99999999999.9999" for money).
    Money largest() const;
    // Rounded half away from zero to the column's scale, so that both backends store the
    // same value (one would round it, the other keep every digit).
    Money fit(Money value) const { return value.rounded(scale); }
};

// Every money column ("@MONEY@" in the schema). Fifteen digits is what the embedded
// database keeps exactly, so both backends hold the same amount.
inline constexpr NumericColumn MoneyColumn{15, 4};

// Reads, for one save, the values typed into a screen's boxes. A blank box reads as nothing
// (NULL). Text that cannot be read, or a number its column cannot hold, is refused with a
// message naming the field; the first refusal is kept, and a save that finds one writes
// nothing and shows it. Numbers come back rounded to their column's scale.
class TypedFields {
public:
    // Money as people type it: "30000", "30,000", "£30,000.50".
    std::optional<Money> money(const QString& field, const QString& text,
                               NumericColumn column = MoneyColumn);
    // A plain number ("37.5"), thousands separators allowed; no currency sign.
    std::optional<Money> number(const QString& field, const QString& text, NumericColumn column);
    // A date in the session's regional profile; an invalid QDate when blank.
    QDate date(const QString& field, const QString& text);
    // A time of day "HH:MM" (hours 0-23, minutes 0-59); "" when blank.
    QString time(const QString& field, const QString& text);

    bool ok() const { return message_.isEmpty(); }
    // The first refusal, and the field it names.
    const QString& message() const { return message_; }
    const QString& field() const { return field_; }
    // The first refusal was a number beyond its column, rather than text that is no number.
    bool tooLarge() const { return tooLarge_; }

private:
    void refuse(const QString& field, const QString& message);
    std::optional<Money> fitted(const QString& field, const QString& text,
                                std::optional<Money> value, NumericColumn column,
                                const QString& unreadable);

    QString message_;
    QString field_;
    bool tooLarge_ = false;
};

// "Please enter {field} in the format DD/MM/YYYY" (MM/DD/YYYY in the US profile): what a date
// that cannot be read is refused with.
QString dateRefusal(const QString& field);

// "H:MM" or "HH:MM" with a real time of day, as "HH:MM"; nullopt for anything else.
std::optional<QString> parseTimeOfDay(const QString& text);

} // namespace core
