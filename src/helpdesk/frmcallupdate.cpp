#include "frmcallupdate.h"

#include "calllists.h"
#include "combos.h"
#include "failure.h"
#include "frmaddcall.h"
#include "frmlistcall.h"
#include "messagebox.h"
#include "screenbase.h"
#include "screenhost.h"
#include "session.h"
#include "widgetkit.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

frmCallUpdate::frmCallUpdate(QWidget* parent)
    : QDialog(parent) {
    setObjectName("frmCallUpdate");
    setWindowTitle("Update call");
    txtJobNo = new QLineEdit(this);
    txtJobNo->setObjectName("txtJobNo");
    cboCaller = core::autoCompleteCombo(this, "cboCaller");
    cboCaller->setMinimumWidth(240);
    cmdSearch = core::makeButton(this, "Search", "cmdSearch", true);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    auto* grid = new QGridLayout(this);
    grid->addWidget(new QLabel("Search by Job Number or caller", this), 0, 0, 1, 2);
    grid->addWidget(new QLabel("Job Number", this), 1, 0);
    grid->addWidget(txtJobNo, 1, 1);
    grid->addWidget(new QLabel("Callers name", this), 2, 0);
    grid->addWidget(cboCaller, 2, 1);
    grid->addLayout(core::buttonRow({cmdSearch, cmdCancel}), 3, 0, 1, 2);
    core::setScreenButtons(this, cmdSearch, cmdCancel);

    connect(txtJobNo, &QLineEdit::textEdited, this, [this] {
        cboCaller->setCurrentIndex(-1);
        cboCaller->setEditText({});
    });
    cboCaller->installEventFilter(this);
    if (cboCaller->lineEdit()) cboCaller->lineEdit()->installEventFilter(this);
    connect(cboCaller, &QComboBox::activated, txtJobNo, &QLineEdit::clear);
    connect(cmdSearch, &QPushButton::clicked, this, &frmCallUpdate::search);
    connect(cmdCancel, &QPushButton::clicked, this, &QDialog::reject);

    core::guarded(
        windowTitle(),
        [this] {
            for (const helpdesk::Entry& e : helpdesk::callerEntries(core::db()))
                core::addComboItem(cboCaller, e.text, e.id);
            cboCaller->setCurrentIndex(-1);
        },
        this);
}

bool frmCallUpdate::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress) txtJobNo->clear();
    return QDialog::eventFilter(watched, event);
}

void frmCallUpdate::search() {
    const qint64 caller =
        helpdesk::searchedCaller(cboCaller->currentText(), core::comboId(cboCaller));
    helpdesk::SearchResult result;
    if (!core::guarded(
            windowTitle(),
            [&] { result = helpdesk::searchCalls(core::db(), txtJobNo->text(), caller); }, this))
        return;
    switch (result.kind) {
    case helpdesk::SearchResult::Nothing:
        return;
    case helpdesk::SearchResult::Refused:
        core::msgbox(result.message, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
        // A number may be mistyped and is corrected here; a caller with no calls is an answer.
        if (result.message == helpdesk::NoCallsForUser) reject();
        return;
    case helpdesk::SearchResult::OpenCall: {
        auto* screen = new frmaddcall;
        if (!screen->loadcall(result.id)) {
            delete screen;
            return;
        }
        hide();
        core::showScreen(screen);
        accept();
        return;
    }
    case helpdesk::SearchResult::ListCalls: {
        auto* list = new frmListCall;
        if (!list->LoadInd(result.id)) {
            delete list;
            return;
        }
        hide();
        core::showScreen(list);
        accept();
        return;
    }
    }
}
