#pragma once

#include "db.h"

#include <QString>

namespace testsupport {

// A PostgreSQL server of one test's own, in a temporary folder, made the way
// scripts/pg-throwaway.sh makes the suite's: a test may stop and restart it without
// disturbing the other tests that share the suite's server. Stopped and removed at the end.
class PrivatePostgres {
public:
    PrivatePostgres();
    ~PrivatePostgres();
    PrivatePostgres(const PrivatePostgres&) = delete;
    PrivatePostgres& operator=(const PrivatePostgres&) = delete;

    // Empty when the server is up; otherwise why it is not.
    const QString& problem() const { return problem_; }
    // The administrator's login on the maintenance database.
    core::ConnectionParams params() const { return params_; }

    // Ends the server, cutting every connection, and starts it again as it was.
    bool restart();
    bool stop();
    bool start();

private:
    bool pgCtl(const QStringList& arguments);

    QString problem_;
    QString folder_;
    QString bin_;
    bool asServiceUser_ = false;
    core::ConnectionParams params_;
};

} // namespace testsupport
