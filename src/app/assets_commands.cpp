#include "commands.h"

#include "frmaddsoftware.h"
#include "frmlicense.h"
#include "frmsoftware.h"
#include "frmsoftwareadd.h"
#include "frmsoftwaresel.h"
#include "mdimain.h"
#include "modal.h"

#include <QMdiSubWindow>

void registerAssetCommands(mdiMain& w) {
    w.setCommand("mnuSoftware", [&w] {
        // 22 and 585 twips from the area's top left.
        if (QMdiSubWindow* sub = w.addScreen(new frmAddSoftware)) sub->move(1, 39);
    });
    w.setCommand("mnuAssetSoftEdit", [&w] {
        frmSoftwareSel picker(&w);
        picker.setWindowTitle("Edit Software");
        picker.loadall();
        if (core::showModal(picker) != QDialog::Accepted || picker.softwareID() == 0) return;
        auto* screen = new frmsoftware;
        screen->load(picker.softwareID());
        screen->setWindowTitle("Edit Software");
        w.addScreen(screen);
    });
    w.setCommand("mnuSoftLic", [&w] { w.addScreen(new frmLicense); });
    w.setCommand("mnuAssetsSoftwareSummmary", [&w] {
        frmSoftwareadd summary(&w);
        summary.setWindowTitle("License Summary");
        summary.loadall();
        core::showModal(summary);
    });
}
