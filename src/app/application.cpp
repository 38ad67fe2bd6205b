#include "application.h"

#include "failure.h"
#include "installation.h"
#include "ownerfiles.h"
#include "textguard.h"

#include <QIcon>

#include <exception>

QuillorneApplication::QuillorneApplication(int& argc, char** argv)
    : QApplication(argc, argv) {
    core::ownerOnlyByDefault();
    core::refuseControlCharacters();
}

bool QuillorneApplication::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& e) {
        core::reportFailure(e);
    } catch (...) {
        core::reportFailure(std::runtime_error("Unexpected failure"));
    }
    return false;
}

void setApplicationIdentity() {
    Q_INIT_RESOURCE(icons);
    QApplication::setApplicationName("Quillorne");
    QApplication::setOrganizationName("Quillorne");
    QApplication::setApplicationVersion(core::programVersion());
    QGuiApplication::setDesktopFileName("quillorne");
    QIcon icon;
    icon.addFile(":/icons/quillorne-48.png");
    icon.addFile(":/icons/quillorne-256.png");
    QApplication::setWindowIcon(icon);
}
