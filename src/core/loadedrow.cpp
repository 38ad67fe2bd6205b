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

std::map<qint64, LoadedRow> LoadedRow::readEach(const Db& db, const QString& table,
                                                const QString& keyColumn,
                                                const QString& ownerColumn, qint64 owner) {
    std::map<qint64, LoadedRow> rows;
    // The names come from the program's own screens, never from a user.
    auto q =
        db.query(QStringLiteral("SELECT * FROM %1 WHERE %2 = ?").arg(table, ownerColumn), {owner});
    while (q.next()) {
        LoadedRow row;
        row.table_ = table;
        row.keyColumn_ = keyColumn;
        row.values_ = q.record();
        row.id_ = Db::toId(row.values_.value(keyColumn));
        rows.emplace(row.id_, std::move(row));
    }
    return rows;
}

LoadedRow LoadedRow::of(const std::map<qint64, LoadedRow>& rows, qint64 id) {
    const auto it = rows.find(id);
    return it == rows.end() ? LoadedRow() : it->second;
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

int updateLoaded(Db& db, const LoadedRow& loaded, const QString& table, const QString& keyColumn,
                 qint64 id, const Fields& fields) {
    Transaction t(db);
    loaded.verify(db);
    const int rows = db.update(table, keyColumn, id, fields);
    t.commit();
    return rows;
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

SaveOutcome checkedSave(const QString& caption, const QString& what,
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
    if (!changedMeanwhile) return saved ? SaveOutcome::Saved : SaveOutcome::Failed;
    if (!offerReload(what, parent)) return SaveOutcome::Kept;
    guarded(caption, reload, parent);
    return SaveOutcome::Reloaded;
}

bool saveUnlessChanged(const QString& caption, const QString& what,
                       const std::function<void()>& save, const std::function<void()>& reload,
                       QWidget* parent) {
    return checkedSave(caption, what, save, reload, parent) == SaveOutcome::Saved;
}

} // namespace core
