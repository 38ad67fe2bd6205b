#include "frmlistcall.h"

#include "calllists.h"
#include "calllistview.h"
#include "failure.h"
#include "frmaddcall.h"
#include "screenbase.h"
#include "screenhost.h"
#include "session.h"
#include "widgetkit.h"

#include <QPushButton>
#include <QVBoxLayout>

frmListCall::frmListCall(QWidget* parent)
    : QWidget(parent) {
    setObjectName("frmListCall");
    setWindowTitle("Select call");
    lvCalls = new CallListView(this);
    lvCalls->setObjectName("lvCalls");
    lvCalls->setMinimumSize(760, 360);
    cmdOK = core::makeButton(this, "OK", "cmdOK", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lvCalls);
    layout->addLayout(core::buttonRow({cmdOK, cmdCancel}));
    core::setScreenButtons(this, cmdOK, cmdCancel);
    connect(lvCalls, &CallListView::callActivated, this, &frmListCall::open);
    connect(cmdOK, &QPushButton::clicked, this, &frmListCall::ok);
    connect(cmdCancel, &QPushButton::clicked, this, &QWidget::close);
}

void frmListCall::load(const QString& kind) {
    core::guarded(
        windowTitle(),
        [&] {
            lvCalls->setRows(helpdesk::callList(core::db(), kind != QLatin1String("All")));
            lvCalls->selectRow(0);
        },
        this);
}

bool frmListCall::LoadInd(qint64 personId) {
    bool any = false;
    core::guarded(
        windowTitle(),
        [&] {
            lvCalls->setRows(helpdesk::callerCalls(core::db(), personId));
            lvCalls->selectRow(0);
            any = lvCalls->count() > 0;
        },
        this);
    return any;
}

void frmListCall::ok() {
    if (lvCalls->count() == 0) {
        close();
        return;
    }
    const qint64 id = lvCalls->selectedId();
    open(id > 0 ? id : lvCalls->idAt(0));
}

void frmListCall::open(qint64 callId) {
    auto* screen = new frmaddcall;
    if (!screen->loadcall(callId)) {
        delete screen;
        return;
    }
    core::showScreen(screen);
    close();
}
