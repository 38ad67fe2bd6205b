#include "employee_exports.h"

#include "booking_report.h"
#include "export.h"
#include "failure.h"
#include "session.h"

namespace reports {

void exportAddresses(QWidget* parent) {
    Sheet sheet;
    if (!core::guarded(
            "Names && Addresses", [&] { sheet = addressSheet(core::db()); }, parent))
        return;
    exportSpreadsheet(sheet, QString(), "Names and Addresses", parent);
}

void exportSalaries(QWidget* parent) {
    Sheet sheet;
    if (!core::guarded(
            "Salary Info", [&] { sheet = salarySheet(core::db()); }, parent))
        return;
    exportSpreadsheet(sheet, QString(), "Salary Info", parent);
}

} // namespace reports
