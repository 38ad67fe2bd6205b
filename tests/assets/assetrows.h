#pragma once

#include "db.h"

#include <QString>
#include <QVariant>

// Rows the asset tests build on.
namespace assetrows {

inline qint64 addSoftware(core::Db& db, const QString& product, const QVariant& licenses,
                          const QVariant& used = 0) {
    return db.insert("Software", "Software_ID",
                     {{"Manufacturer", "Microsoft"},
                      {"Product", product},
                      {"Version", "2021"},
                      {"Licenses", licenses},
                      {"licensesused", used}});
}

inline qint64 addComputer(core::Db& db, const QString& name, const QVariant& person = {}) {
    return db.insert(
        "Computers", "Computer_ID",
        {{"ComputerName", name},
         {"AssetNumber", "A-" + name},
         {"person_id", person.isValid() ? person : QVariant(QMetaType::fromType<qint64>())}});
}

inline qint64 addPerson(core::Db& db, const QString& surname, const QString& firstnames) {
    return db.insert("Person", "Person_ID", {{"surname", surname}, {"firstnames", firstnames}});
}

inline qint64 addSupplier(core::Db& db, const QString& name) {
    return db.insert(
        "Supplier", "Supplier_ID",
        {{"Name", name}, {"address1", "1 High St"}, {"pcode", "LS1 1AA"}, {"phone", "0113 000"}});
}

inline QVariant used(core::Db& db, qint64 softwareId) {
    return db.scalar("SELECT licensesused FROM Software WHERE Software_ID = ?", {softwareId});
}

inline int count(core::Db& db, const QString& table) {
    return db.scalar(QStringLiteral("SELECT COUNT(*) FROM %1").arg(table)).toInt();
}

} // namespace assetrows
