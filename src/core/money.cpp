#include "money.h"

#include <algorithm>
#include <cmath>

namespace core {

namespace {
qint64 pow10(int n) {
    qint64 r = 1;
    while (n-- > 0)
        r *= 10;
    return r;
}

qint64 divRoundHalfAway(qint64 value, qint64 divisor) {
    const qint64 q = value / divisor;
    const qint64 r = value % divisor;
    if (2 * (r < 0 ? -r : r) >= divisor) return q + (value < 0 ? -1 : 1);
    return q;
}
} // namespace

namespace {

// Digits with an optional point and up to four decimals (further decimals round the fourth);
// the whole part may be grouped by thousands separators when `grouped`. Nothing else.
std::optional<Money> parseFigure(const QString& t, bool negative, bool grouped) {
    int i = 0;
    qint64 whole = 0;
    int wholeDigits = 0;
    int groupDigits = 0; // digits since the last separator
    bool sawSeparator = false;
    for (; i < t.size(); ++i) {
        if (t[i].isDigit()) {
            // Fifteen whole digits could not be told from their wrapped value.
            if (whole > Money::MaxUnits / Money::Scale / 10) return std::nullopt;
            whole = whole * 10 + t[i].digitValue();
            ++wholeDigits;
            ++groupDigits;
            continue;
        }
        if (grouped && t[i] == ',') {
            // "1,000" and "12,345,678": one to three digits first, then groups of three.
            if (sawSeparator ? groupDigits != 3 : (groupDigits < 1 || groupDigits > 3))
                return std::nullopt;
            sawSeparator = true;
            groupDigits = 0;
            continue;
        }
        break;
    }
    if (sawSeparator && groupDigits != 3) return std::nullopt;
    qint64 frac = 0;
    int fracDigits = 0;
    bool roundUp = false;
    if (i < t.size() && t[i] == '.') {
        ++i;
        for (; i < t.size() && t[i].isDigit(); ++i, ++fracDigits) {
            if (fracDigits >= 4) {
                // Further digits only decide the rounding of the fourth one.
                if (fracDigits == 4 && t[i].digitValue() >= 5) roundUp = true;
                continue;
            }
            frac = frac * 10 + t[i].digitValue();
        }
    }
    if (i != t.size() || (wholeDigits == 0 && fracDigits == 0)) return std::nullopt;
    if (fracDigits < 4) frac *= pow10(4 - std::min(fracDigits, 4));
    const qint64 units = whole * Money::Scale + frac + (roundUp ? 1 : 0);
    if (units > Money::MaxUnits) return std::nullopt;
    return Money::fromUnits(negative ? -units : units);
}

bool isCurrencySign(QChar c) {
    return c == QChar(0x00A3) || c == '$' || c == QChar(0x20AC);
}

} // namespace

std::optional<Money> Money::parse(const QString& text) {
    const QString t = text.trimmed();
    if (t.isEmpty()) return std::nullopt;
    const bool signed_ = t[0] == '-' || t[0] == '+';
    return parseFigure(signed_ ? t.mid(1) : t, t[0] == '-', false);
}

std::optional<Money> Money::parseTyped(const QString& text) {
    QString t = text.trimmed();
    if (t.isEmpty()) return std::nullopt;
    bool negative = false;
    // "-£5" and "£-5" are both typed.
    if (t[0] == '-' || t[0] == '+') {
        negative = t[0] == '-';
        t = t.mid(1).trimmed();
    }
    if (!t.isEmpty() && isCurrencySign(t[0])) {
        t = t.mid(1).trimmed();
        if (!negative && !t.isEmpty() && (t[0] == '-' || t[0] == '+')) {
            negative = t[0] == '-';
            t = t.mid(1);
        }
    }
    if (t.isEmpty()) return std::nullopt;
    return parseFigure(t, negative, true);
}

Money Money::fromVariant(const QVariant& value) {
    if (value.isNull() || !value.isValid()) return {};
    switch (value.typeId()) {
    case QMetaType::Double:
    case QMetaType::Float:
        return fromUnits(std::llround(value.toDouble() * Scale));
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::UInt:
    case QMetaType::ULongLong:
        return fromInt(value.toLongLong());
    default:
        if (auto m = parse(value.toString())) return *m;
        return fromUnits(std::llround(value.toDouble() * Scale));
    }
}

QString Money::toString(int decimals) const {
    const Money r = rounded(decimals);
    const qint64 abs = r.units_ < 0 ? -r.units_ : r.units_;
    QString s = QString::number(abs / Scale);
    if (decimals > 0) {
        const qint64 frac = (abs % Scale) / pow10(4 - decimals);
        s += '.' + QString::number(frac).rightJustified(decimals, '0');
    }
    return r.units_ < 0 ? '-' + s : s;
}

Money Money::rounded(int decimals) const {
    if (decimals >= 4) return *this;
    const qint64 step = pow10(4 - decimals);
    return fromUnits(divRoundHalfAway(units_, step) * step);
}

Money Money::scaled(qint64 numerator, qint64 denominator) const {
    const __int128 product = static_cast<__int128>(units_) * numerator;
    __int128 q = product / denominator;
    __int128 r = product % denominator;
    if (r < 0) r = -r;
    if (2 * r >= (denominator < 0 ? -denominator : denominator))
        q += ((product < 0) != (denominator < 0)) ? -1 : 1;
    return fromUnits(static_cast<qint64>(q));
}

QString plainNumber(const std::optional<Money>& m) {
    if (!m) return {};
    QString s = m->toString(4);
    while (s.contains('.') && (s.endsWith('0') || s.endsWith('.')))
        s.chop(1);
    return s;
}

} // namespace core
