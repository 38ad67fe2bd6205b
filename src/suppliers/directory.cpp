#include "directory.h"

#include "textsearch.h"

using core::Db;

namespace suppliers {

namespace {

const QString PersonType = QStringLiteral("Person");
const QString CompanyType = QStringLiteral("Company");

QString listedName(const QString& surname, const QString& firstnames) {
    return surname.trimmed() + ", " + firstnames.trimmed();
}

// Names are put in order ignoring case, as people read a directory; lists walk their query by
// position: a key stroke reads thousands of rows.
void readSuppliers(core::Db& db, const QString& sql, const core::Params& params,
                   DirectoryRows& out) {
    QSqlQuery q = db.query(sql, params);
    while (q.next())
        out.push_back({EntryKind::Supplier, Db::toId(q.value(0)), Db::text(q.value(1)).trimmed(),
                       Db::text(q.value(2)).trimmed()});
}

} // namespace

QString noMatchingEntries() {
    return QStringLiteral("No matching entries");
}

DirectoryRows findPeople(core::Db& db, const QString& surname) {
    const QString pattern = core::startsWithPattern(surname);
    DirectoryRows out;
    QSqlQuery staff = db.query("SELECT Person_ID, firstnames, surname, extno FROM Person WHERE " +
                                   core::startsWith("surname") +
                                   " AND blndeleted <> 1 AND HasLeft = 0"
                                   " ORDER BY lower(surname), lower(firstnames), Person_ID",
                               {pattern});
    while (staff.next())
        out.push_back({EntryKind::Employee, Db::toId(staff.value(0)),
                       listedName(Db::text(staff.value(2)), Db::text(staff.value(1))),
                       Db::text(staff.value(3)).trimmed()});
    // Contacts follow the employees, unmerged, as the directory has always shown them.
    QSqlQuery contacts =
        db.query("SELECT contact_id, contact_type, firstname, surname, company, phone FROM contact"
                 " WHERE (contact_type = ? AND " +
                     core::startsWith("surname") + ") OR (contact_type = ? AND " +
                     core::startsWith("company") + ") ORDER BY contact_id",
                 {PersonType, pattern, CompanyType, pattern});
    while (contacts.next()) {
        const bool company = Db::text(contacts.value(1)) == CompanyType;
        out.push_back(
            {company ? EntryKind::CompanyContact : EntryKind::Contact, Db::toId(contacts.value(0)),
             company ? Db::text(contacts.value(4)).trimmed()
                     : listedName(Db::text(contacts.value(3)), Db::text(contacts.value(2))),
             Db::text(contacts.value(5)).trimmed()});
    }
    return out;
}

DirectoryRows findSuppliers(core::Db& db, const QString& name) {
    DirectoryRows out;
    readSuppliers(db,
                  "SELECT Supplier_ID, Name, phone FROM Supplier WHERE " +
                      core::startsWith("Name") + " ORDER BY lower(Name), Supplier_ID",
                  {core::startsWithPattern(name)}, out);
    return out;
}

DirectoryRows findSuppliersByService(core::Db& db, qint64 serviceId, const QString& name) {
    DirectoryRows out;
    readSuppliers(db,
                  "SELECT Supplier.Supplier_ID, Supplier.Name, Supplier.phone FROM Supplier"
                  " INNER JOIN supplierservices ON Supplier.Supplier_ID ="
                  " supplierservices.supplier_id"
                  " WHERE supplierservices.Services_ID = ? AND " +
                      core::startsWith("Supplier.Name") +
                      " ORDER BY lower(Supplier.Name), Supplier.Supplier_ID",
                  {serviceId, core::startsWithPattern(name)}, out);
    return out;
}

std::optional<int> letterTabFor(const QString& text) {
    if (text.isEmpty()) return std::nullopt;
    const char16_t c = text.at(0).toLower().unicode();
    if (c < u'a' || c > u'z') return std::nullopt;
    return int(c - u'a');
}

QString letterTabText(const QString& caption) {
    return caption == QLatin1String("ALL") ? QString() : caption;
}

QString checkPersonContact(const PersonContact& c) {
    // The directory finds people by surname, so that is the name asked for.
    if (c.surname.trimmed().isEmpty() || c.phone.trimmed().isEmpty())
        return QStringLiteral("Please enter name and phone number");
    return {};
}

qint64 addPersonContact(core::Db& db, const PersonContact& c) {
    return db.insert("contact", "contact_id",
                     {{"contact_type", PersonType},
                      {"firstname", c.firstname},
                      {"surname", c.surname},
                      {"email", c.email},
                      {"fax", c.fax},
                      {"phone", c.phone}});
}

std::optional<PersonContact> loadPersonContact(core::Db& db, qint64 contactId) {
    const auto r = db.row("SELECT firstname, surname, phone, fax, email FROM contact"
                          " WHERE contact_id = ?",
                          {contactId});
    if (!r) return std::nullopt;
    return PersonContact{Db::text(r->value(0)), Db::text(r->value(1)), Db::text(r->value(2)),
                         Db::text(r->value(3)), Db::text(r->value(4))};
}

void updatePersonContact(core::Db& db, qint64 contactId, const PersonContact& c,
                         const core::LoadedRow& loaded) {
    core::updateLoaded(db, loaded, "contact", "contact_id", contactId,
                       {{"firstname", c.firstname},
                        {"surname", c.surname},
                        {"email", c.email},
                        {"fax", c.fax},
                        {"phone", c.phone}});
}

QString checkCompanyContact(const CompanyContact& c) {
    if (c.company.trimmed().isEmpty() || c.phone.trimmed().isEmpty())
        return QStringLiteral("Please enter the company name and phone number");
    return {};
}

qint64 addCompanyContact(core::Db& db, const CompanyContact& c) {
    return db.insert("contact", "contact_id",
                     {{"contact_type", CompanyType},
                      {"company", c.company},
                      {"contactname", c.contactname},
                      {"email", c.email},
                      {"phone", c.phone},
                      {"fax", c.fax}});
}

std::optional<CompanyContact> loadCompanyContact(core::Db& db, qint64 contactId) {
    const auto r = db.row("SELECT company, contactname, phone, email, fax FROM contact"
                          " WHERE contact_id = ?",
                          {contactId});
    if (!r) return std::nullopt;
    return CompanyContact{Db::text(r->value(0)), Db::text(r->value(1)), Db::text(r->value(2)),
                          Db::text(r->value(3)), Db::text(r->value(4))};
}

void updateCompanyContact(core::Db& db, qint64 contactId, const CompanyContact& c,
                          const core::LoadedRow& loaded) {
    core::updateLoaded(db, loaded, "contact", "contact_id", contactId,
                       {{"company", c.company},
                        {"contactname", c.contactname},
                        {"email", c.email},
                        {"phone", c.phone},
                        {"fax", c.fax}});
}

core::LoadedRow loadedContactRow(core::Db& db, qint64 contactId) {
    return core::LoadedRow::read(db, "contact", "contact_id", contactId);
}

void deleteContact(core::Db& db, qint64 contactId) {
    db.remove("contact", "contact_id", contactId);
}

QString deleteQuestion(const QString& name) {
    return "Are you sure you want to delete " + name;
}

QString employeeDeleteRefusal() {
    return QStringLiteral(
        " You cannot delete this person because he is an employee at your company");
}

QString serviceFirstOnKey() {
    return QStringLiteral("Please enter the service required before entering the company name");
}

QString serviceFirstOnChange() {
    return QStringLiteral("Please select the service required before entering the company name");
}

QString serviceFirstOnLetter() {
    return QStringLiteral("Please select the service required first.");
}

} // namespace suppliers
