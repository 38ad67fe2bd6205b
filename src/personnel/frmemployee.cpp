#include "frmemployee.h"

#include "combos.h"
#include "datebox.h"
#include "errorlog.h"
#include "failure.h"
#include "holiday_absence_pages.h"
#include "messagebox.h"
#include "screenbase.h"
#include "screenhost.h"
#include "session.h"
#include "widgetkit.h"

#if __has_include("employee_list_pages.h")
#include "employee_list_pages.h"
#define QUILLORNE_HAS_LIST_PAGES 1
#endif

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

using personnel::PersonRecord;

namespace {

const int PageCount = 14;

// A text put into a drop-down picks no row, so an untouched box never writes its key.
void setComboText(QComboBox* c, const QString& text) {
    c->setCurrentIndex(-1);
    c->setEditText(text);
}

void fillCombo(QComboBox* c, const personnel::ComboEntries& entries, bool keyed) {
    c->clear();
    for (const auto& e : entries) {
        if (keyed)
            core::addComboItem(c, e.text, e.id);
        else
            c->addItem(e.text);
    }
}

} // namespace

frmemployee::frmemployee(QWidget* parent)
    : QWidget(parent) {
    setObjectName("frmemployee");
    setWindowTitle("Employee");

    tabs = new QTabWidget(this);
    tabs->setObjectName("tabEmployee");
    // All fourteen page tabs stay in sight: the screen is as wide as they need, no scrolling.
    tabs->setUsesScrollButtons(false);
    tabs->tabBar()->setElideMode(Qt::ElideNone);
    generalPage = new GeneralPage(this);
    jobDetailsPage = new JobDetailsPage(this, this, this);
    nextOfKinPage = new NextOfKinPage(this);
    bankPage = new BankPage(this);
    carPage = new CarPage(this, this);
    benefitsPage = new BenefitsPage(this, this);
    leaverPage = new LeaverPage(this, this);
    // The screen's own names for its pages' controls.
    static_cast<GeneralControls&>(*this) = *generalPage;
    static_cast<JobDetailsControls&>(*this) = *jobDetailsPage;
    static_cast<NextOfKinControls&>(*this) = *nextOfKinPage;
    static_cast<BankControls&>(*this) = *bankPage;
    static_cast<CarControls&>(*this) = *carPage;
    static_cast<BenefitsControls&>(*this) = *benefitsPage;
    static_cast<LeaverControls&>(*this) = *leaverPage;
    currencyLabels = carPage->currencyLabels + benefitsPage->currencyLabels;

    tabs->addTab(generalPage, "General");
    tabs->addTab(jobDetailsPage, "Job Details");
    tabs->addTab(nextOfKinPage, "Next Of Kin");
    buildListPages();
    tabs->insertTab(3, notesPage, "Notes");
    jobHistoryPage = new JobHistoryPage(this, this);
    tabs->insertTab(4, jobHistoryPage, "Job History");
    tabs->insertTab(5, reprimandsPage, "Reprimands");
    holidayPage = new HolidayPage(this);
    holidayPage->setContext(this);
    tabs->insertTab(6, holidayPage, "Holiday");
    tabs->insertTab(7, bankPage, "Bank Details");
    tabs->insertTab(8, carPage, "Car Details");
    tabs->insertTab(9, benefitsPage, "Benefits");
    tabs->insertTab(10, appraisalsPage, "Appraisals");
    absencePage = new AbsencePage(this);
    absencePage->setContext(this);
    tabs->insertTab(11, absencePage, "Absence");
    tabs->insertTab(12, documentsPage, "Documents");
    tabs->insertTab(13, leaverPage, "Leaver");

    cmdPreviousTab = core::makeButton(this, "Previous Tab", "cmdPreviousTab");
    cmdNextTab = core::makeButton(this, "Next Tab", "cmdNextTab");
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    cmdOK = core::makeButton(this, "OK", "cmdOK");
    core::setScreenButtons(this, cmdOK, cmdCancel);
    connect(cmdNextTab, &QPushButton::clicked, this,
            [this] { tabs->setCurrentIndex((tabs->currentIndex() + 1) % PageCount); });
    connect(cmdPreviousTab, &QPushButton::clicked, this,
            [this] { tabs->setCurrentIndex((tabs->currentIndex() + PageCount - 1) % PageCount); });
    connect(cmdOK, &QPushButton::clicked, this, [this] { ok(); });
    connect(cmdCancel, &QPushButton::clicked, this, &frmemployee::cancel);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
    layout->addLayout(core::buttonRow({cmdPreviousTab, cmdNextTab, cmdCancel, cmdOK}));

    connect(tabs, &QTabWidget::currentChanged, this, &frmemployee::pageChanged);
    // A click on the General page closes any calendar left open.
    generalPage->installEventFilter(this);
}

frmemployee::~frmemployee() {
    // A screen torn down without being closed still must not leave a hidden half-employee.
    discardProvisional();
}

void frmemployee::buildListPages() {
#ifdef QUILLORNE_HAS_LIST_PAGES
    auto* notes = new NotesPage(this);
    auto* reprimands = new ReprimandsPage(this);
    auto* appraisals = new AppraisalsPage(this);
    auto* documents = new DocumentsPage(this);
    notes->setContext(this);
    reprimands->setContext(this);
    appraisals->setContext(this);
    documents->setContext(this);
    notesPage = notes;
    reprimandsPage = reprimands;
    appraisalsPage = appraisals;
    documentsPage = documents;
#else
    notesPage = new QWidget(this);
    reprimandsPage = new QWidget(this);
    appraisalsPage = new QWidget(this);
    documentsPage = new QWidget(this);
    notesPage->setObjectName("FrameNotes");
    reprimandsPage->setObjectName("FrameR");
    appraisalsPage->setObjectName("FrameA");
    documentsPage->setObjectName("frmdocs");
#endif
}

void frmemployee::loadListPages() {
#ifdef QUILLORNE_HAS_LIST_PAGES
    static_cast<NotesPage*>(notesPage)->load(personId_);
    static_cast<ReprimandsPage*>(reprimandsPage)->load(personId_);
    static_cast<AppraisalsPage*>(appraisalsPage)->load(personId_);
    static_cast<DocumentsPage*>(documentsPage)->load(personId_);
#endif
    holidayPage->load(personId_);
    holidayPage->showYear(QDate::currentDate().year());
    holidayPage->setTotalDays(txtDaysHoliday->text());
    absencePage->load(personId_);
}

void frmemployee::isnew(bool flag) {
    recordisnew_ = flag;
    txtStartDate->setDate(QDate::currentDate());
    holidayPage->showYear(QDate::currentDate().year());
}

void frmemployee::loadcombos() {
    struct Fill {
        QComboBox* combo;
        personnel::ComboEntries (*entries)(core::Db&);
        bool keyed;
        QString* newIndex;
    };
    const Fill fills[] = {
        {cboPosition, personnel::positionEntries, true, &jobDetailsPage->newIndex.position},
        {cboEthOrigin, personnel::ethOriginEntries, false, nullptr},
        {cboLocation, personnel::locationEntries, true, &jobDetailsPage->newIndex.location},
        {cboDepartment, personnel::departmentEntries, true, &jobDetailsPage->newIndex.department},
        {cboCompany, personnel::companyEntries, true, &jobDetailsPage->newIndex.company},
        {cboLineManager, personnel::lineManagerEntries, false, nullptr},
        {cboExitInt, personnel::interviewerEntries, false, nullptr},
    };
    core::guarded(
        windowTitle(),
        [&] {
            for (const Fill& f : fills) {
                const auto entries = f.entries(core::db());
                const bool picked = core::comboId(f.combo) != core::NoComboId;
                // Every list, "Interviewed by" too, keeps what it showed.
                core::refillCombo(f.combo, [&](QComboBox* c) { fillCombo(c, entries, f.keyed); });
                // The list may have moved under an entry made through "New..".
                if (picked && f.newIndex && !f.newIndex->isEmpty()) {
                    const int i = f.combo->currentIndex();
                    if (i >= 0) *f.newIndex = i == 0 ? QStringLiteral("0.5") : QString::number(i);
                }
            }
        },
        this);
}

void frmemployee::setnew(const QString& list, const QString& text) {
    jobDetailsPage->setnew(list, text);
}

void frmemployee::loadperson(const QString& id) {
    loadingrecord_ = true;
    recordisnew_ = false;
    bool ok = false;
    const qint64 key = id.trimmed().toLongLong(&ok);
    // A load that fails says so the way this screen always has, logs it with the caption, and
    // goes on with what it could fill.
    const auto loadStep = [this](auto&& step) {
        try {
            step();
        } catch (const core::DbError& e) {
            core::logerror(e.number(), e.description(), windowTitle());
            core::msgbox("An error has occured", QStringLiteral("Error Code : %1").arg(e.number()));
        }
    };
    // A reload after a refused save starts the sitting again.
    jobDetailsPage->startSitting();
    jobHistoryPage->resetFlags();
    loadStep([&] {
        loaded_ = personnel::loadedPersonRow(core::db(), ok ? key : 0);
        const PersonRecord r = personnel::loadPerson(core::db(), ok ? key : 0);
        personId_ = r.stored.personId;
        fill(r);
        jobHistoryPage->setPersonId(personId_);
        jobHistoryPage->setRows(personnel::jobHistoryRows(
            core::db(), personId_,
            {r.jhDate, r.startDate, r.stored.positionName, r.salary, r.jhNote}));
        setWindowTitle(
            personnel::employeeCaption(r.surname, r.firstnames, QString::number(personId_)));
    });
    if (personId_ != 0) loadStep([this] { loadListPages(); });
    if (!isVisible() && !parentWidget()) core::showScreen(this);
    showlengthofservice();
    loadingrecord_ = false;
}

void frmemployee::fill(const PersonRecord& r) {
    generalPage->fill(r);
    jobDetailsPage->fill(r);
    jhDate_ = r.jhDate;
    jhNote_ = r.jhNote;
    nextOfKinPage->fill(r);
    bankPage->fill(r);
    carPage->fill(r);
    benefitsPage->fill(r);
    leaverPage->fill(r);
}

PersonRecord frmemployee::collect(core::TypedFields& typed) const {
    PersonRecord r;
    generalPage->collect(r, typed);
    jobDetailsPage->collect(r, typed);
    r.jhDate = jhDate_;
    r.jhNote = jhNote_;
    nextOfKinPage->collect(r);
    bankPage->collect(r);
    carPage->collect(r, typed);
    benefitsPage->collect(r, typed);
    leaverPage->collect(r, typed);
    return r;
}

void frmemployee::showField(const QString& field) {
    const std::pair<const char*, QWidget*> boxes[] = {
        {"DOB", txtDOB},
        {"Date Qualified", txtFirstAiderDate},
        {"Start Date", txtStartDate},
        {"Employee hours", txtEmpHours},
        {"Salary", txtSalary},
        {"Days Holiday", txtDaysHoliday},
        {"Allocation Date", txtAllocationDate},
        {"Deallocation Date", txtDeAllocationDate},
        {"Car Trade", txtCarTradeMoney},
        {"Petrol Allowance", txtPetrolAllowance},
        {"Car Allowance", txtCarAllowance},
        {"Co Cost", txtMedCoCost},
        {"Emp Cost", txtMedEmpCost},
        {"Effective From", txtPensionEF},
        {"Co Cont (Gross)", txtCompCon},
        {"Emp Cont (Net)", txtEmpCon},
        {"Date Left", txtDateLeft},
        {"Exit Interview date", txtExitIntDate},
    };
    for (const auto& [caption, box] : boxes) {
        if (field != QLatin1String(caption)) continue;
        for (int i = 0; i < tabs->count(); ++i)
            if (tabs->widget(i)->isAncestorOf(box)) tabs->setCurrentIndex(i);
        auto* date = qobject_cast<DateBox*>(box);
        (date ? static_cast<QWidget*>(date->lineEdit()) : box)->setFocus(Qt::OtherFocusReason);
        return;
    }
}

qint64 frmemployee::ensurePerson() {
    if (txtFname->text().trimmed().isEmpty() || txtSurname->text().trimmed().isEmpty()) {
        core::msgbox("Please enter Full name first", {}, core::MsgButtons::Ok, core::MsgIcon::None,
                     this);
        tabs->setCurrentIndex(0);
        return 0;
    }
    if (personId_ != 0) return personId_;
    core::guarded(
        windowTitle(),
        [this] {
            // Unreadable text is refused at OK; the early row only gives the lists a parent.
            core::TypedFields ignored;
            personId_ = personnel::insertProvisionalPerson(core::db(), collect(ignored));
            loaded_ = personnel::loadedPersonRow(core::db(), personId_);
            provisional_ = true;
            recordisnew_ = false;
            lblPersonnelNumber->setText(QString::number(personId_));
        },
        this);
    return personId_;
}

void frmemployee::showlengthofservice() {
    jobDetailsPage->showlengthofservice();
}

bool frmemployee::ok() {
    const personnel::OkOutcome outcome =
        personnel::checkOk({chkFirstAider->isChecked(), txtFirstAiderDate->date(), txtFname->text(),
                            txtSurname->text(), txtStartDate->date(), txtAllocationDate->date()});
    if (!outcome.message.isEmpty())
        core::msgbox(outcome.message, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
    if (outcome.clearAllocationDate) txtAllocationDate->setDate({});
    if (!outcome.save) return false;
    {
        core::TypedFields typed;
        collect(typed);
        if (!typed.ok()) {
            core::msgbox(typed.message(), {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
            showField(typed.field());
            return false;
        }
    }

    // The job history list catches up with the Job Details page before anything is written.
    if (tabs->currentIndex() == 4)
        jobHistoryPage->pageChange();
    else
        tabs->setCurrentIndex(4);
    // A failed save keeps the screen and everything typed, so the user can try again.
    bool changedMeanwhile = false;
    const bool saved = core::guarded(
        windowTitle(),
        [&] {
            try {
                saveRecord();
            } catch (const core::RowChanged&) {
                changedMeanwhile = true;
            }
        },
        this);
    if (changedMeanwhile) {
        if (core::offerReload("employee", this)) loadperson(QString::number(personId_));
        return false;
    }
    if (!saved) return false;
    provisional_ = false;
    recordisnew_ = false;
    lblPersonnelNumber->setText(QString::number(personId_));
    close();
    return true;
}

void frmemployee::cancel() {
    close();
}

void frmemployee::discardProvisional() {
    if (!provisional_ || personId_ == 0) return;
    provisional_ = false;
    core::guarded(
        windowTitle(), [this] { personnel::discardProvisionalPerson(core::db(), personId_); },
        this);
}

void frmemployee::closeEvent(QCloseEvent* event) {
    discardProvisional();
    QWidget::closeEvent(event);
}

bool frmemployee::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonPress && watched == generalPage) {
        for (DateBox* d : findChildren<DateBox*>())
            d->hideCalendar();
    }
    return QWidget::eventFilter(watched, event);
}

void frmemployee::saveRecord() {
    core::TypedFields typed;
    PersonRecord record = collect(typed);
    if (personId_ == 0) {
        personId_ = personnel::insertPerson(core::db(), record);
        return;
    }
    const QDate today = QDate::currentDate();
    const personnel::JobDetails details = jobDetails();
    const bool positionPicked = jobDetailsPage->positionPicked();
    const personnel::JobHistorySave history =
        personnel::jobHistoryOnSave(jobHistoryPage->rows(), jobHistoryPage->flags(), details,
                                    positionPicked, record.salary.has_value(), today);
    if (history.newPeriodToday) {
        record.jhDate = today;
        record.jhNote.clear();
    }
    core::Transaction t(core::db());
    if (history.archive) personnel::insertJobPeriod(core::db(), personId_, *history.archive);
    personnel::savePerson(core::db(), personId_, record, loaded_);
    t.commit();
}

void frmemployee::pageChanged(int index) {
    if (index == 4)
        jobHistoryPage->pageChange();
    else if (index == 6)
        holidayPage->setTotalDays(txtDaysHoliday->text());
}

bool frmemployee::hasFullName() const {
    return !txtFname->text().trimmed().isEmpty() && !txtSurname->text().trimmed().isEmpty();
}

void frmemployee::absencesChanged() {
    absencePage->load(personId_);
}

QString frmemployee::holidayYear() const {
    return QString::number(holidayPage->year());
}

personnel::JobDetails frmemployee::jobDetails() const {
    // A new employee, saved early only so that its lists have a parent, has no past post.
    return {recordisnew_ || provisional_,      jobDetailsPage->salaryChanged(),
            jobDetailsPage->positionChanged(), cboPosition->currentText().trimmed(),
            txtSalary->text().trimmed(),       txtStartDate->date()};
}

QStringList frmemployee::positionNames() const {
    QStringList names;
    for (int i = 0; i < cboPosition->count(); ++i)
        names << cboPosition->itemText(i);
    return names;
}

void frmemployee::takePresentPost(const QString& position, const QString& salary,
                                  const QDate& jhDate, const QString& jhNote) {
    if (!position.isEmpty()) {
        setComboText(cboPosition, position);
        jobDetailsPage->newIndex.position = core::findcomboitem(cboPosition, position);
    }
    if (!salary.isEmpty() && personnel::isNumeric(salary)) txtSalary->setText(salary);
    jhDate_ = jhDate;
    jhNote_ = jhNote;
}

QDate frmemployee::startDate() const {
    return txtStartDate->date();
}

QString frmemployee::salaryText() const {
    return txtSalary->text();
}

bool frmemployee::firstAider() const {
    return chkFirstAider->isChecked();
}
