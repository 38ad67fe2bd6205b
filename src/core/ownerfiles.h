#pragma once

#include <QString>

namespace core {

// What the program keeps on disk (salaries, bank accounts, passwords in logs of a mistyped
// name) is for its own user only: folders 0700, files 0600.

// Makes new files of this process owner-only from the start (umask 077), so that nothing is
// readable by others even for the moment between creating a file and tightening it.
void ownerOnlyByDefault();

// Creates the folder and any missing parents; the folder itself and the parents it had to
// create are made 0700. Returns false, with the reason, when it cannot.
bool makeOwnerFolder(const QString& path, QString* error = nullptr);

// Makes an existing file 0600 (a folder 0700). A missing path is left alone.
bool restrictToOwner(const QString& path);

// Writes the whole of data to path, or nothing (a failed write leaves the old file), as an
// owner-only file in an owner-only folder. Returns false, with the reason, when it cannot.
bool writeOwnerFile(const QString& path, const QByteArray& data, QString* error = nullptr);

// Permission bits of a path as chmod shows them (0600), or -1 when it does not exist.
int permissionBits(const QString& path);

} // namespace core
