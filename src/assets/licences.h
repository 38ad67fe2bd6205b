#pragma once

#include "db.h"

#include <QString>
#include <QVariant>

// The licence pool of each product: how many were bought (Licenses, NULL for a product never
// licensed) and how many computers hold one (licensesused). The pool warns, it never blocks.
namespace assets {

inline const QString Unlicensed = QStringLiteral("Unlicensed");
inline const QString NotLicensedWarning =
    QStringLiteral("This software is not licensed please purchase extra licenses.");

// "Licenses left": bought less used, as text; "Unlicensed" when none were ever bought. A used
// count that is NULL or no number counts as none used.
QString licencesLeft(const QVariant& licenses, const QVariant& used);
// Whether installing one more calls for the warning: below one left, or unlicensed.
bool needsLicenceWarning(const QString& left);

// The computers holding a product are its licences in use: every change of what is installed
// sets licensesused again from ComputerSoftware, in the change's own transaction, so the
// figure can neither drift nor fall below zero.
void recountLicences(core::Db& db, qint64 softwareId);
// Installs a product on a computer; false (and nothing written) when it is already there.
bool installSoftware(core::Db& db, qint64 computerId, qint64 softwareId);
// Takes a product off a computer.
void removeSoftware(core::Db& db, qint64 computerId, qint64 softwareId);
// Removes every product of a computer (a new computer given up), each count restored.
void removeAllSoftware(core::Db& db, qint64 computerId);
// Adds bought licences to a product's pool (a negative number shrinks it); the used count
// stays. Returns the new pool.
int addLicences(core::Db& db, qint64 softwareId, int added);

} // namespace assets
