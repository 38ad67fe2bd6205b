#include "installation.h"

#include "settings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace core {

QString programVersion() {
    return QStringLiteral(QUILLORNE_VERSION);
}

QStringList templateFolders() {
    const QString bin = QCoreApplication::applicationDirPath();
    QStringList folders{InstallSettings::instance().dataFolder() + "/templates",
                        QDir::cleanPath(bin + "/../share/quillorne/templates")};
    // Only a program of this build tree may reach into the sources: an installed one must
    // find its own templates, or say that they are missing.
    const QString buildTree = QDir::cleanPath(QStringLiteral(QUILLORNE_BINARY_DIR)) + '/';
    if (QDir::cleanPath(bin).startsWith(buildTree))
        folders << QDir::cleanPath(QStringLiteral(QUILLORNE_SOURCE_DIR) + "/config");
    return folders;
}

QString templatePath(const QString& fileName) {
    const QStringList folders = templateFolders();
    for (const QString& folder : folders) {
        const QString path = folder + '/' + fileName;
        if (QFileInfo(path).isFile()) return path;
    }
    return folders.at(1) + '/' + fileName;
}

} // namespace core
