#include "frmlookupentry.h"

#include "failure.h"
#include "messagebox.h"
#include "orgowner.h"
#include "screenbase.h"
#include "screenhost.h"
#include "session.h"
#include "widgetkit.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

frmLookupEntry::frmLookupEntry(const organisation::LookupList& list, QWidget* parent)
    : QWidget(parent)
    , list_(list) {
    setObjectName(list.screen);
    setWindowTitle(list.caption);
    core::placeTopLeft(this);
    txtName = new QLineEdit(this);
    txtName->setObjectName("Text1");
    cmdAdd = core::makeButton(this, "Add", "cmdAdd", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    core::setScreenButtons(this, cmdAdd, cmdCancel);

    auto* grid = new QGridLayout(this);
    grid->addWidget(new QLabel(list.label, this), 0, 0);
    grid->addWidget(txtName, 0, 1);
    auto* buttons = core::buttonRow({cmdAdd, cmdCancel});
    grid->addLayout(buttons, 1, 0, 1, 2);

    connect(cmdAdd, &QPushButton::clicked, this, &frmLookupEntry::add);
    connect(cmdCancel, &QPushButton::clicked, this, &QWidget::close);
}

void frmLookupEntry::add() {
    const QString text = txtName->text();
    if (text.trimmed().isEmpty()) {
        core::msgbox(list_.emptyMessage);
        return;
    }
    const bool saved = core::guarded(
        windowTitle(), [&] { organisation::addLookupEntry(core::db(), list_, text); }, this);
    if (!saved) return;
    if (ischild)
        if (auto* owner = dynamic_cast<OrgOwner*>(addpos.data())) {
            owner->loadcombos();
            owner->setnew(list_.ownerList, text);
        }
    close();
}
