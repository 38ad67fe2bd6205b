#pragma once

#include <array>

// The main window's menus in their order: each entry names its parent (nullptr for the menu
// bar), its own name and caption, and whether it opens a submenu.
struct MenuEntry {
    const char* parent;
    const char* name;
    const char* caption;
    bool submenu;
};

inline constexpr MenuEntry MenuTree[] = {
    {nullptr, "mnuFile", "&File", true},
    {"mnuFile", "mnuFileLogoff", "Log off", false},
    {"mnuFile", "mnuFileExit", "Exit", false},

    {nullptr, "mnuPersonnel", "&Personnel", true},
    {"mnuPersonnel", "mnuCompany", "Company", true},
    {"mnuCompany", "mnuCompanyNew", "New", false},
    {"mnuCompany", "mnuCompanyDelete", "Delete", false},
    {"mnuCompany", "mnuCompanyDisplayAll", "Display All", false},
    {"mnuPersonnel", "mnuEmployee", "&Employee", true},
    {"mnuEmployee", "mnuEmployeeNew", "New", false},
    {"mnuEmployee", "mnuEmployeeSearch", "Search", false},
    {"mnuEmployee", "mnuEmployeeDisplayAll", "Display All", false},
    {"mnuEmployee", "mnuEmployeeDelete", "Delete", false},
    {"mnuEmployee", "mnuEmployeeSick", "Attendance/Sickness Report", false},
    {"mnuEmployee", "mnupersonaiders", "First Aiders", false},
    {"mnuPersonnel", "mnuPersonnelDepartment", "&Department", true},
    {"mnuPersonnelDepartment", "mnuDepartmentNew", "&New", false},
    {"mnuPersonnelDepartment", "mnuDepartmentDelete", "&Delete", false},
    {"mnuPersonnel", "mnuEmployeeLocation", "&Location", true},
    {"mnuEmployeeLocation", "mnuLocationNew", "&New", false},
    {"mnuEmployeeLocation", "mnuLocationDelete", "&Delete", false},
    {"mnuPersonnel", "mnuPosition", "&Position", true},
    {"mnuPosition", "mnuPositionNew", "New", false},
    {"mnuPosition", "mnuPositionDelete", "Delete", false},

    {nullptr, "mnuHelpdesk", "&HelpDesk", true},
    {"mnuHelpdesk", "mnuHelpDeskAddItem", "Add Call", false},
    {"mnuHelpdesk", "mnuHelpdeskupdatecall", "Update Call", false},
    {"mnuHelpdesk", "mnuViewCalls", "View Calls", true},
    {"mnuViewCalls", "mnuViewAllOpenCalls", "All Open Calls", false},
    {"mnuViewCalls", "mnuViewAllCalls", "All Calls", false},

    {nullptr, "mnuTel", "&Telephone Directory", false},

    {nullptr, "mnuAssets", "&Assets", true},
    {"mnuAssets", "mnuAssetsEquipment", "Computers", true},
    {"mnuAssetsEquipment", "mnuComputerAdd", "Add Computer", false},
    {"mnuAssetsEquipment", "mnuComputerEdit", "Edit Computer", false},
    {"mnuAssets", "mnuComputer", "Software", true},
    {"mnuComputer", "mnuSoftware", "Add Software", false},
    {"mnuComputer", "mnuAssetSoftEdit", "Edit Software", false},
    {"mnuComputer", "mnuSoftLic", "Add Licences", false},
    {"mnuComputer", "mnuAssetsSoftwareSummmary", "License Summary", false},
    {"mnuAssets", "mnuPrintersAdd", "Printers", true},
    {"mnuPrintersAdd", "mnuAssetPrinterAdd", "Add Printer", false},
    {"mnuPrintersAdd", "mnuAssetsPrinterEdit", "Edit Printer", false},
    {"mnuPrintersAdd", "mnuAssetsPrinterDelete", "Delete Printer", false},
    {"mnuAssets", "mnuscanners", "Scanners", true},
    {"mnuscanners", "mnuscannersadd", "Add Scanner", false},
    {"mnuscanners", "mnuScannerEdit", "Edit Scanner", false},
    {"mnuscanners", "mnuscannerdel", "Delete Scanner", false},
    {"mnuAssets", "mnuAssetsMonitors", "Monitors", true},
    {"mnuAssetsMonitors", "mnuMonitorsAdd", "Add Monitor", false},
    {"mnuAssetsMonitors", "mnuMonitorsEdit", "Edit Monitor", false},
    {"mnuAssetsMonitors", "mnuMonitorsDelete", "Delete Monitor", false},

    {nullptr, "mnuSuppliers", "&Suppliers", true},
    {"mnuSuppliers", "mnuSuppliersAdd", "Add Supplier", false},
    {"mnuSuppliers", "mnuSuppliersEdit", "Find Supplier", false},
    {"mnuSuppliers", "mnuSuppliersFind", "Find Supplier by Service", false},

    {nullptr, "mnuTools", "T&ools", true},
    {"mnuTools", "mnuToolsOptions", "Options", false},
    {"mnuTools", "mnuOptionsExport", "Export", true},
    {"mnuOptionsExport", "mnuOptionsAddressesdExport", "Names && Addresses", false},
    {"mnuOptionsExport", "mnuOptionsSalaryExport", "Salary Info", false},

    {nullptr, "mnuReportS", "&Reports", true},
    {"mnuReportS", "mnuReportPersonnel", "Personnel", true},
    {"mnuReportPersonnel", "mnuReportsHoliday", "Holiday", false},
    {"mnuReportPersonnel", "mnuReportAbsence", "Absence", false},
    {"mnuReportS", "mnuReportsTraining", "Training", false},
    {"mnuReportS", "mnuRepPetty", "Petty Cash", false},

    {nullptr, "mnuTraining", "&Training", true},
    {"mnuTraining", "mnuNewProgramme", "New Programme", false},
    {"mnuTraining", "mnuTrainingEdit", "Edit Programme", false},
    {"mnuTraining", "mnuDelete", "Delete Programme", false},

    {nullptr, "mnuPettyCash", "&Petty Cash", false},

    {nullptr, "mnuAdmin", "A&dmin", true},
    {"mnuAdmin", "mnuAdminSecurity", "Security", true},
    {"mnuAdminSecurity", "mnuSecurityAddUser", "Add User", false},
    {"mnuAdminSecurity", "mnuAdminSecurityDeleteUser", "Delete User", false},
    {"mnuAdminSecurity", "mnuSecurityChangePassword", "Change Password", false},

    {nullptr, "mnuBackup", "&Backup/Restore", false},

    {nullptr, "mnuHelp", "H&elp", true},
    {"mnuHelp", "mnuContents", "Contents", false},
    {"mnuHelp", "mnuHelpAbout", "About", false},
};

// The toolbar's buttons in order: key, tool tip, and the menu item whose command it runs.
struct ToolbarEntry {
    const char* key;
    const char* tip;
    const char* item;
};

inline constexpr ToolbarEntry ToolbarButtons[] = {
    {"frmemployee", "New Employee", "mnuEmployeeNew"},
    {"frmesearch", "Find Employee", "mnuEmployeeSearch"},
    {"frmdelete", "Delete employee", "mnuEmployeeDelete"},
    {"frmaddcall", "Log Helpdesk Call", "mnuHelpDeskAddItem"},
    {"frmupdatecall", "Update helpdesk call", "mnuHelpdeskupdatecall"},
    {"frmaddcomputer", "Add Computer", "mnuComputerAdd"},
    {"frmcompsrch", "Edit Computer", "mnuComputerEdit"},
    {"frmaddsoftware", "Add Software", "mnuSoftware"},
    {"frmteldir", "Telephone Directory", "mnuTel"},
    {"frmtraining", "New Training Course", "mnuNewProgramme"},
    {"traininglist", "Edit Training Course", "mnuTrainingEdit"},
};

// What a restore-mode session greys; File and Backup/Restore stay.
inline constexpr const char* SessionItems[] = {
    "mnuPersonnel", "mnuHelpdesk", "mnuSuppliers", "mnuAssets", "mnuTools",    "mnuReportS",
    "mnuTraining",  "mnuAdmin",    "mnuHelp",      "mnuTel",    "mnuPettyCash"};
