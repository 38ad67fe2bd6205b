#include "frmaddcall.h"

#include "callassetpages.h"
#include "calllists.h"
#include "combos.h"
#include "computerlist.h"
#include "datebox.h"
#include "failure.h"
#include "frmaction.h"
#include "frmcallhistory.h"
#include "frmsoftwaresel.h"
#include "frmtext.h"
#include "messagebox.h"
#include "modal.h"
#include "recordlist.h"
#include "regional.h"
#include "screenbase.h"
#include "screenhost.h"
#include "session.h"
#include "widgetkit.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QToolButton>
#include <QVBoxLayout>

using namespace helpdesk;

namespace {

constexpr int ProblemLimit = 400;

QLabel* valueLabel(QWidget* parent, const char* name) {
    auto* label = new QLabel(parent);
    label->setObjectName(name);
    label->setFrameShape(QFrame::StyledPanel);
    label->setMinimumWidth(90);
    return label;
}

QPlainTextEdit* problemBox(QWidget* parent, const char* name) {
    auto* box = new QPlainTextEdit(parent);
    box->setObjectName(name);
    box->setTabChangesFocus(true);
    QObject::connect(box, &QPlainTextEdit::textChanged, box, [box] {
        if (box->toPlainText().size() > ProblemLimit) {
            box->setPlainText(box->toPlainText().left(ProblemLimit));
            box->moveCursor(QTextCursor::End);
        }
    });
    return box;
}

QDateTime now() {
    return QDateTime::currentDateTime();
}

} // namespace

frmaddcall::frmaddcall(QWidget* parent)
    : QWidget(parent) {
    setObjectName("frmaddcall");
    setWindowTitle("Add Call");
    core::placeTopLeft(this);

    fraDetails = new QGroupBox("Call Details", this);
    fraDetails->setObjectName("fraDetails");
    cboUser = core::autoCompleteCombo(fraDetails, "cboUser");
    lblExt = valueLabel(fraDetails, "lblExt");
    lblDepartment = new QLabel(fraDetails);
    lblDepartment->setObjectName("lblDepartment");
    lblDepartment->hide();
    cboFault = core::autoCompleteCombo(fraDetails, "cboFault");
    txtDateLogged = new DateBox("txtDateLogged", fraDetails);
    txtDateLogged->setWarnOnInvalid(true);
    txtDateLogged->button()->hide();
    txtDateLogged->lineEdit()->setMaxLength(10);
    txtDateRequired = new DateBox("txtDateRequired", fraDetails);
    txtDateRequired->setWarnOnInvalid(true);
    txtDateRequired->setEscapeForToday(true);
    txtDateRequired->lineEdit()->setMaxLength(10);
    txtDateRequired->button()->setText("....");
    cboStatus = core::autoCompleteCombo(fraDetails, "cboStatus");
    // Sized for a name, not for the longest one on file, which leaves the problem its room.
    for (QComboBox* combo : {cboUser, cboFault, cboStatus}) {
        combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        combo->setMinimumContentsLength(18);
    }
    lblDateClosed = valueLabel(fraDetails, "lblDateClosed");
    auto* details = new QGridLayout(fraDetails);
    const struct {
        const char* caption;
        QWidget* field;
        int row, column;
    } placed[] = {{"User Name", cboUser, 0, 0},
                  {"Ext Number", lblExt, 0, 2},
                  {"Type of fault", cboFault, 1, 0},
                  {"Date Logged", txtDateLogged, 2, 0},
                  {"Date Required", txtDateRequired, 2, 2},
                  {"Current Status", cboStatus, 3, 0},
                  {"Date closed", lblDateClosed, 3, 2}};
    for (const auto& p : placed) {
        details->addWidget(new QLabel(p.caption, fraDetails), p.row, p.column);
        details->addWidget(p.field, p.row, p.column + 1);
    }
    details->setRowStretch(4, 1);

    auto* fraHelpdesk = new QGroupBox("Helpdesk", this);
    fraHelpdesk->setObjectName("fraHelpdesk");
    lblCallNo = valueLabel(fraHelpdesk, "lblCallNo");
    tabCall = new QTabWidget(fraHelpdesk);
    tabCall->setObjectName("tabCall");
    auto* general = new QWidget;
    txtProblem = problemBox(general, "txtProblem");
    txtResolution = problemBox(general, "txtResolution");
    auto* glayout = new QGridLayout(general);
    glayout->addWidget(new QLabel("Problem ", general), 0, 0, Qt::AlignTop);
    glayout->addWidget(txtProblem, 0, 1);
    glayout->addWidget(new QLabel("Resolution ", general), 1, 0, Qt::AlignTop);
    glayout->addWidget(txtResolution, 1, 1);
    auto* history = new QWidget;
    lvHistory = new RecordList(history);
    lvHistory->setObjectName("lvHistory");
    // 1680, 2800 and 4351 twips.
    lvHistory->setColumns({"Date", "Status", "Action"}, {112, 187, 290});
    auto* hlayout = new QVBoxLayout(history);
    hlayout->addWidget(lvHistory);
    tabCall->addTab(general, "General");
    tabCall->addTab(history, "History");
    auto* callBox = new QGridLayout(fraHelpdesk);
    callBox->addWidget(new QLabel("Call Number", fraHelpdesk), 0, 0);
    callBox->addWidget(lblCallNo, 0, 1);
    callBox->setColumnStretch(2, 1);
    callBox->addWidget(tabCall, 1, 0, 1, 3);

    tabAsset = new CallAssetPages(this);
    cmdLog = core::makeButton(this, "Log Call", "cmdLog", true);
    cmdAction = core::makeButton(this, "Add Action", "cmdAction");
    cmdAction->setEnabled(false);
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");

    auto* top = new QHBoxLayout;
    fraDetails->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Preferred);
    top->addWidget(fraDetails);
    top->addWidget(fraHelpdesk, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(tabAsset);
    layout->addLayout(core::buttonRow({cmdAction, cmdLog, cmdCancel}));
    core::setScreenButtons(this, cmdLog, cmdCancel);

    // A pick from the list opens the picker, and so does typing that completes a fault type,
    // as a pick by typing counts as a pick; but only once for each fault type the typing
    // arrives at, so that the keys after the first do not open it again.
    cboFault->installEventFilter(this);
    if (cboFault->lineEdit()) cboFault->lineEdit()->installEventFilter(this);
    connect(cboFault, &QComboBox::activated, this, [this] {
        const QString fault = cboFault->currentText();
        if (typingFault_ && fault == typedFault_) return;
        typedFault_ = typingFault_ ? fault : QString();
        pickForFault();
    });
    connect(cboFault, &QComboBox::editTextChanged, this, [this](const QString& text) {
        if (text != typedFault_) typedFault_.clear();
    });
    connect(cboUser, &QComboBox::activated, this, &frmaddcall::pickCaller);
    connect(lvHistory, &RecordList::recordActivated, this, &frmaddcall::openHistoryRow);
    connect(tabAsset->lstSoftware, &QListWidget::itemDoubleClicked, this,
            &frmaddcall::softwareChosen);
    connect(cmdLog, &QPushButton::clicked, this, &frmaddcall::button1);
    connect(cmdAction, &QPushButton::clicked, this, &frmaddcall::addAction);
    connect(cmdCancel, &QPushButton::clicked, this, &QWidget::close);

    txtDateLogged->setDate(QDate::currentDate());
    fillLists();
}

bool frmaddcall::eventFilter(QObject* watched, QEvent* event) {
    if (watched == cboFault || watched == cboFault->lineEdit()) {
        if (event->type() == QEvent::KeyPress) {
            const QString text = static_cast<QKeyEvent*>(event)->text();
            typingFault_ = !text.isEmpty() && text.at(0).unicode() >= 32;
        } else if (event->type() == QEvent::MouseButtonPress) {
            typingFault_ = false;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void frmaddcall::fillLists() {
    core::guarded(
        windowTitle(),
        [this] {
            auto& db = core::db();
            cboFault->addItems(faultTypes(db));
            cboFault->setCurrentIndex(-1);
            for (const Entry& e : callerEntries(db))
                core::addComboItem(cboUser, e.text, e.id);
            cboUser->setCurrentIndex(-1);
            cboStatus->addItems(callStatuses(db));
            cboStatus->setCurrentIndex(-1);
        },
        this);
}

void frmaddcall::NewCall() {
    newcall = true;
    core::findcomboitem(cboStatus, OpenStatus);
    if (cboStatus->currentText().isEmpty()) cboStatus->setEditText(OpenStatus);
}

helpdesk::CallText frmaddcall::call() const {
    CallText c;
    c.personId = personid;
    c.faultType = cboFault->currentText();
    c.dateLogged = txtDateLogged->text();
    c.dateRequired = txtDateRequired->text();
    c.description = txtProblem->toPlainText();
    c.resolution = txtResolution->toPlainText();
    c.status = cboStatus->currentText();
    c.computerId = computerid;
    c.peripheralId = peripheralid;
    return c;
}

void frmaddcall::pickCaller(int index) {
    lblExt->clear();
    lblDepartment->clear();
    bool isKey = false;
    const qint64 id = cboUser->itemData(index).toLongLong(&isKey);
    if (index < 0 || !isKey) return;
    core::guarded(
        windowTitle(),
        [&] {
            // Someone no longer on file leaves the call with the caller it had.
            if (const auto ext = callerExtension(core::db(), id)) {
                lblExt->setText(*ext);
                personid = id;
            }
        },
        this);
}

void frmaddcall::pickForFault() {
    tabAsset->clearDetails();
    const FaultPick pick = faultPick(cboFault->currentText());
    if (pick == FaultPick::Computer || pick == FaultPick::Other)
        tabAsset->setCurrentIndex(CallAssetPages::ComputerPage);
    if (pick == FaultPick::Other) return;
    if (pick == FaultPick::Computer) {
        computerList list(this);
        list.load(personid);
        if (core::showModal(list) == QDialog::Accepted && list.ok() && list.selectedId() > 0)
            showComputer(list.selectedId(), true);
        return;
    }
    tabAsset->setCurrentIndex(CallAssetPages::PeripheralPage);
    // The caller as the box shows them: none when it is blank, the one picked, or else the
    // caller the call already has.
    qint64 person = personid;
    if (cboUser->currentText().trimmed().isEmpty())
        person = 0;
    else if (const qint64 picked = core::comboId(cboUser); picked != core::NoComboId)
        person = picked;
    frmSoftwareSel picker(this);
    if (pick == FaultPick::Printer) {
        picker.setWindowTitle("Select Printer");
        picker.loadPrinters(person);
    } else if (pick == FaultPick::Scanner) {
        picker.setWindowTitle("Select Scanner");
        picker.loadScanners(person);
    } else {
        picker.setWindowTitle("Select Monitor");
        picker.loadmonitors(person);
    }
    if (core::showModal(picker) == QDialog::Accepted && picker.softwareID() > 0)
        showPeripheral(picker.softwareID());
}

void frmaddcall::showComputer(qint64 computerId, bool picked) {
    core::guarded(
        windowTitle(),
        [&] {
            auto& db = core::db();
            const auto details = computerDetails(db, computerId);
            if (!details) return;
            tabAsset->showComputer(*details, picked);
            computerid = computerId;
            if (picked) tabAsset->showSoftware(computerSoftware(db, computerId));
        },
        this);
}

void frmaddcall::showPeripheral(qint64 peripheralId) {
    core::guarded(
        windowTitle(),
        [&] {
            const auto details = peripheralDetails(core::db(), peripheralId);
            if (!details) return;
            tabAsset->showPeripheral(*details);
            peripheralid = peripheralId;
        },
        this);
}

void frmaddcall::softwareChosen() {
    QListWidgetItem* row = tabAsset->lstSoftware->currentItem();
    // A closed call's problem is not rewritten until the call is opened again.
    if (!row || !txtProblem->isEnabled()) return;
    tabAsset->markSoftware(row);
    txtProblem->setPlainText(problemAbout(row->text()));
    txtProblem->moveCursor(QTextCursor::End);
    tabCall->setCurrentIndex(0);
    txtProblem->setFocus();
}

void frmaddcall::showHistory(const std::vector<HistoryRow>& rows) {
    lvHistory->clearRecords();
    lvHistory->beginFill();
    for (const HistoryRow& h : rows) {
        QTreeWidgetItem* item = lvHistory->addRecord(
            h.id, {historyDate(h.at) + ' ' + historyTime(h.at), h.status, h.action});
        if (isClosed(h.status))
            for (int c = 0; c < 3; ++c)
                item->setForeground(c, Qt::red);
    }
    lvHistory->endFill();
}

void frmaddcall::openHistoryRow(qint64 historyId) {
    frmCallHistory row(this);
    if (row.load(historyId)) core::showModal(row);
}

void frmaddcall::setClosedLook(bool closed) {
    for (QWidget* w : std::initializer_list<QWidget*>{
             cmdAction, cboUser, lblExt, cboFault, txtDateLogged, txtDateRequired, cboStatus,
             lblDateClosed, txtProblem, txtResolution, lvHistory})
        w->setEnabled(!closed);
    tabAsset->setClosedLook(closed);
}

void frmaddcall::resetScreen() {
    setClosedLook(false);
    tabAsset->clearDetails();
    lblExt->clear();
    lblDepartment->clear();
    lblDateClosed->clear();
    cboUser->setCurrentIndex(-1);
    cboUser->setEditText({});
    cboFault->setCurrentIndex(-1);
    cboFault->setEditText({});
    txtDateRequired->setText({});
    personid = computerid = peripheralid = 0;
}

bool frmaddcall::loadcall(qint64 callId) {
    std::optional<CallRecord> record;
    const bool read = core::guarded(
        windowTitle(),
        [&] {
            auto& db = core::db();
            loaded_ = loadedCallRow(db, callId);
            record = loadCall(db, callId);
        },
        this);
    if (!read || !record) return false;
    resetScreen();
    newcall = false;
    callid = callId;
    setWindowTitle("Edit Call");
    const CallText& t = record->text;
    cboFault->setEditText(t.faultType);
    core::findcomboitem(cboFault, t.faultType);
    tabAsset->setCurrentIndex(opensOnComputerPage(t.faultType) ? CallAssetPages::ComputerPage
                                                               : CallAssetPages::PeripheralPage);
    txtDateLogged->setText(t.dateLogged);
    txtDateRequired->setText(t.dateRequired);
    if (core::findcomboitem(cboStatus, t.status).isEmpty()) cboStatus->setEditText(t.status);
    txtProblem->setPlainText(t.description);
    txtResolution->setPlainText(t.resolution);
    personid = t.personId;
    if (personid > 0 && !core::selectComboId(cboUser, personid))
        cboUser->setEditText(record->callerText);
    lblExt->setText(record->extension);
    lblDepartment->setText(record->departmentId);
    lblCallNo->setText(QString::number(callId));
    const bool closed = isClosed(t.status);
    lblDateClosed->setText(
        core::formatDate(shownClosingDate(t.status, record->dateClosed, QDate::currentDate())));
    setClosedLook(closed);
    cmdLog->setText(closed ? "Re-Open" : "Update");
    cmdCancel->setText(closed ? "Exit" : "Cancel");
    cmdAction->setEnabled(!closed);
    if (t.computerId > 0) showComputer(t.computerId, false);
    if (t.peripheralId > 0) showPeripheral(t.peripheralId);
    showHistory(record->history);
    if (faultPick(t.faultType) == FaultPick::Computer && computerid > 0)
        core::guarded(
            windowTitle(),
            [&] {
                const QStringList rows = computerSoftware(core::db(), computerid);
                tabAsset->showSoftware(rows, softwareRowOf(rows, t.description));
            },
            this);
    saved_ = call();
    return true;
}

void frmaddcall::refuse(const CallProblem& problem) {
    core::msgbox(problem.message, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
    switch (problem.field) {
    case CallField::DateLogged:
        txtDateLogged->lineEdit()->setFocus();
        break;
    case CallField::DateRequired:
        txtDateRequired->lineEdit()->setFocus();
        break;
    case CallField::Status:
        cboStatus->setFocus();
        break;
    default:
        tabCall->setCurrentIndex(0);
        txtProblem->setFocus();
    }
}

bool frmaddcall::save() {
    const CallText c = call();
    if (const CallProblem problem = checkCall(c, newcall); !problem.message.isEmpty()) {
        refuse(problem);
        return false;
    }
    CallWrite written;
    const bool ok = core::saveUnlessChanged(
        windowTitle(), "call",
        [&] {
            written = newcall ? logCall(core::db(), c, now())
                              : saveCall(core::db(), callid, c, loaded_, now());
        },
        [&] { loadcall(callid); }, this);
    if (!ok) return false;
    loaded_ = written.loaded;
    saved_ = c;
    callid = written.callId;
    if (isClosed(c.status))
        lblDateClosed->setText(core::formatDate(now().date()));
    else
        lblDateClosed->clear();
    return true;
}

void frmaddcall::reopen() {
    const bool ok = core::saveUnlessChanged(
        windowTitle(), "call",
        [&] { loaded_ = reopenCall(core::db(), callid, loaded_, now()).loaded; },
        [&] { loadcall(callid); }, this);
    if (!ok) return;
    core::guarded(
        windowTitle(), [&] { showHistory(callHistory(core::db(), callid)); }, this);
    setClosedLook(false);
    if (core::findcomboitem(cboStatus, OpenStatus).isEmpty()) cboStatus->setEditText(OpenStatus);
    lblDateClosed->clear();
    cmdLog->setText("Update");
    saved_ = call();
}

void frmaddcall::button1() {
    if (cmdLog->text() == QLatin1String("Re-Open")) {
        reopen();
        return;
    }
    const bool logging = newcall;
    if (!save()) return;
    if (!logging) {
        close();
        return;
    }
    newcall = false;
    lblCallNo->setText(QString::number(callid));
    core::guarded(
        windowTitle(), [&] { showHistory(callHistory(core::db(), callid)); }, this);
    core::msgbox(QStringLiteral("Call Log number is %1").arg(callid), {}, core::MsgButtons::Ok,
                 core::MsgIcon::None, this);
    cmdLog->setText("Close");
    cmdAction->setEnabled(true);
}

void frmaddcall::addAction() {
    if (newcall || callid <= 0) return;
    // What is typed goes in first; the chain then reads the call back from the database.
    if (call() != saved_) {
        if (!save()) return;
        if (isClosed(saved_.status)) {
            core::msgbox(CallClosedMessage, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
            close();
            return;
        }
    }
    const QString status = cboStatus->currentText().trimmed();
    frmAction action(this);
    action.setWindowTitle("Select action taken");
    action.CallID = callid;
    action.Status = status;
    action.loadActions();
    if (core::showModal(action) == QDialog::Accepted) {
        frmText note(this);
        note.CallID = callid;
        note.Status = status;
        note.start(notePrefix(action.currentstatus()));
        if (core::showModal(note) == QDialog::Accepted) {
            frmAction pick(this);
            pick.setWindowTitle("Select current status");
            pick.CallID = callid;
            pick.Status = status;
            pick.loadStatuses(status);
            if (core::showModal(pick) == QDialog::Accepted)
                core::guarded(
                    windowTitle(),
                    [&] {
                        helpdesk::addAction(core::db(), callid, note.note(), pick.currentstatus(),
                                            now());
                    },
                    this);
        }
    }
    if (!loadcall(callid)) return;
    if (isClosed(cboStatus->currentText())) {
        core::msgbox(CallClosedMessage, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
        close();
    }
}
