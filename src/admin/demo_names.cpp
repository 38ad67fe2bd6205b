#include "demo_names.h"

namespace admin::demo {

const std::array<Town, 15> Towns{{
    {"Leeds",
     "LS",
     "0113 496 0",
     {"Headingley", "Roundhay", "Horsforth", "Chapel Allerton", "Morley", "Pudsey"}},
    {"Manchester",
     "M",
     "0161 496 0",
     {"Didsbury", "Chorlton", "Salford", "Stretford", "Prestwich", "Sale"}},
    {"Birmingham",
     "B",
     "0121 496 0",
     {"Edgbaston", "Moseley", "Harborne", "Solihull", "Erdington", "Kings Heath"}},
    {"Bristol",
     "BS",
     "0117 496 0",
     {"Clifton", "Bedminster", "Redland", "Fishponds", "Keynsham", "Filton"}},
    {"Nottingham",
     "NG",
     "0115 496 0",
     {"Beeston", "West Bridgford", "Arnold", "Carlton", "Sherwood", "Mapperley"}},
    {"Glasgow",
     "G",
     "0141 496 0",
     {"Partick", "Shawlands", "Dennistoun", "Hyndland", "Govan", "Bearsden"}},
    {"Sheffield",
     "S",
     "0114 496 0",
     {"Ecclesall", "Hillsborough", "Crookes", "Walkley", "Nether Edge", "Dore"}},
    {"Leicester",
     "LE",
     "0116 496 0",
     {"Oadby", "Wigston", "Braunstone", "Aylestone", "Evington", "Birstall"}},
    {"Reading",
     "RG",
     "0118 496 0",
     {"Caversham", "Earley", "Tilehurst", "Woodley", "Whitley", "Emmer Green"}},
    {"Liverpool",
     "L",
     "0151 496 0",
     {"Allerton", "Wavertree", "Crosby", "Aigburth", "Walton", "Childwall"}},
    {"Newcastle upon Tyne",
     "NE",
     "0191 498 0",
     {"Jesmond", "Gosforth", "Heaton", "Fenham", "Benton", "Byker"}},
    {"Edinburgh",
     "EH",
     "0131 496 0",
     {"Leith", "Morningside", "Portobello", "Corstorphine", "Stockbridge", "Gorgie"}},
    {"Cardiff",
     "CF",
     "029 2018 0",
     {"Canton", "Roath", "Llandaff", "Whitchurch", "Penarth", "Cathays"}},
    {"London",
     "SE",
     "020 7946 0",
     {"Greenwich", "Lewisham", "Peckham", "Dulwich", "Blackheath", "Catford"}},
    {"Belfast",
     "BT",
     "028 9649 6",
     {"Malone", "Ormeau", "Stranmillis", "Knock", "Finaghy", "Sydenham"}},
}};

const std::array<const char*, 40> Streets{
    "Station Road", "High Street",       "Church Lane",      "Park Avenue",      "Victoria Road",
    "Green Lane",   "Manor Road",        "Church Street",    "Park Road",        "Queens Road",
    "The Avenue",   "Kings Road",        "New Street",       "Grange Road",      "Mill Lane",
    "School Lane",  "North Road",        "Albert Road",      "Springfield Road", "Highfield Road",
    "Windsor Road", "York Road",         "West Street",      "Chester Road",     "Oak Avenue",
    "Beech Grove",  "Elm Close",         "Willow Way",       "Meadow View",      "Orchard Close",
    "Cedar Drive",  "Hawthorn Crescent", "Chapel Street",    "Market Place",     "Bridge Street",
    "London Road",  "St John's Road",    "Heathfield Drive", "Moorland Way",     "Riverside Walk"};

const std::array<const char*, 64> MaleNames{
    "Oliver",  "Jack",    "Harry",   "George",      "Charlie",  "Thomas",  "James",  "William",
    "Daniel",  "Joshua",  "Samuel",  "Joseph",      "Benjamin", "Matthew", "Luke",   "Adam",
    "Ryan",    "Nathan",  "Liam",    "Callum",      "David",    "Michael", "Paul",   "Mark",
    "Andrew",  "Richard", "Stephen", "Christopher", "Peter",    "John",    "Robert", "Simon",
    "Gary",    "Ian",     "Neil",    "Martin",      "Kevin",    "Craig",   "Jason",  "Lee",
    "Anthony", "Graham",  "Keith",   "Alan",        "Colin",    "Brian",   "Trevor", "Philip",
    "Stuart",  "Wayne",   "Darren",  "Mohammed",    "Imran",    "Raj",     "Arjun",  "Tomasz",
    "Piotr",   "Kwame",   "Sean",    "Declan",      "Rhys",     "Gareth",  "Hamish", "Euan"};

const std::array<const char*, 64> FemaleNames{
    "Olivia",   "Amelia",    "Emily",    "Isla",      "Ava",       "Jessica",    "Sophie",
    "Grace",    "Chloe",     "Lucy",     "Ella",      "Hannah",    "Charlotte",  "Emma",
    "Laura",    "Rebecca",   "Sarah",    "Rachel",    "Claire",    "Nicola",     "Helen",
    "Karen",    "Julie",     "Susan",    "Lisa",      "Michelle",  "Joanne",     "Amanda",
    "Kelly",    "Louise",    "Victoria", "Katherine", "Elizabeth", "Margaret",   "Patricia",
    "Carol",    "Janet",     "Alison",   "Deborah",   "Tracey",    "Jacqueline", "Gillian",
    "Fiona",    "Catherine", "Samantha", "Natalie",   "Zoe",       "Megan",      "Amy",
    "Jade",     "Priya",     "Aisha",    "Fatima",    "Sana",      "Agnieszka",  "Magdalena",
    "Chidinma", "Siobhan",   "Niamh",    "Bethan",    "Carys",     "Morag",      "Eilidh",
    "Anne"};

const std::array<const char*, 184> Surnames{
    "Smith",     "Jones",     "Williams",  "Taylor",   "Brown",     "Davies",     "Evans",
    "Wilson",    "Thomas",    "Johnson",   "Roberts",  "Robinson",  "Thompson",   "Wright",
    "Walker",    "White",     "Edwards",   "Hughes",   "Green",     "Hall",       "Lewis",
    "Harris",    "Clarke",    "Patel",     "Jackson",  "Wood",      "Turner",     "Martin",
    "Cooper",    "Hill",      "Ward",      "Morris",   "Moore",     "Clark",      "Lee",
    "King",      "Baker",     "Harrison",  "Morgan",   "Allen",     "James",      "Scott",
    "Phillips",  "Watson",    "Davis",     "Parker",   "Price",     "Bennett",    "Young",
    "Griffiths", "Mitchell",  "Kelly",     "Cook",     "Carter",    "Richardson", "Bailey",
    "Collins",   "Bell",      "Shaw",      "Murphy",   "Miller",    "Cox",        "Richards",
    "Khan",      "Marshall",  "Anderson",  "Simpson",  "Ellis",     "Adams",      "Singh",
    "Begum",     "Wilkinson", "Foster",    "Chapman",  "Powell",    "Webb",       "Rogers",
    "Gray",      "Mason",     "Ali",       "Hunt",     "Hussain",   "Campbell",   "Matthews",
    "Owen",      "Palmer",    "Holmes",    "Mills",    "Barnes",    "Knight",     "Lloyd",
    "Butler",    "Russell",   "Barker",    "Fisher",   "Stevens",   "Jenkins",    "Murray",
    "Dixon",     "Harvey",    "Graham",    "Pearson",  "Ahmed",     "Fletcher",   "Walsh",
    "Kaur",      "Gibson",    "Howard",    "Andrews",  "Stewart",   "Elliott",    "Reynolds",
    "Saunders",  "Payne",     "Fox",       "Ford",     "Pearce",    "Day",        "Brooks",
    "West",      "Lawrence",  "Cole",      "Atkinson", "Bradley",   "Spencer",    "Gill",
    "Dawson",    "Ball",      "Burton",    "O'Brien",  "Watts",     "Rose",       "Booth",
    "Perry",     "Ryan",      "Grant",     "Wells",    "Armstrong", "Francis",    "Rees",
    "Hayes",     "Hart",      "Hudson",    "Newman",   "Barrett",   "Webster",    "Hunter",
    "Gregory",   "Carr",      "Lowe",      "Page",     "Marsh",     "Riley",      "Dunn",
    "Woods",     "Parsons",   "Berry",     "Stone",    "Reid",      "Holland",    "Hawkins",
    "Harding",   "Porter",    "Robertson", "Newton",   "Oliver",    "Reed",       "Kennedy",
    "O'Neil",    "O'Connor",  "McDonald",  "MacLeod",  "D'Souza",   "Kowalski",   "Nowak",
    "Okafor",    "Mensah",    "Chen",      "Wong",     "Fernandes", "Sharma",     "Hartley-Brown",
    "Byrne",     "Shah"};

const std::array<CompanyInfo, 5> Companies{{
    {"Ashcombe Holdings Ltd", 0, "Ashcombe House, Wellington Street"},
    {"Ashcombe Distribution Ltd", 1, "Unit 7, Kingsway Trading Estate"},
    {"Ashcombe Engineering Ltd", 2, "Meridian Works, Tyburn Road"},
    {"Kestrel Print Services Ltd", 3, "Canal Wharf, Feeder Road"},
    {"Brightwater Foods Ltd", 5, "Riverside Industrial Estate"},
}};

const std::array<const char*, DeptCount> DeptNames{
    "Directors", "Accounts",   "Customer Services", "Facilities", "Human Resources", "IT",
    "Marketing", "Operations", "Purchasing",        "Sales",      "Warehouse"};

const std::array<int, DeptCount> DeptWeights{0, 8, 14, 5, 4, 6, 4, 20, 4, 14, 21};

const std::array<Role, 45> Roles{{
    {"Managing Director", Directors, 95000, 140000, true, 0},
    {"Finance Director", Directors, 80000, 110000, true, 0},
    {"Operations Director", Directors, 78000, 105000, true, 0},
    {"Sales Director", Directors, 78000, 105000, true, 0},
    {"Financial Controller", Accounts, 50000, 65000, true, 0},
    {"Management Accountant", Accounts, 38000, 48000, false, 2},
    {"Accounts Assistant", Accounts, 21000, 26000, false, 4},
    {"Credit Controller", Accounts, 22000, 28000, false, 2},
    {"Payroll Administrator", Accounts, 23000, 29000, false, 2},
    {"Purchase Ledger Clerk", Accounts, 20000, 24000, false, 2},
    {"Customer Services Manager", CustomerServices, 35000, 45000, true, 0},
    {"Customer Services Advisor", CustomerServices, 19000, 23500, false, 10},
    {"Customer Services Team Leader", CustomerServices, 25000, 29000, false, 2},
    {"Facilities Manager", Facilities, 35000, 44000, true, 0},
    {"Receptionist", Facilities, 19000, 22000, false, 3},
    {"Caretaker", Facilities, 19000, 22000, false, 2},
    {"Cleaner", Facilities, 18000, 20000, false, 3},
    {"HR Manager", HumanResources, 40000, 52000, true, 0},
    {"HR Advisor", HumanResources, 28000, 34000, false, 3},
    {"HR Administrator", HumanResources, 21000, 25000, false, 3},
    {"Training Coordinator", HumanResources, 26000, 31000, false, 1},
    {"IT Manager", IT, 45000, 60000, true, 0},
    {"Systems Administrator", IT, 32000, 42000, false, 2},
    {"Helpdesk Analyst", IT, 22000, 28000, false, 4},
    {"Software Developer", IT, 35000, 55000, false, 2},
    {"Marketing Manager", Marketing, 40000, 52000, true, 0},
    {"Marketing Executive", Marketing, 25000, 32000, false, 3},
    {"Graphic Designer", Marketing, 24000, 30000, false, 2},
    {"Operations Manager", Operations, 42000, 55000, true, 0},
    {"Production Supervisor", Operations, 27000, 33000, false, 2},
    {"Production Operative", Operations, 18500, 22000, false, 10},
    {"Quality Inspector", Operations, 22000, 26000, false, 2},
    {"Maintenance Engineer", Operations, 28000, 35000, false, 2},
    {"Purchasing Manager", Purchasing, 38000, 48000, true, 0},
    {"Buyer", Purchasing, 26000, 33000, false, 3},
    {"Purchasing Assistant", Purchasing, 20000, 24000, false, 2},
    {"Sales Manager", Sales, 42000, 55000, true, 0},
    {"Area Sales Manager", Sales, 35000, 45000, false, 2},
    {"Sales Executive", Sales, 24000, 32000, false, 5},
    {"Internal Sales Advisor", Sales, 20000, 25000, false, 4},
    {"Warehouse Manager", Warehouse, 32000, 40000, true, 0},
    {"Warehouse Supervisor", Warehouse, 24000, 28000, false, 2},
    {"Warehouse Operative", Warehouse, 18000, 21000, false, 10},
    {"Forklift Driver", Warehouse, 19000, 23000, false, 4},
    {"Delivery Driver", Warehouse, 20000, 24000, false, 4},
}};

int managerRole(Dept dept) {
    for (int i = 0; i < static_cast<int>(Roles.size()); ++i)
        if (Roles[i].dept == dept && Roles[i].manages) return i;
    return 0;
}

int staffRole(Random& r, Dept dept) {
    int total = 0;
    for (const Role& role : Roles)
        if (role.dept == dept) total += role.weight;
    int pick = r.below(total);
    for (int i = 0; i < static_cast<int>(Roles.size()); ++i) {
        if (Roles[i].dept != dept || Roles[i].weight == 0) continue;
        if (pick < Roles[i].weight) return i;
        pick -= Roles[i].weight;
    }
    return 0;
}

Money salaryFor(Random& r, const Role& role) {
    const int steps = (role.maxSalary - role.minSalary) / 250;
    const qint64 whole = role.minSalary + 250LL * r.between(0, steps);
    return pounds(whole, r.percent(10) ? 50 : 0);
}

// Rounds a salary down to the nearest £50, as reviews were written.
Money roundedSalary(qint64 units) {
    const qint64 step = 50 * Money::Scale;
    return Money::fromUnits(units / step * step);
}

const std::array<Supplied, 20> SupplierList{{
    {"Northern Computer Supplies Ltd", 0, {"Computer Hardware", "Network and Cabling", nullptr}},
    {"Pennine Business Systems", 6, {"Computer Hardware", "Printers and Consumables", nullptr}},
    {"Softline Licensing Ltd", 8, {"Software", nullptr, nullptr}},
    {"Castlegate Software Solutions", 4, {"Software", "Training", nullptr}},
    {"Imprint Office Products", 1, {"Printers and Consumables", "Stationery", nullptr}},
    {"Redbrook Stationers", 7, {"Stationery", nullptr, nullptr}},
    {"Oakridge Office Furniture", 2, {"Office Furniture", nullptr, nullptr}},
    {"Brightway Cleaning Services", 0, {"Cleaning", nullptr, nullptr}},
    {"Harvest Table Catering", 3, {"Catering", nullptr, nullptr}},
    {"Talentfirst Recruitment", 13, {"Recruitment", nullptr, nullptr}},
    {"Clearview Training Ltd", 9, {"Training", nullptr, nullptr}},
    {"Keystone Building Services", 1, {"Building Maintenance", nullptr, nullptr}},
    {"Swiftlink Couriers", 2, {"Courier", nullptr, nullptr}},
    {"Wharfedale Insurance Brokers", 0, {"Insurance", nullptr, nullptr}},
    {"Voiceline Telecom", 10, {"Telephones", "Network and Cabling", nullptr}},
    {"Meridian IT Services", 3, {"Computer Hardware", "Software", "Network and Cabling"}},
    {"Albion Print & Copy", 13, {"Printers and Consumables", nullptr, nullptr}},
    {"Cobalt Data Networks", 11, {"Network and Cabling", "Telephones", nullptr}},
    {"Ashdown Safety Training", 12, {"Training", nullptr, nullptr}},
    {"Greenfield Facilities Management", 5, {"Cleaning", "Building Maintenance", "Catering"}},
}};

const std::array<const char*, 8> Trades{"Office Supplies", "Computer Services", "Training",
                                        "Cleaning",        "Couriers",          "Electrical",
                                        "Print",           "Software"};

const std::array<Package, 16> Packages{{
    {{"Microsoft", "Windows 11 Pro", "23H2", true, 199}, Install::Everywhere, 0, 0},
    {{"Microsoft", "Office Professional Plus", "2021", true, 439}, Install::Mostly, 0, 92},
    {{"Sophos", "Intercept X Endpoint", "2023.2", true, 32}, Install::Mostly, 0, 97},
    {{"Adobe", "Acrobat Pro", "2020", true, 289}, Install::Sometimes, 0, 25},
    {{"Mozilla", "Firefox", "ESR 115", false, 0}, Install::Sometimes, 0, 35},
    {{"Igor Pavlov", "7-Zip", "23.01", false, 0}, Install::Sometimes, 0, 20},
    {{"Microsoft", "Visio Professional", "2021", true, 529}, Install::Sometimes, 0, 4},
    {{"Microsoft", "Project Professional", "2021", true, 1029}, Install::Sometimes, 0, 3},
    {{"Sage", "Sage 50 Accounts Professional", "v29", true, 310}, Install::Department, Accounts, 0},
    {{"IRIS", "IRIS Payroll Business", "2024", true, 245}, Install::Department, HumanResources, 0},
    {{"Adobe", "Photoshop", "2024", true, 238}, Install::Department, Marketing, 0},
    {{"Adobe", "InDesign", "2024", true, 238}, Install::Department, Marketing, 0},
    {{"Autodesk", "AutoCAD LT", "2024", true, 480}, Install::Department, Operations, 0},
    {{"Microsoft", "Visual Studio Professional", "2022", true, 499}, Install::Department, IT, 0},
    {{"Salesforce", "Sales Cloud Connector", "5.2", true, 95}, Install::Department, Sales, 0},
    {{"Mitel", "MiCollab Client", "9.7", true, 40}, Install::Department, CustomerServices, 0},
}};

const std::array<Machine, 8> Machines{{
    {"Dell", "OptiPlex 7010", false, 729},
    {"Dell", "Latitude 5440", true, 1049},
    {"HP", "EliteDesk 800 G6", false, 689},
    {"HP", "ProBook 450 G9", true, 899},
    {"Lenovo", "ThinkCentre M70q", false, 599},
    {"Lenovo", "ThinkPad T14 Gen 4", true, 1189},
    {"Fujitsu", "Esprimo D7010", false, 649},
    {"Apple", "MacBook Air M2", true, 1249},
}};

const std::array<Device, 7> Printers{{
    {"Printer", "HP", "LaserJet M507dn", 389},
    {"Printer", "HP", "Color LaserJet M479", 549},
    {"Printer", "Brother", "HL-L6400DW", 459},
    {"Printer", "Kyocera", "ECOSYS P3145dn", 329},
    {"Printer", "Canon", "i-SENSYS LBP325x", 399},
    {"Printer", "Xerox", "VersaLink C405", 689},
    {"Printer", "Epson", "WorkForce WF-C5790", 279},
}};

const std::array<Device, 3> Scanners{{
    {"Scanner", "Fujitsu", "fi-8170", 899},
    {"Scanner", "Epson", "WorkForce DS-870", 749},
    {"Scanner", "Canon", "imageFORMULA DR-C240", 529},
}};

const std::array<Device, 5> Monitors{{
    {"Monitor", "Dell", "P2422H", 189},
    {"Monitor", "Dell", "U2723QE", 519},
    {"Monitor", "iiyama", "ProLite XUB2493HS", 139},
    {"Monitor", "LG", "27BN65Q", 249},
    {"Monitor", "Samsung", "S24R650", 169},
}};

const std::array<Device, 5> OtherDevices{{
    {"Docking Station", "Dell", "WD19S", 199},
    {"Webcam", "Logitech", "C920 HD Pro", 69},
    {"External Drive", "Seagate", "Expansion 2TB", 65},
    {"Projector", "Epson", "EB-W51", 429},
    {"UPS", "APC", "Back-UPS 700", 119},
}};

const std::array<const char*, 10> PrinterRooms{
    "Reception", "Accounts Office", "Sales Floor", "Warehouse Office", "IT Room",
    "1st Floor", "2nd Floor",       "Print Room",  "Board Room",       "Training Room"};

const std::array<Complaint, 12> ComputerFaults{{
    {"Outlook keeps asking for my password", "Cached credentials cleared and profile rebuilt"},
    {"PC very slow to start in the mornings", "Start-up programs trimmed, disk checked"},
    {"Cannot open attachments from customers", "Default program association repaired"},
    {"Spreadsheet crashes when saving to the shared drive", "Office repaired; file moved locally"},
    {"Forgotten password - locked out", "Password reset and account unlocked"},
    {"No network connection at my desk", "Patch lead replaced"},
    {"Blue screen after Windows update", "Driver rolled back; update reapplied"},
    {"Need Acrobat to edit PDF forms", "Licence assigned and Acrobat installed"},
    {"Keyboard missing keys", "Keyboard replaced"},
    {"Laptop battery lasts less than an hour", "Battery replaced under warranty"},
    {"Cannot connect to VPN from home", "VPN client reinstalled and certificate renewed"},
    {"Sage will not open company data", "Data path remapped and permissions corrected"},
}};

const std::array<Complaint, 6> PrinterFaults{{
    {"Printer jams on every second page", "Pickup rollers cleaned"},
    {"Prints come out with grey streaks", "Toner cartridge replaced"},
    {"Printer shows offline on all PCs", "Printer given a fixed address"},
    {"Cannot print double sided", "Duplex option enabled in the driver"},
    {"Printer out of toner - please order", "Toner ordered and fitted"},
    {"Paper tray 2 not recognised", "Tray reseated; firmware updated"},
}};

const std::array<Complaint, 4> ScannerFaults{{
    {"Scan to email not arriving", "Mail relay settings corrected"},
    {"Scanner feeds several sheets at once", "Separation pad replaced"},
    {"Scans come out skewed", "Feed rollers cleaned"},
    {"Scanner not found by software", "USB driver reinstalled"},
}};

const std::array<Complaint, 4> MonitorFaults{{
    {"Screen flickers", "Video cable replaced"},
    {"Second monitor not detected", "Docking station firmware updated"},
    {"Dead pixels in the middle of the screen", "Monitor replaced under warranty"},
    {"Monitor will not switch on", "Power supply replaced"},
}};

} // namespace admin::demo
