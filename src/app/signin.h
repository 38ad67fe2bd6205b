#pragma once

class Startup;
class mdiMain;

// The order of a session, owned here so that the start-up routine and the main window need not
// know each other: the start-up routine signs the user in, then the window is told what the
// session allows (a restore-mode session keeps only File and Backup/Restore).
bool signIn(Startup& startup, mdiMain& window);

// File, Log off signs in again in the same window, its screens kept open; a login cancelled
// there ends the program once every screen has agreed to close, and asks again otherwise.
void signInAgainOnLogoff(Startup& startup, mdiMain& window);
