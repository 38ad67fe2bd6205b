#include "statement.h"

#include "regional.h"

using core::Db;
using core::Money;

namespace pettycash {

const QStringList& monthNames() {
    static const QStringList names{"January",   "February", "March",    "April",
                                   "May",       "June",     "July",     "August",
                                   "September", "October",  "November", "December"};
    return names;
}

int monthNumber(const QString& name) {
    const QString t = name.trimmed();
    for (int i = 0; i < monthNames().size(); ++i)
        if (monthNames().at(i).compare(t, Qt::CaseInsensitive) == 0) return i + 1;
    return 0;
}

Statement buildStatement(int year, int month, Money opening, const std::vector<Entry>& monthEntries,
                         const QString& language) {
    const QString sign = core::regional::currencySign(language);
    const QDate first(year, month, 1);
    const auto balanceRow = [&](const QDate& day, Money balance) {
        StatementRow row;
        row.date = core::regional::formatDate(day, language);
        row.balance = sign + core::plainNumber(balance);
        row.balanceValue = balance;
        return row;
    };

    Statement s;
    s.opening = opening;
    s.rows.push_back(balanceRow(first.addDays(-1), opening));
    Money balance = opening;
    for (const Entry& e : monthEntries) {
        const SignedFigure f = splitAmount(e.amount);
        const std::optional<Money> value = amountValue(e.amount);
        StatementRow row;
        row.purpose = e.reason.trimmed();
        if (f.direction == Direction::In) {
            row.cashIn = sign + f.figure;
            row.in = value;
        } else {
            row.cashOut = sign + f.figure;
            if (value) row.out = -*value;
        }
        balance += value.value_or(Money());
        s.rows.push_back(row);
    }
    s.closing = balance;
    s.rows.push_back(balanceRow(first.addMonths(1).addDays(-1), balance));
    return s;
}

std::optional<int> firstYear(Db& db) {
    const QDate first = Db::toDate(db.scalar(QStringLiteral("SELECT MIN(Date) FROM pettycash")));
    if (!first.isValid()) return std::nullopt;
    return first.year();
}

Statement monthStatement(Db& db, int year, int month, const QString& language) {
    const QDate first(year, month, 1);
    Money opening;
    QSqlQuery before =
        db.query(QStringLiteral("SELECT amount FROM pettycash WHERE Date < ?"), {first});
    while (before.next())
        opening += amountValue(Db::text(before.value(0))).value_or(Money());

    std::vector<Entry> inMonth;
    QSqlQuery q = db.query(QStringLiteral("SELECT pettyid, Date, amount, reason FROM pettycash "
                                          "WHERE Date >= ? AND Date < ? ORDER BY Date, pettyid"),
                           {first, first.addMonths(1)});
    while (q.next())
        inMonth.push_back({q.value(0).toLongLong(), Db::toDate(q.value(1)), Db::text(q.value(2)),
                           Db::text(q.value(3))});
    return buildStatement(year, month, opening, inMonth, language);
}

} // namespace pettycash
