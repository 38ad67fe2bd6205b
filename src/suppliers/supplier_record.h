#pragma once

#include "db.h"
#include "loadedrow.h"

#include <QString>
#include <optional>
#include <vector>

// A supplier with its services and branch offices, and the shared list of services: what the
// supplier screens read and write.
namespace suppliers {

struct SupplierText {
    QString name;
    QString address1;
    QString address2;
    QString address3;
    QString pcode;
    QString phone;
    QString contact;
    QString email;
    QString fax;
};

// "Please enter a supplier name" for a blank name, "" otherwise.
QString checkSupplier(const SupplierText& supplier);
qint64 insertSupplier(core::Db& db, const SupplierText& supplier);
// Rewrites the head address. The row must still be as `loaded` saw it: another user's change
// or delete since throws core::RowChanged and writes nothing.
void updateSupplier(core::Db& db, qint64 supplierId, const SupplierText& supplier,
                    const core::LoadedRow& loaded = {});
// The supplier's row as the save will compare it.
core::LoadedRow loadedSupplierRow(core::Db& db, qint64 supplierId);
std::optional<SupplierText> loadSupplier(core::Db& db, qint64 supplierId);

// Removes a supplier in one transaction: the computers, software and peripherals it supplied
// stay in the register without a supplier, and its service links and branch offices go with
// it. Nothing changes when any statement fails.
void deleteSupplier(core::Db& db, qint64 supplierId);
// The asset tables whose rows name their supplier.
enum class AssetTable { Computers, Software, Peripherals };
// Clears the supplier from every row of the table that names it.
void checknumber(core::Db& db, AssetTable table, qint64 supplierId);

// A list entry: the text shown and the key it stands for.
struct Entry {
    qint64 id = 0;
    QString text;
};
using Entries = std::vector<Entry>;

// The shared list of services, in the order they were added.
Entries allServices(core::Db& db);
// "Please enter a new service or press cancel to exit" for a blank name, "" otherwise.
QString checkNewService(const QString& name);
qint64 addService(core::Db& db, const QString& name);
// Deletes the service unless a supplier provides it; false (nothing changed) when one does.
bool deleteService(core::Db& db, qint64 serviceId);
QString serviceInUseMessage();

// The services a supplier provides, in the order they were linked.
Entries supplierServices(core::Db& db, qint64 supplierId);
// Links the services in order, up to the first the supplier already provides, which ends the
// step; returns false when that happened (the links made before it stay).
bool addSupplierServices(core::Db& db, qint64 supplierId, const std::vector<qint64>& serviceIds);
QString duplicateServiceMessage(); // "That service has already been selected for this supplier"
void removeSupplierService(core::Db& db, qint64 supplierId, qint64 serviceId);
// A list page's "Add" before the supplier has a name.
QString detailsFirstMessage();

// A branch office; its town is the one thing it needs.
struct OfficeText {
    QString town; // address3
    QString address1;
    QString address2;
    QString pcode;
    QString phone;
    QString contact;
    QString email;
    QString fax;
};
// "You must enter a town or city in the relevant box" for a blank town, "" otherwise.
QString checkOffice(const OfficeText& office);
struct OfficeRow {
    qint64 id = 0;
    QString town;
    QString phone;
};
std::vector<OfficeRow> supplierOffices(core::Db& db, qint64 supplierId);
qint64 addOffice(core::Db& db, qint64 supplierId, const OfficeText& office);
// Rewrites a branch; refused as updateSupplier is when it has changed since `loaded`.
void updateOffice(core::Db& db, qint64 officeId, const OfficeText& office,
                  const core::LoadedRow& loaded = {});
core::LoadedRow loadedOfficeRow(core::Db& db, qint64 officeId);
std::optional<OfficeText> loadOffice(core::Db& db, qint64 officeId);
void deleteOffice(core::Db& db, qint64 officeId);
// "{town} Branch", the office dialog's caption.
QString branchCaption(const QString& town);
// "Are you sure you want to delete the {town} Branch".
QString deleteOfficeQuestion(const QString& town);

} // namespace suppliers
