#include "screenbase.h"

#include "taborder.h"

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>

namespace core {
namespace {

class ScreenKeys : public QObject {
public:
    ScreenKeys(QWidget* screen, QPushButton* defaultButton, QPushButton* cancelButton)
        : QObject(screen)
        , screen_(screen)
        , default_(defaultButton)
        , cancel_(cancelButton) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        // Drop-downs added after the screen was made (pages filled later) are watched too.
        if (watched == screen_ && event->type() == QEvent::Show) {
            watchCombos();
            // Once the screen stands, Tab follows what it shows, not the order it was built in.
            if (!tabsOrdered_) applyLayoutTabOrder(screen_);
            tabsOrdered_ = true;
        }
        if (retired_ || event->type() != QEvent::KeyPress) return false;
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->modifiers() & ~Qt::KeypadModifier) return false;
        switch (key->key()) {
        // The keys are the screen's either way: a dialog's own handling would otherwise close
        // it behind a greyed or missing button.
        case Qt::Key_Return:
        case Qt::Key_Enter:
            press(focusedButton(watched) ? focusedButton(watched) : default_.data());
            return true;
        case Qt::Key_Escape:
            press(cancel_);
            return true;
        default:
            return false;
        }
    }

    void retire() {
        retired_ = true;
        if (default_) default_->setDefault(false);
        default_.clear();
        cancel_.clear();
    }

    // Watches the drop-downs too: an editable one takes Enter and Esc for itself and would
    // never hand them on to the screen.
    void watch() {
        screen_->installEventFilter(this);
        watchCombos();
    }

private:
    void watchCombos() {
        for (QComboBox* combo : screen_->findChildren<QComboBox*>())
            if (combo->isEditable()) combo->installEventFilter(this);
    }

    QPushButton* focusedButton(QObject* watched) const {
        auto* focus = qobject_cast<QPushButton*>(QApplication::focusWidget());
        if (!focus || focus == watched || !screen_->isAncestorOf(focus)) return nullptr;
        return focus;
    }

    static void press(QPushButton* button) {
        if (button && button->isEnabled() && button->isVisible()) button->click();
    }

    QWidget* screen_;
    QPointer<QPushButton> default_;
    QPointer<QPushButton> cancel_;
    bool retired_ = false;
    bool tabsOrdered_ = false;
};

} // namespace

void setScreenButtons(QWidget* screen, QPushButton* defaultButton, QPushButton* cancelButton) {
    // Set again, the keys follow the new buttons.
    for (QObject* child : screen->children())
        if (auto* old = dynamic_cast<ScreenKeys*>(child)) {
            screen->removeEventFilter(old);
            old->retire();
            old->deleteLater();
        }
    if (defaultButton) defaultButton->setDefault(true);
    auto* keys = new ScreenKeys(screen, defaultButton, cancelButton);
    keys->watch();
}

} // namespace core
