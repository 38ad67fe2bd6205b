#include "ledger.h"

#include "loadedrow.h"
#include "regional.h"
#include "typedfields.h"

#include <QRegularExpression>

using core::Db;
using core::Money;

namespace pettycash {

namespace {

const QString Select = QStringLiteral("SELECT pettyid, Date, amount, reason FROM pettycash");

Entry entryOf(const QSqlRecord& r) {
    return {r.value(0).toLongLong(), Db::toDate(r.value(1)), Db::text(r.value(2)),
            Db::text(r.value(3))};
}

bool sameEntry(const Entry& a, const Entry& b) {
    return a.date == b.date && a.amount == b.amount && a.reason == b.reason;
}

Money figureOf(const Entry& e) {
    const std::optional<Money> v = amountValue(e.amount);
    if (!v) return {};
    return *v < Money() ? -*v : *v;
}

// A write to the ledger: the ledger taken for this transaction on a shared server (the
// embedded database's write transactions are serial already), and its total read afresh.
class LedgerWrite {
public:
    explicit LedgerWrite(Db& db)
        : tx_(db) {
        if (db.backend() == core::Backend::Postgres)
            db.exec(QStringLiteral("LOCK TABLE pettycash IN SHARE ROW EXCLUSIVE MODE"));
        total_ = pettycash::total(db);
    }
    Money total() const { return total_; }
    Outcome commit(Money change, qint64 id = 0) {
        tx_.commit();
        return {Refusal::None, id, total_ + change, std::nullopt};
    }
    Outcome refuse(Refusal refusal) const { return {refusal, 0, total_, std::nullopt}; }
    Outcome changed(const std::optional<Entry>& current) const {
        return {Refusal::Changed, 0, total_, current};
    }

private:
    core::Transaction tx_;
    Money total_;
};

Outcome addEntry(Db& db, Direction direction, const QDate& date, const QString& figure,
                 const QString& reason) {
    const std::optional<Money> value = readFigure(figure);
    if (!value) throw std::invalid_argument("The amount is no positive number");
    LedgerWrite write(db);
    if (direction == Direction::Out) {
        if (const Refusal r = checkRemove(write.total(), *value); r != Refusal::None)
            return write.refuse(r);
    }
    const qint64 id = db.insert("pettycash", "pettyid",
                                {{"Date", Db::dateOrNull(date)},
                                 {"amount", storedAmount(direction, figureText(figure))},
                                 {"reason", reason.trimmed()}});
    return write.commit(direction == Direction::In ? *value : -*value, id);
}

} // namespace

SignedFigure splitAmount(const QString& stored) {
    const QString t = stored.trimmed();
    const bool in = t.startsWith('+');
    return {in ? Direction::In : Direction::Out,
            (t.startsWith('+') || t.startsWith('-') ? t.mid(1) : t).trimmed()};
}

EntryText entryText(const Entry& entry) {
    return {core::formatDate(entry.date), splitAmount(entry.amount).figure, entry.reason.trimmed()};
}

Entry editedEntry(const Entry& entry, const EntryText& typed) {
    return {entry.id, core::parseDate(typed.date),
            storedAmount(splitAmount(entry.amount).direction, figureText(typed.figure)),
            typed.reason.trimmed()};
}

std::optional<Money> amountValue(const QString& stored) {
    const SignedFigure s = splitAmount(stored);
    const std::optional<Money> figure = Money::parse(s.figure);
    if (!figure || *figure < Money()) return std::nullopt;
    return s.direction == Direction::In ? *figure : -*figure;
}

QString storedAmount(Direction direction, const QString& figure) {
    return (direction == Direction::In ? QStringLiteral("+") : QStringLiteral("-")) +
           figure.trimmed();
}

QString displayAmount(const QString& stored, const QString& sign) {
    const SignedFigure s = splitAmount(stored);
    return (s.direction == Direction::In ? QStringLiteral("+ ") : QStringLiteral("- ")) + sign +
           s.figure;
}

std::optional<Money> readFigure(const QString& typed) {
    core::TypedFields fields;
    const std::optional<Money> m = fields.money(QStringLiteral("Amount"), typed);
    if (!m || *m <= Money()) return std::nullopt;
    return m;
}

QString figureText(const QString& typed) {
    static const QRegularExpression plain(QStringLiteral("^(\\d+\\.?\\d*|\\.\\d+)$"));
    const QString t = typed.trimmed();
    if (plain.match(t).hasMatch()) return t;
    return core::plainNumber(readFigure(t));
}

QString checkFundsEntry(const QString& dateText, const QString& amountText, const QDate& today,
                        const QString& language) {
    const QDate date = core::regional::parseDate(dateText, language);
    core::TypedFields amount;
    amount.money(QStringLiteral("Amount"), amountText);
    if (date.isValid() && amount.tooLarge()) return amount.message();
    if (!date.isValid() || !readFigure(amountText))
        return QStringLiteral("Please enter a date in the format %1 and an amount")
            .arg(core::regional::isUS(language) ? "MM/DD/YYYY" : "DD/MM/YYYY");
    if (date > today) return QStringLiteral("You cannot enter a date in the future");
    return {};
}

QString refusalMessage(Refusal refusal) {
    switch (refusal) {
    case Refusal::None:
        return {};
    case Refusal::NoFunds:
        return QStringLiteral("There are no funds available");
    case Refusal::Insufficient:
        return QStringLiteral("There are insufficient funds");
    case Refusal::Changed:
        return core::rowChangedMessage(QStringLiteral("entry"));
    }
    return {};
}

Refusal checkRemoveStart(Money total) {
    return total <= Money() ? Refusal::NoFunds : Refusal::None;
}

Refusal checkRemove(Money total, Money amount) {
    return total - amount < Money() ? Refusal::Insufficient : Refusal::None;
}

Refusal checkDelete(Money total, Direction direction, Money figure) {
    // Taking money out of the ledger's history puts it back in the box: always possible.
    if (direction == Direction::Out) return Refusal::None;
    return checkRemove(total, figure);
}

Refusal checkEdit(Money total, Direction direction, Money oldFigure, Money newFigure) {
    const Money after =
        direction == Direction::In ? total - oldFigure + newFigure : total + oldFigure - newFigure;
    return after < Money() ? Refusal::Insufficient : Refusal::None;
}

std::vector<Entry> entries(Db& db) {
    std::vector<Entry> out;
    QSqlQuery q = db.query(Select + " ORDER BY Date DESC, pettyid DESC");
    while (q.next())
        out.push_back(entryOf(q.record()));
    return out;
}

std::optional<Entry> entry(Db& db, qint64 id) {
    if (auto r = db.row(Select + " WHERE pettyid = ?", {id})) return entryOf(*r);
    return std::nullopt;
}

Money total(Db& db) {
    Money sum;
    QSqlQuery q = db.query(QStringLiteral("SELECT amount FROM pettycash"));
    while (q.next())
        sum += amountValue(Db::text(q.value(0))).value_or(Money());
    return sum;
}

Outcome addFunds(Db& db, const QDate& date, const QString& figure, const QString& reason) {
    return addEntry(db, Direction::In, date, figure, reason);
}

Outcome removeFunds(Db& db, const QDate& date, const QString& figure, const QString& reason) {
    return addEntry(db, Direction::Out, date, figure, reason);
}

Outcome deleteEntry(Db& db, const Entry& shown) {
    LedgerWrite write(db);
    const std::optional<Entry> stored = entry(db, shown.id);
    if (!stored) return write.commit({});
    if (!sameEntry(*stored, shown)) return write.changed(stored);
    const Direction direction = splitAmount(stored->amount).direction;
    const Money figure = figureOf(*stored);
    if (const Refusal r = checkDelete(write.total(), direction, figure); r != Refusal::None)
        return write.refuse(r);
    db.remove("pettycash", "pettyid", shown.id);
    return write.commit(direction == Direction::In ? -figure : figure);
}

Outcome editEntry(Db& db, const Entry& shown, const QDate& date, const QString& figure,
                  const QString& reason) {
    const std::optional<Money> value = readFigure(figure);
    if (!value) throw std::invalid_argument("The amount is no positive number");
    LedgerWrite write(db);
    const std::optional<Entry> stored = entry(db, shown.id);
    if (!stored || !sameEntry(*stored, shown)) return write.changed(stored);
    const Direction direction = splitAmount(stored->amount).direction;
    const Money old = figureOf(*stored);
    if (const Refusal r = checkEdit(write.total(), direction, old, *value); r != Refusal::None)
        return write.refuse(r);
    db.update("pettycash", "pettyid", shown.id,
              {{"Date", Db::dateOrNull(date)},
               {"amount", storedAmount(direction, figureText(figure))},
               {"reason", reason.trimmed()}});
    const Money change = *value - old;
    return write.commit(direction == Direction::In ? change : -change);
}

} // namespace pettycash
