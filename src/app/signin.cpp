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
        if (!signIn(startup, window)) window.close();
    });
}
