#include "callassets.h"

#include "invoices.h"
#include "regional.h"

namespace helpdesk {

using core::Db;

namespace {

QString trimmed(const QSqlRecord& r, const char* column) {
    return Db::text(r.value(column)).trimmed();
}

// Both kinds of asset are read under the same column names.
std::optional<AssetDetails> assetDetails(core::Db& db, const QString& sql, qint64 id) {
    const auto r = db.row(sql, {id});
    if (!r) return std::nullopt;
    return AssetDetails{trimmed(*r, "Manufacturer"), trimmed(*r, "Model"), trimmed(*r, "AssetNo"),
                        trimmed(*r, "SerialNo"),
                        // "" without an end, which each page shows its way.
                        core::formatDate(assets::warrantyEnd(r->value("InvoiceDate"),
                                                             Db::text(r->value("Months")))),
                        trimmed(*r, "ContactNo"), trimmed(*r, "InvoiceNumber"),
                        trimmed(*r, "WarrantyRef")};
}

} // namespace

std::optional<AssetDetails> computerDetails(core::Db& db, qint64 computerId) {
    return assetDetails(db,
                        "SELECT c.Manufacturer, c.Model, c.SerialNumber AS SerialNo, "
                        "c.AssetNumber AS AssetNo, c.WarrantyLength AS Months, c.WarrantyRef, "
                        "c.wcontactno AS ContactNo, i.InvoiceDate, i.InvoiceNumber "
                        "FROM Computers c LEFT JOIN Invoices i ON c.Invoice_ID = i.Invoice_ID "
                        "WHERE c.Computer_ID = ?",
                        computerId);
}

std::optional<AssetDetails> peripheralDetails(core::Db& db, qint64 peripheralId) {
    return assetDetails(db,
                        "SELECT p.Manufacturer, p.Model, p.SerialNo, p.AssetNo, "
                        "p.warrantyl AS Months, p.warrantycon AS ContactNo, p.WarrantyRef, "
                        "i.InvoiceDate, i.InvoiceNumber "
                        "FROM Peripherals p LEFT JOIN Invoices i ON p.Invoice_ID = i.Invoice_ID "
                        "WHERE p.peripheral_ID = ?",
                        peripheralId);
}

QStringList computerSoftware(core::Db& db, qint64 computerId) {
    QStringList out;
    for (const auto& r : db.rows("SELECT s.Manufacturer, s.Product, s.Version "
                                 "FROM ComputerSoftware cs "
                                 "INNER JOIN Software s ON cs.Software_ID = s.Software_ID "
                                 "WHERE cs.computer_id = ? "
                                 "ORDER BY s.Manufacturer, s.Product, s.Version, "
                                 "cs.ComputerSoftware_ID",
                                 {computerId}))
        out << QStringLiteral("%1 %2 %3")
                   .arg(trimmed(r, "Manufacturer"), trimmed(r, "Product"), trimmed(r, "Version"));
    return out;
}

QString knownOrNot(const QString& text) {
    return text.trimmed().isEmpty() ? QStringLiteral("Not Known") : text;
}

QString problemAbout(const QString& softwareRow) {
    return softwareRow + QStringLiteral("- ");
}

int softwareRowOf(const QStringList& rows, const QString& problem) {
    const QString first = problem.section('-', 0, 0).trimmed();
    if (first.isEmpty()) return -1;
    for (int i = 0; i < rows.size(); ++i)
        if (rows[i].trimmed() == first) return i;
    return -1;
}

FaultPick faultPick(const QString& faultType) {
    const QString t = faultType.trimmed();
    if (t == QLatin1String("Computer/Software")) return FaultPick::Computer;
    if (t == QLatin1String("Printer")) return FaultPick::Printer;
    if (t == QLatin1String("Scanner")) return FaultPick::Scanner;
    if (t == QLatin1String("Monitor")) return FaultPick::Monitor;
    return FaultPick::Other;
}

bool opensOnComputerPage(const QString& faultType) {
    return faultPick(faultType) == FaultPick::Computer;
}

} // namespace helpdesk
