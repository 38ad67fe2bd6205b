#include "peripherals.h"

#include "regional.h"
#include "session.h"

namespace assets {

using core::Db;

QString checkPeripheral(const PeripheralText& p) {
    if (p.manufacturer.trimmed().isEmpty() || p.model.trimmed().isEmpty())
        return QStringLiteral("Please enter Manufacturer and model information");
    if (!p.warrantyLength.trimmed().isEmpty() && p.invoice.date.trimmed().isEmpty())
        return QStringLiteral(
            "If you are entering a warranty length you must enter the Invoice date as well");
    if (!p.invoice.date.trimmed().isEmpty() && !core::isDate(p.invoice.date))
        return QStringLiteral("Please enter a date in the invoice date field");
    if (const QString refusal =
            priceRefusal(QStringLiteral("Total Invoice Price"), p.invoice.price,
                         QStringLiteral("Please enter a number in the invoice price field"));
        !refusal.isEmpty())
        return refusal;
    if (!p.warrantyLength.trimmed().isEmpty() && !wholeNumber(p.warrantyLength))
        return QStringLiteral(
            "Please enter a the number of months warranty in the warrant length field");
    if (!p.dateReceived.trimmed().isEmpty() && !core::isDate(p.dateReceived))
        return QStringLiteral("Please enter the date in the format %1")
            .arg(core::regional::isUS(core::session().language) ? "MM/DD/YYYY" : "DD/MM/YYYY");
    return {};
}

std::optional<PeripheralRecord> loadPeripheral(core::Db& db, qint64 peripheralId) {
    // Taken before the values: a change in between refuses the save.
    LoadedAsset loaded = loadedPeripheral(db, peripheralId);
    const auto r = db.row("SELECT Peripherals.*, Computers.ComputerName AS compname "
                          "FROM Peripherals LEFT JOIN Computers "
                          "ON Computers.Computer_ID = Peripherals.computer_id "
                          "WHERE Peripherals.peripheral_ID = ?",
                          {peripheralId});
    if (!r) return std::nullopt;
    PeripheralRecord out;
    out.loaded = std::move(loaded);
    auto& t = out.text;
    auto text = [&](const char* column) { return Db::text(r->value(column)).trimmed(); };
    t.type = text("Type");
    t.manufacturer = text("Manufacturer");
    t.model = text("Model");
    t.serialNo = text("SerialNo");
    t.assetNo = text("AssetNo");
    t.location = text("Location");
    t.size = text("Size");
    t.printerType = text("PrinterType");
    t.ipAddress = text("ipaddress");
    t.warrantyLength = text("warrantyl");
    t.warrantyContact = text("warrantycon");
    t.warrantyRef = text("WarrantyRef");
    t.dateReceived = core::formatDate(Db::toDate(r->value("daterecieved")));
    t.supplierId = keyOrZero(r->value("supplier_id"));
    t.computerId = keyOrZero(r->value("computer_id"));
    out.computerName = text("compname");
    out.invoiceId = keyOrZero(r->value("Invoice_ID"));
    if (out.invoiceId > 0) {
        if (const auto invoice = loadInvoice(db, out.invoiceId)) t.invoice = *invoice;
    }
    return out;
}

LoadedAsset loadedPeripheral(core::Db& db, qint64 peripheralId) {
    return loadedAsset(db, "Peripherals", "peripheral_ID", peripheralId);
}

qint64 savePeripheral(core::Db& db, qint64 peripheralId, qint64& invoiceId, const PeripheralText& p,
                      LoadedAsset* loaded) {
    core::Transaction tx(db);
    if (loaded && peripheralId > 0) loaded->verify(db);
    const qint64 invoice = saveInvoice(db, invoiceId, p.invoice);
    core::Fields fields{{"Type", p.type},
                        {"Manufacturer", stored(p.manufacturer)},
                        {"Model", stored(p.model)},
                        {"SerialNo", stored(p.serialNo)},
                        {"AssetNo", stored(p.assetNo)},
                        {"warrantycon", stored(p.warrantyContact)},
                        {"WarrantyRef", stored(p.warrantyRef)},
                        {"computer_id", keyOrNull(p.computerId)}};
    // Blank is none; text that is no number or date (refused by the checks) keeps what is
    // stored rather than wiping it.
    if (p.warrantyLength.trimmed().isEmpty())
        fields.push_back({"warrantyl", QVariant(QMetaType::fromType<int>())});
    else if (const auto months = wholeNumber(p.warrantyLength))
        fields.push_back({"warrantyl", *months});
    if (p.dateReceived.trimmed().isEmpty())
        fields.push_back({"daterecieved", Db::dateOrNull(QDate())});
    else if (const QDate received = core::parseDate(p.dateReceived); received.isValid())
        fields.push_back({"daterecieved", received});
    if (p.type == "Monitor") {
        fields.push_back({"Size", stored(p.size)});
    } else {
        fields.push_back({"Location", stored(p.location)});
    }
    if (p.type == "Printer") {
        fields.push_back({"PrinterType", stored(p.printerType)});
        if (p.printerType == "Network") fields.push_back({"ipaddress", stored(p.ipAddress)});
    }
    if (invoice > 0) fields.push_back({"Invoice_ID", invoice});
    if (p.supplierId > 0) fields.push_back({"supplier_id", p.supplierId});
    qint64 id = peripheralId;
    if (!(peripheralId > 0 && db.update("Peripherals", "peripheral_ID", peripheralId, fields) > 0))
        id = db.insert("Peripherals", "peripheral_ID", fields);
    LoadedAsset written;
    if (loaded) written = loadedPeripheral(db, id);
    tx.commit();
    invoiceId = invoice;
    if (loaded) *loaded = written;
    return id;
}

void deletePeripheral(core::Db& db, qint64 peripheralId) {
    db.exec("UPDATE Peripherals SET BlnDeleted = 1 WHERE peripheral_ID = ?", {peripheralId});
}

std::vector<ListRow> peripheralRows(core::Db& db, const QString& type) {
    const bool monitor = type == "Monitor";
    std::vector<ListRow> out;
    for (const auto& r : db.rows("SELECT peripheral_ID, Manufacturer, Model, Location, Size, "
                                 "SerialNo, AssetNo FROM Peripherals "
                                 "WHERE Type = ? AND BlnDeleted <> 1 ORDER BY peripheral_ID",
                                 {type}))
        out.push_back({Db::toId(r.value("peripheral_ID")),
                       {QStringLiteral("%1 %2")
                            .arg(Db::text(r.value("Manufacturer")), Db::text(r.value("Model")))
                            .trimmed(),
                        Db::text(r.value(monitor ? "Size" : "Location")),
                        Db::text(r.value("SerialNo")), Db::text(r.value("AssetNo"))}});
    return out;
}

std::vector<ListRow> pickerRows(core::Db& db, const QString& type, qint64 personId) {
    const QString second = type == "Monitor" ? "Size" : "Location";
    auto rowsOf = [&](const std::vector<QSqlRecord>& records) {
        std::vector<ListRow> out;
        for (const auto& r : records)
            out.push_back({Db::toId(r.value("peripheral_ID")),
                           {Db::text(r.value("Manufacturer")).trimmed(), Db::text(r.value("Model")),
                            Db::text(r.value(second)), Db::text(r.value("AssetNo"))}});
        return out;
    };
    if (personId > 0) {
        auto own = rowsOf(db.rows(
            "SELECT Peripherals.peripheral_ID, Peripherals.Manufacturer, Peripherals.Model, "
            "Peripherals.Location, Peripherals.Size, Peripherals.AssetNo FROM Peripherals "
            "INNER JOIN Computers ON Computers.Computer_ID = Peripherals.computer_id "
            "WHERE Peripherals.Type = ? AND Computers.person_id = ? AND "
            "Peripherals.BlnDeleted <> 1 ORDER BY Peripherals.Manufacturer, Peripherals.Model",
            {type, personId}));
        if (!own.empty()) return own;
    }
    return rowsOf(db.rows("SELECT peripheral_ID, Manufacturer, Model, Location, Size, AssetNo "
                          "FROM Peripherals WHERE Type = ? AND BlnDeleted <> 1 "
                          "ORDER BY Manufacturer, Model, Location",
                          {type}));
}

std::vector<ListRow> computerNames(core::Db& db) {
    std::vector<ListRow> out;
    for (const auto& r : db.rows("SELECT Computer_ID, ComputerName FROM Computers "
                                 "ORDER BY ComputerName, Computer_ID"))
        out.push_back({Db::toId(r.value("Computer_ID")), {Db::text(r.value("ComputerName"))}});
    return out;
}

QStringList peripheralTypes(core::Db& db) {
    QStringList out;
    for (const auto& r : db.rows("SELECT Type FROM PeripheralType ORDER BY Type"))
        out << Db::text(r.value(0));
    return out;
}

} // namespace assets
