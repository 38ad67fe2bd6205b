#include "privatepg.h"

#include <QDir>
#include <QProcess>
#include <unistd.h>

namespace testsupport {

namespace {
constexpr int StepTimeoutMs = 120'000;
}

PrivatePostgres::PrivatePostgres() {
    QProcess p;
    p.start("bash", {"-c", QStringLiteral("source '%1/scripts/pg-throwaway.sh' && "
                                          "pg_throwaway_start >/dev/null && "
                                          "printf '%s\\n' \"$PG_TMP\" \"$PG_BIN\" "
                                          "\"$QUILLORNE_PG_PORT\" \"$QUILLORNE_PG_USER\" "
                                          "\"$QUILLORNE_PG_PASSWORD\"")
                               .arg(QUILLORNE_SOURCE_DIR)});
    if (!p.waitForFinished(StepTimeoutMs) || p.exitCode() != 0) {
        problem_ = QString::fromLocal8Bit(p.readAllStandardError()).trimmed();
        if (problem_.isEmpty()) problem_ = "the private PostgreSQL server did not start";
        return;
    }
    const QStringList lines = QString::fromLocal8Bit(p.readAllStandardOutput()).split('\n');
    if (lines.size() < 5) {
        problem_ = "the private PostgreSQL server did not say where it is";
        return;
    }
    folder_ = lines.at(0);
    bin_ = lines.at(1);
    asServiceUser_ = ::geteuid() == 0;
    params_.backend = core::Backend::Postgres;
    params_.host = "127.0.0.1";
    params_.port = lines.at(2).toInt();
    params_.user = lines.at(3);
    params_.password = lines.at(4);
    params_.database = "postgres";
}

PrivatePostgres::~PrivatePostgres() {
    if (folder_.isEmpty()) return;
    pgCtl({"-m", "immediate", "stop"});
    QDir(folder_).removeRecursively();
}

bool PrivatePostgres::pgCtl(const QStringList& arguments) {
    QStringList command = {bin_ + "/pg_ctl", "-D", folder_ + "/data", "-w", "-t", "60"};
    command += arguments;
    QString program = "runuser";
    if (asServiceUser_)
        command = QStringList{"-u", "quillorne-pg", "--"} + command;
    else
        program = command.takeFirst();
    QProcess p;
    p.start(program, command);
    return p.waitForFinished(StepTimeoutMs) && p.exitStatus() == QProcess::NormalExit &&
           p.exitCode() == 0;
}

bool PrivatePostgres::restart() {
    // pg_ctl restart starts it again with the options it was started with.
    return pgCtl({"-m", "fast", "restart"});
}

bool PrivatePostgres::stop() {
    return pgCtl({"-m", "fast", "stop"});
}

bool PrivatePostgres::start() {
    return pgCtl({"-l", folder_ + "/server.log", "-o",
                  QStringLiteral("-p %1 -k %2 -c listen_addresses=127.0.0.1 -c fsync=off")
                      .arg(params_.port)
                      .arg(folder_),
                  "start"});
}

} // namespace testsupport
