#include "computers.h"

#include "licences.h"
#include "regional.h"
#include "session.h"

namespace assets {

using core::Db;

ComputerProblem checkComputer(const ComputerText& c, bool isNew) {
    using P = ComputerProblem;
    const bool lengthBlank = c.warrantyLength.trimmed().isEmpty();
    const bool lengthNumber = wholeNumber(c.warrantyLength).has_value();
    if (lengthNumber && !core::isDate(c.invoice.date))
        return {QStringLiteral("Please enter invoice date"), 4, P::InvoiceDate};
    if (!lengthNumber && !lengthBlank)
        return {QStringLiteral("Please enter the number of months warranty."), 3,
                P::WarrantyLength};
    if (const QString refusal =
            priceRefusal(QStringLiteral("Price"), c.invoice.price,
                         QStringLiteral("Please enter a number only in the price field"));
        !refusal.isEmpty())
        return {refusal, 4, P::Price};
    if (isNew && c.computerName.trimmed().isEmpty())
        return {QStringLiteral("Please enter a computer name"), 0, P::ComputerName};
    if (!c.invoice.date.trimmed().isEmpty() && !core::isDate(c.invoice.date))
        return {
            QStringLiteral("Please enter the date in the format %1")
                .arg(core::regional::isUS(core::session().language) ? "MM/DD/YYYY" : "DD/MM/YYYY"),
            4, P::InvoiceDate};
    return {};
}

namespace {
QString userText(const QSqlRecord& r) {
    return QStringLiteral("%1 - %2, %3")
        .arg(Db::text(r.value("person_id")), Db::text(r.value("Surname")),
             Db::text(r.value("FirstNames")))
        .trimmed();
}

QString personName(const QSqlRecord& r) {
    if (r.value("person_id").isNull()) return {};
    return QStringLiteral("%1, %2").arg(Db::text(r.value("Surname")),
                                        Db::text(r.value("FirstNames")));
}
} // namespace

std::vector<ListRow> userEntries(core::Db& db) {
    std::vector<ListRow> out;
    for (const auto& r : db.rows("SELECT Person_ID AS person_id, Surname, FirstNames FROM Person "
                                 "WHERE blndeleted <> 1 ORDER BY Surname, Person_ID"))
        out.push_back({Db::toId(r.value("person_id")), {userText(r)}});
    return out;
}

std::vector<ListRow> computerSoftwareRows(core::Db& db, qint64 computerId) {
    std::vector<ListRow> out;
    for (const auto& r : db.rows("SELECT Software.Software_ID, Software.Manufacturer, "
                                 "Software.Product, Software.Version FROM ComputerSoftware "
                                 "INNER JOIN Software ON ComputerSoftware.Software_ID = "
                                 "Software.Software_ID WHERE ComputerSoftware.computer_id = ? "
                                 "ORDER BY ComputerSoftware.ComputerSoftware_ID",
                                 {computerId}))
        out.push_back({Db::toId(r.value("Software_ID")),
                       {Db::text(r.value("Manufacturer")), Db::text(r.value("Product")),
                        Db::text(r.value("Version")) + " ", "1"}});
    return out;
}

std::optional<ComputerRecord> loadComputer(core::Db& db, qint64 computerId) {
    // Taken before the values: a change in between refuses the save.
    LoadedAsset loaded = loadedComputer(db, computerId);
    const auto r = db.row("SELECT Computers.*, Person.Surname, Person.FirstNames, "
                          "Person.Person_ID AS owner FROM Computers LEFT JOIN Person "
                          "ON Computers.person_id = Person.Person_ID "
                          "WHERE Computers.Computer_ID = ?",
                          {computerId});
    if (!r) return std::nullopt;
    ComputerRecord out;
    out.loaded = std::move(loaded);
    auto& t = out.text;
    auto text = [&](const char* column) { return Db::text(r->value(column)).trimmed(); };
    t.manufacturer = text("Manufacturer");
    t.model = text("Model");
    t.serialNumber = text("SerialNumber");
    t.assetNumber = text("AssetNumber");
    t.computerName = text("ComputerName");
    t.ram = text("Ram");
    t.hardDrive = text("HardDrive");
    t.warrantyLength = text("WarrantyLength");
    t.warrantyRef = text("WarrantyRef");
    t.contactNo = text("wcontactno");
    t.notes = Db::text(r->value("notes"));
    t.supplierId = keyOrZero(r->value("supplier_id"));
    t.personId = keyOrZero(r->value("owner"));
    if (t.personId > 0)
        out.userText = QStringLiteral("%1 - %2, %3")
                           .arg(t.personId)
                           .arg(text("Surname"), text("FirstNames"))
                           .trimmed();
    out.invoiceId = keyOrZero(r->value("Invoice_ID"));
    if (out.invoiceId > 0) {
        if (const auto invoice = loadInvoice(db, out.invoiceId)) t.invoice = *invoice;
    }
    out.software = computerSoftwareRows(db, computerId);
    for (const auto& p : db.rows("SELECT peripheral_ID, Type, Model, Manufacturer, SerialNo, "
                                 "AssetNo FROM Peripherals WHERE BlnDeleted <> 1 AND "
                                 "computer_id = ? ORDER BY Type, peripheral_ID",
                                 {computerId}))
        out.peripherals.push_back({Db::toId(p.value("peripheral_ID")),
                                   {Db::text(p.value("Type")), Db::text(p.value("Model")),
                                    Db::text(p.value("Manufacturer")),
                                    Db::text(p.value("SerialNo")), Db::text(p.value("AssetNo"))}});
    return out;
}

LoadedAsset loadedComputer(core::Db& db, qint64 computerId) {
    return loadedAsset(db, "Computers", "Computer_ID", computerId);
}

qint64 saveComputer(core::Db& db, qint64 computerId, qint64& invoiceId, const ComputerText& c,
                    std::vector<ComputerPeripheral>& peripherals, LoadedAsset* loaded) {
    core::Transaction tx(db);
    if (loaded && computerId > 0) loaded->verify(db);
    const qint64 invoice = saveInvoice(db, invoiceId, c.invoice);
    core::Fields fields{{"Manufacturer", stored(c.manufacturer)},
                        {"Model", stored(c.model)},
                        {"SerialNumber", stored(c.serialNumber)},
                        {"AssetNumber", stored(c.assetNumber)},
                        {"ComputerName", stored(c.computerName).toUpper()},
                        {"Ram", stored(c.ram)},
                        {"HardDrive", stored(c.hardDrive)},
                        {"WarrantyLength", stored(c.warrantyLength)},
                        {"WarrantyRef", stored(c.warrantyRef)},
                        {"wcontactno", stored(c.contactNo)},
                        {"notes", c.notes.isNull() ? QStringLiteral("") : c.notes},
                        {"person_id", keyOrNull(c.personId)}};
    if (invoice > 0) fields.push_back({"Invoice_ID", invoice});
    if (c.supplierId > 0) fields.push_back({"supplier_id", c.supplierId});
    qint64 id = computerId;
    if (!(computerId > 0 && db.update("Computers", "Computer_ID", computerId, fields) > 0))
        id = db.insert("Computers", "Computer_ID", fields);
    std::vector<qint64> keys;
    for (const auto& p : peripherals) {
        if (p.id > 0) {
            keys.push_back(p.id);
            continue;
        }
        keys.push_back(db.insert("Peripherals", "peripheral_ID",
                                 {{"Type", stored(p.cells.value(0))},
                                  {"Model", stored(p.cells.value(1))},
                                  {"Manufacturer", stored(p.cells.value(2))},
                                  {"SerialNo", stored(p.cells.value(3))},
                                  {"AssetNo", stored(p.cells.value(4))},
                                  {"computer_id", id},
                                  {"BlnDeleted", 0}}));
    }
    LoadedAsset written;
    if (loaded) written = loadedComputer(db, id);
    tx.commit();
    // Only once the rows are there for good do they carry their keys.
    for (size_t i = 0; i < peripherals.size(); ++i)
        peripherals[i].id = keys[i];
    invoiceId = invoice;
    if (loaded) *loaded = written;
    return id;
}

QString peripheralDeleteRefusal(const QString& type) {
    if (type == "Printer")
        return QStringLiteral(
            "You cannot delete a printer from here. You need to goto Assets, Printers, Delete");
    if (type == "Scanner")
        return QStringLiteral(
            "You cannot delete a scanner from here. You need to goto Assets, Scanners, Delete");
    if (type == "Monitor")
        return QStringLiteral(
            "You cannot delete a monitor from here. You need to goto Assets, Monitors, Delete");
    return {};
}

void discardComputer(core::Db& db, qint64 computerId) {
    core::Transaction tx(db);
    removeAllSoftware(db, computerId);
    // Printers, scanners and monitors have rows of their own that were only pointed here.
    db.exec("DELETE FROM Peripherals WHERE computer_id = ? AND Type NOT IN "
            "('Printer', 'Scanner', 'Monitor')",
            {computerId});
    db.exec("UPDATE Peripherals SET computer_id = NULL WHERE computer_id = ?", {computerId});
    const qint64 invoice = keyOrZero(
        db.scalar("SELECT Invoice_ID FROM Computers WHERE Computer_ID = ?", {computerId}));
    db.remove("Computers", "Computer_ID", computerId);
    if (invoice > 0) db.remove("Invoices", "Invoice_ID", invoice);
    tx.commit();
}

std::vector<ListRow> computerListRows(core::Db& db, qint64 personId) {
    const QString select =
        "SELECT Computers.Computer_ID, Computers.Manufacturer, Computers.Model, "
        "Computers.AssetNumber, Computers.ComputerName, Person.Person_ID AS person_id, "
        "Person.Surname, Person.FirstNames FROM Computers LEFT JOIN Person "
        "ON Computers.person_id = Person.Person_ID ";
    auto rowsOf = [](const std::vector<QSqlRecord>& records) {
        std::vector<ListRow> out;
        for (const auto& r : records)
            out.push_back({Db::toId(r.value("Computer_ID")),
                           {Db::text(r.value("AssetNumber")), Db::text(r.value("ComputerName")),
                            QStringLiteral("%1 %2").arg(Db::text(r.value("Manufacturer")),
                                                        Db::text(r.value("Model"))),
                            personName(r)}});
        return out;
    };
    if (personId > 0) {
        auto own = rowsOf(db.rows(select + "WHERE Person.Person_ID = ? "
                                           "ORDER BY Computers.AssetNumber, Computers.Computer_ID",
                                  {personId}));
        if (!own.empty()) return own;
    }
    return rowsOf(db.rows(select + "ORDER BY Computers.AssetNumber, Computers.Computer_ID"));
}

std::vector<ListRow> computerSearchRows(core::Db& db) {
    std::vector<ListRow> out;
    for (const auto& r :
         db.rows("SELECT Computers.Computer_ID, Computers.Manufacturer, Computers.Model, "
                 "Computers.SerialNumber, Computers.AssetNumber, Computers.ComputerName, "
                 "Person.Person_ID AS person_id, Person.FirstNames, Person.Surname FROM Computers "
                 "LEFT JOIN Person ON Computers.person_id = Person.Person_ID "
                 "ORDER BY Computers.ComputerName, Computers.Computer_ID"))
        out.push_back({Db::toId(r.value("Computer_ID")),
                       {Db::text(r.value("ComputerName")), Db::text(r.value("Manufacturer")),
                        Db::text(r.value("Model")), Db::text(r.value("SerialNumber")),
                        Db::text(r.value("AssetNumber")), personName(r)}});
    return out;
}

} // namespace assets
