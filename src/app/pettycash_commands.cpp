#include "commands.h"

#include "frmpettycash.h"
#include "mdimain.h"
#include "rptpettycash.h"

void registerPettyCashCommands(mdiMain& w) {
    w.setCommand("mnuPettyCash", [&w] {
        w.showShared("frmPettyCash", [] {
            auto* ledger = new frmPettyCash;
            ledger->load();
            return ledger;
        });
    });
    w.setCommand("mnuRepPetty", [&w] {
        w.showShared("RptPettyCash", [] {
            auto* report = new RptPettyCash;
            report->load();
            return report;
        });
    });
}
