#pragma once

#include "settings.h"

#include <QString>
#include <QTextStream>

namespace admin {

// quillorne-admin backup FILE: a backup of the database the settings name, logged and
// remembered as the last backup as the program's own screen does. Returns the exit code.
int consoleBackup(core::InstallSettings& settings, const QString& user, const QString& password,
                  const QString& file, const QString& description, QTextStream& out,
                  QTextStream& err);

// quillorne-admin restore FILE: the database replaced by the backup, all or nothing.
int consoleRestore(core::InstallSettings& settings, const QString& user, const QString& password,
                   const QString& file, QTextStream& out, QTextStream& err);

} // namespace admin
