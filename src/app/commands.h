#pragma once

class mdiMain;

// Gives the main window the commands of the screens that exist.
void registerCommands(mdiMain& window);

// The training programmes, their list and the training report.
void registerTrainingCommands(mdiMain& window);

// Suppliers and the telephone directory.
void registerSupplierCommands(mdiMain& window);

// The petty cash ledger and its monthly report.
void registerPettyCashCommands(mdiMain& window);

// Software and its licence pool, printers, scanners and monitors, computers.
void registerAssetCommands(mdiMain& window);

// Helpdesk calls: logging one, finding one, the lists of calls.
void registerHelpdeskCommands(mdiMain& window);

// Users and passwords, backup and restore, the options.
void registerAdminCommands(mdiMain& window);

// The attendance grid, the holiday and absence reports and the spreadsheet exports.
void registerReportCommands(mdiMain& window);
