#include "dbfile.h"

#include <QFile>
#include <QFileInfo>
#include <QtEndian>
#include <sys/stat.h>
#include <unistd.h>

namespace core {

namespace {

// Writable in the ordinary sense, and also by the owner's mode bits: a file its owner made
// read-only stays so even for an administrator, who would otherwise pass every check.
bool writable(const QString& path) {
    const QByteArray native = QFile::encodeName(path);
    struct stat st {};
    if (::stat(native.constData(), &st) != 0) return false;
    return (st.st_mode & S_IWUSR) != 0 && ::access(native.constData(), W_OK) == 0;
}

} // namespace

QString embeddedDatabaseProblem(const QString& path) {
    const QFileInfo info(path);
    if (!info.exists()) return QStringLiteral("The database file %1 does not exist").arg(path);
    if (info.isDir()) return QStringLiteral("The database file %1 is a folder").arg(path);
    if (info.size() == 0) return QStringLiteral("The database file %1 is empty").arg(path);
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QStringLiteral("The database file %1 cannot be read: %2").arg(path, f.errorString());
    const QByteArray header = f.read(100);
    if (header.size() < 100 || !header.startsWith(QByteArray("SQLite format 3\0", 16)))
        return QStringLiteral("The file %1 is not a database").arg(path);
    // The header tells the page size and, when it is current, the number of pages.
    const auto* h = reinterpret_cast<const uchar*>(header.constData());
    quint32 pageSize = qFromBigEndian<quint16>(h + 16);
    if (pageSize == 1) pageSize = 65536;
    const quint32 pages = qFromBigEndian<quint32>(h + 28);
    const bool pagesCurrent = qFromBigEndian<quint32>(h + 24) == qFromBigEndian<quint32>(h + 92);
    if (pagesCurrent && pages > 0 && quint64(info.size()) < quint64(pageSize) * pages)
        return QStringLiteral("The database file %1 is cut short (%2 of %3 bytes)")
            .arg(path)
            .arg(info.size())
            .arg(quint64(pageSize) * pages);
    if (!writable(path)) return QStringLiteral("The database file %1 is read-only").arg(path);
    if (!writable(info.absolutePath()))
        return QStringLiteral("The folder %1 of the database file is read-only")
            .arg(info.absolutePath());
    return {};
}

} // namespace core
