#include "commands.h"

#include "frmaddcall.h"
#include "frmcallupdate.h"
#include "frmlistcall.h"
#include "mdimain.h"
#include "modal.h"

namespace {

// "All Open Calls" and "All Calls": the list takes the entry's own caption.
void showCalls(mdiMain& window, const QString& caption, const QString& kind) {
    auto* list = new frmListCall;
    list->setWindowTitle(caption);
    list->load(kind);
    window.addScreen(list);
}

} // namespace

void registerHelpdeskCommands(mdiMain& w) {
    // Each call gets a screen of its own, so several can be open at once.
    w.setCommand("mnuHelpDeskAddItem", [&w] {
        auto* screen = new frmaddcall;
        screen->NewCall();
        w.addScreen(screen);
    });
    w.setCommand("mnuHelpdeskupdatecall", [&w] {
        frmCallUpdate search(&w);
        core::showModal(search);
    });
    w.setCommand("mnuViewAllOpenCalls", [&w] { showCalls(w, "All Open Calls", "Open"); });
    w.setCommand("mnuViewAllCalls", [&w] { showCalls(w, "All Calls", "All"); });
}
