#include "frmcompany.h"

#include "failure.h"
#include "messagebox.h"
#include "organisation.h"
#include "orgowner.h"
#include "screenbase.h"
#include "screenhost.h"
#include "session.h"
#include "widgetkit.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

using organisation::CompanyFields;

frmCompany::frmCompany(QWidget* parent)
    : QWidget(parent) {
    setObjectName("frmCompany");
    setWindowTitle("Company");
    core::placeTopLeft(this);
    for (const auto& f : CompanyFields) {
        auto* e = new QLineEdit(this);
        e->setObjectName(f.box);
        boxes_[f.box] = e;
    }

    auto* info = new QGroupBox("Company Info", this);
    auto* infoGrid = new QGridLayout(info);
    infoGrid->addWidget(new QLabel("Company Name"), 0, 0);
    infoGrid->addWidget(box("txtCompany"), 0, 1);
    infoGrid->addWidget(new QLabel("Company Address"), 1, 0);
    infoGrid->addWidget(box("txtAddress1"), 1, 1);
    infoGrid->addWidget(box("txtAddress2"), 2, 1);
    infoGrid->addWidget(box("txtAddress3"), 3, 1);
    infoGrid->addWidget(new QLabel("Tel No"), 4, 0);
    infoGrid->addWidget(box("txtTelNo"), 4, 1);
    infoGrid->addWidget(new QLabel("Fax"), 5, 0);
    infoGrid->addWidget(box("txtFax"), 5, 1);

    auto* contacts = new QGroupBox("Useful Contact Info", this);
    auto* contactGrid = new QGridLayout(contacts);
    const std::pair<const char*, const char*> people[] = {{"Manging Director", "txtMD"},
                                                          {"PA to MD", "txtPA"},
                                                          {"Compliance", "txtCompliance"},
                                                          {"IT", "txtIT"},
                                                          {"Finance", "txtFinance"}};
    int row = 0;
    for (const auto& [caption, prefix] : people) {
        contactGrid->addWidget(new QLabel(caption), row, 0);
        contactGrid->addWidget(box((QString(prefix) + "Name").toLatin1().constData()), row, 1);
        contactGrid->addWidget(new QLabel("Tel"), row, 2);
        contactGrid->addWidget(box((QString(prefix) + "Ph").toLatin1().constData()), row, 3);
        ++row;
    }

    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdOK, cmdCancel);
    auto* buttons = core::buttonRow({cmdOK, cmdCancel});

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(info);
    layout->addWidget(contacts);
    layout->addLayout(buttons);

    connect(cmdOK, &QPushButton::clicked, this, &frmCompany::ok);
    connect(cmdCancel, &QPushButton::clicked, this, &QWidget::close);
}

QLineEdit* frmCompany::box(const char* name) const {
    const auto it = boxes_.find(QString::fromLatin1(name));
    return it == boxes_.end() ? nullptr : it->second;
}

void frmCompany::load(qint64 companyId) {
    companyId_ = companyId;
    core::guarded(
        windowTitle(),
        [&] {
            organisation::CompanyValues values;
            loaded_ = organisation::loadedCompanyRow(core::db(), companyId);
            if (!organisation::loadCompany(core::db(), companyId, values)) return;
            for (size_t i = 0; i < CompanyFields.size(); ++i)
                box(CompanyFields[i].box)->setText(values[i].trimmed());
        },
        this);
}

void frmCompany::ok() {
    if (box("txtCompany")->text().trimmed().isEmpty()) {
        core::msgbox("Please enter company name");
        return;
    }
    organisation::CompanyValues values;
    for (size_t i = 0; i < CompanyFields.size(); ++i)
        values[i] = box(CompanyFields[i].box)->text();
    // A failed save keeps the screen open with what was typed.
    bool changedMeanwhile = false;
    const bool saved = core::guarded(
        windowTitle(),
        [&] {
            try {
                companyId_ = organisation::saveCompany(core::db(), companyId_, values, loaded_);
            } catch (const core::RowChanged&) {
                changedMeanwhile = true;
            }
        },
        this);
    if (changedMeanwhile) {
        if (core::offerReload("company", this)) load(companyId_);
        return;
    }
    if (!saved) return;
    if (ischild)
        if (auto* owner = dynamic_cast<OrgOwner*>(addpos.data())) {
            owner->loadcombos();
            owner->setnew("Company", values[0]);
        }
    close();
}
