#pragma once

#include "db.h"
#include "invoices.h"

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

// The software catalogue: one product with its invoice and supplier, and the lists the
// pickers show.
namespace assets {

// A product as its screen holds it, texts as typed.
struct SoftwareText {
    QString manufacturer;
    QString product;
    QString version;
    QString licenses;
    InvoiceText invoice;
    qint64 supplierId = 0; // the supplier picked, 0 for none
};

// What OK finds wrong with a product, in the order it looks, "" when nothing.
QString checkSoftware(const SoftwareText& software);

struct SoftwareRecord {
    SoftwareText text;
    qint64 invoiceId = 0;
    LoadedAsset loaded; // the rows as read, for the save to check
};
// A stored product, with whatever invoice and supplier it has; nullopt when it is not there.
std::optional<SoftwareRecord> loadSoftware(core::Db& db, qint64 softwareId);

// The product's row and invoice as its screen loads them, for the save to check. The licence
// count in use is left out: installing the product elsewhere is no change to what is edited.
LoadedAsset loadedSoftware(core::Db& db, qint64 softwareId);
// Writes a product (softwareId 0 for a new one) with its invoice, in one transaction; returns
// its key and sets invoiceId to the invoice it now has. The licence count in use is never
// written here. A supplier is written only when one is picked, so a save never drops one.
// With `loaded`, a stored product is first checked against it (core::RowChanged, nothing
// written, when another user has changed or deleted it or its invoice since), and once written
// it holds the rows as saved.
qint64 saveSoftware(core::Db& db, qint64 softwareId, qint64& invoiceId,
                    const SoftwareText& software, LoadedAsset* loaded = nullptr);

// A row of a list: its key and cells.
struct ListRow {
    qint64 id = 0;
    QStringList cells;
};

// Manufacturer, product, version and licences left of every product, by manufacturer and
// product.
std::vector<ListRow> licenceRows(core::Db& db);
// Manufacturer, product and version of every product.
std::vector<ListRow> softwareRows(core::Db& db);
// Manufacturer, product and version of what is installed on a computer.
std::vector<ListRow> installedRows(core::Db& db, qint64 computerId);

// The cascade of the catalogue: a manufacturer once a product, its products, their versions.
QStringList manufacturerNames(core::Db& db);
QStringList productNames(core::Db& db, const QString& manufacturer);
QStringList versionNames(core::Db& db, const QString& manufacturer, const QString& product);
// The product a cascade pick names; nullopt when there is none.
std::optional<qint64> findSoftware(core::Db& db, const QString& manufacturer,
                                   const QString& product, const QString& version);

// The licence pool entries of "Add Licences": "{Manufacturer} {Product} {Version}", the pool
// and what is left, both 0 for an unlicensed product.
struct PoolEntry {
    qint64 id = 0;
    QString text;
    int total = 0;
    int available = 0;
};
std::vector<PoolEntry> poolEntries(core::Db& db);

} // namespace assets
