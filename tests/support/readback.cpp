#include "readback.h"

#include <QFileInfo>
#include <QProcess>

namespace testsupport {

ReadBook readWorkbook(const QString& path) {
    ReadBook book;
    // Debian's interpreter, which python3-openpyxl installs into, before any other on the path.
    const QString python =
        QFileInfo::exists("/usr/bin/python3") ? "/usr/bin/python3" : QStringLiteral("python3");
    QProcess p;
    p.start(python, {QStringLiteral(QUILLORNE_TEST_SUPPORT_DIR "/readback.py"), path});
    if (!p.waitForFinished(120000) || p.exitCode() != 0) {
        book.error = QString::fromUtf8(p.readAllStandardError());
        return book;
    }
    const QStringList lines = QString::fromUtf8(p.readAllStandardOutput()).split('\n');
    book.isTemplate = lines.value(0) == "template";
    for (qsizetype i = 1; i < lines.size(); ++i) {
        const QStringList f = lines[i].split('\t');
        if (f.size() != 6) continue;
        book.cells[f[0]] = {f[1], f[2], f[3] == "1", f[4], f[5]};
    }
    book.ok = true;
    return book;
}

} // namespace testsupport
