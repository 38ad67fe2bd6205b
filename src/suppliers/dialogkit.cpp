#include "dialogkit.h"

#include "messagebox.h"

#include <QDesktopServices>
#include <QDialog>
#include <QLineEdit>
#include <QUrl>

namespace suppliers {

QLineEdit* textBox(QWidget* parent, const char* objectName) {
    auto* box = new QLineEdit(parent);
    box->setObjectName(objectName);
    return box;
}

QLineEdit* postcodeBox(QWidget* parent, const char* objectName) {
    QLineEdit* box = textBox(parent, objectName);
    QObject::connect(box, &QLineEdit::editingFinished, box,
                     [box] { box->setText(box->text().toUpper()); });
    return box;
}

void watchDirty(QDialog* dialog, bool& flag) {
    for (QLineEdit* box : dialog->findChildren<QLineEdit*>())
        QObject::connect(box, &QLineEdit::textEdited, dialog, [&flag] { flag = true; });
}

void openMail(const QString& address, QWidget* parent) {
    QUrl url;
    url.setScheme("mailto");
    url.setPath(address.trimmed());
    if (!QDesktopServices::openUrl(url))
        core::msgbox("No mail program could be started for " + url.toString(), {},
                     core::MsgButtons::Ok, core::MsgIcon::None, parent);
}

} // namespace suppliers
