#include "licences.h"

#include "invoices.h"

namespace assets {

using core::Db;

QString licencesLeft(const QVariant& licenses, const QVariant& used) {
    if (licenses.isNull() || !licenses.isValid()) return Unlicensed;
    const auto bought = wholeNumber(Db::text(licenses));
    const auto inUse = wholeNumber(Db::text(used));
    return QString::number(qint64(bought.value_or(0)) - inUse.value_or(0));
}

bool needsLicenceWarning(const QString& left) {
    const auto n = wholeNumber(left);
    return !n || *n < 1;
}

void recountLicences(core::Db& db, qint64 softwareId) {
    db.exec("UPDATE Software SET licensesused = "
            "(SELECT COUNT(*) FROM ComputerSoftware WHERE ComputerSoftware.Software_ID = ?) "
            "WHERE Software_ID = ?",
            {softwareId, softwareId});
}

bool installSoftware(core::Db& db, qint64 computerId, qint64 softwareId) {
    core::Transaction tx(db);
    if (db.row("SELECT ComputerSoftware_ID FROM ComputerSoftware "
               "WHERE computer_id = ? AND Software_ID = ?",
               {computerId, softwareId}))
        return false;
    db.insert("ComputerSoftware", "ComputerSoftware_ID",
              {{"Software_ID", softwareId}, {"computer_id", computerId}});
    recountLicences(db, softwareId);
    tx.commit();
    return true;
}

void removeSoftware(core::Db& db, qint64 computerId, qint64 softwareId) {
    core::Transaction tx(db);
    db.exec("DELETE FROM ComputerSoftware WHERE computer_id = ? AND Software_ID = ?",
            {computerId, softwareId});
    recountLicences(db, softwareId);
    tx.commit();
}

void removeAllSoftware(core::Db& db, qint64 computerId) {
    core::Transaction tx(db);
    QList<qint64> products;
    for (const auto& r :
         db.rows("SELECT DISTINCT Software_ID FROM ComputerSoftware WHERE computer_id = ?",
                 {computerId}))
        products << Db::toId(r.value(0));
    db.exec("DELETE FROM ComputerSoftware WHERE computer_id = ?", {computerId});
    for (qint64 id : products)
        recountLicences(db, id);
    tx.commit();
}

int addLicences(core::Db& db, qint64 softwareId, int added) {
    core::Transaction tx(db);
    // Added to what is stored now, not to what the screen read, so two purchases entered at
    // once both count.
    db.exec("UPDATE Software SET Licenses = COALESCE(Licenses, 0) + ? WHERE Software_ID = ?",
            {added, softwareId});
    const int total =
        db.scalar("SELECT Licenses FROM Software WHERE Software_ID = ?", {softwareId}).toInt();
    tx.commit();
    return total;
}

} // namespace assets
