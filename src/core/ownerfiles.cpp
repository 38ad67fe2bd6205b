#include "ownerfiles.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringList>
#include <cerrno>
#include <cstring>
#include <sys/stat.h>

namespace core {

namespace {
QString systemReason() {
    return QString::fromLocal8Bit(std::strerror(errno));
}
} // namespace

void ownerOnlyByDefault() {
    ::umask(077);
}

bool restrictToOwner(const QString& path) {
    const QByteArray native = QFile::encodeName(path);
    struct stat st {};
    if (::lstat(native.constData(), &st) != 0) return errno == ENOENT;
    if (S_ISLNK(st.st_mode)) return true; // the target is tightened where it is created
    const mode_t wanted = S_ISDIR(st.st_mode) ? 0700 : 0600;
    if ((st.st_mode & 07777) == wanted) return true;
    return ::chmod(native.constData(), wanted) == 0;
}

bool makeOwnerFolder(const QString& path, QString* error) {
    const QString clean = QDir::cleanPath(QDir().absoluteFilePath(path));
    // The parents this call creates are ours; those that were there are someone's choice.
    QStringList created;
    for (QString p = clean; !p.isEmpty() && !QFileInfo::exists(p);) {
        created.prepend(p);
        const QString up = QFileInfo(p).path();
        if (up == p) break;
        p = up;
    }
    for (const QString& p : created) {
        if (::mkdir(QFile::encodeName(p).constData(), 0700) != 0 && errno != EEXIST) {
            if (error) *error = QStringLiteral("%1: %2").arg(p, systemReason());
            return false;
        }
    }
    if (!QFileInfo(clean).isDir()) {
        if (error) *error = QStringLiteral("%1 is not a folder").arg(clean);
        return false;
    }
    if (!restrictToOwner(clean)) {
        if (error) *error = QStringLiteral("%1: %2").arg(clean, systemReason());
        return false;
    }
    return true;
}

bool writeOwnerFile(const QString& path, const QByteArray& data, QString* error) {
    if (!makeOwnerFolder(QFileInfo(path).absolutePath(), error)) return false;
    QSaveFile f(path);
    if (!f.open(QIODevice::WriteOnly)) {
        if (error) *error = QStringLiteral("%1: %2").arg(path, f.errorString());
        return false;
    }
    // The temporary file becomes the file: tighten it before anything is in it.
    f.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    if (f.write(data) != data.size() || !f.commit()) {
        if (error) *error = QStringLiteral("%1: %2").arg(path, f.errorString());
        return false;
    }
    return restrictToOwner(path);
}

int permissionBits(const QString& path) {
    struct stat st {};
    if (::stat(QFile::encodeName(path).constData(), &st) != 0) return -1;
    return int(st.st_mode & 07777);
}

} // namespace core
