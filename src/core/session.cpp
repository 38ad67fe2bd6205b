#include "session.h"

namespace core {

namespace {
std::unique_ptr<Db>& connection() {
    static std::unique_ptr<Db> c;
    return c;
}
} // namespace

SessionState& session() {
    static SessionState s;
    return s;
}

Db& db() {
    if (!connection())
        throw DbError(DbErrorKind::Unreachable, "There is no open database connection");
    return *connection();
}

bool hasDb() {
    return static_cast<bool>(connection());
}

void setDb(std::unique_ptr<Db> c) {
    connection() = std::move(c);
}

std::unique_ptr<Db> takeDb() {
    return std::move(connection());
}

QString getcurrentuser() {
    return session().currentuser;
}

bool isrestoremode() {
    return session().restoremode;
}

} // namespace core
