#pragma once

#include "db.h"

#include <QString>
#include <vector>

namespace assets {

// A supplier as the asset screens offer it: its name in the drop-down, its address on the
// labels beside it.
struct SupplierEntry {
    qint64 id = 0;
    QString name;
    QString address1;
    QString address2;
    QString address3;
    QString pcode;
    QString phone;
};

// Every supplier by name.
std::vector<SupplierEntry> supplierEntries(core::Db& db);

} // namespace assets
