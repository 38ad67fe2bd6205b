#include "frmaddsoftware.h"

#include "assetwidgets.h"
#include "combos.h"
#include "failure.h"
#include "frmsoftware.h"
#include "messagebox.h"
#include "modal.h"
#include "screenbase.h"
#include "session.h"
#include "software.h"
#include "widgetkit.h"

#include <QComboBox>
#include <QPushButton>

namespace {
void say(QWidget* parent, const QString& text) {
    core::msgbox(text, {}, core::MsgButtons::Ok, core::MsgIcon::None, parent);
}
} // namespace

frmAddSoftware::frmAddSoftware(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmAddSoftware");
    setWindowTitle("Add Software");
    cboManufacturer = core::autoCompleteCombo(this, "cboManufacturer");
    cboProduct = core::autoCompleteCombo(this, "cboProduct");
    cboVersion = core::autoCompleteCombo(this, "cboVersion");
    for (QComboBox* c : {cboManufacturer, cboProduct, cboVersion})
        c->setMinimumWidth(240);
    cboProduct->setEnabled(false);
    cboVersion->setEnabled(false);
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdAddNew = core::makeButton(this, "Add new software", "cmdAddNew");
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);
    core::formLayout(
        this, {{"Manufacturer", cboManufacturer}, {"Product", cboProduct}, {"Version", cboVersion}},
        {cmdOK, cmdAddNew, cmdCancel});

    connect(cboManufacturer, &QComboBox::currentIndexChanged, this,
            &frmAddSoftware::manufacturerPicked);
    connect(cboProduct, &QComboBox::currentIndexChanged, this, &frmAddSoftware::productPicked);
    connect(cmdOK, &QPushButton::clicked, this, &frmAddSoftware::confirm);
    connect(cmdAddNew, &QPushButton::clicked, this, &frmAddSoftware::addNew);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    assets::closeWhenFinished(this);
    loadman();
}

void frmAddSoftware::loadman() {
    core::guarded(
        windowTitle(),
        [this] {
            const QStringList names = assets::manufacturerNames(core::db());
            const QSignalBlocker a(cboManufacturer), b(cboProduct), c(cboVersion);
            cboManufacturer->clear();
            cboProduct->clear();
            cboVersion->clear();
            cboManufacturer->addItems(names);
            cboManufacturer->setCurrentIndex(-1);
        },
        this);
}

void frmAddSoftware::manufacturerPicked(int index) {
    if (index < 0) return;
    core::guarded(
        windowTitle(),
        [&] {
            const QStringList products =
                assets::productNames(core::db(), cboManufacturer->itemText(index));
            const QSignalBlocker b(cboProduct), c(cboVersion);
            cboProduct->clear();
            cboVersion->clear();
            cboProduct->addItems(products);
            cboProduct->setCurrentIndex(-1);
            cboProduct->setEnabled(true);
        },
        this);
}

void frmAddSoftware::productPicked(int index) {
    if (index < 0) return;
    core::guarded(
        windowTitle(),
        [&] {
            const QStringList versions = assets::versionNames(
                core::db(), cboManufacturer->currentText(), cboProduct->itemText(index));
            const QSignalBlocker c(cboVersion);
            cboVersion->clear();
            cboVersion->addItems(versions);
            cboVersion->setCurrentIndex(-1);
            cboVersion->setEnabled(true);
        },
        this);
}

void frmAddSoftware::confirm() {
    if (cboManufacturer->currentText().isEmpty()) return say(this, "Please select manufacturer");
    if (cboProduct->currentText().isEmpty()) return say(this, "Please select the product type");
    if (cboVersion->currentText().isEmpty() && cboVersion->count() > 0)
        return say(this, "Please select the version type");
    core::guarded(
        windowTitle(),
        [this] {
            const auto id =
                assets::findSoftware(core::db(), cboManufacturer->currentText(),
                                     cboProduct->currentText(), cboVersion->currentText());
            softwareId_ = id.value_or(0);
            ok_ = true;
            accept();
        },
        this);
}

void frmAddSoftware::addNew() {
    frmsoftware screen(this);
    core::showModal(screen);
    if (screen.ok()) loadman();
}
