#pragma once

#include "db.h"

#include <QString>
#include <QStringList>
#include <optional>

// The equipment a call is about: the computer or peripheral picked for it, its warranty and
// whom to call about it, and the software on the computer.
namespace helpdesk {

// One asset as the call screen's "Computer" or "Peripherals" page shows it.
struct AssetDetails {
    QString manufacturer;
    QString model;
    QString assetNo;
    QString serialNo;
    QString warrantyExpiry; // the invoice date plus the warranty's months, "" without either
    QString contactNo;      // whom to call under the warranty
    QString invoiceNo;
    QString warrantyRef;
};

// Nullopt when there is no such computer or peripheral.
std::optional<AssetDetails> computerDetails(core::Db& db, qint64 computerId);
std::optional<AssetDetails> peripheralDetails(core::Db& db, qint64 peripheralId);

// The computer's software, "{Manufacturer} {Product} {Version}", by manufacturer, product and
// version.
QStringList computerSoftware(core::Db& db, qint64 computerId);

// What the contact box shows for a text: "Not Known" when it is blank.
QString knownOrNot(const QString& text);

// The problem a double click on a software row starts: "{row}- ".
QString problemAbout(const QString& softwareRow);
// The software row a problem was started from (its text before the first "-"), -1 for none.
int softwareRowOf(const QStringList& rows, const QString& problem);

// Which picker a fault type opens, by its trimmed text; Other opens none.
enum class FaultPick { Computer, Printer, Scanner, Monitor, Other };
FaultPick faultPick(const QString& faultType);
// Which page a stored call opens on: "Computer" for "Computer/Software", "Peripherals" for
// anything else. True for the computer page.
bool opensOnComputerPage(const QString& faultType);

} // namespace helpdesk
