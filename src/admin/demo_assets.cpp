#include "demo_generator.h"

// Computers, software and peripherals.

namespace admin::demo {

void Generator::assets() {
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
    static const std::array<const char*, 4> disks{"256GB SSD", "512GB SSD", "1TB SSD", "500GB HDD"};
    static const std::array<const char*, 4> warranties{"12", "36", "60", ""};
    std::vector<std::pair<qint64, bool>> computers; // id, laptop

    const auto addComputer = [&](Staff* owner, Dept dept, const QDate& bought) {
        const Machine& m = rnd_.pick(Machines);
        const qint64 id = computerId++;
        const qint64 invoiceId =
            rnd_.percent(80) ? invoice(bought, pounds(m.price, rnd_.below(100))) : 0;
        const QString warranty = QLatin1String(rnd_.pick(warranties));
        computer.add({id, QLatin1String(m.manufacturer), QLatin1String(m.model),
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
            const bool wanted = pkg.install == Install::Everywhere   ? !mac
                                : pkg.install == Install::Department ? pkg.dept == dept
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
                   {"Software_ID", "Manufacturer", "Product", "Version", "Licenses", "licensesused",
                    "Price", "Invoice_ID", "supplier_id"});
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
                      "Location", "Size", "PrinterType", "ipaddress", "warrantyl", "warrantycon",
                      "WarrantyRef", "daterecieved", "Invoice_ID", "supplier_id", "computer_id",
                      "BlnDeleted"});
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
        peripheral.add(
            {id, QLatin1String(d.type), QLatin1String(d.manufacturer), QLatin1String(d.model),
             rnd_.letters(2) + rnd_.digits(8), QStringLiteral("QP%1").arg(id, 6, 10, QChar('0')),
             room.isEmpty() ? NullText : QVariant(room), size.isEmpty() ? NullText : QVariant(size),
             printerType, ip.isEmpty() ? NullText : QVariant(ip), rnd_.pick(warrantyMonths),
             QLatin1String(rnd_.pick(cover)), QStringLiteral("W") + rnd_.digits(7), date(received),
             key(invoiceId), supplierId, key(computerOf), rnd_.percent(3) ? 1 : 0});
        return id;
    };
    const int active = static_cast<int>(
        std::count_if(staff_.begin(), staff_.end(), [](const Staff& s) { return s.current(); }));
    for (int n = std::max(2, active / 15); n > 0; --n) {
        const bool network = rnd_.percent(75);
        const qint64 owner = computers.empty() ? 0 : rnd_.pick(computers).first;
        const qint64 id = addDevice(
            rnd_.pick(Printers), QLatin1String(rnd_.pick(PrinterRooms)), {},
            network ? QStringLiteral("Network") : QStringLiteral("Local"),
            network
                ? QStringLiteral("10.%1.20.%2").arg(rnd_.between(1, 9)).arg(rnd_.between(10, 250))
                : QString(),
            network ? 0 : owner, rnd_.pick(printerSuppliers_));
        printers_.push_back(id);
    }
    for (int n = std::max(1, active / 60); n > 0; --n) {
        const bool local = rnd_.percent(50) && !computers.empty();
        scanners_.push_back(addDevice(rnd_.pick(Scanners), QLatin1String(rnd_.pick(PrinterRooms)),
                                      {}, QString(""), {}, local ? rnd_.pick(computers).first : 0,
                                      rnd_.pick(hardwareSuppliers_)));
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
            addDevice(OtherDevices[0], {}, {}, QString(""), {}, id, rnd_.pick(hardwareSuppliers_));
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

} // namespace admin::demo
