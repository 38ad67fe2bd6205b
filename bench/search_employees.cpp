// Times the two ways to an employee on a demo organisation of 10,000 employees: the general
// search with both fields empty (from Search to a filled list) and opening the list of every
// employee (from creating the screen to a filled, shown list).
// Backend: QUILLORNE_BENCH_BACKEND=postgres (with QUILLORNE_PG_*), otherwise embedded.
// Run with QT_QPA_PLATFORM=offscreen.
#include "bench_database.h"
#include "bench_timing.h"
#include "frmesearch.h"
#include "personlist.h"
#include "recordlist.h"

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cstdio>
#include <functional>

namespace {

// Median, min and max in milliseconds of runs of the step.
void measure(const char* backend, const char* label, int runs, int employees,
             const std::function<int()>& step) {
    const Runs r = timeRuns(runs, step);
    std::printf("%s: %s, %d employees, %d rows listed: median %.1f ms, min %.1f ms, max %.1f ms "
                "(%d runs)\n",
                backend, label, employees, r.rows, r.median(), r.min(), r.max(), r.count());
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    const int employees = argc > 1 ? std::atoi(argv[1]) : 10000;
    const int runs = argc > 2 ? std::atoi(argv[2]) : 20;
    BenchDatabase database("bench_search", employees);
    const char* backend = database.backend();

    {
        frmesearch search;
        search.show();
        QApplication::processEvents();
        measure(backend, "general search, both fields empty", runs, employees, [&] {
            search.searchGeneral();
            QApplication::processEvents();
            return search.ListView1->count();
        });
    }
    measure(backend, "open PersonList", runs, employees, [] {
        auto* list = new PersonList;
        list->show();
        QApplication::processEvents();
        const int rows = list->ListView1->count();
        delete list;
        return rows;
    });

    return 0;
}
