#include "commands.h"

#include "frmaddsupplier.h"
#include "frmfindsupplier.h"
#include "frmteldir.h"
#include "mdimain.h"

namespace {

void showDirectory(mdiMain& window, int page) {
    auto* directory = new frmTelDir;
    directory->showPage(page);
    window.addScreen(directory);
}

} // namespace

void registerSupplierCommands(mdiMain& w) {
    w.setCommand("mnuTel", [&w] { showDirectory(w, 0); });
    w.setCommand("mnuSuppliersEdit", [&w] { showDirectory(w, 1); });
    w.setCommand("mnuSuppliersAdd", [&w] { w.addScreen(new frmaddsupplier); });
    w.setCommand("mnuSuppliersFind", [&w] {
        auto* find = new frmFindSupplier;
        find->load();
        w.addScreen(find);
    });
}
