#pragma once

#include "db.h"

#include <QDate>
#include <QString>
#include <utility>
#include <vector>

namespace admin {

// Rows the demo generator wrote, per table, in the order it wrote them.
struct DemoSummary {
    std::vector<std::pair<QString, qint64>> tables;
    qint64 employees = 0;
    qint64 companies = 0;

    qint64 count(const QString& table) const;
    qint64 total() const;
};

// Fills a database that has the schema and seed rows with a made-up organisation of the
// given number of employees: companies, departments, locations, positions, employees with
// their job history, holidays, absences, appraisals and training, computers, software,
// peripherals, helpdesk calls, suppliers, contacts and petty cash. The same seed and the
// same reference date give the same organisation on either backend. Dates lie around the
// reference date (today when none is given): the last three years and a little ahead.
// Everything is written in one transaction.
DemoSummary generateDemoOrganisation(core::Db& db, int employees, quint32 seed = 1,
                                     QDate today = {});

} // namespace admin
