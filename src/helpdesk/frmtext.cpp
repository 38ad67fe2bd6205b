#include "frmtext.h"

#include "screenbase.h"
#include "widgetkit.h"

#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

frmText::frmText(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmText");
    setWindowTitle("Add Note");
    txtNote = new QPlainTextEdit(this);
    txtNote->setObjectName("txtNote");
    txtNote->setTabChangesFocus(true);
    txtNote->setMinimumSize(360, 140);
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(txtNote);
    layout->addLayout(core::buttonRow({cmdOK}));
    core::setScreenButtons(this, cmdOK, nullptr);
    connect(cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

void frmText::start(const QString& text) {
    txtNote->setPlainText(text);
    txtNote->moveCursor(QTextCursor::End);
    txtNote->setFocus();
}

QString frmText::note() const {
    return txtNote->toPlainText();
}
