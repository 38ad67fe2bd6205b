#pragma once

#include "db.h"
#include "invoices.h"
#include "software.h"

#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

// The computer register: one computer with its owner, invoice, software and peripherals.
namespace assets {

// A computer as its screen holds it, texts as typed.
struct ComputerText {
    QString manufacturer;
    QString model;
    QString serialNumber;
    QString assetNumber;
    QString computerName;
    QString ram;
    QString hardDrive;
    QString warrantyLength;
    QString warrantyRef;
    QString contactNo;
    QString notes;
    InvoiceText invoice;
    qint64 supplierId = 0; // 0: none picked, the stored one stays
    qint64 personId = 0;   // the owner picked in "User"; 0: no owner
};

// What OK finds wrong, in the order it looks: the message, the page to show (3 "Warranty/Notes",
// 4 "Invoice", 0 "General") and the field to put the focus in. An empty message: nothing.
struct ComputerProblem {
    enum Field { None, WarrantyLength, InvoiceDate, Price, ComputerName };
    QString message;
    int page = 0;
    Field field = None;
};
ComputerProblem checkComputer(const ComputerText& computer, bool isNew);

// "{person_id} - {Surname}, {FirstNames}" of everyone not deleted, by surname.
std::vector<ListRow> userEntries(core::Db& db);

// A peripheral of the computer's list: Type, Model, Manufacturer, Serial No, Asset No.
struct ComputerPeripheral {
    qint64 id = 0; // 0 until stored
    QStringList cells;
};

struct ComputerRecord {
    ComputerText text;
    qint64 invoiceId = 0;
    QString userText; // the owner as "User" shows them, "" for none
    std::vector<ListRow> software;
    std::vector<ComputerPeripheral> peripherals;
    LoadedAsset loaded; // the rows as read, for the save to check
};
std::optional<ComputerRecord> loadComputer(core::Db& db, qint64 computerId);
// The software list rows of a computer: Manufacturer, Product, "{Version} ", "1".
std::vector<ListRow> computerSoftwareRows(core::Db& db, qint64 computerId);

// The computer's row and invoice as its screen loads them, for the save to check.
LoadedAsset loadedComputer(core::Db& db, qint64 computerId);

// Writes a computer (computerId 0 for a new one) with its invoice, and stores the peripherals
// that have no key yet, giving each its key, all in one transaction. Returns the computer's key
// and sets invoiceId to the invoice it now has. With `loaded`, an existing computer is first
// checked against it (core::RowChanged, nothing written, when another user has changed or
// deleted the computer or its invoice since), and once written it holds the rows as saved.
qint64 saveComputer(core::Db& db, qint64 computerId, qint64& invoiceId,
                    const ComputerText& computer, std::vector<ComputerPeripheral>& peripherals,
                    LoadedAsset* loaded = nullptr);

// Why a peripheral cannot be deleted from the computer screen ("" when it can): printers,
// scanners and monitors have screens of their own.
QString peripheralDeleteRefusal(const QString& type);

// Takes back a new computer given up before it was confirmed: its software (the licence
// counts restored), the peripherals entered with it, its invoice and the computer itself.
void discardComputer(core::Db& db, qint64 computerId);

// computerList: Asset No, Name, "{Manufacturer} {Model}", "{surname}, {firstnames}" of the
// person's computers (personId 0 or none: every computer), by asset number.
std::vector<ListRow> computerListRows(core::Db& db, qint64 personId);
// frmCompSrch: Name, then manufacturer under "Model" and model under "Manufacturer", serial
// and asset numbers and the user, by name.
std::vector<ListRow> computerSearchRows(core::Db& db);

} // namespace assets
