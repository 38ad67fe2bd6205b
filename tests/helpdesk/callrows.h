#pragma once

#include "calls.h"
#include "db.h"
#include "invoices.h"
#include "regional.h"

#include <QDate>
#include <QString>
#include <QVariant>

// Rows the helpdesk tests build on.
namespace callrows {

inline const QDateTime Now(QDate(2024, 3, 11), QTime(10, 15, 30));

inline qint64 addPerson(core::Db& db, const QString& surname, const QString& firstnames,
                        const QString& ext = {}, int deleted = 0) {
    return db.insert("Person", "Person_ID",
                     {{"surname", surname},
                      {"firstnames", firstnames},
                      {"extno", ext},
                      {"blndeleted", deleted}});
}

// An invoice dated `invoiceDate`, or none (NULL) when the date is invalid.
inline QVariant addInvoice(core::Db& db, const QDate& invoiceDate, const QString& number) {
    return assets::keyOrNull(
        invoiceDate.isValid() ? db.insert("Invoices", "Invoice_ID",
                                          {{"InvoiceDate", invoiceDate}, {"InvoiceNumber", number}})
                              : 0);
}

inline qint64 addComputer(core::Db& db, const QString& name, qint64 person,
                          const QDate& invoiceDate = {}, const QString& months = "12") {
    return db.insert("Computers", "Computer_ID",
                     {{"ComputerName", name},
                      {"Manufacturer", "Dell"},
                      {"Model", "OptiPlex " + name},
                      {"SerialNumber", "SN-" + name},
                      {"AssetNumber", "A-" + name},
                      {"WarrantyLength", months},
                      {"WarrantyRef", "WR-" + name},
                      {"wcontactno", "0800 " + name},
                      {"Invoice_ID", addInvoice(db, invoiceDate, "INV-" + name)},
                      {"person_id", assets::keyOrNull(person)}});
}

inline qint64 addPeripheral(core::Db& db, const QString& type, const QString& model,
                            qint64 computer, const QDate& invoiceDate = {}) {
    return db.insert("Peripherals", "peripheral_ID",
                     {{"Type", type},
                      {"Manufacturer", "HP"},
                      {"Model", model},
                      {"SerialNo", "S-" + model},
                      {"AssetNo", "P-" + model},
                      {"warrantyl", 24},
                      {"warrantycon", "0800 HP"},
                      {"Invoice_ID", addInvoice(db, invoiceDate, "PI-" + model)},
                      {"computer_id", assets::keyOrNull(computer)},
                      {"BlnDeleted", 0}});
}

inline helpdesk::CallText call(qint64 person, const QString& status = "Open",
                               const QString& problem = "Outlook will not open") {
    helpdesk::CallText c;
    c.personId = person;
    c.faultType = "Computer/Software ";
    c.dateLogged = core::formatDate(Now.date());
    c.dateRequired = core::formatDate(Now.date().addDays(3));
    c.description = problem;
    c.status = status;
    return c;
}

// The call's history as "status/action", newest first.
inline QStringList history(core::Db& db, qint64 callId) {
    QStringList out;
    for (const auto& h : helpdesk::callHistory(db, callId))
        out << h.status + "/" + h.action;
    return out;
}

inline QVariant column(core::Db& db, qint64 callId, const QString& name) {
    return db.scalar(QStringLiteral("SELECT %1 FROM HelpdeskCalls WHERE Call_ID = ?").arg(name),
                     {callId});
}

} // namespace callrows
