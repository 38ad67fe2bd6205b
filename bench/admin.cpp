// Times the administration's bulk work on a demo organisation of 10,000 employees: the salary
// increase (every salaried current employee, in one transaction) and a backup and restore of
// the whole database, with their speed in MB/s.
// Backend: QUILLORNE_BENCH_BACKEND=postgres (with QUILLORNE_PG_*), otherwise embedded.
#include "backup.h"
#include "bench_database.h"
#include "salary_increase.h"

#include <QCoreApplication>
#include <QDate>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cstdio>

namespace {

struct Timing {
    std::vector<double> ms;
    void add(qint64 ns) { ms.push_back(double(ns) / 1e6); }
    double median() {
        std::sort(ms.begin(), ms.end());
        return ms[ms.size() / 2];
    }
};

double mbPerSecond(qint64 bytes, double ms) {
    return double(bytes) / (1024.0 * 1024.0) / (ms / 1000.0);
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    const int employees = argc > 1 ? std::atoi(argv[1]) : 10000;
    const int runs = argc > 2 ? std::atoi(argv[2]) : 5;
    BenchDatabase database("bench_admin", employees);
    const char* backend = database.backend();
    core::Db& db = core::db();
    const core::ConnectionParams params = db.params();

    Timing raise;
    int raised = 0;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer t;
        t.start();
        raised = admin::increaseSalaries(db, "3.5", QDate::currentDate());
        raise.add(t.nsecsElapsed());
    }
    std::printf("%s: salary increase of 3.5%%, %d employees raised: median %.0f ms (%d runs)\n",
                backend, raised, raise.median(), runs);

    const QString file =
        QCoreApplication::applicationDirPath() +
        QStringLiteral("/bench_admin_%1.dat").arg(QCoreApplication::applicationPid());
    Timing backup, restore;
    qint64 size = 0;
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer t;
        t.start();
        size = admin::backupDatabase(params, file);
        backup.add(t.nsecsElapsed());
    }
    core::setDb(nullptr);
    for (int i = 0; i < runs; ++i) {
        QElapsedTimer t;
        t.start();
        admin::restoreDatabase(params, file);
        restore.add(t.nsecsElapsed());
    }
    core::setDb(core::Db::open(params, "bench"));
    const double b = backup.median(), r = restore.median();
    std::printf("%s: backup of %.1f MB: median %.0f ms, %.1f MB/s (%d runs)\n", backend,
                double(size) / (1024.0 * 1024.0), b, mbPerSecond(size, b), runs);
    std::printf("%s: restore of %.1f MB: median %.0f ms, %.1f MB/s (%d runs)\n", backend,
                double(size) / (1024.0 * 1024.0), r, mbPerSecond(size, r), runs);
    QFile::remove(file);
    return 0;
}
