#include "supplier_record.h"

using core::Db;

namespace suppliers {

namespace {

core::Fields supplierFields(const SupplierText& s) {
    return {{"Name", s.name},         {"address1", s.address1}, {"address2", s.address2},
            {"address3", s.address3}, {"pcode", s.pcode},       {"phone", s.phone},
            {"contact", s.contact},   {"fax", s.fax},           {"email", s.email}};
}

core::Fields officeFields(const OfficeText& o) {
    return {{"address1", o.address1}, {"address2", o.address2}, {"address3", o.town},
            {"pcode", o.pcode},       {"fax", o.fax},           {"phone", o.phone},
            {"contact", o.contact},   {"email", o.email}};
}

Entries entries(core::Db& db, const QString& sql, const core::Params& params = {}) {
    Entries out;
    QSqlQuery q = db.query(sql, params);
    while (q.next())
        out.push_back({Db::toId(q.value(0)), Db::text(q.value(1)).trimmed()});
    return out;
}

} // namespace

QString checkSupplier(const SupplierText& s) {
    return s.name.trimmed().isEmpty() ? QStringLiteral("Please enter a supplier name") : QString();
}

qint64 insertSupplier(core::Db& db, const SupplierText& s) {
    return db.insert("Supplier", "Supplier_ID", supplierFields(s));
}

void updateSupplier(core::Db& db, qint64 supplierId, const SupplierText& s,
                    const core::LoadedRow& loaded) {
    core::updateLoaded(db, loaded, "Supplier", "Supplier_ID", supplierId, supplierFields(s));
}

core::LoadedRow loadedSupplierRow(core::Db& db, qint64 supplierId) {
    return core::LoadedRow::read(db, "Supplier", "Supplier_ID", supplierId);
}

std::optional<SupplierText> loadSupplier(core::Db& db, qint64 supplierId) {
    const auto r = db.row("SELECT Name, address1, address2, address3, pcode, phone, contact, email,"
                          " fax FROM Supplier WHERE Supplier_ID = ?",
                          {supplierId});
    if (!r) return std::nullopt;
    SupplierText s;
    QString* boxes[] = {&s.name,  &s.address1, &s.address2, &s.address3, &s.pcode,
                        &s.phone, &s.contact,  &s.email,    &s.fax};
    for (int i = 0; i < 9; ++i)
        *boxes[i] = Db::text(r->value(i)).trimmed();
    return s;
}

void checknumber(core::Db& db, AssetTable table, qint64 supplierId) {
    static const char* const names[] = {"Computers", "Software", "Peripherals"};
    db.exec(QString("UPDATE %1 SET supplier_id = NULL WHERE supplier_id = ?")
                .arg(QLatin1String(names[int(table)])),
            {supplierId});
}

void deleteSupplier(core::Db& db, qint64 supplierId) {
    core::Transaction t(db);
    for (AssetTable table : {AssetTable::Computers, AssetTable::Software, AssetTable::Peripherals})
        checknumber(db, table, supplierId);
    db.exec("DELETE FROM supplierservices WHERE supplier_id = ?", {supplierId});
    db.exec("DELETE FROM supplieroffice WHERE supplier_id = ?", {supplierId});
    db.remove("Supplier", "Supplier_ID", supplierId);
    t.commit();
}

Entries allServices(core::Db& db) {
    return entries(db, "SELECT service_id, service FROM services ORDER BY service_id");
}

QString checkNewService(const QString& name) {
    return name.trimmed().isEmpty()
               ? QStringLiteral("Please enter a new service or press cancel to exit")
               : QString();
}

qint64 addService(core::Db& db, const QString& name) {
    return db.insert("services", "service_id", {{"service", name}});
}

bool deleteService(core::Db& db, qint64 serviceId) {
    if (db.scalar("SELECT COUNT(*) FROM supplierservices WHERE Services_ID = ?", {serviceId})
            .toLongLong() > 0)
        return false;
    try {
        db.remove("services", "service_id", serviceId);
    } catch (const core::DbError& e) {
        // A supplier given the service since the count above.
        if (e.kind() == core::DbErrorKind::Constraint) return false;
        throw;
    }
    return true;
}

QString serviceInUseMessage() {
    return QStringLiteral(
        "You cannot delete a service while a supplier is listed as providing that service.");
}

Entries supplierServices(core::Db& db, qint64 supplierId) {
    return entries(db,
                   "SELECT services.service_id, services.service FROM supplierservices"
                   " INNER JOIN services ON supplierservices.Services_ID = services.service_id"
                   " WHERE supplierservices.supplier_id = ? ORDER BY supplierservices_id",
                   {supplierId});
}

bool addSupplierServices(core::Db& db, qint64 supplierId, const std::vector<qint64>& serviceIds) {
    for (const qint64 service : serviceIds) {
        if (db.scalar("SELECT COUNT(*) FROM supplierservices WHERE supplier_id = ?"
                      " AND Services_ID = ?",
                      {supplierId, service})
                .toLongLong() > 0)
            return false;
        db.insert("supplierservices", "supplierservices_id",
                  {{"supplier_id", supplierId}, {"Services_ID", service}});
    }
    return true;
}

QString duplicateServiceMessage() {
    return QStringLiteral("That service has already been selected for this supplier");
}

void removeSupplierService(core::Db& db, qint64 supplierId, qint64 serviceId) {
    db.exec("DELETE FROM supplierservices WHERE Services_ID = ? AND supplier_id = ?",
            {serviceId, supplierId});
}

QString detailsFirstMessage() {
    return QStringLiteral("Please enter the supplier details before adding extra offices");
}

QString checkOffice(const OfficeText& o) {
    return o.town.trimmed().isEmpty()
               ? QStringLiteral("You must enter a town or city in the relevant box")
               : QString();
}

std::vector<OfficeRow> supplierOffices(core::Db& db, qint64 supplierId) {
    std::vector<OfficeRow> out;
    QSqlQuery q = db.query("SELECT supplieroffice_id, address3, phone FROM supplieroffice"
                           " WHERE supplier_id = ? ORDER BY supplieroffice_id",
                           {supplierId});
    while (q.next())
        out.push_back(
            {Db::toId(q.value(0)), Db::text(q.value(1)).trimmed(), Db::text(q.value(2)).trimmed()});
    return out;
}

qint64 addOffice(core::Db& db, qint64 supplierId, const OfficeText& o) {
    core::Fields fields = officeFields(o);
    fields.insert(fields.begin(), {"supplier_id", supplierId});
    return db.insert("supplieroffice", "supplieroffice_id", fields);
}

void updateOffice(core::Db& db, qint64 officeId, const OfficeText& o,
                  const core::LoadedRow& loaded) {
    core::updateLoaded(db, loaded, "supplieroffice", "supplieroffice_id", officeId,
                       officeFields(o));
}

core::LoadedRow loadedOfficeRow(core::Db& db, qint64 officeId) {
    return core::LoadedRow::read(db, "supplieroffice", "supplieroffice_id", officeId);
}

std::optional<OfficeText> loadOffice(core::Db& db, qint64 officeId) {
    const auto r = db.row("SELECT address3, address1, address2, pcode, phone, contact, email, fax"
                          " FROM supplieroffice WHERE supplieroffice_id = ?",
                          {officeId});
    if (!r) return std::nullopt;
    OfficeText o;
    QString* boxes[] = {&o.town,  &o.address1, &o.address2, &o.pcode,
                        &o.phone, &o.contact,  &o.email,    &o.fax};
    for (int i = 0; i < 8; ++i)
        *boxes[i] = Db::text(r->value(i)).trimmed();
    return o;
}

void deleteOffice(core::Db& db, qint64 officeId) {
    db.remove("supplieroffice", "supplieroffice_id", officeId);
}

QString branchCaption(const QString& town) {
    return town.trimmed() + " Branch";
}

QString deleteOfficeQuestion(const QString& town) {
    return "Are you sure you want to delete the " + town.trimmed() + " Branch";
}

} // namespace suppliers
