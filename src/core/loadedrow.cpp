#include "loadedrow.h"

#include "failure.h"
#include "messagebox.h"

namespace core {

std::optional<QSqlRecord> LoadedRow::current(const Db& db, const QString& table,
                                             const QString& keyColumn, qint64 id, bool lock) {
    // The names come from the program's own screens, never from a user.
    QString sql = QStringLiteral("SELECT * FROM %1 WHERE %2 = ?").arg(table, keyColumn);
    if (lock && db.backend() == Backend::Postgres) sql += QStringLiteral(" FOR UPDATE");
    return db.row(sql, {id});
}

LoadedRow LoadedRow::read(const Db& db, const QString& table, const QString& keyColumn, qint64 id,
                          const QStringList& ignoring) {
    LoadedRow row;
    const auto found = current(db, table, keyColumn, id, false);
    if (!found) return row;
    row.table_ = table;
    row.keyColumn_ = keyColumn;
    row.id_ = id;
    row.values_ = *found;
    row.ignoring_ = ignoring;
    return row;
}

bool LoadedRow::unchanged(const Db& db) const {
    if (isEmpty()) return true;
    const auto now = current(db, table_, keyColumn_, id_, true);
    if (!now || now->count() != values_.count()) return false;
    for (int i = 0; i < values_.count(); ++i) {
        // PostgreSQL hands the names back folded to lower case.
        if (ignoring_.contains(values_.fieldName(i), Qt::CaseInsensitive)) continue;
        const QVariant a = values_.value(i), b = now->value(i);
        if (a.isNull() != b.isNull()) return false;
        if (!a.isNull() && a != b) return false;
    }
    return true;
}

void LoadedRow::verify(const Db& db) const {
    if (!unchanged(db)) throw RowChanged();
}

QString rowChangedMessage(const QString& what) {
    return QStringLiteral("This %1 has been changed by another user since you opened it. Your "
                          "changes have not been saved.")
        .arg(what);
}

bool offerReload(const QString& what, QWidget* parent) {
    const QString text = rowChangedMessage(what) +
                         QStringLiteral("\n\nDo you want to load the %1 again as it is now? What "
                                        "you have typed will be replaced.")
                             .arg(what);
    return msgbox(text, {}, MsgButtons::YesNo, MsgIcon::Warning, MsgAnswer::No, parent) ==
           MsgAnswer::Yes;
}

bool saveUnlessChanged(const QString& caption, const QString& what,
                       const std::function<void()>& save, const std::function<void()>& reload,
                       QWidget* parent) {
    bool changedMeanwhile = false;
    const bool saved = guarded(
        caption,
        [&] {
            try {
                save();
            } catch (const RowChanged&) {
                changedMeanwhile = true;
            }
        },
        parent);
    if (!changedMeanwhile) return saved;
    if (offerReload(what, parent)) guarded(caption, reload, parent);
    return false;
}

} // namespace core
