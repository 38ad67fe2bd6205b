#include "errorlog.h"

#include "ownerfiles.h"
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
    makeOwnerFolder(QFileInfo(path).absolutePath());
    QFile f(path);
    // Lines name logins and hold the database's own descriptions: for the owner only.
    if (!f.open(QIODevice::Append | QIODevice::Text,
                QFileDevice::ReadOwner | QFileDevice::WriteOwner))
        return; // a log that cannot be written must not take the program down with it
    restrictToOwner(path);
    const QDateTime now = QDateTime::currentDateTime();
    // One entry is one line, whatever the description or caption hold.
    QString desc = description;
    QString where = caption;
    for (QString* text : {&desc, &where})
        for (QChar& c : *text)
            if (c.category() == QChar::Other_Control) c = u' ';
    const QString line = QStringLiteral("%1 %2 %3 %4 %5\n")
                             .arg(formatDate(now.date()), now.time().toString("HH:mm:ss"),
                                  QString::number(number), desc, where);
    // One write: a line lands whole.
    f.write(line.toUtf8());
    f.close();
}

} // namespace core
