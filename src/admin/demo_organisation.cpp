#include "demo_organisation.h"

#include "demo_generator.h"

#include <algorithm>

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

namespace demo {

DemoSummary Generator::run() {
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

std::vector<QString> Generator::sortedTexts(const char* sql) {
    std::vector<QString> out;
    QSqlQuery q = db_.query(QLatin1String(sql));
    while (q.next())
        out.push_back(Db::text(q.value(0)));
    // Sorted here, not by the server, whose collation differs from one installation to
    // the next: the same seed must give the same organisation everywhere.
    std::sort(out.begin(), out.end());
    return out;
}

void Generator::readLookups() {
    origins_ = sortedTexts("SELECT origin FROM EthOrigin");
    if (origins_.empty()) origins_.push_back(QStringLiteral("Not stated"));
    mostOrigin_ = std::find(origins_.begin(), origins_.end(), QStringLiteral("White - British")) !=
                  origins_.end();
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

} // namespace demo

DemoSummary generateDemoOrganisation(core::Db& db, int employees, quint32 seed, QDate today) {
    if (!today.isValid()) today = QDate::currentDate();
    DemoSummary summary;
    {
        core::Transaction transaction(db);
        summary = demo::Generator(db, employees, seed, today).run();
        transaction.commit();
    }
    // Fresh statistics, so that the first lists over the new rows use their indexes.
    db.exec("ANALYZE");
    return summary;
}

} // namespace admin
