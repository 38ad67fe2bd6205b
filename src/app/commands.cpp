#include "commands.h"

#include "companieslist.h"
#include "frmcompany.h"
#include "frmemployee.h"
#include "frmesearch.h"
#include "frmlookupentry.h"
#include "mdimain.h"
#include "personlist.h"

#include <QPushButton>

namespace {

// A selection list opened from the menu: its title, OK caption and fill.
void showList(mdiMain& window, const QString& title, const QString& okCaption,
              const std::function<void(companieslist&)>& fill, bool deleteCompany = false) {
    auto* list = new companieslist;
    if (!title.isEmpty()) list->setWindowTitle(title);
    if (!okCaption.isEmpty()) list->cmdOK->setText(okCaption);
    list->deletecompany = deleteCompany;
    fill(*list);
    window.addScreen(list, true);
}

template <class Screen> void showShared(mdiMain& window, const char* name) {
    window.showShared(name, [] { return new Screen; });
}

} // namespace

void registerCommands(mdiMain& w) {
    w.setCommand("mnuCompanyNew", [&w] { showShared<frmCompany>(w, "frmCompany"); });
    w.setCommand("mnuCompanyDelete", [&w] {
        showList(
            w, "Delete Company", "Delete", [](companieslist& l) { l.load(""); }, true);
    });
    w.setCommand("mnuCompanyDisplayAll",
                 [&w] { showList(w, {}, {}, [](companieslist& l) { l.load(""); }); });
    w.setCommand("mnuDepartmentNew", [&w] { showShared<frmDept>(w, "frmDept"); });
    w.setCommand("mnuLocationNew", [&w] { showShared<frmLocation>(w, "frmLocation"); });
    w.setCommand("mnuPositionNew", [&w] { showShared<frmPosition>(w, "frmPosition"); });
    w.setCommand("mnuDepartmentDelete", [&w] {
        showList(w, "Delete Department", "Delete",
                 [](companieslist& l) { l.loadall("Department", "Department_ID", "Department"); });
    });
    w.setCommand("mnuLocationDelete", [&w] {
        showList(w, "Delete Location", "Delete",
                 [](companieslist& l) { l.loadall("Location", "Location_ID", "Location"); });
    });
    w.setCommand("mnuPositionDelete", [&w] {
        showList(w, "Delete Position", "Delete",
                 [](companieslist& l) { l.loadall("Position_Name", "PositionID", "Position"); });
    });
    w.setCommand("mnuEmployeeNew", [&w] {
        auto* screen = new frmemployee;
        screen->isnew(true);
        screen->loadcombos();
        w.addScreen(screen);
    });
    w.setCommand("mnuEmployeeSearch", [&w] { w.addScreen(new frmesearch); });
    w.setCommand("mnuEmployeeDisplayAll", [&w] { w.addScreen(new PersonList); });
    w.setCommand("mnuEmployeeDelete", [&w] {
        auto* list = new PersonList;
        list->ISDelete = true;
        list->setWindowTitle("Delete Employee");
        list->cmdOK->setText("Delete");
        w.addScreen(list);
    });
    w.setCommand("mnupersonaiders", [&w] {
        auto* list = new PersonList;
        list->setWindowTitle("First Aiders");
        list->firstaiders();
        w.addScreen(list);
    });
    w.setCommand("mnuAdminSecurityDeleteUser",
                 [&w] { showList(w, "Delete User", {}, [](companieslist& l) { l.loadUsers(); }); });
    registerTrainingCommands(w);
    registerSupplierCommands(w);
    registerPettyCashCommands(w);
    registerAssetCommands(w);
    registerHelpdeskCommands(w);
    registerAdminCommands(w);
    registerReportCommands(w);
}
