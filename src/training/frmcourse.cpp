#include "frmcourse.h"

#include "screenbase.h"
#include "widgetkit.h"

#include <QLineEdit>
#include <QPushButton>

frmCourse::frmCourse(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmCourse");
    setWindowTitle("Add Course");
    txtTitle = new QLineEdit(this);
    txtTitle->setObjectName("txtTitle");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);
    core::formLayout(this, {{"Title", txtTitle}}, {cmdOK, cmdCancel});

    connect(cmdOK, &QPushButton::clicked, this, &frmCourse::confirm);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

void frmCourse::confirm() {
    // A blank title would sit in the catalogue for good, since nothing removes a course.
    if (txtTitle->text().trimmed().isEmpty()) return;
    ok = true;
    accept();
}
