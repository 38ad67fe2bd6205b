#pragma once

// Tops a demo organisation up to five years of holiday and absence bookings for every
// employee (the demo generator writes the last three), so that the report benchmarks read at
// the scale of a long-used installation. Rows go in as multi-row inserts in one transaction.
#include "db.h"

#include <QDate>
#include <QRandomGenerator>
#include <QSqlRecord>

inline qint64 addBookingYears(core::Db& db, int yearsBack, int holidaysPerYear,
                              int absencesPerYear) {
    std::vector<qint64> people;
    for (const QSqlRecord& r : db.rows("SELECT Person_ID FROM Person ORDER BY Person_ID"))
        people.push_back(core::Db::toId(r.value(0)));
    QRandomGenerator random(7);
    const int thisYear = QDate::currentDate().year();
    const char* reasons[] = {"S", "D", "M", "P", "R", "U", "A"};
    qint64 added = 0;
    core::Transaction tx(db);
    auto flush = [&](const QString& head, QStringList& values, core::Params& params) {
        if (values.isEmpty()) return;
        db.exec(head + values.join(','), params);
        added += values.size();
        values.clear();
        params.clear();
    };
    QStringList hv, av;
    core::Params hp, ap;
    const QString holidayHead = "INSERT INTO Holiday (person_id, date_from, date_to, days) VALUES ";
    const QString absenceHead =
        "INSERT INTO Absence (person_id, startdate, enddate, days, reason) VALUES ";
    for (qint64 id : people) {
        for (int y = thisYear - yearsBack; y < thisYear - 2; ++y) {
            for (int i = 0; i < holidaysPerYear; ++i) {
                const QDate from =
                    QDate(y, 1, 1).addDays(i * (360 / holidaysPerYear) + random.bounded(10));
                const int length = random.bounded(5);
                hv << "(?,?,?,?)";
                hp << id << from << from.addDays(length) << QString::number(length + 1);
                if (hv.size() == 200) flush(holidayHead, hv, hp);
            }
            for (int i = 0; i < absencesPerYear; ++i) {
                const QDate from =
                    QDate(y, 1, 3).addDays(i * (360 / absencesPerYear) + random.bounded(12));
                const int length = random.bounded(3);
                av << "(?,?,?,?,?)";
                ap << id << from << from.addDays(length)
                   << (length == 0 && random.bounded(4) == 0 ? QStringLiteral("0.5")
                                                             : QString::number(length + 1))
                   << reasons[random.bounded(7)];
                if (av.size() == 200) flush(absenceHead, av, ap);
            }
        }
    }
    flush(holidayHead, hv, hp);
    flush(absenceHead, av, ap);
    tx.commit();
    return added;
}
