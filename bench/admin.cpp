// Times the administration's bulk work on a demo organisation of 10,000 employees: the salary
// increase (every salaried current employee, in one transaction) and a backup and restore of
// the whole database, with their speed in MB/s.
// Backend: QUILLORNE_BENCH_BACKEND=postgres (with QUILLORNE_PG_*), otherwise embedded.
#include "backup.h"
#include "bench_database.h"
#include "bench_timing.h"
#include "salary_increase.h"

#include <QCoreApplication>
#include <QDate>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <cstdio>

namespace {

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

    const Runs raise =
        timeRuns(runs, [&] { return admin::increaseSalaries(db, "3.5", QDate::currentDate()); });
    std::printf("%s: salary increase of 3.5%%, %d employees raised: median %.0f ms (%d runs)\n",
                backend, raise.rows, raise.median(), raise.count());

    const QString file =
        QCoreApplication::applicationDirPath() +
        QStringLiteral("/bench_admin_%1.dat").arg(QCoreApplication::applicationPid());
    qint64 size = 0;
    const Runs backup = timeRuns(runs, [&] {
        size = admin::backupDatabase(params, file);
        return 0;
    });
    core::setDb(nullptr);
    const Runs restore = timeRuns(runs, [&] {
        admin::restoreDatabase(params, file);
        return 0;
    });
    core::setDb(core::Db::open(params, "bench"));
    const double b = backup.median(), r = restore.median();
    std::printf("%s: backup of %.1f MB: median %.0f ms, %.1f MB/s (%d runs)\n", backend,
                double(size) / (1024.0 * 1024.0), b, mbPerSecond(size, b), runs);
    std::printf("%s: restore of %.1f MB: median %.0f ms, %.1f MB/s (%d runs)\n", backend,
                double(size) / (1024.0 * 1024.0), r, mbPerSecond(size, r), runs);
    QFile::remove(file);
    return 0;
}
