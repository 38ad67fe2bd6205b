#include "software.h"

#include "licences.h"
#include "regional.h"

namespace assets {

using core::Db;

QString checkSoftware(const SoftwareText& s) {
    if (s.manufacturer.trimmed().isEmpty() || s.product.trimmed().isEmpty())
        return QStringLiteral("Please enter manufacturer and product");
    if (!s.licenses.trimmed().isEmpty() && !wholeNumber(s.licenses))
        return QStringLiteral("Please enter the number of licenses you have purchased.");
    if (!s.invoice.date.trimmed().isEmpty() && !core::isDate(s.invoice.date))
        return QStringLiteral("Please enter a date in the Invoice date box");
    return priceRefusal(QStringLiteral("Total Invoice Price"), s.invoice.price,
                        QStringLiteral("Please enter a numeric value in the price box"));
}

std::optional<SoftwareRecord> loadSoftware(core::Db& db, qint64 softwareId) {
    // Taken before the values: a change in between refuses the save.
    LoadedAsset loaded = loadedSoftware(db, softwareId);
    const auto r = db.row("SELECT Manufacturer, Product, Version, Licenses, Invoice_ID, "
                          "supplier_id FROM Software WHERE Software_ID = ?",
                          {softwareId});
    if (!r) return std::nullopt;
    SoftwareRecord out;
    out.loaded = std::move(loaded);
    out.text.manufacturer = Db::text(r->value("Manufacturer")).trimmed();
    out.text.product = Db::text(r->value("Product")).trimmed();
    out.text.version = Db::text(r->value("Version")).trimmed();
    out.text.licenses = Db::text(r->value("Licenses"));
    out.text.supplierId = keyOrZero(r->value("supplier_id"));
    out.invoiceId = keyOrZero(r->value("Invoice_ID"));
    if (out.invoiceId > 0) {
        // An invoice key whose row has gone shows empty boxes; saving writes a new one.
        if (const auto invoice = loadInvoice(db, out.invoiceId)) out.text.invoice = *invoice;
    }
    return out;
}

LoadedAsset loadedSoftware(core::Db& db, qint64 softwareId) {
    // The count in use follows every install elsewhere and is never written here.
    return loadedAsset(db, "Software", "Software_ID", softwareId, {"licensesused"});
}

qint64 saveSoftware(core::Db& db, qint64 softwareId, qint64& invoiceId, const SoftwareText& s,
                    LoadedAsset* loaded) {
    core::Transaction tx(db);
    if (loaded && softwareId > 0) loaded->verify(db);
    const qint64 invoice = saveInvoice(db, invoiceId, s.invoice);
    core::Fields fields{{"Manufacturer", stored(s.manufacturer)},
                        {"Product", stored(s.product)},
                        {"Version", stored(s.version)}};
    if (const auto n = wholeNumber(s.licenses)) fields.push_back({"Licenses", *n});
    if (invoice > 0) fields.push_back({"Invoice_ID", invoice});
    if (s.supplierId > 0) fields.push_back({"supplier_id", s.supplierId});
    qint64 id = softwareId;
    if (softwareId > 0 && db.update("Software", "Software_ID", softwareId, fields) > 0) {
        // kept
    } else {
        fields.push_back({"licensesused", 0});
        id = db.insert("Software", "Software_ID", fields);
    }
    LoadedAsset written;
    if (loaded) written = loadedSoftware(db, id);
    tx.commit();
    invoiceId = invoice;
    if (loaded) *loaded = written;
    return id;
}

namespace {

std::vector<ListRow> threeColumns(core::Db& db, const QString& sql, const core::Params& params) {
    std::vector<ListRow> out;
    for (const auto& r : db.rows(sql, params))
        out.push_back({Db::toId(r.value("Software_ID")),
                       {Db::text(r.value("Manufacturer")), Db::text(r.value("Product")).trimmed(),
                        Db::text(r.value("Version"))}});
    return out;
}

QStringList names(core::Db& db, const QString& sql, const core::Params& params = {}) {
    QStringList out;
    for (const auto& r : db.rows(sql, params))
        out << Db::text(r.value(0));
    return out;
}

} // namespace

std::vector<ListRow> licenceRows(core::Db& db) {
    std::vector<ListRow> out;
    for (const auto& r : db.rows("SELECT Software_ID, Manufacturer, Product, Version, Licenses, "
                                 "licensesused FROM Software "
                                 "ORDER BY Manufacturer, Product, Software_ID"))
        out.push_back({Db::toId(r.value("Software_ID")),
                       {Db::text(r.value("Manufacturer")), Db::text(r.value("Product")).trimmed(),
                        Db::text(r.value("Version")),
                        licencesLeft(r.value("Licenses"), r.value("licensesused"))}});
    return out;
}

std::vector<ListRow> softwareRows(core::Db& db) {
    return threeColumns(db,
                        "SELECT Software_ID, Manufacturer, Product, Version FROM Software "
                        "ORDER BY Manufacturer, Product, Software_ID",
                        {});
}

std::vector<ListRow> installedRows(core::Db& db, qint64 computerId) {
    return threeColumns(db,
                        "SELECT Software.Software_ID, Software.Manufacturer, Software.Product, "
                        "Software.Version FROM Software INNER JOIN ComputerSoftware "
                        "ON Software.Software_ID = ComputerSoftware.Software_ID "
                        "WHERE ComputerSoftware.computer_id = ? "
                        "ORDER BY Software.Manufacturer, Software.Product",
                        {computerId});
}

QStringList manufacturerNames(core::Db& db) {
    return names(db, "SELECT Manufacturer FROM Software ORDER BY Manufacturer");
}

QStringList productNames(core::Db& db, const QString& manufacturer) {
    return names(db, "SELECT Product FROM Software WHERE Manufacturer = ? ORDER BY Product",
                 {manufacturer});
}

QStringList versionNames(core::Db& db, const QString& manufacturer, const QString& product) {
    return names(db, "SELECT Version FROM Software WHERE Manufacturer = ? AND Product = ?",
                 {manufacturer, product});
}

std::optional<qint64> findSoftware(core::Db& db, const QString& manufacturer,
                                   const QString& product, const QString& version) {
    const QVariant id = db.scalar("SELECT Software_ID FROM Software WHERE Manufacturer = ? AND "
                                  "Product = ? AND COALESCE(Version, '') = ?",
                                  {manufacturer, product, stored(version)});
    if (!id.isValid() || id.isNull()) return std::nullopt;
    return Db::toId(id);
}

std::vector<PoolEntry> poolEntries(core::Db& db) {
    std::vector<PoolEntry> out;
    for (const auto& r : db.rows("SELECT Software_ID, Manufacturer, Product, Version, Licenses, "
                                 "licensesused FROM Software ORDER BY Manufacturer, Software_ID")) {
        PoolEntry e;
        e.id = Db::toId(r.value("Software_ID"));
        e.text = QStringLiteral("%1 %2 %3")
                     .arg(Db::text(r.value("Manufacturer")), Db::text(r.value("Product")),
                          Db::text(r.value("Version")))
                     .trimmed();
        if (!r.value("Licenses").isNull()) {
            e.total = r.value("Licenses").toInt();
            e.available = licencesLeft(r.value("Licenses"), r.value("licensesused")).toInt();
        }
        out.push_back(e);
    }
    return out;
}

} // namespace assets
