#pragma once

class mdiMain;

// Gives the main window the commands of the screens that exist.
void registerCommands(mdiMain& window);
