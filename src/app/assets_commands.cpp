#include "commands.h"

#include "frmaddcomputer.h"
#include "frmaddsoftware.h"
#include "frmcompsrch.h"
#include "frmlicense.h"
#include "frmperipheraledit.h"
#include "frmsoftware.h"
#include "frmsoftwareadd.h"
#include "frmsoftwaresel.h"
#include "mdimain.h"
#include "modal.h"
#include "printerlist.h"

#include <QMdiSubWindow>

namespace {

// "Select Printer" edits and "Delete Printer" deletes; the caption is the list's mode.
void showPeripheralList(mdiMain& window, const QString& caption, const QString& type) {
    auto* list = new PrinterList;
    list->setWindowTitle(caption);
    list->loadall(type);
    window.addScreen(list);
}

void registerPeripheral(mdiMain& w, const char* add, const char* edit, const char* remove,
                        const QString& type) {
    w.setCommand(add, [&w, type] { w.addScreen(newPeripheralEdit(type)); });
    w.setCommand(edit, [&w, type] { showPeripheralList(w, "Select " + type, type); });
    w.setCommand(remove, [&w, type] { showPeripheralList(w, "Delete " + type, type); });
}

} // namespace

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
    registerPeripheral(w, "mnuAssetPrinterAdd", "mnuAssetsPrinterEdit", "mnuAssetsPrinterDelete",
                       "Printer");
    registerPeripheral(w, "mnuscannersadd", "mnuScannerEdit", "mnuscannerdel", "Scanner");
    registerPeripheral(w, "mnuMonitorsAdd", "mnuMonitorsEdit", "mnuMonitorsDelete", "Monitor");
    w.setCommand("mnuComputerAdd", [&w] {
        auto* screen = new frmaddcomputer;
        screen->NewComp(true);
        w.addScreen(screen);
    });
    w.setCommand("mnuComputerEdit", [&w] {
        auto* list = new frmCompSrch;
        list->load();
        w.addScreen(list);
    });
}
