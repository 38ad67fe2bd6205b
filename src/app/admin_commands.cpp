#include "commands.h"

#include "frmadduser.h"
#include "frmbackup.h"
#include "frmoptions.h"
#include "frmpassword.h"
#include "mdimain.h"

#include <QAction>

void registerAdminCommands(mdiMain& w) {
    w.setCommand("mnuSecurityAddUser", [&w] { admin::runAddUser(&w); });
    w.setCommand("mnuSecurityChangePassword", [&w] { admin::runChangePassword(&w); });
    w.setCommand("mnuToolsOptions", [&w] { w.showShared<frmOptions>("frmOptions"); });
    w.setCommand("mnuBackup", [&w] {
        auto* screen = new frmBackup;
        // The database was replaced: the user signs in again, as after Log off.
        QObject::connect(screen, &frmBackup::restored, &w, [&w] {
            if (QAction* logoff = w.item("mnuFileLogoff")) logoff->trigger();
        });
        w.addScreen(screen, true);
    });
}
