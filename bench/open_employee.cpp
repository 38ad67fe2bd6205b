// Times opening an existing employee whose child lists hold 200 rows each, on a demo
// organisation of 10,000 employees: from creating the screen to a filled screen.
// Backend: QUILLORNE_BENCH_BACKEND=postgres (with QUILLORNE_PG_*), otherwise embedded.
#include "bench_database.h"
#include "bench_timing.h"
#include "frmemployee.h"
#include "session.h"

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const int employees = argc > 1 ? std::atoi(argv[1]) : 10000;
    const int runs = argc > 2 ? std::atoi(argv[2]) : 20;
    BenchDatabase database("bench_open", employees);
    auto& db = core::db();

    const qint64 person =
        db.scalar("SELECT MIN(Person_ID) FROM Person WHERE HasLeft = 0").toLongLong();
    {
        core::Transaction t(db);
        for (int i = 0; i < 200; ++i) {
            const QDate d = QDate(2020, 1, 1).addDays(i * 3);
            db.insertRow("Notes", {{"person_id", person},
                                   {"Date", d},
                                   {"Description", "Note " + QString::number(i)}});
            db.insertRow("Reprimands", {{"person_id", person},
                                        {"Date", d},
                                        {"Action", "Verbal"},
                                        {"reason", "Late"},
                                        {"notes", ""}});
            db.insertRow("Appraisal", {{"person_id", person},
                                       {"ADate", d},
                                       {"Manager", "Smith, Ann"},
                                       {"Rating", "Good"},
                                       {"notes", ""}});
            db.insertRow("Document", {{"person_id", person},
                                      {"Date", d},
                                      {"Title", "Doc"},
                                      {"notes", ""},
                                      {"Document", "/tmp/doc.txt"}});
            db.insertRow("JobHistory", {{"person_id", person},
                                        {"date_from", d},
                                        {"date_to", d.addDays(2)},
                                        {"Position", "Clerk"},
                                        {"salary", "20000"},
                                        {"notes", ""}});
            db.insertRow("Holiday", {{"person_id", person},
                                     {"date_from", d},
                                     {"date_to", d},
                                     {"days", 1},
                                     {"notes", ""}});
            db.insertRow("Absence", {{"person_id", person},
                                     {"startdate", d},
                                     {"enddate", d},
                                     {"days", 1},
                                     {"reason", "S"},
                                     {"notes", ""}});
        }
        t.commit();
    }

    // Closed only after the timing, as the user's closing is not part of opening.
    std::vector<std::unique_ptr<frmemployee>> screens;
    const Runs r = timeRuns(runs, [&] {
        auto& screen = screens.emplace_back(std::make_unique<frmemployee>());
        screen->loadcombos();
        screen->loadperson(QString::number(person));
        QApplication::processEvents();
        return 0;
    });
    std::printf("%s: open employee with 200 rows per child list, %d employees: median %.1f ms, "
                "min %.1f ms, max %.1f ms (%d runs)\n",
                database.backend(), employees, r.median(), r.min(), r.max(), r.count());
    return 0;
}
