#include "messagebox.h"

#include <QApplication>
#include <QMessageBox>

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
} // namespace

void setMessageResponder(MessageResponder r) {
    responder() = std::move(r);
}

bool hasMessageResponder() {
    return static_cast<bool>(responder());
}

MsgAnswer msgbox(const QString& text, const QString& title, MsgButtons buttons, MsgIcon icon,
                 QWidget* parent) {
    if (responder()) return responder()(MessageCall{text, title, buttons, icon});

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

} // namespace core
