#include "commands.h"

#include "frmsickness.h"
#include "mdimain.h"

#include <QDate>

void registerReportCommands(mdiMain& w) {
    w.setCommand("mnuEmployeeSick", [&w] {
        auto* grid = new frmsickness;
        grid->loadall(QDate::currentDate(), false);
        w.addScreen(grid);
    });
}
