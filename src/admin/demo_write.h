#pragma once

// The demo generator's randomness, its batched writer and the small value and date helpers
// every part of it shares.

#include "db.h"
#include "demo_organisation.h"
#include "money.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>
#include <array>
#include <map>
#include <optional>
#include <random>
#include <stdexcept>

namespace admin::demo {

using core::Db;
using core::Money;
using core::Params;

// ---------------------------------------------------------------------------------------
// Randomness. std::mt19937 is specified to the bit; the standard distributions are not, so
// the organisation is drawn through these helpers only.

class Random {
public:
    explicit Random(quint32 seed)
        : engine_(seed) {}

    // Uniform in [0, n).
    int below(int n) {
        if (n <= 1) return 0;
        const quint64 x = static_cast<quint32>(engine_());
        return static_cast<int>((x * static_cast<quint64>(n)) >> 32);
    }
    int between(int lo, int hi) { return lo + below(hi - lo + 1); }
    bool percent(int p) { return below(100) < p; }
    bool permille(int p) { return below(1000) < p; }

    template <typename T, std::size_t N> const T& pick(const std::array<T, N>& items) {
        return items[below(static_cast<int>(N))];
    }
    template <typename T> const T& pick(const std::vector<T>& items) {
        return items[below(static_cast<int>(items.size()))];
    }
    // An index chosen in proportion to the weights.
    int weighted(std::initializer_list<int> weights) {
        int total = 0;
        for (int w : weights)
            total += w;
        int r = below(total);
        int i = 0;
        for (int w : weights) {
            if (r < w) return i;
            r -= w;
            ++i;
        }
        return i - 1;
    }
    QString digits(int count) {
        QString s;
        for (int i = 0; i < count; ++i)
            s += QChar('0' + below(10));
        return s;
    }
    QString letters(int count, const char* alphabet = "ABCDEFGHJKLMNPRSTUVWXYZ") {
        const int n = static_cast<int>(qstrlen(alphabet));
        QString s;
        for (int i = 0; i < count; ++i)
            s += QChar(alphabet[below(n)]);
        return s;
    }

private:
    std::mt19937 engine_;
};

// ---------------------------------------------------------------------------------------
// Writing, the fastest way each backend offers through bound values only.
//
// SQLite: one prepared single-row INSERT, bound and run again for every row; the work is
// local, and Qt's SQLite driver looks placeholders up by name, which makes multi-row
// statements with thousands of values slow down quadratically.
// PostgreSQL: rows are gathered per column into array values and inserted a few thousand at
// a time through unnest(), one bound value per column: one round trip per batch, and the
// server parses arrays rather than an expression for every value.

class Batch {
public:
    Batch(Db& db, DemoSummary& summary, QString table, QStringList columns, Batch* parent = nullptr)
        : db_(db)
        , summary_(summary)
        , table_(std::move(table))
        , columns_(std::move(columns))
        , parent_(parent) {
        if (db_.backend() == core::Backend::Sqlite) {
            single_.emplace(db_.handle());
            const QString marks = QStringList(columns_.size(), QStringLiteral("?")).join(", ");
            if (!single_->prepare(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                      .arg(table_, columns_.join(", "), marks)))
                throw Db::classify(single_->lastError(), core::Backend::Sqlite);
        } else {
            arrays_.resize(columns_.size());
            statement_ = unnestStatement();
        }
    }
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;

    void add(std::initializer_list<QVariant> values) {
        if (static_cast<qsizetype>(values.size()) != columns_.size())
            throw std::logic_error("demo row does not match its columns");
        if (single_) {
            int i = 0;
            for (const QVariant& v : values)
                single_->bindValue(i++, sqliteValue(v));
            if (!single_->exec()) throw Db::classify(single_->lastError(), core::Backend::Sqlite);
            ++written_;
            return;
        }
        int i = 0;
        for (const QVariant& v : values) {
            QString& a = arrays_[i++];
            a += rows_ == 0 ? '{' : ',';
            appendElement(a, v);
        }
        if (++rows_ == RowsPerStatement) flush();
    }

    // Writes what is left and records the count; the batch may not be used afterwards.
    void finish() {
        flush();
        summary_.tables.emplace_back(table_, written_);
    }

    void flush() {
        if (rows_ == 0) return;
        // Rows that refer to the parent's rows go in after them.
        if (parent_) parent_->flush();
        Params params;
        for (QString& a : arrays_) {
            a += '}';
            params << a;
            a.clear();
        }
        db_.exec(statement_, params);
        written_ += rows_;
        rows_ = 0;
    }

private:
    static constexpr int RowsPerStatement = 2000;

    static QVariant sqliteValue(const QVariant& v) {
        switch (v.typeId()) {
        case QMetaType::QDate:
            return v.isNull() ? QVariant(QMetaType::fromType<QString>())
                              : QVariant(v.toDate().toString(Qt::ISODate));
        case QMetaType::QDateTime:
            return v.isNull() ? QVariant(QMetaType::fromType<QString>())
                              : QVariant(v.toDateTime().toString("yyyy-MM-dd HH:mm:ss"));
        default:
            return v;
        }
    }

    // One element of a PostgreSQL array value: NULL bare, everything else quoted.
    static void appendElement(QString& out, const QVariant& v) {
        if (v.isNull() || !v.isValid()) {
            out += QLatin1String("NULL");
            return;
        }
        QString text;
        switch (v.typeId()) {
        case QMetaType::QDate:
            text = v.toDate().toString(Qt::ISODate);
            break;
        case QMetaType::QDateTime:
            text = v.toDateTime().toString("yyyy-MM-dd HH:mm:ss");
            break;
        default:
            text = v.toString();
        }
        out += '"';
        for (const QChar c : std::as_const(text)) {
            if (c == '"' || c == '\\') out += '\\';
            out += c;
        }
        out += '"';
    }

    // INSERT ... SELECT * FROM unnest(CAST(? AS type[]), ...), with the column types as the
    // database has them.
    QString unnestStatement() const {
        std::map<QString, QString> types;
        QSqlQuery q =
            db_.query("SELECT attname, format_type(atttypid, atttypmod) FROM pg_attribute "
                      "WHERE attrelid = CAST(? AS regclass) AND attnum > 0 "
                      "AND NOT attisdropped",
                      {table_.toLower()});
        while (q.next())
            types[q.value(0).toString()] = q.value(1).toString();
        QStringList arrays;
        for (const QString& c : columns_) {
            const auto t = types.find(c.toLower());
            if (t == types.end()) throw std::logic_error("demo column missing from the schema");
            arrays << QStringLiteral("CAST(? AS %1[])").arg(t->second);
        }
        return QStringLiteral("INSERT INTO %1 (%2) SELECT * FROM unnest(%3)")
            .arg(table_, columns_.join(", "), arrays.join(", "));
    }

    Db& db_;
    DemoSummary& summary_;
    QString table_;
    QStringList columns_;
    Batch* parent_;
    int rows_ = 0;
    qint64 written_ = 0;
    std::optional<QSqlQuery> single_;
    std::vector<QString> arrays_;
    QString statement_;
};

// Keys are handed out in insert order from the first free one, so that rows can refer to
// each other before they are written. (PostgreSQL's sequences follow by trigger.)
inline qint64 firstFreeKey(Db& db, const char* table, const char* key) {
    return db.scalar(QStringLiteral("SELECT COALESCE(MAX(%1), 0) FROM %2")
                         .arg(QLatin1String(key), QLatin1String(table)))
               .toLongLong() +
           1;
}

inline const QVariant NullText{QMetaType::fromType<QString>()};
inline const QVariant NullKey{QMetaType::fromType<qlonglong>()};
inline const QVariant NullNumber{QMetaType::fromType<double>()};

inline QVariant date(const QDate& d) {
    return core::Db::dateOrNull(d);
}
inline QVariant key(qint64 id) {
    return id > 0 ? QVariant(id) : NullKey;
}
inline QVariant money(const Money& m) {
    return m.toVariant();
}
inline QVariant money(std::optional<Money> m) {
    return m ? m->toVariant() : NullText;
}

inline Money pounds(qint64 whole, int pence = 0) {
    return Money::fromUnits(whole * Money::Scale + pence * (Money::Scale / 100));
}

// ---------------------------------------------------------------------------------------
// Dates

inline bool weekend(const QDate& d) {
    return d.dayOfWeek() >= 6;
}

inline QDate nextWeekday(QDate d) {
    while (weekend(d))
        d = d.addDays(1);
    return d;
}

// The date that ends a run of the given number of working days starting on a weekday.
inline QDate addWorkingDays(QDate start, int days) {
    QDate d = start;
    for (int left = days - 1; left > 0;) {
        d = d.addDays(1);
        if (!weekend(d)) --left;
    }
    return d;
}

inline int workingDaysBetween(const QDate& from, const QDate& to) {
    int n = 0;
    for (QDate d = from; d <= to; d = d.addDays(1))
        if (!weekend(d)) ++n;
    return n;
}
} // namespace admin::demo
