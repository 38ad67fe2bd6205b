#include "demo_generator.h"

// Suppliers, and the telephone directory's contacts.

namespace admin::demo {

void Generator::suppliers() {
    Batch supplier(db_, summary_, "Supplier",
                   {"Supplier_ID", "Name", "address1", "address2", "address3", "pcode", "phone",
                    "contact", "fax", "email"});
    Batch offered(db_, summary_, "supplierservices",
                  {"supplierservices_id", "supplier_id", "Services_ID"}, &supplier);
    Batch office(db_, summary_, "supplieroffice",
                 {"supplieroffice_id", "supplier_id", "address1", "address2", "address3", "pcode",
                  "fax", "phone", "contact", "email"},
                 &supplier);
    qint64 id = firstFreeKey(db_, "Supplier", "Supplier_ID");
    qint64 offeredId = firstFreeKey(db_, "supplierservices", "supplierservices_id");
    qint64 officeId = firstFreeKey(db_, "supplieroffice", "supplieroffice_id");

    const int extra = employees_ / 1000;
    for (int i = 0; i < static_cast<int>(SupplierList.size()) + extra; ++i) {
        QString name;
        int town;
        std::vector<QString> offers;
        if (i < static_cast<int>(SupplierList.size())) {
            const Supplied& s = SupplierList[i];
            name = QLatin1String(s.name);
            town = s.town;
            for (const char* service : s.services)
                if (service) offers.emplace_back(QLatin1String(service));
        } else {
            const char* trade = rnd_.pick(Trades);
            town = rnd_.below(static_cast<int>(Towns.size()));
            name = QStringLiteral("%1 & Sons %2").arg(surname(), QLatin1String(trade));
            offers.emplace_back(QLatin1String(trade) == QLatin1String("Office Supplies")
                                    ? QStringLiteral("Stationery")
                                : QLatin1String(trade) == QLatin1String("Computer Services")
                                    ? QStringLiteral("Computer Hardware")
                                    : QLatin1String(trade));
        }
        const QString contactName = personName();
        const QString domain = domainOf(name);
        supplier.add({id, name, street(), locality(town), QLatin1String(Towns[town].name),
                      postcode(town), phone(town), contactName, phone(town),
                      QStringLiteral("sales@") + domain});
        for (const QString& service : offers) {
            const auto found = services_.find(service);
            if (found == services_.end()) continue;
            offered.add({offeredId++, id, found->second});
            if (service == QLatin1String("Computer Hardware")) hardwareSuppliers_.push_back(id);
            if (service == QLatin1String("Software")) softwareSuppliers_.push_back(id);
            if (service == QLatin1String("Printers and Consumables"))
                printerSuppliers_.push_back(id);
        }
        for (int n = rnd_.weighted({5, 3, 2, 1}); n > 0; --n) {
            const int branch = rnd_.below(static_cast<int>(Towns.size()));
            const QString manager = personName();
            office.add({officeId++, id, street(), locality(branch),
                        QLatin1String(Towns[branch].name), postcode(branch), phone(branch),
                        phone(branch), manager, email(manager, domain)});
        }
        ++id;
    }
    // Assets always have somewhere to come from, whatever the installation's services.
    const qint64 first = id - static_cast<qint64>(SupplierList.size()) - extra;
    if (hardwareSuppliers_.empty()) hardwareSuppliers_.push_back(first);
    if (softwareSuppliers_.empty()) softwareSuppliers_.push_back(first);
    if (printerSuppliers_.empty()) printerSuppliers_.push_back(first);
    supplier.finish();
    offered.finish();
    office.finish();
}

void Generator::contacts() {
    Batch contact(db_, summary_, "contact",
                  {"contact_id", "contact_type", "firstname", "surname", "company", "contactname",
                   "email", "fax", "phone"});
    qint64 id = firstFreeKey(db_, "contact", "contact_id");
    static const std::array<const char*, 10> firms{
        "Harrogate Accountancy LLP", "Lindley Solicitors",   "Castle Bank plc",
        "Northern Auditors LLP",     "Brookfield Surveyors", "City Council Planning",
        "Yorkshire Water",           "Parcelforce Depot",    "Aspect Health Clinic",
        "Beacon Marketing"};
    for (int n = 30 + employees_ / 50; n > 0; --n) {
        const bool male = rnd_.percent(50);
        const QString first = firstName(male);
        const QString last = surname();
        const QString firm = QLatin1String(rnd_.pick(firms));
        const int town = rnd_.below(static_cast<int>(Towns.size()));
        contact.add({id++, QStringLiteral("Person"), first, last, firm, QString(""),
                     email(first + ' ' + last, domainOf(firm)),
                     rnd_.percent(30) ? phone(town) : QString(""),
                     rnd_.percent(50) ? phone(town) : mobile()});
    }
    // The firms themselves, each with the person to ask for there, as the directory's
    // "Add Company" keeps them.
    for (const char* name : firms) {
        const QString firm = QLatin1String(name);
        const QString person = personName();
        const int town = rnd_.below(static_cast<int>(Towns.size()));
        contact.add({id++, QStringLiteral("Company"), QString(""), QString(""), firm, person,
                     email(person, domainOf(firm)), phone(town), phone(town)});
    }
    contact.finish();
}

} // namespace admin::demo
