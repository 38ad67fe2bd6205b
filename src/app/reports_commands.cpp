#include "commands.h"

#include "employee_exports.h"
#include "frmbookingreport.h"
#include "frmsickness.h"
#include "mdimain.h"

#include <QDate>

void registerReportCommands(mdiMain& w) {
    w.setCommand("mnuEmployeeSick", [&w] {
        auto* grid = new frmsickness;
        grid->loadall(QDate::currentDate(), false);
        w.addScreen(grid);
    });
    w.setCommand("mnuReportsHoliday", [&w] { w.addScreen(new frmHolidayReport); });
    w.setCommand("mnuReportAbsence", [&w] { w.addScreen(new frmAbsenceReport); });
    w.setCommand("mnuOptionsAddressesdExport", [&w] { reports::exportAddresses(&w); });
    w.setCommand("mnuOptionsSalaryExport", [&w] { reports::exportSalaries(&w); });
}
