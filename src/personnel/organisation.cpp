#include "organisation.h"

namespace organisation {

const LookupList Departments{"frmDept",
                             "Add Dept",
                             "Dept Name",
                             "Department",
                             "Department_ID",
                             "Department",
                             "You must enter a valid department",
                             "Department"};
const LookupList Locations{"frmLocation",
                           "New Location",
                           "Location",
                           "Location",
                           "Location_ID",
                           "Location",
                           "You must enter a valid location",
                           "Location"};
const LookupList Positions{"frmPosition",
                           "Add Position",
                           "Position",
                           "Position",
                           "PositionID",
                           "Position_name",
                           "You must enter a valid position",
                           "Position"};

bool loadCompany(core::Db& db, qint64 companyId, CompanyValues& values) {
    QStringList columns;
    for (const auto& f : CompanyFields)
        columns << f.column;
    const auto row = db.row(
        QStringLiteral("SELECT %1 FROM Company WHERE Company_ID = ?").arg(columns.join(", ")),
        {companyId});
    if (!row) return false;
    for (size_t i = 0; i < CompanyFields.size(); ++i)
        values[i] = core::Db::text(row->value(int(i)));
    return true;
}

qint64 saveCompany(core::Db& db, qint64 companyId, const CompanyValues& values,
                   const core::LoadedRow& loaded) {
    core::Fields fields;
    for (size_t i = 0; i < CompanyFields.size(); ++i)
        fields.emplace_back(CompanyFields[i].column, values[i]);
    if (companyId == 0) return db.insert("Company", "Company_ID", fields);
    core::Transaction t(db);
    loaded.verify(db);
    db.update("Company", "Company_ID", companyId, fields);
    t.commit();
    return companyId;
}

core::LoadedRow loadedCompanyRow(core::Db& db, qint64 companyId) {
    return core::LoadedRow::read(db, "Company", "Company_ID", companyId);
}

qint64 addLookupEntry(core::Db& db, const LookupList& list, const QString& text) {
    return db.insert(list.table, list.keyColumn, {{list.column, text}});
}

} // namespace organisation
