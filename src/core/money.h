#pragma once

#include <QMetaType>
#include <QString>
#include <QVariant>
#include <compare>
#include <optional>

namespace core {

// Exact money: a count of ten-thousandths, never a binary fraction.
class Money {
public:
    static constexpr qint64 Scale = 10000;

    constexpr Money() = default;
    static constexpr Money fromUnits(qint64 units) {
        Money m;
        m.units_ = units;
        return m;
    }
    static Money fromInt(qint64 whole) { return fromUnits(whole * Scale); }
    // The largest amount the type holds: fourteen whole digits and four decimals. Nothing
    // beyond it is ever made, so no arithmetic on a parsed amount wraps.
    static constexpr qint64 MaxUnits = 999999999999999999LL;

    // Accepts an optional sign, digits and up to four decimals ("12", "-3.5", "0.1234").
    // Refuses what the type cannot hold.
    static std::optional<Money> parse(const QString& text);
    // Money as people type it: besides what parse() takes, a currency sign ("£", "$", "€")
    // before the figure and thousands separators in groups of three ("30,000",
    // "£30,000.50", "-$1,234.5"). Refuses what the type cannot hold.
    static std::optional<Money> parseTyped(const QString& text);
    // Reads a database value: numbers come back as text, integers or doubles by backend.
    static Money fromVariant(const QVariant& value);

    constexpr qint64 units() const { return units_; }
    QString toString(int decimals = 2) const;
    // The value as a bindable variant: text, so no backend turns it into a double on the way.
    QVariant toVariant() const { return toString(4); }

    // Rounds half away from zero to the given number of decimals.
    Money rounded(int decimals) const;
    // value * numerator / denominator, rounded half away from zero to four decimals.
    Money scaled(qint64 numerator, qint64 denominator) const;

    Money operator+(Money o) const { return fromUnits(units_ + o.units_); }
    Money operator-(Money o) const { return fromUnits(units_ - o.units_); }
    Money operator-() const { return fromUnits(-units_); }
    Money& operator+=(Money o) {
        units_ += o.units_;
        return *this;
    }
    Money& operator-=(Money o) {
        units_ -= o.units_;
        return *this;
    }
    auto operator<=>(const Money&) const = default;

private:
    qint64 units_ = 0;
};

// Money as the user would type it: "30000.5", not "30000.5000"; "" for none.
QString plainNumber(const std::optional<Money>& m);

} // namespace core

Q_DECLARE_METATYPE(core::Money)
