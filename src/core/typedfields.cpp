#include "typedfields.h"

#include "regional.h"
#include "session.h"

#include <QRegularExpression>
#include <algorithm>

namespace core {

Money NumericColumn::largest() const {
    // All nines: precision digits, scale of them after the point, in Money's four decimals.
    qint64 units = 1;
    for (int i = 0; i < precision; ++i)
        units *= 10;
    units -= 1;
    for (int i = scale; i < 4; ++i)
        units *= 10;
    return Money::fromUnits(std::min(units, Money::MaxUnits));
}

void TypedFields::refuse(const QString& field, const QString& message) {
    if (!message_.isEmpty()) return;
    message_ = message;
    field_ = field;
}

namespace {
// A figure of more whole digits than any amount holds: too large, rather than unreadable.
bool tooManyDigits(const QString& text) {
    static const QRegularExpression figure(QStringLiteral("^[-+]?[0-9,]*(\\.[0-9]*)?$"));
    QString t = text.trimmed();
    t.remove(QChar(0x00A3)).remove('$').remove(QChar(0x20AC));
    if (!figure.match(t.trimmed()).hasMatch()) return false;
    QString whole = t.section('.', 0, 0);
    whole.remove(',').remove('-').remove('+');
    while (whole.startsWith('0'))
        whole.remove(0, 1);
    return whole.size() > 14;
}
} // namespace

std::optional<Money> TypedFields::fitted(const QString& field, const QString& text,
                                         std::optional<Money> value, NumericColumn column,
                                         const QString& unreadable) {
    const Money largest = column.largest();
    const QString tooLarge = QStringLiteral("%1 is too large: the most it can hold is %2")
                                 .arg(field, largest.toString(column.scale));
    const bool first = ok();
    if (!value) {
        const bool beyond = tooManyDigits(text);
        refuse(field, beyond ? tooLarge : unreadable);
        if (first) tooLarge_ = beyond;
        return std::nullopt;
    }
    const Money m = column.fit(*value);
    if (m > largest || m < -largest) {
        refuse(field, tooLarge);
        if (first) tooLarge_ = true;
        return std::nullopt;
    }
    return m;
}

std::optional<Money> TypedFields::money(const QString& field, const QString& text,
                                        NumericColumn column) {
    const QString t = text.trimmed();
    if (t.isEmpty()) return std::nullopt;
    return fitted(
        field, t, Money::parseTyped(t), column,
        QStringLiteral("Please enter %1 as an amount, such as 30000 or 30,000.50").arg(field));
}

std::optional<Money> TypedFields::number(const QString& field, const QString& text,
                                         NumericColumn column) {
    const QString t = text.trimmed();
    if (t.isEmpty()) return std::nullopt;
    // Separators are typed in numbers too; a currency sign is not.
    std::optional<Money> value = Money::parseTyped(t);
    if (value && !t.contains(QRegularExpression(QStringLiteral("^[-+]?[0-9.,]+$")))) value.reset();
    return fitted(field, t, value, column,
                  QStringLiteral("Please enter %1 as a number").arg(field));
}

QDate TypedFields::date(const QString& field, const QString& text) {
    const QString t = text.trimmed();
    if (t.isEmpty()) return {};
    const QDate d = parseDate(t);
    if (!d.isValid()) refuse(field, dateRefusal(field));
    return d;
}

QString dateRefusal(const QString& field) {
    return QStringLiteral("Please enter %1 in the format %2")
        .arg(field, regional::isUS(session().language) ? QStringLiteral("MM/DD/YYYY")
                                                       : QStringLiteral("DD/MM/YYYY"));
}

QString TypedFields::time(const QString& field, const QString& text) {
    const QString t = text.trimmed();
    if (t.isEmpty() || t == QLatin1String(":")) return {};
    const auto parsed = parseTimeOfDay(t);
    if (!parsed) {
        refuse(field,
               QStringLiteral("Please enter %1 as a time of day in the format HH:MM").arg(field));
        return {};
    }
    return *parsed;
}

std::optional<QString> parseTimeOfDay(const QString& text) {
    static const QRegularExpression re(QStringLiteral("^\\s*(\\d{1,2}):(\\d{2})\\s*$"));
    const auto m = re.match(text);
    if (!m.hasMatch()) return std::nullopt;
    const int hours = m.captured(1).toInt();
    const int minutes = m.captured(2).toInt();
    if (hours > 23 || minutes > 59) return std::nullopt;
    return QStringLiteral("%1:%2")
        .arg(hours, 2, 10, QLatin1Char('0'))
        .arg(minutes, 2, 10, QLatin1Char('0'));
}

} // namespace core
