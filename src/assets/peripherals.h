#pragma once

#include "db.h"
#include "invoices.h"
#include "software.h"

#include <QString>
#include <optional>
#include <vector>

// Printers, scanners and monitors (and a computer's other peripherals): one table told apart
// by Type, soft-deleted through BlnDeleted.
namespace assets {

// A peripheral as its edit screen holds it, texts as typed.
struct PeripheralText {
    QString type; // "Printer", "Scanner", "Monitor"
    QString manufacturer;
    QString model;
    QString serialNo;
    QString assetNo;
    QString location;    // printers and scanners
    QString size;        // monitors
    QString printerType; // "Local" or "Network", printers
    QString ipAddress;   // written for "Network" printers only
    QString warrantyLength;
    QString warrantyContact;
    QString warrantyRef;
    QString dateReceived;
    InvoiceText invoice;
    qint64 supplierId = 0; // 0: none picked, the stored one stays
    qint64 computerId = 0; // 0: not assigned to a computer
};

// What OK finds wrong, in the order it looks, "" when nothing.
QString checkPeripheral(const PeripheralText& peripheral);

struct PeripheralRecord {
    PeripheralText text;
    qint64 invoiceId = 0;
    QString computerName;
    LoadedAsset loaded; // the rows as read, for the save to check
};
// A stored peripheral; nullopt when it is not there.
std::optional<PeripheralRecord> loadPeripheral(core::Db& db, qint64 peripheralId);
// The peripheral's row and invoice as its screen loads them, for the save to check.
LoadedAsset loadedPeripheral(core::Db& db, qint64 peripheralId);
// Writes a peripheral (peripheralId 0 for a new one) and its invoice in one transaction;
// returns its key and sets invoiceId to the invoice it now has. With `loaded`, a stored
// peripheral is first checked against it (core::RowChanged, nothing written, when another
// user has changed or deleted it or its invoice since), and once written it holds the rows as
// saved. The deleted flag is never written here.
qint64 savePeripheral(core::Db& db, qint64 peripheralId, qint64& invoiceId,
                      const PeripheralText& peripheral, LoadedAsset* loaded = nullptr);
// Hides a peripheral from every list; calls that name it keep it.
void deletePeripheral(core::Db& db, qint64 peripheralId);

// The edit list: "{Manufacturer} {Model}", location (a monitor's size), serial and asset
// numbers of the type's peripherals that are not deleted.
std::vector<ListRow> peripheralRows(core::Db& db, const QString& type);
// The picker's rows: manufacturer, model, location (a monitor's size) and asset number of the
// type's peripherals on the person's computers; of all of them when the person has none or
// personId is 0.
std::vector<ListRow> pickerRows(core::Db& db, const QString& type, qint64 personId);

// Computers to assign a printer to: name and key, by name.
std::vector<ListRow> computerNames(core::Db& db);
// The peripheral types that the computer screen offers.
QStringList peripheralTypes(core::Db& db);

} // namespace assets
