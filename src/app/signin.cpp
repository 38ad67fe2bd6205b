#include "signin.h"

#include "mdimain.h"
#include "session.h"
#include "startup.h"

bool signIn(Startup& startup, mdiMain& window) {
    if (!startup.run()) return false;
    window.setSessionItemsEnabled(!core::isrestoremode());
    return true;
}

void signInAgainOnLogoff(Startup& startup, mdiMain& window) {
    QObject::connect(&window, &mdiMain::logoffRequested, &window, [&startup, &window] {
        // Cancel ends the program, each screen with unsaved work asking first. One that keeps
        // its work open keeps the program open too, but only behind the login again: the
        // session left behind is never reachable without signing in.
        while (!signIn(startup, window))
            if (window.close()) return;
    });
}
