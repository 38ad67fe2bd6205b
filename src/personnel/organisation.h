#pragma once

#include "db.h"
#include "loadedrow.h"

#include <QString>
#include <array>

// The organisation's own tables: companies with their contacts, and the plain lists of
// departments, locations and positions.
namespace organisation {

// The sixteen columns of a company, in the table's order, with the box that shows each.
struct CompanyField {
    const char* box;
    const char* column;
};
inline constexpr std::array<CompanyField, 16> CompanyFields{{
    {"txtCompany", "Company_Name"},
    {"txtAddress1", "address1"},
    {"txtAddress2", "address2"},
    {"txtAddress3", "address3"},
    {"txtTelNo", "Tel_NO"},
    {"txtFax", "fax"},
    {"txtMDName", "MD_Name"},
    {"txtMDPh", "MD_Phone"},
    {"txtPAName", "PA_Name"},
    {"txtPAPh", "PA_Phone"},
    {"txtComplianceName", "Compliance_name"},
    {"txtCompliancePh", "Compliance_Phone"},
    {"txtITName", "IT_Name"},
    {"txtITPh", "IT_Phone"},
    {"txtFinanceName", "Finance_Name"},
    {"txtFinancePh", "Finance_Phone"},
}};

using CompanyValues = std::array<QString, 16>;

// A NULL column reads as "": one missing value never stops the others from loading.
// Returns false when there is no such company.
bool loadCompany(core::Db& db, qint64 companyId, CompanyValues& values);
// Inserts (companyId 0) or updates the company; returns its key. Values are stored as typed.
// An update first checks, in its transaction, that the row is still as `loaded` saw it, and
// throws core::RowChanged (writing nothing) when another user has changed it since.
qint64 saveCompany(core::Db& db, qint64 companyId, const CompanyValues& values,
                   const core::LoadedRow& loaded = {});
// The company's row as the save will compare it.
core::LoadedRow loadedCompanyRow(core::Db& db, qint64 companyId);

// The three plain lists.
struct LookupList {
    const char* screen;  // frmDept, frmLocation, frmPosition
    const char* caption; // the screen's caption
    const char* label;
    const char* table;
    const char* keyColumn;
    const char* column;
    const char* emptyMessage;
    const char* ownerList; // the name the employee screen's setnew knows it by
};
extern const LookupList Departments;
extern const LookupList Locations;
extern const LookupList Positions;

// Adds an entry as typed (no trimming, duplicates allowed); returns its key.
qint64 addLookupEntry(core::Db& db, const LookupList& list, const QString& text);

} // namespace organisation
