#pragma once

// The made-up organisation's names and catalogues: towns, people's names, companies,
// departments and posts, suppliers, software and hardware, and the faults users report.
// The lists are data (demo_names.cpp); the generator draws from them.

#include "demo_write.h"

namespace admin::demo {

struct Town {
    const char* name;
    const char* postcodeArea;
    const char* phonePrefix; // a drama-reserved range; three digits follow
    std::array<const char*, 6> localities;
};

extern const std::array<Town, 15> Towns;
extern const std::array<const char*, 40> Streets;
extern const std::array<const char*, 64> MaleNames;
extern const std::array<const char*, 64> FemaleNames;
extern const std::array<const char*, 184> Surnames;

struct CompanyInfo {
    const char* name;
    int town;
    const char* premises;
};

extern const std::array<CompanyInfo, 5> Companies;

enum Dept {
    Directors,
    Accounts,
    CustomerServices,
    Facilities,
    HumanResources,
    IT,
    Marketing,
    Operations,
    Purchasing,
    Sales,
    Warehouse,
    DeptCount
};

extern const std::array<const char*, DeptCount> DeptNames;
// How the staff below the board spread over the departments.
extern const std::array<int, DeptCount> DeptWeights;

struct Role {
    const char* name;
    Dept dept;
    int minSalary;
    int maxSalary;
    bool manages;
    int weight; // among the department's staff
};

extern const std::array<Role, 45> Roles;
int managerRole(Dept dept);
int staffRole(Random& r, Dept dept);
Money salaryFor(Random& r, const Role& role);
// Rounds a salary down to the nearest £50, as reviews were written.
Money roundedSalary(qint64 units);

struct Supplied {
    const char* name;
    int town;
    std::array<const char*, 3> services;
};

extern const std::array<Supplied, 20> SupplierList;
extern const std::array<const char*, 8> Trades;

struct Product {
    const char* manufacturer;
    const char* product;
    const char* version;
    bool licensed;
    int price; // per licence, pounds
};

// Installed on every PC, on most, by department, or now and then.
enum class Install { Everywhere, Mostly, Department, Sometimes };

struct Package {
    Product product;
    Install install;
    int dept;    // for Install::Department
    int percent; // for Mostly and Sometimes
};

extern const std::array<Package, 16> Packages;

struct Machine {
    const char* manufacturer;
    const char* model;
    bool laptop;
    int price;
};

extern const std::array<Machine, 8> Machines;

struct Device {
    const char* type;
    const char* manufacturer;
    const char* model;
    int price;
};

extern const std::array<Device, 7> Printers;
extern const std::array<Device, 3> Scanners;
extern const std::array<Device, 5> Monitors;
extern const std::array<Device, 5> OtherDevices;
extern const std::array<const char*, 10> PrinterRooms;

struct Complaint {
    const char* description;
    const char* resolution;
};

extern const std::array<Complaint, 12> ComputerFaults;
extern const std::array<Complaint, 6> PrinterFaults;
extern const std::array<Complaint, 4> ScannerFaults;
extern const std::array<Complaint, 4> MonitorFaults;

} // namespace admin::demo
