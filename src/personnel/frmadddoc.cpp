#include "frmadddoc.h"

#include "messagebox.h"
#include "modal.h"
#include "screenbase.h"
#include "widgetkit.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

frmAddDoc::frmAddDoc(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmAddDoc");
    setWindowTitle("Add Document");
    txtDescription = new QLineEdit(this);
    txtDescription->setObjectName("txtDescription");
    txtLocation = new QLineEdit(this);
    txtLocation->setObjectName("txtLocation");
    cmdBrowse = core::makeButton(this, "...", "cmdBrowse");
    txtNotes = new QPlainTextEdit(this);
    txtNotes->setObjectName("txtNotes");
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);

    auto* grid = new QGridLayout(this);
    grid->addWidget(new QLabel("Description", this), 0, 0);
    grid->addWidget(txtDescription, 0, 1, 1, 2);
    grid->addWidget(new QLabel("Location", this), 1, 0);
    grid->addWidget(txtLocation, 1, 1);
    grid->addWidget(cmdBrowse, 1, 2);
    grid->addWidget(new QLabel("Notes", this), 2, 0, Qt::AlignTop);
    grid->addWidget(txtNotes, 2, 1, 1, 2);
    grid->addLayout(core::buttonRow({cmdOK, cmdCancel}), 3, 0, 1, 3);

    connect(cmdBrowse, &QPushButton::clicked, this, &frmAddDoc::browse);
    connect(cmdOK, &QPushButton::clicked, this, &frmAddDoc::confirm);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
}

personnel::DocumentFields frmAddDoc::fields() const {
    return {txtDescription->text(), txtLocation->text(), txtNotes->toPlainText()};
}

void frmAddDoc::setFields(const personnel::DocumentFields& f) {
    txtDescription->setText(f.title);
    txtLocation->setText(f.path);
    txtNotes->setPlainText(f.notes);
}

void frmAddDoc::browse() {
    QFileDialog picker(this, "Select Document");
    picker.setObjectName("frmDocList");
    picker.setFileMode(QFileDialog::ExistingFile);
    // Qt's own dialog, so that the picker is driven like every other modal dialog.
    picker.setOption(QFileDialog::DontUseNativeDialog);
    const QFileInfo current(txtLocation->text().trimmed());
    if (!txtLocation->text().trimmed().isEmpty()) picker.setDirectory(current.absolutePath());
    if (core::showModal(picker) != QDialog::Accepted) return;
    const QStringList picked = picker.selectedFiles();
    if (picked.isEmpty()) return;
    const QFileInfo file(picked.first());
    txtLocation->setText(personnel::joinDocumentPath(file.absolutePath(), file.fileName()));
}

void frmAddDoc::confirm() {
    const auto check = personnel::checkDocument(txtDescription->text(), txtLocation->text());
    if (!check.ok) {
        core::msgbox(check.message);
        txtDescription->setFocus();
        return;
    }
    ok = true;
    accept();
}
