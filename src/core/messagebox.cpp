#include "messagebox.h"

#include <QApplication>
#include <QMessageBox>
#include <optional>

namespace core {

namespace {
MessageResponder& responder() {
    static MessageResponder r;
    return r;
}

QMessageBox::Icon toQt(MsgIcon icon) {
    switch (icon) {
    case MsgIcon::Information:
        return QMessageBox::Information;
    case MsgIcon::Question:
        return QMessageBox::Question;
    case MsgIcon::Warning:
        return QMessageBox::Warning;
    case MsgIcon::Critical:
        return QMessageBox::Critical;
    case MsgIcon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButton toQt(MsgAnswer answer) {
    switch (answer) {
    case MsgAnswer::Ok:
        return QMessageBox::Ok;
    case MsgAnswer::Cancel:
        return QMessageBox::Cancel;
    case MsgAnswer::Yes:
        return QMessageBox::Yes;
    case MsgAnswer::No:
        return QMessageBox::No;
    }
    return QMessageBox::NoButton;
}

MsgAnswer show(const QString& text, const QString& title, MsgButtons buttons, MsgIcon icon,
               std::optional<MsgAnswer> defaultAnswer, QWidget* parent) {
    if (responder()) return responder()(MessageCall{text, title, buttons, icon, defaultAnswer});

    QMessageBox box(parent ? parent : QApplication::activeWindow());
    box.setIcon(toQt(icon));
    box.setWindowTitle(title.isEmpty() ? QStringLiteral("Quillorne") : title);
    box.setText(text);
    switch (buttons) {
    case MsgButtons::Ok:
        box.setStandardButtons(QMessageBox::Ok);
        break;
    case MsgButtons::OkCancel:
        box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
        break;
    case MsgButtons::YesNo:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        break;
    case MsgButtons::YesNoCancel:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        break;
    }
    if (defaultAnswer) box.setDefaultButton(toQt(*defaultAnswer));
    switch (box.exec()) {
    case QMessageBox::Yes:
        return MsgAnswer::Yes;
    case QMessageBox::No:
        return MsgAnswer::No;
    case QMessageBox::Cancel:
        return MsgAnswer::Cancel;
    default:
        return buttons == MsgButtons::YesNo ? MsgAnswer::No : MsgAnswer::Ok;
    }
}

} // namespace

void setMessageResponder(MessageResponder r) {
    responder() = std::move(r);
}

bool hasMessageResponder() {
    return static_cast<bool>(responder());
}

MsgAnswer msgbox(const QString& text, const QString& title, MsgButtons buttons, MsgIcon icon,
                 QWidget* parent) {
    return show(text, title, buttons, icon, std::nullopt, parent);
}

MsgAnswer msgbox(const QString& text, const QString& title, MsgButtons buttons, MsgIcon icon,
                 MsgAnswer defaultAnswer, QWidget* parent) {
    return show(text, title, buttons, icon, defaultAnswer, parent);
}

} // namespace core
