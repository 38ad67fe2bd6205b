#include "errorlog.h"

#include "regional.h"
#include "settings.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

namespace core {

QString errorLogPath() {
    return InstallSettings::instance().logFolder() + "/errlog.txt";
}

void logerror(qint64 number, const QString& description, const QString& caption) {
    const QString path = errorLogPath();
    QDir().mkpath(QFileInfo(path).absolutePath());
    QFile f(path);
    if (!f.open(QIODevice::Append | QIODevice::Text))
        return; // a log that cannot be written must not take the program down with it
    const QDateTime now = QDateTime::currentDateTime();
    QString desc = description;
    desc.replace('\n', ' ');
    const QString line = QStringLiteral("%1 %2 %3 %4 %5\n")
                             .arg(formatDate(now.date()), now.time().toString("HH:mm:ss"),
                                  QString::number(number), desc, caption);
    // One write: a line lands whole.
    f.write(line.toUtf8());
    f.close();
}

} // namespace core
