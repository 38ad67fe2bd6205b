#include "demo_organisation.h"

#include "money.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QStringList>
#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <random>
#include <stdexcept>

namespace admin {

qint64 DemoSummary::count(const QString& table) const {
    for (const auto& [name, rows] : tables)
        if (name.compare(table, Qt::CaseInsensitive) == 0) return rows;
    return 0;
}

qint64 DemoSummary::total() const {
    qint64 sum = 0;
    for (const auto& entry : tables)
        sum += entry.second;
    return sum;
}

namespace {

using core::Db;
using core::Money;
using core::Params;

// ---------------------------------------------------------------------------------------
// Randomness. std::mt19937 is specified to the bit; the standard distributions are not, so
// the organisation is drawn through these helpers only.

class Random {
public:
    explicit Random(quint32 seed)
        : engine_(seed) {}

    // Uniform in [0, n).
    int below(int n) {
        if (n <= 1) return 0;
        const quint64 x = static_cast<quint32>(engine_());
        return static_cast<int>((x * static_cast<quint64>(n)) >> 32);
    }
    int between(int lo, int hi) { return lo + below(hi - lo + 1); }
    bool percent(int p) { return below(100) < p; }
    bool permille(int p) { return below(1000) < p; }

    template <typename T, std::size_t N> const T& pick(const std::array<T, N>& items) {
        return items[below(static_cast<int>(N))];
    }
    template <typename T> const T& pick(const std::vector<T>& items) {
        return items[below(static_cast<int>(items.size()))];
    }
    // An index chosen in proportion to the weights.
    int weighted(std::initializer_list<int> weights) {
        int total = 0;
        for (int w : weights)
            total += w;
        int r = below(total);
        int i = 0;
        for (int w : weights) {
            if (r < w) return i;
            r -= w;
            ++i;
        }
        return i - 1;
    }
    QString digits(int count) {
        QString s;
        for (int i = 0; i < count; ++i)
            s += QChar('0' + below(10));
        return s;
    }
    QString letters(int count, const char* alphabet = "ABCDEFGHJKLMNPRSTUVWXYZ") {
        const int n = static_cast<int>(qstrlen(alphabet));
        QString s;
        for (int i = 0; i < count; ++i)
            s += QChar(alphabet[below(n)]);
        return s;
    }

private:
    std::mt19937 engine_;
};

// ---------------------------------------------------------------------------------------
// Writing, the fastest way each backend offers through bound values only.
//
// SQLite: one prepared single-row INSERT, bound and run again for every row; the work is
// local, and Qt's SQLite driver looks placeholders up by name, which makes multi-row
// statements with thousands of values slow down quadratically.
// PostgreSQL: rows are gathered per column into array values and inserted a few thousand at
// a time through unnest(), one bound value per column: one round trip per batch, and the
// server parses arrays rather than an expression for every value.

class Batch {
public:
    Batch(Db& db, DemoSummary& summary, QString table, QStringList columns, Batch* parent = nullptr)
        : db_(db)
        , summary_(summary)
        , table_(std::move(table))
        , columns_(std::move(columns))
        , parent_(parent) {
        if (db_.backend() == core::Backend::Sqlite) {
            single_.emplace(db_.handle());
            const QString marks = QStringList(columns_.size(), QStringLiteral("?")).join(", ");
            if (!single_->prepare(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                                      .arg(table_, columns_.join(", "), marks)))
                throw Db::classify(single_->lastError(), core::Backend::Sqlite);
        } else {
            arrays_.resize(columns_.size());
            statement_ = unnestStatement();
        }
    }
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;

    void add(std::initializer_list<QVariant> values) {
        if (static_cast<qsizetype>(values.size()) != columns_.size())
            throw std::logic_error("demo row does not match its columns");
        if (single_) {
            int i = 0;
            for (const QVariant& v : values)
                single_->bindValue(i++, sqliteValue(v));
            if (!single_->exec()) throw Db::classify(single_->lastError(), core::Backend::Sqlite);
            ++written_;
            return;
        }
        int i = 0;
        for (const QVariant& v : values) {
            QString& a = arrays_[i++];
            a += rows_ == 0 ? '{' : ',';
            appendElement(a, v);
        }
        if (++rows_ == RowsPerStatement) flush();
    }

    // Writes what is left and records the count; the batch may not be used afterwards.
    void finish() {
        flush();
        summary_.tables.emplace_back(table_, written_);
    }

    void flush() {
        if (rows_ == 0) return;
        // Rows that refer to the parent's rows go in after them.
        if (parent_) parent_->flush();
        Params params;
        for (QString& a : arrays_) {
            a += '}';
            params << a;
            a.clear();
        }
        db_.exec(statement_, params);
        written_ += rows_;
        rows_ = 0;
    }

private:
    static constexpr int RowsPerStatement = 2000;

    static QVariant sqliteValue(const QVariant& v) {
        switch (v.typeId()) {
        case QMetaType::QDate:
            return v.isNull() ? QVariant(QMetaType::fromType<QString>())
                              : QVariant(v.toDate().toString(Qt::ISODate));
        case QMetaType::QDateTime:
            return v.isNull() ? QVariant(QMetaType::fromType<QString>())
                              : QVariant(v.toDateTime().toString("yyyy-MM-dd HH:mm:ss"));
        default:
            return v;
        }
    }

    // One element of a PostgreSQL array value: NULL bare, everything else quoted.
    static void appendElement(QString& out, const QVariant& v) {
        if (v.isNull() || !v.isValid()) {
            out += QLatin1String("NULL");
            return;
        }
        QString text;
        switch (v.typeId()) {
        case QMetaType::QDate:
            text = v.toDate().toString(Qt::ISODate);
            break;
        case QMetaType::QDateTime:
            text = v.toDateTime().toString("yyyy-MM-dd HH:mm:ss");
            break;
        default:
            text = v.toString();
        }
        out += '"';
        for (const QChar c : std::as_const(text)) {
            if (c == '"' || c == '\\') out += '\\';
            out += c;
        }
        out += '"';
    }

    // INSERT ... SELECT * FROM unnest(CAST(? AS type[]), ...), with the column types as the
    // database has them.
    QString unnestStatement() const {
        std::map<QString, QString> types;
        QSqlQuery q =
            db_.query("SELECT attname, format_type(atttypid, atttypmod) FROM pg_attribute "
                      "WHERE attrelid = CAST(? AS regclass) AND attnum > 0 "
                      "AND NOT attisdropped",
                      {table_.toLower()});
        while (q.next())
            types[q.value(0).toString()] = q.value(1).toString();
        QStringList arrays;
        for (const QString& c : columns_) {
            const auto t = types.find(c.toLower());
            if (t == types.end()) throw std::logic_error("demo column missing from the schema");
            arrays << QStringLiteral("CAST(? AS %1[])").arg(t->second);
        }
        return QStringLiteral("INSERT INTO %1 (%2) SELECT * FROM unnest(%3)")
            .arg(table_, columns_.join(", "), arrays.join(", "));
    }

    Db& db_;
    DemoSummary& summary_;
    QString table_;
    QStringList columns_;
    Batch* parent_;
    int rows_ = 0;
    qint64 written_ = 0;
    std::optional<QSqlQuery> single_;
    std::vector<QString> arrays_;
    QString statement_;
};

// Keys are handed out in insert order from the first free one, so that rows can refer to
// each other before they are written. (PostgreSQL's sequences follow by trigger.)
qint64 firstFreeKey(Db& db, const char* table, const char* key) {
    return db.scalar(QStringLiteral("SELECT COALESCE(MAX(%1), 0) FROM %2")
                         .arg(QLatin1String(key), QLatin1String(table)))
               .toLongLong() +
           1;
}

const QVariant NullText{QMetaType::fromType<QString>()};
const QVariant NullKey{QMetaType::fromType<qlonglong>()};
const QVariant NullNumber{QMetaType::fromType<double>()};

QVariant date(const QDate& d) {
    return core::Db::dateOrNull(d);
}
QVariant key(qint64 id) {
    return id > 0 ? QVariant(id) : NullKey;
}
QVariant money(const Money& m) {
    return m.toVariant();
}
QVariant money(std::optional<Money> m) {
    return m ? m->toVariant() : NullText;
}

Money pounds(qint64 whole, int pence = 0) {
    return Money::fromUnits(whole * Money::Scale + pence * (Money::Scale / 100));
}

// ---------------------------------------------------------------------------------------
// Dates

bool weekend(const QDate& d) {
    return d.dayOfWeek() >= 6;
}

QDate nextWeekday(QDate d) {
    while (weekend(d))
        d = d.addDays(1);
    return d;
}

// The date that ends a run of the given number of working days starting on a weekday.
QDate addWorkingDays(QDate start, int days) {
    QDate d = start;
    for (int left = days - 1; left > 0;) {
        d = d.addDays(1);
        if (!weekend(d)) --left;
    }
    return d;
}

int workingDaysBetween(const QDate& from, const QDate& to) {
    int n = 0;
    for (QDate d = from; d <= to; d = d.addDays(1))
        if (!weekend(d)) ++n;
    return n;
}

// ---------------------------------------------------------------------------------------
// The organisation's own data

struct Town {
    const char* name;
    const char* postcodeArea;
    const char* phonePrefix; // a drama-reserved range; three digits follow
    std::array<const char*, 6> localities;
};

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

struct CompanyInfo {
    const char* name;
    int town;
    const char* premises;
};

const std::array<CompanyInfo, 5> Companies{{
    {"Ashcombe Holdings Ltd", 0, "Ashcombe House, Wellington Street"},
    {"Ashcombe Distribution Ltd", 1, "Unit 7, Kingsway Trading Estate"},
    {"Ashcombe Engineering Ltd", 2, "Meridian Works, Tyburn Road"},
    {"Kestrel Print Services Ltd", 3, "Canal Wharf, Feeder Road"},
    {"Brightwater Foods Ltd", 5, "Riverside Industrial Estate"},
}};

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

const std::array<const char*, DeptCount> DeptNames{
    "Directors", "Accounts",   "Customer Services", "Facilities", "Human Resources", "IT",
    "Marketing", "Operations", "Purchasing",        "Sales",      "Warehouse"};

// How the staff below the board spread over the departments.
const std::array<int, DeptCount> DeptWeights{0, 8, 14, 5, 4, 6, 4, 20, 4, 14, 21};

struct Role {
    const char* name;
    Dept dept;
    int minSalary;
    int maxSalary;
    bool manages;
    int weight; // among the department's staff
};

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

struct Supplied {
    const char* name;
    int town;
    std::array<const char*, 3> services;
};

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

struct Machine {
    const char* manufacturer;
    const char* model;
    bool laptop;
    int price;
};

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

struct Device {
    const char* type;
    const char* manufacturer;
    const char* model;
    int price;
};

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

struct Complaint {
    const char* description;
    const char* resolution;
};

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

struct Site {
    QString name;
    int town;
};

struct Staff {
    qint64 id = 0;
    QString first;
    QString surname;
    bool male = false;
    QDate dob;
    QDate start;
    QDate finish; // leavers only
    QDate jobStart;
    int company = 0;
    Dept dept = Operations;
    int role = 0;
    int site = 0;
    int town = 0;
    Money salary;
    double daysHoliday = 25;
    bool leaver = false;
    bool deleted = false;
    bool manager = false;
    QString lineManager;
    QString managerName; // "{firstnames} {surname}" of the line manager, for appraisals
    qint64 computer = 0;
    qint64 monitor = 0;

    bool current() const { return !leaver && !deleted; }
    QDate lastDay(const QDate& today) const { return leaver ? finish : today; }
    QString listName() const { return surname + ", " + first; }
    QString fullName() const { return first + ' ' + surname; }
};

class Generator {
public:
    Generator(Db& db, int employees, quint32 seed, QDate today)
        : db_(db)
        , rnd_(seed)
        , employees_(std::max(0, employees))
        , today_(today) {}

    DemoSummary run() {
        readLookups();
        organisation();
        suppliers();
        people();
        personnelRecords();
        training();
        assets();
        helpdesk();
        contacts();
        pettyCash();
        summary_.employees = employees_;
        return summary_;
    }

private:
    // -- shared pieces ---------------------------------------------------------------

    QString postcode(int town) {
        return QStringLiteral("%1%2 %3%4")
            .arg(QLatin1String(Towns[town].postcodeArea))
            .arg(rnd_.between(1, 28))
            .arg(rnd_.below(10))
            .arg(rnd_.letters(2, "ABDEFGHJLNPQRSTUWXYZ"));
    }
    QString phone(int town) { return QLatin1String(Towns[town].phonePrefix) + rnd_.digits(3); }
    QString mobile() { return QStringLiteral("07700 900") + rnd_.digits(3); }
    QString street() {
        return QStringLiteral("%1 %2")
            .arg(rnd_.between(1, 240))
            .arg(QLatin1String(rnd_.pick(Streets)));
    }
    QString locality(int town) { return QLatin1String(rnd_.pick(Towns[town].localities)); }
    QString firstName(bool male) {
        return QLatin1String(male ? rnd_.pick(MaleNames) : rnd_.pick(FemaleNames));
    }
    QString surname() { return QLatin1String(rnd_.pick(Surnames)); }
    QString personName() { return firstName(rnd_.percent(50)) + ' ' + surname(); }
    QString email(const QString& person, const QString& domain) {
        QString local = person.toLower();
        local.remove('\'');
        local.replace(' ', '.');
        return local + '@' + domain;
    }
    static QString domainOf(const QString& company) {
        QString d = company.toLower();
        d.remove(QLatin1String(" ltd"));
        d.remove(QLatin1String(" plc"));
        d.remove('&');
        d.remove('\'');
        d = d.simplified();
        d.replace(' ', '-');
        return d + QStringLiteral(".co.uk");
    }
    QDate dayWithin(const QDate& from, const QDate& to) {
        const qint64 span = from.daysTo(to);
        if (span <= 0) return from;
        return from.addDays(rnd_.below(static_cast<int>(std::min<qint64>(span + 1, 1 << 30))));
    }
    qint64 invoice(const QDate& when, Money price) {
        const qint64 id = nextInvoice_++;
        invoices_->add({id, date(when), QStringLiteral("INV") + rnd_.digits(7), money(price)});
        return id;
    }

    // -- lookups the installation brought ----------------------------------------------

    std::vector<QString> sortedTexts(const char* sql) {
        std::vector<QString> out;
        QSqlQuery q = db_.query(QLatin1String(sql));
        while (q.next())
            out.push_back(Db::text(q.value(0)));
        // Sorted here, not by the server, whose collation differs from one installation to
        // the next: the same seed must give the same organisation everywhere.
        std::sort(out.begin(), out.end());
        return out;
    }

    void readLookups() {
        origins_ = sortedTexts("SELECT origin FROM EthOrigin");
        if (origins_.empty()) origins_.push_back(QStringLiteral("Not stated"));
        mostOrigin_ = std::find(origins_.begin(), origins_.end(),
                                QStringLiteral("White - British")) != origins_.end();
        actions_ = sortedTexts("SELECT Action FROM CallAction");
        std::erase(actions_, QStringLiteral("Note/Comment only"));
        if (actions_.empty()) actions_.push_back(QStringLiteral("Telephoned user"));
        QSqlQuery q = db_.query("SELECT service_id, service FROM services");
        while (q.next())
            services_[Db::text(q.value(1))] = q.value(0).toLongLong();
        QSqlQuery c = db_.query("SELECT Course_ID, Title FROM Courses");
        std::map<QString, qint64> courses;
        while (c.next())
            courses[Db::text(c.value(1))] = c.value(0).toLongLong();
        for (const auto& [title, id] : courses)
            courses_.push_back({id, title});
    }

    // -- companies, departments, locations, positions ----------------------------------

    void organisation() {
        // The companies themselves are written once their people are known (writeCompanies).
        const int companies = 3 + rnd_.below(3);
        qint64 id = firstFreeKey(db_, "Company", "Company_ID");
        for (int i = 0; i < companies; ++i) {
            companyIds_.push_back(id++);
            companyTowns_.push_back(Companies[i].town);
        }

        Batch department(db_, summary_, "Department", {"Department_ID", "Department"});
        id = firstFreeKey(db_, "Department", "Department_ID");
        for (const char* name : DeptNames) {
            deptIds_.push_back(id);
            department.add({id++, QLatin1String(name)});
        }
        department.finish();

        // A site in every company's town, the first one the head office, and a branch or two.
        for (int i = 0; i < companies; ++i) {
            const int town = companyTowns_[i];
            const QString name = QLatin1String(Towns[town].name);
            sites_.push_back({i == 0 ? name + QStringLiteral(" Head Office") : name, town});
        }
        for (int extra = 1 + rnd_.below(2), t = 6; extra > 0; --extra, t += 1 + rnd_.below(3))
            sites_.push_back({QLatin1String(Towns[t].name) + QStringLiteral(" Branch"), t});
        Batch location(db_, summary_, "Location", {"Location_ID", "Location"});
        id = firstFreeKey(db_, "Location", "Location_ID");
        for (const Site& s : sites_) {
            siteIds_.push_back(id);
            location.add({id++, s.name});
        }
        location.finish();

        Batch position(db_, summary_, "Position", {"PositionID", "Position_name"});
        id = firstFreeKey(db_, "Position", "PositionID");
        for (const Role& r : Roles) {
            roleIds_.push_back(id);
            position.add({id++, QLatin1String(r.name)});
        }
        position.finish();
        summary_.companies = companies;
    }

    // -- suppliers -----------------------------------------------------------------------

    void suppliers() {
        Batch supplier(db_, summary_, "Supplier",
                       {"Supplier_ID", "Name", "address1", "address2", "address3", "pcode", "phone",
                        "contact", "fax", "email"});
        Batch offered(db_, summary_, "supplierservices",
                      {"supplierservices_id", "supplier_id", "Services_ID"}, &supplier);
        Batch office(db_, summary_, "supplieroffice",
                     {"supplieroffice_id", "supplier_id", "address1", "address2", "address3",
                      "pcode", "fax", "phone", "contact", "email"},
                     &supplier);
        qint64 id = firstFreeKey(db_, "Supplier", "Supplier_ID");
        qint64 offeredId = firstFreeKey(db_, "supplierservices", "supplierservices_id");
        qint64 officeId = firstFreeKey(db_, "supplieroffice", "supplieroffice_id");

        const int extra = employees_ / 1000;
        for (int i = 0; i < static_cast<int>(SupplierList.size()) + extra; ++i) {
            QString name;
            int town;
            std::vector<QString> offers;
            if (i < static_cast<int>(SupplierList.size())) {
                const Supplied& s = SupplierList[i];
                name = QLatin1String(s.name);
                town = s.town;
                for (const char* service : s.services)
                    if (service) offers.emplace_back(QLatin1String(service));
            } else {
                const char* trade = rnd_.pick(Trades);
                town = rnd_.below(static_cast<int>(Towns.size()));
                name = QStringLiteral("%1 & Sons %2").arg(surname(), QLatin1String(trade));
                offers.emplace_back(QLatin1String(trade) == QLatin1String("Office Supplies")
                                        ? QStringLiteral("Stationery")
                                    : QLatin1String(trade) == QLatin1String("Computer Services")
                                        ? QStringLiteral("Computer Hardware")
                                        : QLatin1String(trade));
            }
            const QString contactName = personName();
            const QString domain = domainOf(name);
            supplier.add({id, name, street(), locality(town), QLatin1String(Towns[town].name),
                          postcode(town), phone(town), contactName, phone(town),
                          QStringLiteral("sales@") + domain});
            for (const QString& service : offers) {
                const auto found = services_.find(service);
                if (found == services_.end()) continue;
                offered.add({offeredId++, id, found->second});
                if (service == QLatin1String("Computer Hardware")) hardwareSuppliers_.push_back(id);
                if (service == QLatin1String("Software")) softwareSuppliers_.push_back(id);
                if (service == QLatin1String("Printers and Consumables"))
                    printerSuppliers_.push_back(id);
            }
            for (int n = rnd_.weighted({5, 3, 2, 1}); n > 0; --n) {
                const int branch = rnd_.below(static_cast<int>(Towns.size()));
                const QString manager = personName();
                office.add({officeId++, id, street(), locality(branch),
                            QLatin1String(Towns[branch].name), postcode(branch), phone(branch),
                            phone(branch), manager, email(manager, domain)});
            }
            ++id;
        }
        // Assets always have somewhere to come from, whatever the installation's services.
        const qint64 first = id - static_cast<qint64>(SupplierList.size()) - extra;
        if (hardwareSuppliers_.empty()) hardwareSuppliers_.push_back(first);
        if (softwareSuppliers_.empty()) softwareSuppliers_.push_back(first);
        if (printerSuppliers_.empty()) printerSuppliers_.push_back(first);
        supplier.finish();
        offered.finish();
        office.finish();
    }

    // -- employees -------------------------------------------------------------------------

    // Managers and directors were no school leavers when they started; born accordingly.
    void seasoned(Staff& s) {
        if (s.dob.isValid() && s.dob.daysTo(s.start) >= 28 * 365) return;
        s.dob = s.start.addYears(-rnd_.between(28, 50)).addDays(-rnd_.below(365));
    }

    void people() {
        staff_.resize(employees_);
        const int companies = static_cast<int>(companyIds_.size());
        // The board: a managing director in each company and a director or two more,
        // once the organisation is big enough to have one.
        const int directors = std::min(companies * 2, employees_ / 20);
        qint64 id = firstFreeKey(db_, "Person", "Person_ID");
        for (int i = 0; i < employees_; ++i) {
            Staff& s = staff_[i];
            s.id = id++;
            s.male = rnd_.percent(52);
            s.first = firstName(s.male);
            if (rnd_.percent(25)) {
                const QString middle = firstName(s.male);
                if (middle != s.first) s.first += ' ' + middle;
            }
            s.surname = surname();
            if (i < directors) {
                s.dept = Directors;
                s.company = i % companies;
                s.role = i < companies ? 0 : 1 + rnd_.below(3);
                s.manager = true;
            } else {
                s.company = rnd_.weighted({40, 25, 18, 10, 7}) % companies;
                int d = rnd_.below(100);
                int dept = 1;
                while (d >= DeptWeights[dept]) {
                    d -= DeptWeights[dept];
                    ++dept;
                }
                s.dept = static_cast<Dept>(dept);
                s.role = staffRole(rnd_, s.dept);
            }
            // Most people work at their company's own site.
            s.site = rnd_.percent(80) ? s.company : rnd_.below(static_cast<int>(sites_.size()));
            s.town =
                rnd_.percent(85) ? sites_[s.site].town : rnd_.below(static_cast<int>(Towns.size()));
            const int band = rnd_.weighted({35, 40, 25});
            int tenure = band == 0   ? rnd_.between(120, 730)
                         : band == 1 ? rnd_.between(731, 2920)
                                     : rnd_.between(2921, 9000);
            if (s.manager) tenure += 730;
            s.start = nextWeekday(today_.addDays(-tenure));
            const int ageAtStart = rnd_.weighted({20, 45, 25, 10}) * 10 + rnd_.between(17, 26);
            s.dob = s.start.addYears(-ageAtStart).addDays(-rnd_.below(365));
            if (s.manager) seasoned(s);
            s.salary = salaryFor(rnd_, Roles[s.role]);
        }

        // About one in twenty are line managers: each department's manager, one for every
        // twenty or so of its staff.
        for (int dept = 1; dept < DeptCount; ++dept) {
            std::vector<int> members;
            for (int i = directors; i < employees_; ++i)
                if (staff_[i].dept == dept) members.push_back(i);
            if (members.empty()) continue;
            const int wanted = std::max<int>(1, (static_cast<int>(members.size()) + 10) / 20);
            std::vector<int> chosen;
            for (int tries = 0; static_cast<int>(chosen.size()) < wanted && tries < wanted * 10;
                 ++tries) {
                const int m = rnd_.pick(members);
                if (staff_[m].manager) continue;
                Staff& s = staff_[m];
                s.manager = true;
                s.role = managerRole(static_cast<Dept>(dept));
                s.salary = salaryFor(rnd_, Roles[s.role]);
                seasoned(s);
                chosen.push_back(m);
            }
            for (int m : members) {
                Staff& s = staff_[m];
                if (s.manager) continue;
                // Preferably someone in the same company.
                int boss = rnd_.pick(chosen);
                for (int c : chosen)
                    if (staff_[c].company == s.company) {
                        boss = c;
                        if (rnd_.percent(50)) break;
                    }
                s.lineManager = staff_[boss].listName();
                s.managerName = staff_[boss].fullName();
            }
        }
        // Managers answer to a director of their company, directors to its managing
        // director (the first directors are the managing directors, one per company).
        const auto reportsTo = [](Staff& s, const Staff& boss) {
            s.lineManager = boss.listName();
            s.managerName = boss.fullName();
        };
        for (int i = directors; i < employees_; ++i) {
            Staff& s = staff_[i];
            if (!s.manager) continue;
            std::vector<int> board;
            for (int d = 0; d < directors; ++d)
                if (staff_[d].company == s.company) board.push_back(d);
            if (!board.empty()) reportsTo(s, staff_[rnd_.pick(board)]);
        }
        for (int d = companies; d < directors; ++d)
            reportsTo(staff_[d], staff_[staff_[d].company]);

        // Leavers and the odd deleted record, never among the managers.
        for (Staff& s : staff_) {
            if (s.manager) continue;
            const int tenure = static_cast<int>(s.start.daysTo(today_));
            if (rnd_.percent(8) && tenure > 90) {
                s.leaver = true;
                const int back = rnd_.between(1, std::min(1095, tenure - 60));
                s.finish = today_.addDays(-back);
            } else if (rnd_.permille(5)) {
                s.deleted = true;
            }
        }
        writePeople();
    }

    // The named contacts of a company are its own directors and managers where it has them.
    void writeCompanies() {
        Batch company(db_, summary_, "Company",
                      {"Company_ID", "Company_Name", "address1", "address2", "address3", "Tel_NO",
                       "fax", "MD_Name", "MD_Phone", "PA_Name", "PA_Phone", "Compliance_name",
                       "Compliance_Phone", "IT_Name", "IT_Phone", "Finance_Name", "Finance_Phone"});
        for (std::size_t c = 0; c < companyIds_.size(); ++c) {
            const auto holder = [&](std::initializer_list<int> roles) {
                for (int role : roles)
                    for (const Staff& s : staff_)
                        if (s.company == static_cast<int>(c) && s.role == role && s.current())
                            return s.fullName();
                return personName();
            };
            const int town = companyTowns_[c];
            const QString md = holder({0});
            const QString finance = holder({1, managerRole(Accounts)});
            const QString it = holder({managerRole(IT)});
            const QString compliance = holder({managerRole(HumanResources)});
            company.add({companyIds_[c], QLatin1String(Companies[c].name),
                         QLatin1String(Companies[c].premises), locality(town),
                         QLatin1String(Towns[town].name) + ' ' + postcode(town), phone(town),
                         phone(town), md, phone(town), personName(), phone(town), compliance,
                         phone(town), it, phone(town), finance, phone(town)});
        }
        company.finish();
    }

    void writePeople() {
        writeCompanies();
        Batch person(db_, summary_, "Person",
                     {"Person_ID",
                      "firstnames",
                      "surname",
                      "Title",
                      "DOB",
                      "MaritalStatus",
                      "Dependents",
                      "NI_Number",
                      "address1",
                      "address2",
                      "address3",
                      "PostCode",
                      "phone",
                      "NOK1_Name",
                      "NOK1_Relationship",
                      "NOK1_Address",
                      "NOK1_Home_PH",
                      "NOK1_Mobile_PH",
                      "NOK2_Name",
                      "NOK2_Relationship",
                      "NOK2_Address",
                      "NOK2_Home_PH",
                      "NOK2_Mobile_PH",
                      "startdate",
                      "Employment_Type",
                      "Recruitment",
                      "EthOrigin",
                      "Nationality",
                      "Location_ID",
                      "Department_ID",
                      "Position_ID",
                      "Company_ID",
                      "salary",
                      "JHDate",
                      "jhnote",
                      "firstaider",
                      "firstaiderdate",
                      "MedCover",
                      "MedCoCost",
                      "MedEmpCost",
                      "PensionEF",
                      "CompCon",
                      "EmpCon",
                      "blncompfig",
                      "blnempfig",
                      "LifeCover",
                      "PHICover",
                      "LifeLevel",
                      "PHILevel",
                      "BankName",
                      "BankADD1",
                      "BankADD2",
                      "BankADD3",
                      "BankPC",
                      "AccName",
                      "AccNo",
                      "SortCode",
                      "IsManager",
                      "Line_Manager",
                      "FullTime",
                      "EmpHours",
                      "DaysHoliday",
                      "AllocationDate",
                      "DeAllocationDate",
                      "RegNo",
                      "CarGrade",
                      "CarCategory",
                      "CarTrade",
                      "CarTradeMoney",
                      "PetrolAllowance",
                      "CarAllowance",
                      "extno",
                      "HasLeft",
                      "finishdate",
                      "ExitIntDate",
                      "FinReason",
                      "ExitInt",
                      "ExitNotes",
                      "blndeleted"});
        static const std::array<const char*, 8> banks{"Barclays Bank",
                                                      "Lloyds Bank",
                                                      "HSBC UK",
                                                      "NatWest",
                                                      "Santander UK",
                                                      "Halifax",
                                                      "Nationwide Building Society",
                                                      "TSB Bank"};
        static const std::array<const char*, 10> nationalities{
            "British", "British", "British", "British",  "British",
            "Irish",   "Polish",  "Indian",  "Nigerian", "Portuguese"};
        static const std::array<const char*, 6> leaving{"Resigned - new job",
                                                        "Resigned - personal reasons",
                                                        "Retired",
                                                        "Relocated",
                                                        "End of contract",
                                                        "Redundancy"};
        static const std::array<const char*, 4> reviewNotes{"", "", "Annual salary review",
                                                            "Regraded after review"};
        QString hrManager = QStringLiteral("Human Resources");
        for (const Staff& s : staff_)
            if (s.dept == HumanResources && s.manager) {
                hrManager = s.fullName();
                break;
            }

        for (int i = 0; i < employees_; ++i) {
            Staff& s = staff_[i];
            const int age = static_cast<int>(s.dob.daysTo(today_) / 365);
            const int marital =
                age < 25 ? rnd_.weighted({85, 12, 1, 1, 0}) : rnd_.weighted({30, 50, 6, 11, 3});
            static const std::array<const char*, 5> maritalNames{"Single", "Married", "Seperated",
                                                                 "Divorced", "Widowed"};
            QString title;
            if (rnd_.permille(15))
                title = rnd_.percent(80) ? QStringLiteral("Doctor") : QStringLiteral("Prof");
            else if (s.male)
                title = QStringLiteral("Mr");
            else
                title = marital == 1
                            ? (rnd_.percent(85) ? QStringLiteral("Mrs") : QStringLiteral("Ms"))
                        : marital == 0
                            ? (rnd_.percent(70) ? QStringLiteral("Miss") : QStringLiteral("Ms"))
                            : QStringLiteral("Ms");
            QString ni;
            do {
                ni = rnd_.letters(1, "ABCEGHJKLMNOPRSTWXYZ") +
                     rnd_.letters(1, "ABCEGHJKLMNPRSTWXYZ");
            } while (ni == "BG" || ni == "GB" || ni == "NK" || ni == "KN" || ni == "TN" ||
                     ni == "NT" || ni == "ZZ");
            ni += QStringLiteral("-%1-%2-%3-%4")
                      .arg(rnd_.digits(2), rnd_.digits(2), rnd_.digits(2), rnd_.letters(1, "ABCD"));
            const QString address1 = street();
            const QString address2 = locality(s.town);
            const QString town = QLatin1String(Towns[s.town].name);
            const QString pc = postcode(s.town);
            const QString home = phone(s.town);
            const QString fullAddress = address1 + ", " + address2 + ", " + town + ' ' + pc;

            QString nok1Name, nok1Rel, nok1Address = fullAddress, nok1Home = home;
            if (marital == 1) {
                nok1Name = firstName(!s.male) + ' ' + s.surname;
                nok1Rel = rnd_.percent(90)
                              ? (s.male ? QStringLiteral("Wife") : QStringLiteral("Husband"))
                              : QStringLiteral("Partner");
            } else {
                const bool mother = rnd_.percent(60);
                nok1Name = firstName(!mother) + ' ' + s.surname;
                nok1Rel = mother ? QStringLiteral("Mother") : QStringLiteral("Father");
                const int t =
                    rnd_.percent(70) ? s.town : rnd_.below(static_cast<int>(Towns.size()));
                nok1Address = street() + ", " + locality(t) + ", " + QLatin1String(Towns[t].name) +
                              ' ' + postcode(t);
                nok1Home = phone(t);
            }
            const QString nok1Mobile = mobile();
            QString nok2Name, nok2Rel, nok2Address, nok2Home, nok2Mobile;
            if (rnd_.percent(40)) {
                const bool sibling = rnd_.percent(60);
                const bool brother = rnd_.percent(50);
                nok2Name = firstName(brother) + ' ' + (sibling ? s.surname : surname());
                nok2Rel = sibling ? (brother ? QStringLiteral("Brother") : QStringLiteral("Sister"))
                                  : QStringLiteral("Friend");
                const int t = rnd_.below(static_cast<int>(Towns.size()));
                nok2Address = street() + ", " + locality(t) + ", " + QLatin1String(Towns[t].name) +
                              ' ' + postcode(t);
                nok2Home = phone(t);
                nok2Mobile = mobile();
            }

            static const std::array<const char*, 3> employment{"Permanent", "Temporary",
                                                               "Contract"};
            static const std::array<const char*, 3> recruitment{"Direct", "Agency", "Advertisment"};
            const QString employmentType = QLatin1String(employment[rnd_.weighted({85, 8, 7})]);
            const QString recruited = QLatin1String(recruitment[rnd_.weighted({50, 25, 25})]);
            const QString origin = rnd_.percent(75) && mostOrigin_
                                       ? QStringLiteral("White - British")
                                       : rnd_.pick(origins_);
            const QString nationality = QLatin1String(rnd_.pick(nationalities));

            // The present post began at the last of 1-4 earlier periods (written below).
            const QDate end = s.lastDay(today_);
            const int tenure = static_cast<int>(s.start.daysTo(end));
            const int periods = std::max(1, std::min(1 + rnd_.below(4), tenure / 90));
            std::vector<QDate> cuts;
            for (int p = 0; p < periods; ++p)
                cuts.push_back(s.start.addDays(45 + rnd_.below(std::max(1, tenure - 75))));
            std::sort(cuts.begin(), cuts.end());
            cuts.erase(std::unique(cuts.begin(), cuts.end()), cuts.end());
            cuts_.push_back(cuts);
            s.jobStart = cuts.back();

            const bool firstAider = rnd_.percent(4) && !s.leaver;
            const QDate aidDate = firstAider ? today_.addDays(-rnd_.between(60, 4 * 365)) : QDate();

            const int cover = rnd_.weighted({40, 30, 15, 15});
            static const std::array<const char*, 4> covers{"None - refused", "Employee",
                                                           "Emp + Partner", "Emp + family"};
            static const std::array<int, 4> companyCost{0, 3850, 7200, 9600}; // pence
            static const std::array<int, 4> employeeCost{0, 0, 1500, 2500};   // pence
            const bool pension = rnd_.percent(70);
            const QDate pensionFrom = pension ? s.start.addMonths(3) : QDate();
            const int compCon = pension ? rnd_.between(3, 8) : 0;
            const int empCon = pension ? rnd_.between(3, 6) : 0;
            const bool life = rnd_.percent(70);
            const bool phi = rnd_.percent(55);
            static const std::array<const char*, 3> lifeLevels{"2*", "3*", "4*"};

            const bool fullTime = rnd_.percent(85);
            const double hours = fullTime ? 37.5 : rnd_.between(8, 30);
            const int years = static_cast<int>(s.start.daysTo(today_) / 365);
            const double fullEntitlement = 25 + std::min(5, years / 2);
            s.daysHoliday =
                fullTime ? fullEntitlement : std::round(fullEntitlement * hours / 37.5 * 2) / 2;

            const bool car = (s.manager || s.dept == Sales) ? rnd_.percent(60) : rnd_.percent(3);
            QDate carFrom, carTo;
            QString regNo, grade, category, trade;
            std::optional<Money> tradeMoney, petrol, allowance;
            if (car) {
                carFrom = dayWithin(s.start, std::min(end, s.start.addYears(3)));
                if (s.leaver) carTo = s.finish;
                regNo = rnd_.letters(2, "ABCDEFGHKLMNOPRSVWY") + rnd_.digits(2) + ' ' +
                        rnd_.letters(3, "ABCDEFGHJKLMNOPRSTUVWXYZ");
                grade = QString(QChar('A' + rnd_.below(4)));
                category = rnd_.percent(60) ? QStringLiteral("Business Need")
                                            : QStringLiteral("Benefit Car");
                static const std::array<const char*, 3> trades{"UP", "DOWN", "NONE"};
                trade = QLatin1String(trades[rnd_.weighted({15, 10, 75})]);
                tradeMoney =
                    trade == QLatin1String("NONE") ? Money() : pounds(rnd_.between(5, 60) * 10);
                petrol = pounds(rnd_.between(6, 20) * 10);
                allowance = category == QLatin1String("Benefit Car")
                                ? pounds(rnd_.between(30, 70) * 10)
                                : Money();
            }

            QString finReason, exitBy, exitNotes;
            QDate exitDate;
            if (s.leaver) {
                finReason = QLatin1String(rnd_.pick(leaving));
                exitBy = hrManager;
                exitDate = s.finish.addDays(-rnd_.between(1, 10));
                exitNotes = rnd_.percent(50) ? QStringLiteral("Would recommend the company")
                                             : QStringLiteral("Left on good terms");
            }
            const QString initial = s.first.left(1);
            person.add(
                {s.id,
                 s.first,
                 s.surname,
                 title,
                 date(s.dob),
                 QLatin1String(maritalNames[marital]),
                 QString::number(marital == 0 ? rnd_.weighted({80, 12, 8})
                                              : rnd_.weighted({30, 25, 30, 10, 4, 1})),
                 ni,
                 address1,
                 address2,
                 town,
                 pc,
                 home,
                 nok1Name,
                 nok1Rel,
                 nok1Address,
                 nok1Home,
                 nok1Mobile,
                 nok2Name,
                 nok2Rel,
                 nok2Address,
                 nok2Home,
                 nok2Mobile,
                 date(s.start),
                 employmentType,
                 recruited,
                 origin,
                 nationality,
                 siteIds_[s.site],
                 deptIds_[s.dept],
                 roleIds_[s.role],
                 companyIds_[s.company],
                 money(s.salary),
                 date(s.jobStart),
                 QLatin1String(rnd_.pick(reviewNotes)),
                 firstAider ? 1 : 0,
                 date(aidDate),
                 QLatin1String(covers[cover]),
                 money(Money::fromUnits(companyCost[cover] * (Money::Scale / 100))),
                 money(Money::fromUnits(employeeCost[cover] * (Money::Scale / 100))),
                 date(pensionFrom),
                 compCon,
                 empCon,
                 pension && rnd_.percent(80) ? 1 : 0,
                 pension && rnd_.percent(80) ? 1 : 0,
                 life ? QStringLiteral("Yes") : QStringLiteral("Refused"),
                 phi ? QStringLiteral("Yes") : QStringLiteral("Refused"),
                 life ? QLatin1String(rnd_.pick(lifeLevels)) : QString(""),
                 phi ? (rnd_.percent(60) ? QStringLiteral("50 %") : QStringLiteral("75 %"))
                     : QString(""),
                 QLatin1String(rnd_.pick(banks)),
                 street(),
                 QString(""),
                 town,
                 postcode(s.town),
                 title + ' ' + initial + ' ' + s.surname,
                 rnd_.digits(8),
                 QStringLiteral("%1-%2-%3").arg(rnd_.digits(2), rnd_.digits(2), rnd_.digits(2)),
                 s.manager ? 1 : 0,
                 s.lineManager,
                 fullTime ? QStringLiteral("Full Time") : QStringLiteral("Part Time"),
                 hours,
                 s.daysHoliday,
                 date(carFrom),
                 date(carTo),
                 regNo,
                 grade,
                 category,
                 trade,
                 money(tradeMoney),
                 money(petrol),
                 money(allowance),
                 QString::number(2000 + i % 8000),
                 s.leaver ? 1 : 0,
                 date(s.finish),
                 date(exitDate),
                 finReason,
                 exitBy,
                 exitNotes,
                 s.deleted ? 1 : 0});
        }
        person.finish();
    }

    // -- job history, holidays, absences, appraisals, reprimands, notes, documents ---------

    QString holidayNote(const QDate& first, double days) {
        if (days == 0.5) return QStringLiteral("Half day");
        if (first.month() == 12 && first.day() >= 18) return QStringLiteral("Christmas");
        if (days >= 5 && (first.month() == 7 || first.month() == 8))
            return QStringLiteral("Summer holiday");
        if (days == 1 && (first.dayOfWeek() == 1 || first.dayOfWeek() == 5))
            return rnd_.percent(40) ? QStringLiteral("Long weekend") : QString("");
        return rnd_.percent(5) ? QStringLiteral("Family wedding") : QString("");
    }

    // An earlier post in the same department that paid no more than the present one.
    int earlierRole(const Staff& s) {
        if (s.dept == Directors)
            return managerRole(static_cast<Dept>(rnd_.between(1, DeptCount - 1)));
        if (!s.manager && !rnd_.percent(45)) return s.role;
        for (int tries = 0; tries < 8; ++tries) {
            const int role = staffRole(rnd_, s.dept);
            if (Roles[role].minSalary <= Roles[s.role].minSalary) return role;
        }
        return s.role;
    }

    bool overlaps(const std::vector<std::pair<QDate, QDate>>& taken, const QDate& from,
                  const QDate& to) {
        for (const auto& [a, b] : taken)
            if (from <= b && a <= to) return true;
        return false;
    }

    void personnelRecords() {
        Batch history(
            db_, summary_, "JobHistory",
            {"JobHistory_ID", "person_id", "date_from", "date_to", "Position", "salary", "notes"});
        Batch holiday(db_, summary_, "Holiday",
                      {"holiday_ID", "person_id", "date_from", "date_to", "days", "notes"});
        Batch absence(
            db_, summary_, "Absence",
            {"absence_ID", "person_id", "startdate", "enddate", "days", "reason", "notes"});
        Batch appraisal(db_, summary_, "Appraisal",
                        {"Appraisal_ID", "person_id", "ADate", "Manager", "Rating", "notes"});
        Batch reprimand(db_, summary_, "Reprimands",
                        {"Reprimand_ID", "person_id", "Date", "Action", "reason", "notes"});
        Batch note(db_, summary_, "Notes", {"Note_ID", "person_id", "Date", "Description"});
        Batch document(db_, summary_, "Document",
                       {"document_id", "person_id", "Date", "Title", "notes", "Document"});
        qint64 historyId = firstFreeKey(db_, "JobHistory", "JobHistory_ID");
        qint64 holidayId = firstFreeKey(db_, "Holiday", "holiday_ID");
        qint64 absenceId = firstFreeKey(db_, "Absence", "absence_ID");
        qint64 appraisalId = firstFreeKey(db_, "Appraisal", "Appraisal_ID");
        qint64 reprimandId = firstFreeKey(db_, "Reprimands", "Reprimand_ID");
        qint64 noteId = firstFreeKey(db_, "Notes", "Note_ID");
        qint64 documentId = firstFreeKey(db_, "Document", "document_id");

        static const std::array<const char*, 8> sickNotes{"Cold",           "Flu",
                                                          "Back pain",      "Migraine",
                                                          "Stomach upset",  "Dental surgery",
                                                          "Sprained ankle", "Chest infection"};
        static const std::array<const char*, 3> doctorNotes{"GP appointment", "Dentist",
                                                            "Hospital appointment"};
        static const std::array<const char*, 4> ratings{"Excellent", "Good", "Satisfactory",
                                                        "Needs Improvement"};
        const int thisYear = today_.year();

        for (int i = 0; i < employees_; ++i) {
            const Staff& s = staff_[i];
            const QDate end = s.lastDay(today_);

            // Earlier posts, oldest first, each a little less well paid than the next.
            const std::vector<QDate>& cuts = cuts_[i];
            std::vector<Money> pay(cuts.size());
            qint64 units = s.salary.units();
            for (int p = static_cast<int>(cuts.size()) - 1; p >= 0; --p) {
                units = units * (100 - rnd_.between(3, 12)) / 100;
                pay[p] = roundedSalary(units);
            }
            // Directors came up through a department; others moved within their own.
            std::vector<int> roles(cuts.size());
            for (int p = static_cast<int>(cuts.size()) - 1; p >= 0; --p) {
                Staff earlier = s;
                if (p + 1 < static_cast<int>(cuts.size())) earlier.role = roles[p + 1];
                roles[p] = earlierRole(earlier);
            }
            for (std::size_t p = 0; p < cuts.size(); ++p) {
                const QDate from = p == 0 ? s.start : cuts[p - 1];
                const int next = p + 1 < cuts.size() ? roles[p + 1] : s.role;
                QString why;
                if (p == 0 && from.daysTo(cuts[0]) < 200)
                    why = QStringLiteral("Probationary period");
                else if (next != roles[p])
                    why = QStringLiteral("Moved to ") + QLatin1String(Roles[next].name);
                else
                    why = rnd_.percent(70) ? QStringLiteral("Annual salary review")
                                           : QStringLiteral("Regraded");
                history.add({historyId++, s.id, date(from), date(cuts[p]),
                             QLatin1String(Roles[roles[p]].name), money(pay[p]), why});
            }

            std::vector<std::pair<QDate, QDate>> taken;
            // Holidays over this year and the two before, booked up to three months ahead.
            for (int year = thisYear - 2; year <= thisYear; ++year) {
                const QDate from = std::max(QDate(year, 1, 1), s.start);
                QDate to = std::min(QDate(year, 12, 31), end);
                if (!s.leaver) to = std::min(to, today_.addDays(90));
                if (from > to) continue;
                const double share = s.daysHoliday * (from.daysTo(to) + 1) / 365.0;
                const double target = std::round(share * rnd_.between(80, 100) / 50.0) / 2;
                double booked = 0;
                for (int attempt = 0; booked < target && attempt < 40; ++attempt) {
                    const int kind = rnd_.weighted({10, 35, 30, 20, 5});
                    const QDate first = nextWeekday(dayWithin(from, to));
                    int days = kind == 0   ? 1
                               : kind == 1 ? 1
                               : kind == 2 ? rnd_.between(2, 4)
                               : kind == 3 ? 5
                                           : 10;
                    double value = kind == 0 ? 0.5 : days;
                    if (booked + value > target + 0.5) {
                        days = 1;
                        value = target - booked >= 1 ? 1 : 0.5;
                    }
                    const QDate last = addWorkingDays(first, days);
                    if (last > to || overlaps(taken, first, last)) continue;
                    taken.emplace_back(first, last);
                    booked += value;
                    holiday.add({holidayId++, s.id, date(first), date(last), value,
                                 holidayNote(first, value)});
                }
            }

            // Absences of the last three years, none still to come.
            const QDate from = std::max(s.start, today_.addDays(-3 * 365));
            const QDate to = std::min(end, today_.addDays(-1));
            const int age = static_cast<int>(s.dob.daysTo(today_) / 365);
            static const std::array<int, 6> spellCounts{0, 1, 2, 3, 4, 6};
            for (int spells = spellCounts[rnd_.weighted({25, 30, 25, 12, 5, 3})];
                 spells > 0 && from < to; --spells) {
                int kind = rnd_.weighted({70, 15, 5, 4, 2, 2, 2});
                if (kind == 4 && (s.male || age < 20 || age > 45)) kind = 0;
                if (kind == 6 && !s.male) kind = 0;
                static const std::array<const char*, 7> codes{"S", "D", "U", "A", "M", "P", "R"};
                const QDate first = nextWeekday(dayWithin(from, to));
                int days = 1;
                double value = 1;
                QString why;
                switch (kind) {
                case 0: {
                    const int length = rnd_.weighted({80, 15, 5});
                    days = length == 0   ? rnd_.between(1, 5)
                           : length == 1 ? rnd_.between(6, 20)
                                         : rnd_.between(21, 60);
                    why = QLatin1String(rnd_.pick(sickNotes));
                    break;
                }
                case 1:
                    why = QLatin1String(rnd_.pick(doctorNotes));
                    if (rnd_.percent(60)) value = 0.5;
                    break;
                case 2:
                    days = rnd_.between(1, 5);
                    why = QStringLiteral("Unpaid leave agreed");
                    break;
                case 3:
                    why = QStringLiteral("Did not report in");
                    break;
                case 4:
                    days = rnd_.between(100, 190);
                    why = QStringLiteral("Maternity leave");
                    break;
                case 5:
                    days = rnd_.between(3, 10);
                    why = QStringLiteral("Parental leave");
                    break;
                default:
                    days = 10;
                    why = QStringLiteral("Paternity leave");
                    break;
                }
                QDate last = addWorkingDays(first, days);
                if (last > to) last = to;
                if (last < first || overlaps(taken, first, last)) continue;
                if (value != 0.5) value = workingDaysBetween(first, last);
                if (value == 0) continue;
                taken.emplace_back(first, last);
                absence.add({absenceId++, s.id, date(first), date(last), value,
                             QLatin1String(codes[kind]), why});
            }

            // A yearly appraisal for most, a few reprimands, notes and documents.
            for (int year = thisYear - 2; year <= thisYear; ++year) {
                const QDate when =
                    nextWeekday(QDate(year, rnd_.between(3, 11), rnd_.between(1, 28)));
                if (when <= s.start.addMonths(6) || when >= end || !rnd_.percent(65)) continue;
                appraisal.add({appraisalId++, s.id, date(when), s.managerName,
                               QLatin1String(ratings[rnd_.weighted({15, 50, 28, 7})]),
                               QStringLiteral("Objectives for the coming year agreed")});
            }
            if (rnd_.percent(2)) {
                static const std::array<const char*, 3> actions{
                    "Verbal warning", "First written warning", "Final written warning"};
                static const std::array<const char*, 4> reasons{"Lateness", "Absence", "Conduct",
                                                                "Performance"};
                reprimand.add({reprimandId++, s.id, date(nextWeekday(dayWithin(s.start, end))),
                               QLatin1String(actions[rnd_.weighted({60, 30, 10})]),
                               QLatin1String(rnd_.pick(reasons)),
                               QStringLiteral("Discussed with line manager and HR")});
            }
            if (rnd_.percent(10)) {
                static const std::array<const char*, 5> notes{
                    "Change of address notified", "Requested flexible working",
                    "Bank details updated", "Asked about the cycle to work scheme",
                    "Returned company car keys"};
                note.add({noteId++, s.id, date(dayWithin(s.start, end)),
                          QLatin1String(rnd_.pick(notes))});
            }
            if (rnd_.percent(20))
                document.add({documentId++, s.id, date(s.start),
                              QStringLiteral("Contract of employment"), QString(""),
                              QStringLiteral("/srv/personnel/contracts/%1.pdf").arg(s.id)});
        }
        history.finish();
        holiday.finish();
        absence.finish();
        appraisal.finish();
        reprimand.finish();
        note.finish();
        document.finish();
    }

    // -- training --------------------------------------------------------------------------

    void training() {
        if (courses_.empty()) return;
        Batch programme(db_, summary_, "Training",
                        {"Training_ID", "Course_ID", "TDate", "Edate", "TTime", "Location",
                         "Instructor", "Description", "Price", "BlnDeleted"});
        Batch booking(db_, summary_, "PersonTraining", {"person_id", "Training_ID"}, &programme);
        qint64 id = firstFreeKey(db_, "Training", "Training_ID");
        static const std::array<const char*, 4> times{"09:00", "09:30", "10:00", "13:30"};
        const int programmes = 36 + employees_ / 25;
        for (int p = 0; p < programmes; ++p) {
            const auto& [courseId, title] = rnd_.pick(courses_);
            const QDate first = nextWeekday(today_.addDays(rnd_.between(-3 * 365, 90)));
            const int length = rnd_.weighted({70, 20, 10});
            const QDate last = length == 0 ? QDate() : addWorkingDays(first, length + 1);
            const bool inHouse = rnd_.percent(60);
            const QString where = inHouse ? sites_[rnd_.below(static_cast<int>(sites_.size()))].name
                                          : QStringLiteral("Clearview Training Centre");
            const QString instructor =
                inHouse ? personName() : QStringLiteral("Clearview Training Ltd");
            const std::optional<Money> price =
                rnd_.percent(20) ? std::nullopt
                                 : std::optional<Money>(pounds(rnd_.between(8, 90) * 25));
            programme.add({id, courseId, date(first), date(last), QLatin1String(rnd_.pick(times)),
                           where, instructor,
                           QStringLiteral("%1 - %2").arg(title, first.toString("MMMM yyyy")),
                           money(price), rnd_.percent(3) ? 1 : 0});
            // People employed on the day, each booked once.
            std::vector<int> booked;
            const int wanted = rnd_.between(4, 12);
            for (int tries = 0;
                 employees_ > 0 && static_cast<int>(booked.size()) < wanted && tries < wanted * 6;
                 ++tries) {
                const int who = rnd_.below(employees_);
                const Staff& s = staff_[who];
                if (s.deleted || s.start > first || (s.leaver && s.finish < first)) continue;
                if (std::find(booked.begin(), booked.end(), who) != booked.end()) continue;
                booked.push_back(who);
                booking.add({s.id, id});
            }
            ++id;
        }
        programme.finish();
        booking.finish();
    }

    // -- computers, software, peripherals --------------------------------------------------

    void assets() {
        Batch invoices(db_, summary_, "Invoices",
                       {"Invoice_ID", "InvoiceDate", "InvoiceNumber", "Price"});
        invoices_ = &invoices;
        nextInvoice_ = firstFreeKey(db_, "Invoices", "Invoice_ID");
        Batch computer(db_, summary_, "Computers",
                       {"Computer_ID", "Manufacturer", "Model", "SerialNumber", "AssetNumber",
                        "ComputerName", "Ram", "HardDrive", "WarrantyLength", "WarrantyRef",
                        "wcontactno", "notes", "supplier_id", "Invoice_ID", "person_id"});
        Batch installed(db_, summary_, "ComputerSoftware",
                        {"ComputerSoftware_ID", "Software_ID", "computer_id"});
        qint64 computerId = firstFreeKey(db_, "Computers", "Computer_ID");
        qint64 installedId = firstFreeKey(db_, "ComputerSoftware", "ComputerSoftware_ID");
        const qint64 firstSoftware = firstFreeKey(db_, "Software", "Software_ID");
        std::vector<int> installs(Packages.size(), 0);
        static const std::array<const char*, 3> rams{"8GB", "16GB", "32GB"};
        static const std::array<const char*, 4> disks{"256GB SSD", "512GB SSD", "1TB SSD",
                                                      "500GB HDD"};
        static const std::array<const char*, 4> warranties{"12", "36", "60", ""};
        std::vector<std::pair<qint64, bool>> computers; // id, laptop

        const auto addComputer = [&](Staff* owner, Dept dept, const QDate& bought) {
            const Machine& m = rnd_.pick(Machines);
            const qint64 id = computerId++;
            const qint64 invoiceId =
                rnd_.percent(80) ? invoice(bought, pounds(m.price, rnd_.below(100))) : 0;
            const QString warranty = QLatin1String(rnd_.pick(warranties));
            computer.add(
                {id, QLatin1String(m.manufacturer), QLatin1String(m.model),
                 rnd_.letters(3) + rnd_.digits(7),
                 QStringLiteral("QA%1").arg(id, 6, 10, QChar('0')),
                 QStringLiteral("%1%2").arg(m.laptop ? "LT" : "PC").arg(id, 5, 10, QChar('0')),
                 QLatin1String(rnd_.pick(rams)), QLatin1String(rnd_.pick(disks)), warranty,
                 warranty.isEmpty() ? QString("") : QStringLiteral("WR-") + rnd_.digits(8),
                 QStringLiteral("0800 ") + rnd_.digits(3) + ' ' + rnd_.digits(4),
                 owner ? QString("") : QStringLiteral("Spare machine, kept in IT"),
                 rnd_.pick(hardwareSuppliers_), key(invoiceId), key(owner ? owner->id : 0)});
            for (std::size_t p = 0; p < Packages.size(); ++p) {
                const Package& pkg = Packages[p];
                const bool mac = qstrcmp(m.manufacturer, "Apple") == 0;
                const bool wanted = pkg.install == Install::Everywhere ? !mac
                                    : pkg.install == Install::Department
                                        ? pkg.dept == dept
                                        : rnd_.percent(pkg.percent);
                if (!wanted) continue;
                installed.add({installedId++, firstSoftware + static_cast<qint64>(p), id});
                ++installs[p];
            }
            computers.emplace_back(id, m.laptop);
            if (owner) owner->computer = id;
            return id;
        };
        for (Staff& s : staff_)
            if (s.current() && rnd_.percent(85))
                addComputer(&s, s.dept, dayWithin(std::max(s.start, today_.addYears(-5)), today_));
        for (int spare = employees_ / 25 + 1; spare > 0; --spare)
            addComputer(nullptr, IT, today_.addDays(-rnd_.between(30, 5 * 365)));
        computer.finish();
        installed.finish();

        // Counts of licences in use follow the installations; a few products are short.
        Batch software(db_, summary_, "Software",
                       {"Software_ID", "Manufacturer", "Product", "Version", "Licenses",
                        "licensesused", "Price", "Invoice_ID", "supplier_id"});
        for (std::size_t p = 0; p < Packages.size(); ++p) {
            const Product& pr = Packages[p].product;
            const int used = installs[p];
            int licences = 0;
            if (pr.licensed)
                licences = rnd_.percent(15) ? std::max(0, used - rnd_.between(1, 5))
                                            : used + rnd_.between(0, 10);
            const Money price = pounds(pr.price);
            const qint64 invoiceId =
                pr.licensed && rnd_.percent(60)
                    ? invoice(today_.addDays(-rnd_.between(30, 3 * 365)),
                              Money::fromUnits(price.units() * std::max(1, licences)))
                    : 0;
            software.add({firstSoftware + static_cast<qint64>(p), QLatin1String(pr.manufacturer),
                          QLatin1String(pr.product), QLatin1String(pr.version),
                          pr.licensed ? QVariant(licences) : NullNumber, used, money(price),
                          key(invoiceId), rnd_.pick(softwareSuppliers_)});
        }
        software.finish();

        Batch peripheral(db_, summary_, "Peripherals",
                         {"peripheral_ID", "Type", "Manufacturer", "Model", "SerialNo", "AssetNo",
                          "Location", "Size", "PrinterType", "ipaddress", "warrantyl",
                          "warrantycon", "WarrantyRef", "daterecieved", "Invoice_ID", "supplier_id",
                          "computer_id", "BlnDeleted"});
        qint64 peripheralId = firstFreeKey(db_, "Peripherals", "peripheral_ID");
        static const std::array<const char*, 2> cover{"Onsite next day", "Return to base"};
        static const std::array<int, 3> warrantyMonths{12, 24, 36};
        const auto addDevice = [&](const Device& d, const QString& room, const QString& size,
                                   const QString& printerType, const QString& ip, qint64 computerOf,
                                   qint64 supplierId) {
            const qint64 id = peripheralId++;
            const QDate received = today_.addDays(-rnd_.between(20, 6 * 365));
            const qint64 invoiceId =
                rnd_.percent(60) ? invoice(received, pounds(d.price, rnd_.below(100))) : 0;
            peripheral.add({id, QLatin1String(d.type), QLatin1String(d.manufacturer),
                            QLatin1String(d.model), rnd_.letters(2) + rnd_.digits(8),
                            QStringLiteral("QP%1").arg(id, 6, 10, QChar('0')),
                            room.isEmpty() ? NullText : QVariant(room),
                            size.isEmpty() ? NullText : QVariant(size), printerType,
                            ip.isEmpty() ? NullText : QVariant(ip), rnd_.pick(warrantyMonths),
                            QLatin1String(rnd_.pick(cover)), QStringLiteral("W") + rnd_.digits(7),
                            date(received), key(invoiceId), supplierId, key(computerOf),
                            rnd_.percent(3) ? 1 : 0});
            return id;
        };
        const int active = static_cast<int>(std::count_if(
            staff_.begin(), staff_.end(), [](const Staff& s) { return s.current(); }));
        for (int n = std::max(2, active / 15); n > 0; --n) {
            const bool network = rnd_.percent(75);
            const qint64 owner = computers.empty() ? 0 : rnd_.pick(computers).first;
            const qint64 id =
                addDevice(rnd_.pick(Printers), QLatin1String(rnd_.pick(PrinterRooms)), {},
                          network ? QStringLiteral("Network") : QStringLiteral("Local"),
                          network ? QStringLiteral("10.%1.20.%2")
                                        .arg(rnd_.between(1, 9))
                                        .arg(rnd_.between(10, 250))
                                  : QString(),
                          network ? 0 : owner, rnd_.pick(printerSuppliers_));
            printers_.push_back(id);
        }
        for (int n = std::max(1, active / 60); n > 0; --n) {
            const bool local = rnd_.percent(50) && !computers.empty();
            scanners_.push_back(addDevice(
                rnd_.pick(Scanners), QLatin1String(rnd_.pick(PrinterRooms)), {}, QString(""), {},
                local ? rnd_.pick(computers).first : 0, rnd_.pick(hardwareSuppliers_)));
        }
        std::map<qint64, qint64> monitorOf;
        for (const auto& [id, laptop] : computers) {
            const int screens = laptop ? rnd_.weighted({40, 50, 10}) : 1 + rnd_.weighted({60, 40});
            static const std::array<const char*, 4> sizes{"22\"", "24\"", "24\"", "27\""};
            for (int n = 0; n < screens; ++n) {
                const qint64 m = addDevice(rnd_.pick(Monitors), {}, QLatin1String(rnd_.pick(sizes)),
                                           QString(""), {}, id, rnd_.pick(hardwareSuppliers_));
                monitors_.push_back(m);
                if (!monitorOf.count(id)) monitorOf[id] = m;
            }
            if (laptop && rnd_.percent(60))
                addDevice(OtherDevices[0], {}, {}, QString(""), {}, id,
                          rnd_.pick(hardwareSuppliers_));
            if (rnd_.percent(10))
                addDevice(OtherDevices[1 + rnd_.below(2)], {}, {}, QString(""), {}, id,
                          rnd_.pick(hardwareSuppliers_));
        }
        for (int n = static_cast<int>(sites_.size()) + active / 200; n > 0; --n)
            addDevice(OtherDevices[3 + rnd_.below(2)], QLatin1String(rnd_.pick(PrinterRooms)), {},
                      QString(""), {}, 0, rnd_.pick(hardwareSuppliers_));
        peripheral.finish();
        invoices.finish();
        invoices_ = nullptr;
        for (Staff& s : staff_)
            if (s.computer) s.monitor = monitorOf.count(s.computer) ? monitorOf[s.computer] : 0;
    }

    // -- helpdesk ----------------------------------------------------------------------------

    void helpdesk() {
        Batch call(db_, summary_, "HelpdeskCalls",
                   {"Call_ID", "person_id", "Fault_Type", "Date_Logged", "Date_Required",
                    "Description", "Resolution", "currentstatus", "Software_ID", "computer_id",
                    "peripheral_ID", "DateClosed"});
        Batch history(db_, summary_, "CallHistory",
                      {"CallHistory_ID", "Call_ID", "Date", "Action", "Status"}, &call);
        qint64 id = firstFreeKey(db_, "HelpdeskCalls", "Call_ID");
        qint64 historyId = firstFreeKey(db_, "CallHistory", "CallHistory_ID");
        std::vector<int> callers;
        for (int i = 0; i < employees_; ++i)
            if (staff_[i].current()) callers.push_back(i);
        const int calls = static_cast<int>(callers.size()) * 3 / 5 + 5;
        for (int n = 0; n < calls; ++n) {
            const Staff* caller =
                callers.empty() || rnd_.percent(2) ? nullptr : &staff_[rnd_.pick(callers)];
            int fault = rnd_.weighted({65, 20, 5, 10});
            if (fault == 1 && printers_.empty()) fault = 0;
            if (fault == 2 && scanners_.empty()) fault = 0;
            if (fault == 3 && monitors_.empty()) fault = 0;
            static const std::array<const char*, 4> faults{"Computer/Software", "Printer",
                                                           "Scanner", "Monitor"};
            const Complaint& c = fault == 0   ? rnd_.pick(ComputerFaults)
                                 : fault == 1 ? rnd_.pick(PrinterFaults)
                                 : fault == 2 ? rnd_.pick(ScannerFaults)
                                              : rnd_.pick(MonitorFaults);
            qint64 computerId = 0, peripheralId = 0;
            if (fault == 0 && caller) computerId = caller->computer;
            if (fault == 1) peripheralId = rnd_.pick(printers_);
            if (fault == 2) peripheralId = rnd_.pick(scanners_);
            if (fault == 3)
                peripheralId = caller && caller->monitor ? caller->monitor : rnd_.pick(monitors_);

            QDate logged = nextWeekday(today_.addDays(-rnd_.between(0, 3 * 365)));
            if (logged > today_) logged = today_.addDays(-2);
            if (caller && logged < caller->start) logged = caller->start;
            const QDate required = rnd_.percent(30) ? logged.addDays(rnd_.between(1, 10)) : QDate();
            const bool open = logged.daysTo(today_) < 30 ? rnd_.percent(40) : rnd_.permille(20);
            QDate closed;
            if (!open) {
                closed = logged.addDays(rnd_.weighted({40, 30, 15, 10, 5}) * 2);
                if (closed > today_) closed = today_;
            }
            call.add({id, key(caller ? caller->id : 0), QLatin1String(faults[fault]), date(logged),
                      date(required), QLatin1String(c.description),
                      open ? QString("") : QLatin1String(c.resolution),
                      open ? QStringLiteral("Open") : QStringLiteral("Closed"), NullKey,
                      key(computerId), key(peripheralId), date(closed)});

            QDateTime at(logged, QTime(8, 30).addSecs(60 * rnd_.below(8 * 60)));
            history.add(
                {historyId++, id, at, QStringLiteral("Opened Call"), QStringLiteral("Open")});
            const QDateTime until = closed.isValid() ? QDateTime(closed, QTime(17, 30))
                                                     : QDateTime(today_, QTime(17, 30));
            for (int steps = rnd_.weighted({30, 40, 20, 10}); steps > 0; --steps) {
                // Work on a call happens in office hours.
                QDateTime next = at.addSecs(60 * rnd_.between(20, 6 * 60));
                if (next.time() > QTime(17, 30))
                    next = QDateTime(nextWeekday(next.date().addDays(1)),
                                     QTime(8, 30).addSecs(60 * rnd_.below(120)));
                if (next >= until) break;
                at = next;
                history.add(
                    {historyId++, id, at,
                     rnd_.percent(15) ? QStringLiteral("Note/Comment only") : rnd_.pick(actions_),
                     QStringLiteral("Open")});
            }
            if (closed.isValid()) {
                QDateTime shut(closed, QTime(9, 0).addSecs(60 * rnd_.below(8 * 60)));
                if (shut <= at) shut = at.addSecs(60 * rnd_.between(5, 90));
                history.add({historyId++, id, shut, QStringLiteral("Closed Call"),
                             QStringLiteral("Closed")});
            }
            ++id;
        }
        call.finish();
        history.finish();
    }

    // -- directory contacts and petty cash ---------------------------------------------------

    void contacts() {
        Batch contact(db_, summary_, "contact",
                      {"contact_id", "contact_type", "firstname", "surname", "company",
                       "contactname", "email", "fax", "phone"});
        qint64 id = firstFreeKey(db_, "contact", "contact_id");
        static const std::array<const char*, 10> firms{
            "Harrogate Accountancy LLP", "Lindley Solicitors",   "Castle Bank plc",
            "Northern Auditors LLP",     "Brookfield Surveyors", "City Council Planning",
            "Yorkshire Water",           "Parcelforce Depot",    "Aspect Health Clinic",
            "Beacon Marketing"};
        for (int n = 30 + employees_ / 50; n > 0; --n) {
            const bool male = rnd_.percent(50);
            const QString first = firstName(male);
            const QString last = surname();
            const QString firm = QLatin1String(rnd_.pick(firms));
            const int town = rnd_.below(static_cast<int>(Towns.size()));
            contact.add({id++, QStringLiteral("Person"), first, last, firm, QString(""),
                         email(first + ' ' + last, domainOf(firm)),
                         rnd_.percent(30) ? phone(town) : QString(""),
                         rnd_.percent(50) ? phone(town) : mobile()});
        }
        contact.finish();
    }

    void pettyCash() {
        Batch petty(db_, summary_, "pettycash", {"pettyid", "Date", "amount", "reason"});
        qint64 id = firstFreeKey(db_, "pettycash", "pettyid");
        static const std::array<const char*, 10> spends{"Milk and coffee",
                                                        "Postage stamps",
                                                        "Window cleaner",
                                                        "Taxi fare",
                                                        "Flowers for reception",
                                                        "Batteries",
                                                        "Parking",
                                                        "Cleaning materials",
                                                        "Biscuits for visitors",
                                                        "Leaving card and gift"};
        // The box never goes below nothing: it is topped up at the start of each month.
        Money balance;
        for (int month = 24; month >= 0; --month) {
            const QDate first = QDate(today_.year(), today_.month(), 1).addMonths(-month);
            const QDate topUp = nextWeekday(first);
            if (topUp > today_) break;
            const Money in = pounds(rnd_.percent(70) ? 200 : 150);
            balance += in;
            petty.add({id++, date(topUp), QStringLiteral("+") + in.toString(0),
                       QStringLiteral("Cash from bank")});
            const QDate monthEnd = std::min(first.addMonths(1).addDays(-1), today_);
            for (int n = rnd_.between(4, 12); n > 0; --n) {
                Money out = pounds(rnd_.between(1, 35), rnd_.percent(70) ? rnd_.below(100) : 0);
                if (out > balance) continue;
                balance -= out;
                // The figure as a user types it: "4.5" rather than "4.50", whole pounds bare.
                QString typed = out.toString(2);
                if (typed.endsWith(QLatin1String(".00")))
                    typed.chop(3);
                else if (typed.endsWith('0') && rnd_.percent(50))
                    typed.chop(1);
                petty.add({id++, date(dayWithin(topUp, monthEnd)), QStringLiteral("-") + typed,
                           QLatin1String(rnd_.pick(spends))});
            }
        }
        petty.finish();
    }

    Db& db_;
    Random rnd_;
    int employees_;
    QDate today_;
    DemoSummary summary_;

    std::vector<QString> origins_;
    std::vector<QString> actions_;
    bool mostOrigin_ = false;
    std::map<QString, qint64> services_;
    std::vector<std::pair<qint64, QString>> courses_;

    std::vector<qint64> companyIds_;
    std::vector<int> companyTowns_;
    std::vector<qint64> deptIds_;
    std::vector<Site> sites_;
    std::vector<qint64> siteIds_;
    std::vector<qint64> roleIds_;
    std::vector<qint64> hardwareSuppliers_;
    std::vector<qint64> softwareSuppliers_;
    std::vector<qint64> printerSuppliers_;

    std::vector<Staff> staff_;
    std::vector<std::vector<QDate>> cuts_;
    Batch* invoices_ = nullptr;
    qint64 nextInvoice_ = 1;
    std::vector<qint64> printers_;
    std::vector<qint64> scanners_;
    std::vector<qint64> monitors_;
};

} // namespace

DemoSummary generateDemoOrganisation(Db& db, int employees, quint32 seed, QDate today) {
    if (!today.isValid()) today = QDate::currentDate();
    DemoSummary summary;
    {
        core::Transaction transaction(db);
        summary = Generator(db, employees, seed, today).run();
        transaction.commit();
    }
    // Fresh statistics, so that the first lists over the new rows use their indexes.
    db.exec("ANALYZE");
    return summary;
}

} // namespace admin
