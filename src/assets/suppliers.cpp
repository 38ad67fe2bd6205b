#include "suppliers.h"

namespace assets {

using core::Db;

std::vector<SupplierEntry> supplierEntries(core::Db& db) {
    std::vector<SupplierEntry> out;
    for (const auto& r : db.rows("SELECT Supplier_ID, Name, address1, address2, address3, pcode, "
                                 "phone FROM Supplier ORDER BY Name, Supplier_ID"))
        out.push_back({Db::toId(r.value("Supplier_ID")), Db::text(r.value("Name")),
                       Db::text(r.value("address1")), Db::text(r.value("address2")),
                       Db::text(r.value("address3")), Db::text(r.value("pcode")),
                       Db::text(r.value("phone"))});
    return out;
}

} // namespace assets
