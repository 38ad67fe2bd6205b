#pragma once

#include <QString>

namespace admin {

struct PasswordResult {
    QString password;
    QString error; // why there is none; empty when there is one
};

// The console tool's PostgreSQL password, never from its command line (which every user of the
// machine can read in the process list): the first line of passwordFile when one is given,
// else QUILLORNE_PASSWORD when it is set, else asked for on the terminal without echo. The
// password is taken as it is, spaces and all.
PasswordResult readPassword(const QString& passwordFile, const QString& prompt);

// The first line of a password file, without its line break.
PasswordResult readPasswordFile(const QString& path);

} // namespace admin
