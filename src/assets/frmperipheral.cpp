#include "frmperipheral.h"

#include "assetwidgets.h"
#include "combos.h"
#include "failure.h"
#include "messagebox.h"
#include "peripherals.h"
#include "screenbase.h"
#include "session.h"
#include "widgetkit.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

frmPeripheral::frmPeripheral(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmPeripheral");
    setWindowTitle("Add Peripheral");
    cboType = core::autoCompleteCombo(this, "cboType");
    txtAssetNo = assets::textBox(this, "txtAssetNo", 20);
    txtSerialNo = assets::textBox(this, "txtSerialNo", 20);
    txtManufacturer = assets::textBox(this, "txtManufacturer", 20);
    txtModel = assets::textBox(this, "txtModel", 20);
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);
    core::formLayout(this,
                     {{"Type", cboType},
                      {"Asset No", txtAssetNo},
                      {"Serial No", txtSerialNo},
                      {"Manufacturer", txtManufacturer},
                      {"Model", txtModel}},
                     {cmdOK, cmdCancel});
    connect(cmdOK, &QPushButton::clicked, this, [this] {
        if (cboType->currentText().trimmed().isEmpty()) {
            core::msgbox("Please select a peripheral type", {}, core::MsgButtons::Ok,
                         core::MsgIcon::None, this);
            return;
        }
        ok_ = true;
        accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    core::guarded(
        windowTitle(),
        [this] {
            cboType->addItems(assets::peripheralTypes(core::db()));
            cboType->setCurrentIndex(-1);
        },
        this);
}
