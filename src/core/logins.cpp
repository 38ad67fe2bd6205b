#include "logins.h"

#include "textguard.h"

#include <sodium.h>

namespace core {

namespace {
void initSodium() {
    static const bool ok = sodium_init() >= 0;
    if (!ok) throw DbError(DbErrorKind::Other, "The password library could not start");
}
} // namespace

QString hashPassword(const QString& password) {
    initSodium();
    const QByteArray pw = password.toUtf8();
    char out[crypto_pwhash_STRBYTES];
    if (crypto_pwhash_str(out, pw.constData(), static_cast<unsigned long long>(pw.size()),
                          crypto_pwhash_OPSLIMIT_INTERACTIVE,
                          crypto_pwhash_MEMLIMIT_INTERACTIVE) != 0)
        throw DbError(DbErrorKind::Other, "Out of memory while hashing a password");
    return QString::fromLatin1(out);
}

bool verifyPassword(const QString& hash, const QString& password) {
    initSodium();
    const QByteArray h = hash.toLatin1();
    const QByteArray pw = password.toUtf8();
    return crypto_pwhash_str_verify(h.constData(), pw.constData(),
                                    static_cast<unsigned long long>(pw.size())) == 0;
}

void verifyEmbeddedLogin(Db& db, const QString& user, const QString& password) {
    const QVariant hash =
        db.scalar("SELECT pwhash FROM logins WHERE " + Db::ciEquals("login"), {user});
    if (!hash.isValid() || !verifyPassword(hash.toString(), password))
        throw DbError(DbErrorKind::LoginRefused,
                      QStringLiteral("Login failed for user '%1'.").arg(user));
}

bool impossibleLogin(const QString& user, const QString& password, Backend backend) {
    constexpr int LongestRoleName = 63; // bytes, PostgreSQL's NAMEDATALEN - 1
    if (hasRefusedCharacters(user) || hasRefusedCharacters(password)) return true;
    return backend == Backend::Postgres && user.toUtf8().size() > LongestRoleName;
}

void setEmbeddedLogin(Db& db, const QString& user, const QString& password) {
    const QString hash = hashPassword(password);
    Transaction t(db);
    db.exec("DELETE FROM logins WHERE " + Db::ciEquals("login"), {user});
    db.insertRow("logins", {{"login", user}, {"pwhash", hash}});
    t.commit();
}

} // namespace core
