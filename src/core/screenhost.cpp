#include "screenhost.h"

#include <QWidget>

namespace core {

namespace {
ScreenHost& host() {
    static ScreenHost h;
    return h;
}
} // namespace

void placeTopLeft(QWidget* screen) {
    screen->setProperty("quillorneTopLeft", true);
}

bool wantsTopLeft(const QWidget* screen) {
    return screen->property("quillorneTopLeft").toBool();
}

void setScreenHost(ScreenHost h) {
    host() = std::move(h);
}

void showScreen(QWidget* screen) {
    screen->setAttribute(Qt::WA_DeleteOnClose);
    if (host()) {
        host()(screen);
        return;
    }
    screen->show();
}

void showModalScreen(QWidget* screen, QWidget* over) {
    screen->setParent(over ? over->window() : nullptr, Qt::Dialog);
    screen->setAttribute(Qt::WA_DeleteOnClose);
    screen->setWindowModality(Qt::ApplicationModal);
    screen->show();
}

} // namespace core
