#include "frmlicense.h"

#include "assetwidgets.h"
#include "combos.h"
#include "failure.h"
#include "licences.h"
#include "messagebox.h"
#include "screenbase.h"
#include "session.h"
#include "widgetkit.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

frmLicense::frmLicense(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmLicense");
    setWindowTitle("Add Licenses");
    cboSoftware = core::autoCompleteCombo(this, "cboSoftware");
    cboSoftware->setMinimumWidth(280);
    lblTotal = new QLabel(this);
    lblTotal->setObjectName("lblTotal");
    lblAvailable = new QLabel(this);
    lblAvailable->setObjectName("lblAvailable");
    txtAdd = assets::textBox(this, "txtAdd", 4);
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);
    core::formLayout(this,
                     {{"Select Software", cboSoftware},
                      {"Total Licenses", lblTotal},
                      {"Available Licenses", lblAvailable},
                      {"No of licenses to add", txtAdd}},
                     {cmdOK, cmdCancel});

    connect(cboSoftware, &QComboBox::currentIndexChanged, this, &frmLicense::showFigures);
    connect(cmdOK, &QPushButton::clicked, this, [this] {
        if (save()) accept();
    });
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);
    assets::closeWhenFinished(this);

    core::guarded(
        windowTitle(),
        [this] {
            pool_ = assets::poolEntries(core::db());
            const QSignalBlocker quiet(cboSoftware);
            for (const auto& e : pool_)
                core::addComboItem(cboSoftware, e.text, e.id);
            cboSoftware->setCurrentIndex(-1);
        },
        this);
}

void frmLicense::showFigures(int index) {
    const bool picked = index >= 0 && index < int(pool_.size());
    lblTotal->setText(picked ? QString::number(pool_[size_t(index)].total) : QString());
    lblAvailable->setText(picked ? QString::number(pool_[size_t(index)].available) : QString());
}

bool frmLicense::save() {
    const qint64 id = core::comboId(cboSoftware);
    if (id == core::NoComboId) {
        core::msgbox("Please select the software", {}, core::MsgButtons::Ok, core::MsgIcon::None,
                     this);
        return false;
    }
    const auto added = assets::wholeNumber(txtAdd->text());
    if (!added) {
        core::msgbox("Please enter the number of licenses to add", {}, core::MsgButtons::Ok,
                     core::MsgIcon::None, this);
        return false;
    }
    return core::guarded(
        windowTitle(), [&] { assets::addLicences(core::db(), id, *added); }, this);
}
