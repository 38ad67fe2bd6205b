#include "frmemployee.h"

#include "combos.h"
#include "datebox.h"
#include "errorlog.h"
#include "failure.h"
#include "frmcompany.h"
#include "frmlookupentry.h"
#include "holiday_absence_pages.h"
#include "messagebox.h"
#include "regional.h"
#include "screenhost.h"
#include "session.h"
#include "widgetkit.h"

#if __has_include("employee_list_pages.h")
#include "employee_list_pages.h"
#define QUILLORNE_HAS_LIST_PAGES 1
#endif

#include <QCalendarWidget>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTextEdit>
#include <QVBoxLayout>

using core::Money;
using personnel::AllocationEntry;
using personnel::PensionKind;
using personnel::PersonRecord;

namespace {

const int PageCount = 14;

QLineEdit* lineEdit(QWidget* parent, const QString& name) {
    auto* e = new QLineEdit(parent);
    e->setObjectName(name);
    return e;
}

QComboBox* combo(QWidget* parent, const QString& name, const QStringList& items = {}) {
    auto* c = core::autoCompleteCombo(parent, name);
    c->addItems(items);
    c->setCurrentIndex(-1);
    return c;
}

DateBox* dateBox(QWidget* parent, const QString& name) {
    auto* d = new DateBox(name, parent);
    d->calendar()->setSelectedDate(QDate::currentDate());
    return d;
}

QLabel* label(QWidget* parent, const QString& text, const QString& name = {}) {
    auto* l = new QLabel(text, parent);
    if (!name.isEmpty()) l->setObjectName(name);
    return l;
}

// A text put into a drop-down picks no row, so an untouched box never writes its key.
void setComboText(QComboBox* c, const QString& text) {
    c->setCurrentIndex(-1);
    c->setEditText(text);
}

std::optional<Money> moneyOf(const QLineEdit* e) {
    return Money::parse(e->text().trimmed());
}

// The sign stands in its own label beside the figure.
QString figureText(const std::optional<Money>& m) {
    return m ? m->toString(2) : QString();
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
    tabs->addTab(buildGeneral(), "General");
    tabs->addTab(buildJobDetails(), "Job Details");
    tabs->addTab(buildNextOfKin(), "Next Of Kin");
    buildListPages();
    tabs->insertTab(3, notesPage, "Notes");
    jobHistoryPage = new JobHistoryPage(this, this);
    tabs->insertTab(4, jobHistoryPage, "Job History");
    tabs->insertTab(5, reprimandsPage, "Reprimands");
    holidayPage = new HolidayPage(this);
    holidayPage->setContext(this);
    tabs->insertTab(6, holidayPage, "Holiday");
    tabs->insertTab(7, buildBank(), "Bank Details");
    tabs->insertTab(8, buildCar(), "Car Details");
    tabs->insertTab(9, buildBenefits(), "Benefits");
    tabs->insertTab(10, appraisalsPage, "Appraisals");
    absencePage = new AbsencePage(this);
    absencePage->setContext(this);
    tabs->insertTab(11, absencePage, "Absence");
    tabs->insertTab(12, documentsPage, "Documents");
    tabs->insertTab(13, buildLeaver(), "Leaver");

    cmdPreviousTab = core::makeButton(this, "Previous Tab", "cmdPreviousTab");
    cmdNextTab = core::makeButton(this, "Next Tab", "cmdNextTab");
    cmdCancel = core::makeButton(this, "Cancel", "cmdCancel");
    cmdOK = core::makeButton(this, "OK", "cmdOK");
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
    applyRegionalProfile();
}

frmemployee::~frmemployee() {
    // A screen torn down without being closed still must not leave a hidden half-employee.
    discardProvisional();
}

QWidget* frmemployee::buildGeneral() {
    auto* page = new QWidget(this);
    page->setObjectName("FrameGeneral");
    auto* form = new QFormLayout(page);

    lblPersonnelNumber = label(page, {}, "lblPersonnelNumber");
    cboTitle = combo(page, "cboTitle", {"Mr", "Miss", "Mrs", "Ms", "Doctor", "Prof"});
    txtFname = lineEdit(page, "txtFname");
    txtSurname = lineEdit(page, "txtSurname");
    txtDOB = dateBox(page, "txtDOB");
    lblDateHint = label(page, "DD/MM/YYYY", "lblDateHint");
    txtNINumber = lineEdit(page, "txtNINumber");
    txtNINumber->setInputMask("aa-00-00-00-a;_");
    txtAddress1 = lineEdit(page, "txtAddress1");
    txtAddress2 = lineEdit(page, "txtAddress2");
    txtAddress3 = lineEdit(page, "txtAddress3");
    lblPCode = label(page, "Postcode", "lblPCode");
    txtPCode = lineEdit(page, "txtPCode");
    txtPhone = lineEdit(page, "txtPhone");
    cboMaritalStatus =
        combo(page, "cboMaritalStatus", {"Single", "Married", "Seperated", "Divorced", "Widowed"});
    cboDependants = combo(page, "cboDependants", {"0", "1", "2", "3", "4", "5"});
    txtNationality = lineEdit(page, "txtNationality");
    cboEthOrigin = combo(page, "cboEthOrigin");
    chkFirstAider = new QCheckBox("First Aider", page);
    chkFirstAider->setObjectName("chkFirstAider");
    txtFirstAiderDate = dateBox(page, "txtFirstAiderDate");
    txtFirstAiderDate->setEnabled(false);

    auto* dob = new QHBoxLayout;
    dob->addWidget(txtDOB);
    dob->addWidget(lblDateHint);
    form->addRow("Personnel Number", lblPersonnelNumber);
    form->addRow("Title", cboTitle);
    form->addRow("First Name(s)", txtFname);
    form->addRow("Surname", txtSurname);
    form->addRow("DOB", dob);
    form->addRow("NI Number", txtNINumber);
    form->addRow("Address", txtAddress1);
    form->addRow("", txtAddress2);
    form->addRow("", txtAddress3);
    form->addRow(lblPCode, txtPCode);
    form->addRow("Phone No", txtPhone);
    form->addRow("Marital Status", cboMaritalStatus);
    form->addRow("Dependants", cboDependants);
    form->addRow("Nationality", txtNationality);
    form->addRow("Ethnic origin", cboEthOrigin);
    form->addRow(chkFirstAider);
    form->addRow("Date Qualified", txtFirstAiderDate);

    for (QLineEdit* e : {txtFname, txtSurname, txtPCode})
        e->installEventFilter(this);
    // Installed after the date box's own filter, so it runs first and can word the message.
    txtFirstAiderDate->lineEdit()->installEventFilter(this);
    connect(chkFirstAider, &QCheckBox::toggled, txtFirstAiderDate, &QWidget::setEnabled);
    page->installEventFilter(this);
    return page;
}

QWidget* frmemployee::buildJobDetails() {
    auto* page = new QWidget(this);
    page->setObjectName("FrameJD");
    auto* form = new QFormLayout(page);

    txtStartDate = dateBox(page, "txtStartDate");
    cboCompany = combo(page, "cboCompany");
    cboDepartment = combo(page, "cboDepartment");
    cboPosition = combo(page, "cboPosition");
    cboLocation = combo(page, "cboLocation");
    cmdNewCompany = core::makeButton(page, "New..", "cmdNewCompany");
    cmdNewDepartment = core::makeButton(page, "New..", "cmdNewDepartment");
    cmdNewPosition = core::makeButton(page, "New..", "cmdNewPosition");
    cmdNewLocation = core::makeButton(page, "New..", "cmdNewLocation");
    cboEmploymentType = combo(page, "cboEmploymentType", {"Temporary", "Permanent", "Contract"});
    cboRecruitment = combo(page, "cboRecruitment", {"Direct", "Agency", "Advertisment"});
    cboFullTime = combo(page, "cboFullTime", {"Full Time", "Part Time"});
    txtEmpHours = lineEdit(page, "txtEmpHours");
    chkIsManager = new QCheckBox("Line Manager", page);
    chkIsManager->setObjectName("chkIsManager");
    cboLineManager = combo(page, "cboLineManager");
    lblSalary = label(page, "Salary", "lblSalary");
    txtSalary = lineEdit(page, "txtSalary");
    txtExtNo = lineEdit(page, "txtExtNo");
    txtDaysHoliday = lineEdit(page, "txtDaysHoliday");
    lblYears = label(page, {}, "lblYears");
    lblMonths = label(page, {}, "lblMonths");

    auto withNew = [](QComboBox* c, QPushButton* b) {
        auto* row = new QHBoxLayout;
        row->addWidget(c, 1);
        row->addWidget(b);
        return row;
    };
    auto* service = new QHBoxLayout;
    service->addWidget(lblYears);
    service->addWidget(new QLabel(" Years", page));
    service->addWidget(lblMonths);
    service->addWidget(new QLabel(" Months", page));
    service->addStretch();

    form->addRow("Start Date", txtStartDate);
    form->addRow("Company", withNew(cboCompany, cmdNewCompany));
    form->addRow("Department", withNew(cboDepartment, cmdNewDepartment));
    form->addRow("Position", withNew(cboPosition, cmdNewPosition));
    form->addRow("Location", withNew(cboLocation, cmdNewLocation));
    form->addRow("Employment type", cboEmploymentType);
    form->addRow("Recruitment", cboRecruitment);
    form->addRow("Full/Part time", cboFullTime);
    form->addRow("Employee hours", txtEmpHours);
    form->addRow(chkIsManager);
    form->addRow("Line manager", cboLineManager);
    form->addRow(lblSalary, txtSalary);
    form->addRow("Extension Number", txtExtNo);
    form->addRow("Days Holiday", txtDaysHoliday);
    form->addRow("Length of service", service);

    for (QLineEdit* e : {txtEmpHours, txtDaysHoliday})
        e->installEventFilter(this);
    connect(txtStartDate, &DateBox::dateChanged, this, &frmemployee::showlengthofservice);
    connect(txtSalary, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!loadingrecord_ && personnel::isNumeric(text)) salarychanged_ = true;
    });
    // A later pick wins over an entry made through "New..".
    connect(cboPosition, &QComboBox::activated, this, [this] {
        positionchanged_ = true;
        newpositionindex_.clear();
    });
    connect(cboDepartment, &QComboBox::activated, this, [this] { newdepartmentindex_.clear(); });
    connect(cboLocation, &QComboBox::activated, this, [this] { newlocationindex_.clear(); });
    connect(cboCompany, &QComboBox::activated, this, [this] { newcompanyindex_.clear(); });

    auto openChild = [this](auto* screen) {
        screen->ischild = true;
        screen->addpos = this;
        core::showScreen(screen);
    };
    connect(cmdNewCompany, &QPushButton::clicked, this, [openChild] { openChild(new frmCompany); });
    connect(cmdNewDepartment, &QPushButton::clicked, this, [openChild] { openChild(new frmDept); });
    connect(cmdNewPosition, &QPushButton::clicked, this,
            [openChild] { openChild(new frmPosition); });
    connect(cmdNewLocation, &QPushButton::clicked, this,
            [openChild] { openChild(new frmLocation); });
    return page;
}

QWidget* frmemployee::buildNextOfKin() {
    auto* page = new QWidget(this);
    page->setObjectName("FrameNOK");
    auto* row = new QHBoxLayout(page);
    const char* captions[2] = {"1st Next of Kin", "2nd Next of Kin"};
    for (int i = 0; i < 2; ++i) {
        const QString n = QString::number(i + 1);
        auto* box = new QGroupBox(captions[i], page);
        auto* form = new QFormLayout(box);
        txtNOKName[i] = lineEdit(box, "txtNOK" + n + "Name");
        txtNOKRelationship[i] = lineEdit(box, "txtNOK" + n + "Relationship");
        txtNOKAddress[i] = lineEdit(box, "txtNOK" + n + "Address");
        txtNOKHomePh[i] = lineEdit(box, "txtNOK" + n + "HomePh");
        txtNOKMobilePh[i] = lineEdit(box, "txtNOK" + n + "MobilePh");
        form->addRow("Name", txtNOKName[i]);
        form->addRow("Relationship", txtNOKRelationship[i]);
        form->addRow("Address", txtNOKAddress[i]);
        form->addRow("Home phone", txtNOKHomePh[i]);
        form->addRow("Mobile phone", txtNOKMobilePh[i]);
        row->addWidget(box);
    }
    return page;
}

QWidget* frmemployee::buildBank() {
    auto* page = new QWidget(this);
    page->setObjectName("frmBD");
    auto* form = new QFormLayout(page);
    txtBankName = lineEdit(page, "txtBankName");
    txtBankAdd1 = lineEdit(page, "txtBankAdd1");
    txtBankAdd2 = lineEdit(page, "txtBankAdd2");
    txtBankAdd3 = lineEdit(page, "txtBankAdd3");
    lblBankPCode = label(page, "Postcode", "lblBankPCode");
    txtBankPC = lineEdit(page, "txtBankPC");
    txtAccName = lineEdit(page, "txtAccName");
    txtAccNo = lineEdit(page, "txtAccNo");
    txtSortCode = lineEdit(page, "txtSortCode");
    form->addRow("Bank", txtBankName);
    form->addRow("Address", txtBankAdd1);
    form->addRow("", txtBankAdd2);
    form->addRow("", txtBankAdd3);
    form->addRow(lblBankPCode, txtBankPC);
    form->addRow("Account Name", txtAccName);
    form->addRow("Account No", txtAccNo);
    form->addRow("Sort Code", txtSortCode);
    return page;
}

QWidget* frmemployee::buildCar() {
    auto* page = new QWidget(this);
    page->setObjectName("frameCD");
    auto* layout = new QHBoxLayout(page);

    auto* general = new QGroupBox("General", page);
    auto* g = new QFormLayout(general);
    txtAllocationDate = dateBox(general, "txtAllocationDate");
    txtDeAllocationDate = dateBox(general, "txtDeAllocationDate");
    txtRegNo = lineEdit(general, "txtRegNo");
    txtCarGrade = lineEdit(general, "txtCarGrade");
    g->addRow("Allocation Date", txtAllocationDate);
    g->addRow("Deallocation Date", txtDeAllocationDate);
    g->addRow("Registration No", txtRegNo);
    g->addRow("Grade of Car", txtCarGrade);

    auto* allowance = new QGroupBox("Allowance info", page);
    auto* a = new QFormLayout(allowance);
    cboCarCategory = combo(allowance, "cboCarCategory", {"Business Need", "Benefit Car"});
    cboCarTrade = combo(allowance, "cboCarTrade", {"UP", "DOWN", "NONE"});
    txtCarTradeMoney = lineEdit(allowance, "txtCarTradeMoney");
    txtPetrolAllowance = lineEdit(allowance, "txtPetrolAllowance");
    txtCarAllowance = lineEdit(allowance, "txtCarAllowance");
    auto money = [this, allowance](QWidget* before, QLineEdit* box) {
        auto* row = new QHBoxLayout;
        if (before) row->addWidget(before);
        auto* sign = label(allowance, QStringLiteral("£"), box->objectName() + "Sign");
        currencyLabels << sign;
        row->addWidget(sign);
        row->addWidget(box);
        return row;
    };
    a->addRow("Category", cboCarCategory);
    a->addRow("Car Trade", money(cboCarTrade, txtCarTradeMoney));
    a->addRow("Petrol Allowance", money(nullptr, txtPetrolAllowance));
    a->addRow("Car Allowance", money(nullptr, txtCarAllowance));

    layout->addWidget(general);
    layout->addWidget(allowance);

    for (QLineEdit* e : {txtRegNo, txtCarGrade})
        e->installEventFilter(this);
    txtAllocationDate->lineEdit()->installEventFilter(this);
    connect(txtAllocationDate->calendar(), &QCalendarWidget::clicked, this,
            [this] { checkAllocation(AllocationEntry::Calendar); });
    return page;
}

QWidget* frmemployee::buildBenefits() {
    auto* page = new QWidget(this);
    page->setObjectName("frameB");
    auto* grid = new QGridLayout(page);

    auto* medical = new QGroupBox("Medical", page);
    auto* m = new QFormLayout(medical);
    cboMedCover = combo(medical, "cboMedCover",
                        {"None - refused", "Employee", "Emp + Partner", "Emp + family"});
    txtMedCoCost = lineEdit(medical, "txtMedCoCost");
    txtMedEmpCost = lineEdit(medical, "txtMedEmpCost");
    m->addRow("Cover", cboMedCover);
    m->addRow("Co Cost", txtMedCoCost);
    m->addRow("Emp Cost", txtMedEmpCost);

    auto* pension = new QGroupBox("Pension", page);
    auto* p = new QFormLayout(pension);
    txtPensionEF = dateBox(pension, "txtPensionEF");
    txtCompCon = lineEdit(pension, "txtCompCon");
    txtEmpCon = lineEdit(pension, "txtEmpCon");
    chkCompFig = new QCheckBox("Use Company Contribution Calculation", pension);
    chkCompFig->setObjectName("chkCompFig");
    chkEmpFig = new QCheckBox("Use Employee Contribution Calculation", pension);
    chkEmpFig->setObjectName("chkEmpFig");
    lblCalcNote = label(pension, "Based On monthly figures", "lblCalcNote");
    lblCompFigure = label(pension, {}, "lblCompFigure");
    lblEmpFigure = label(pension, {}, "lblEmpFigure");
    auto figure = [this, pension](QLabel* result) {
        auto* row = new QHBoxLayout;
        auto* sign = label(pension, QStringLiteral("£"), result->objectName() + "Sign");
        currencyLabels << sign;
        row->addWidget(sign);
        row->addWidget(result, 1);
        return row;
    };
    p->addRow("Effective From", txtPensionEF);
    p->addRow("Co Cont (Gross)", txtCompCon);
    p->addRow("Emp Cont (Net)", txtEmpCon);
    p->addRow(chkCompFig);
    p->addRow(chkEmpFig);
    p->addRow(lblCalcNote);
    p->addRow("Company", figure(lblCompFigure));
    p->addRow("Employee", figure(lblEmpFigure));

    auto* life = new QGroupBox("Life", page);
    auto* l = new QFormLayout(life);
    cboLifeCover = combo(life, "cboLifeCover", {"Yes", "Refused"});
    cboLifeLevel = combo(life, "cboLifeLevel", {"2*", "3*", "4*"});
    l->addRow("Cover", cboLifeCover);
    l->addRow("Level", cboLifeLevel);

    auto* phi = new QGroupBox("PHI", page);
    auto* h = new QFormLayout(phi);
    cboPHICover = combo(phi, "cboPHICover", {"Yes", "Refused"});
    cboPHILevel = combo(phi, "cboPHILevel", {"50 %", "75 %"});
    h->addRow("Cover", cboPHICover);
    h->addRow("Level", cboPHILevel);

    grid->addWidget(medical, 0, 0);
    grid->addWidget(pension, 0, 1, 2, 1);
    grid->addWidget(life, 1, 0);
    grid->addWidget(phi, 2, 0);

    connect(chkCompFig, &QCheckBox::toggled, this, [this] { pensionTicked(PensionKind::Company); });
    connect(chkEmpFig, &QCheckBox::toggled, this, [this] { pensionTicked(PensionKind::Employee); });
    for (QLineEdit* e : {txtCompCon, txtEmpCon})
        e->installEventFilter(this);
    return page;
}

QWidget* frmemployee::buildLeaver() {
    auto* page = new QWidget(this);
    page->setObjectName("frmleaver");
    auto* form = new QFormLayout(page);
    chkLeaver = new QCheckBox("Leaver", page);
    chkLeaver->setObjectName("chkLeaver");
    txtDateLeft = dateBox(page, "txtDateLeft");
    txtFinReason = lineEdit(page, "txtFinReason");
    txtExitIntDate = dateBox(page, "txtExitIntDate");
    cboExitInt = combo(page, "cboExitInt");
    txtExitNotes = new QTextEdit(page);
    txtExitNotes->setObjectName("txtExitNotes");
    form->addRow(chkLeaver);
    form->addRow("Date Left", txtDateLeft);
    form->addRow("Reason ", txtFinReason);
    form->addRow("Exit Interview date", txtExitIntDate);
    form->addRow("Interviewed by", cboExitInt);
    form->addRow("Notes", txtExitNotes);
    for (QWidget* w : std::initializer_list<QWidget*>{txtDateLeft, txtFinReason, txtExitIntDate,
                                                      cboExitInt, txtExitNotes})
        w->setEnabled(false);
    connect(chkLeaver, &QCheckBox::toggled, this, &frmemployee::leaverToggled);
    return page;
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

void frmemployee::applyRegionalProfile() {
    if (!core::regional::isUS(core::session().language)) return;
    lblDateHint->setText("MM/DD/YYYY");
    lblPCode->setText("Zip Code");
    lblBankPCode->setText("Zip Code");
    lblSalary->setText("Salary                         $");
    for (QLabel* sign : currencyLabels)
        sign->setText("$");
    // The calculations rest on the UK basic rate of tax.
    for (QWidget* w : std::initializer_list<QWidget*>{chkCompFig, chkEmpFig, lblCalcNote,
                                                      lblCompFigure, lblEmpFigure})
        w->setEnabled(false);
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
        {cboPosition, personnel::positionEntries, true, &newpositionindex_},
        {cboEthOrigin, personnel::ethOriginEntries, false, nullptr},
        {cboLocation, personnel::locationEntries, true, &newlocationindex_},
        {cboDepartment, personnel::departmentEntries, true, &newdepartmentindex_},
        {cboCompany, personnel::companyEntries, true, &newcompanyindex_},
        {cboLineManager, personnel::lineManagerEntries, false, nullptr},
        {cboExitInt, personnel::interviewerEntries, false, nullptr},
    };
    core::guarded(
        windowTitle(),
        [&] {
            for (const Fill& f : fills) {
                const QString shown = f.combo->currentText();
                const qint64 picked = f.keyed ? core::comboId(f.combo) : core::NoComboId;
                const auto entries = f.entries(core::db());
                const QSignalBlocker block(f.combo);
                fillCombo(f.combo, entries, f.keyed);
                if (f.combo == cboExitInt) {
                    setComboText(f.combo, {});
                } else if (picked != core::NoComboId && core::selectComboId(f.combo, picked)) {
                    // The list may have moved under an entry made through "New..".
                    if (f.newIndex && !f.newIndex->isEmpty()) {
                        const int i = f.combo->currentIndex();
                        *f.newIndex = i == 0 ? QStringLiteral("0.5") : QString::number(i);
                    }
                } else {
                    setComboText(f.combo, shown);
                }
            }
        },
        this);
}

void frmemployee::setnew(const QString& list, const QString& text) {
    if (list == "Position")
        newpositionindex_ = core::findcomboitem(cboPosition, text);
    else if (list == "Department")
        newdepartmentindex_ = core::findcomboitem(cboDepartment, text);
    else if (list == "Location")
        newlocationindex_ = core::findcomboitem(cboLocation, text);
    else if (list == "Company")
        newcompanyindex_ = core::findcomboitem(cboCompany, text);
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
    loadStep([&] {
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
    lblPersonnelNumber->setText(QString::number(r.stored.personId));
    setComboText(cboTitle, r.title);
    txtFname->setText(r.firstnames);
    txtSurname->setText(r.surname);
    txtDOB->setDate(r.dob);
    if (!r.niNumber.trimmed().isEmpty()) txtNINumber->setText(r.niNumber);
    txtAddress1->setText(r.address1);
    txtAddress2->setText(r.address2);
    txtAddress3->setText(r.address3);
    txtPCode->setText(r.postCode);
    txtPhone->setText(r.phone);
    setComboText(cboMaritalStatus, r.maritalStatus);
    setComboText(cboDependants, r.dependents);
    txtNationality->setText(r.nationality);
    setComboText(cboEthOrigin, r.ethOrigin);
    chkFirstAider->setChecked(r.firstAider);
    txtFirstAiderDate->setDate(r.firstAiderDate);

    txtStartDate->setDate(r.startDate);
    if (!r.stored.companyName.isEmpty()) setComboText(cboCompany, r.stored.companyName);
    if (!r.stored.department.isEmpty()) setComboText(cboDepartment, r.stored.department);
    if (!r.stored.positionName.isEmpty()) setComboText(cboPosition, r.stored.positionName);
    if (!r.stored.location.isEmpty()) setComboText(cboLocation, r.stored.location);
    setComboText(cboEmploymentType, r.employmentType);
    setComboText(cboRecruitment, r.recruitment);
    setComboText(cboFullTime, r.fullTime);
    txtEmpHours->setText(r.empHours);
    chkIsManager->setChecked(r.isManager);
    setComboText(cboLineManager, r.lineManager);
    txtSalary->setText(core::plainNumber(r.salary));
    txtExtNo->setText(r.extno);
    txtDaysHoliday->setText(r.daysHoliday);
    jhDate_ = r.jhDate;
    jhNote_ = r.jhNote;

    const QString* nok[2][5] = {
        {&r.nok1Name, &r.nok1Relationship, &r.nok1Address, &r.nok1HomePh, &r.nok1MobilePh},
        {&r.nok2Name, &r.nok2Relationship, &r.nok2Address, &r.nok2HomePh, &r.nok2MobilePh}};
    for (int i = 0; i < 2; ++i) {
        txtNOKName[i]->setText(*nok[i][0]);
        txtNOKRelationship[i]->setText(*nok[i][1]);
        txtNOKAddress[i]->setText(*nok[i][2]);
        txtNOKHomePh[i]->setText(*nok[i][3]);
        txtNOKMobilePh[i]->setText(*nok[i][4]);
    }

    txtBankName->setText(r.bankName);
    txtBankAdd1->setText(r.bankAdd1);
    txtBankAdd2->setText(r.bankAdd2);
    txtBankAdd3->setText(r.bankAdd3);
    txtBankPC->setText(r.bankPc);
    txtAccName->setText(r.accName);
    txtAccNo->setText(r.accNo);
    txtSortCode->setText(r.sortCode);

    txtAllocationDate->setDate(r.allocationDate);
    txtDeAllocationDate->setDate(r.deAllocationDate);
    txtRegNo->setText(r.regNo);
    txtCarGrade->setText(r.carGrade);
    setComboText(cboCarCategory, r.carCategory);
    setComboText(cboCarTrade, r.carTrade);
    txtCarTradeMoney->setText(core::plainNumber(r.carTradeMoney));
    txtPetrolAllowance->setText(core::plainNumber(r.petrolAllowance));
    txtCarAllowance->setText(core::plainNumber(r.carAllowance));

    setComboText(cboMedCover, r.medCover);
    txtMedCoCost->setText(core::plainNumber(r.medCoCost));
    txtMedEmpCost->setText(core::plainNumber(r.medEmpCost));
    txtPensionEF->setDate(r.pensionEF);
    txtCompCon->setText(r.compCon);
    txtEmpCon->setText(r.empCon);
    chkCompFig->setChecked(r.blnCompFig);
    chkEmpFig->setChecked(r.blnEmpFig);
    setComboText(cboLifeCover, r.lifeCover);
    setComboText(cboLifeLevel, r.lifeLevel);
    setComboText(cboPHICover, r.phiCover);
    setComboText(cboPHILevel, r.phiLevel);

    // Ticking runs the page's side effects (today as the leaving date); the row's own
    // dates then replace it.
    chkLeaver->setChecked(r.hasLeft);
    txtDateLeft->setDate(r.finishDate);
    txtFinReason->setText(r.finReason);
    txtExitIntDate->setDate(r.exitIntDate);
    setComboText(cboExitInt, r.exitInt);
    txtExitNotes->setPlainText(r.exitNotes);
}

PersonRecord frmemployee::collect() const {
    PersonRecord r;
    r.title = cboTitle->currentText();
    r.firstnames = txtFname->text();
    r.surname = txtSurname->text();
    r.dob = txtDOB->date();
    // An empty mask reads as its separators alone.
    QString ni = txtNINumber->text();
    r.niNumber = QString(ni).remove('-').trimmed().isEmpty() ? QString() : ni;
    r.address1 = txtAddress1->text();
    r.address2 = txtAddress2->text();
    r.address3 = txtAddress3->text();
    r.postCode = txtPCode->text();
    r.phone = txtPhone->text();
    r.maritalStatus = cboMaritalStatus->currentText();
    r.dependents = cboDependants->currentText();
    r.nationality = txtNationality->text();
    r.ethOrigin = cboEthOrigin->currentText();
    r.firstAider = chkFirstAider->isChecked();
    r.firstAiderDate = txtFirstAiderDate->date();

    r.startDate = txtStartDate->date();
    r.employmentType = cboEmploymentType->currentText();
    r.recruitment = cboRecruitment->currentText();
    r.fullTime = cboFullTime->currentText();
    r.empHours = txtEmpHours->text();
    r.isManager = chkIsManager->isChecked();
    r.lineManager = cboLineManager->currentText();
    r.salary = moneyOf(txtSalary);
    r.extno = txtExtNo->text();
    r.daysHoliday = txtDaysHoliday->text();
    r.jhDate = jhDate_;
    r.jhNote = jhNote_;
    r.companyId = pickedKey(cboCompany, newcompanyindex_);
    r.departmentId = pickedKey(cboDepartment, newdepartmentindex_);
    r.positionId = pickedKey(cboPosition, newpositionindex_);
    r.locationId = pickedKey(cboLocation, newlocationindex_);

    QString* nok[2][5] = {
        {&r.nok1Name, &r.nok1Relationship, &r.nok1Address, &r.nok1HomePh, &r.nok1MobilePh},
        {&r.nok2Name, &r.nok2Relationship, &r.nok2Address, &r.nok2HomePh, &r.nok2MobilePh}};
    for (int i = 0; i < 2; ++i) {
        *nok[i][0] = txtNOKName[i]->text();
        *nok[i][1] = txtNOKRelationship[i]->text();
        *nok[i][2] = txtNOKAddress[i]->text();
        *nok[i][3] = txtNOKHomePh[i]->text();
        *nok[i][4] = txtNOKMobilePh[i]->text();
    }

    r.bankName = txtBankName->text();
    r.bankAdd1 = txtBankAdd1->text();
    r.bankAdd2 = txtBankAdd2->text();
    r.bankAdd3 = txtBankAdd3->text();
    r.bankPc = txtBankPC->text();
    r.accName = txtAccName->text();
    r.accNo = txtAccNo->text();
    r.sortCode = txtSortCode->text();

    r.allocationDate = txtAllocationDate->date();
    r.deAllocationDate = txtDeAllocationDate->date();
    r.regNo = txtRegNo->text();
    r.carGrade = txtCarGrade->text();
    r.carCategory = cboCarCategory->currentText();
    r.carTrade = cboCarTrade->currentText();
    r.carTradeMoney = moneyOf(txtCarTradeMoney);
    r.petrolAllowance = moneyOf(txtPetrolAllowance);
    r.carAllowance = moneyOf(txtCarAllowance);

    r.medCover = cboMedCover->currentText();
    r.medCoCost = moneyOf(txtMedCoCost);
    r.medEmpCost = moneyOf(txtMedEmpCost);
    r.pensionEF = txtPensionEF->date();
    r.compCon = txtCompCon->text();
    r.empCon = txtEmpCon->text();
    r.blnCompFig = chkCompFig->isChecked();
    r.blnEmpFig = chkEmpFig->isChecked();
    r.lifeCover = cboLifeCover->currentText();
    r.lifeLevel = cboLifeLevel->currentText();
    r.phiCover = cboPHICover->currentText();
    r.phiLevel = cboPHILevel->currentText();

    r.hasLeft = chkLeaver->isChecked();
    r.finishDate = txtDateLeft->date();
    r.finReason = txtFinReason->text();
    r.exitIntDate = txtExitIntDate->date();
    r.exitInt = cboExitInt->currentText();
    r.exitNotes = txtExitNotes->toPlainText();
    return r;
}

std::optional<qint64> frmemployee::pickedKey(QComboBox* c, const QString& newIndex) const {
    if (!newIndex.isEmpty()) {
        const int i = newIndex == "0.5" ? 0 : newIndex.toInt();
        bool ok = false;
        const qint64 id = c->itemData(i).toLongLong(&ok);
        if (ok) return id;
    }
    // Text typed over the list, or a name shown from the row, picks nothing.
    const qint64 id = core::comboId(c);
    if (id == core::NoComboId) return std::nullopt;
    return id;
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
            personId_ = personnel::insertProvisionalPerson(core::db(), collect());
            provisional_ = true;
            recordisnew_ = false;
            lblPersonnelNumber->setText(QString::number(personId_));
        },
        this);
    return personId_;
}

void frmemployee::showlengthofservice() {
    const auto service = personnel::lengthOfService(txtStartDate->date(), QDate::currentDate());
    if (!service) return;
    lblYears->setText(QString::number(service->years));
    lblMonths->setText(QString::number(service->months));
}

bool frmemployee::ok() {
    const personnel::OkOutcome outcome =
        personnel::checkOk({chkFirstAider->isChecked(), txtFirstAiderDate->date(), txtFname->text(),
                            txtSurname->text(), txtStartDate->date(), txtAllocationDate->date()});
    if (!outcome.message.isEmpty())
        core::msgbox(outcome.message, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
    if (outcome.clearAllocationDate) txtAllocationDate->setDate({});
    if (!outcome.save) return false;

    // The job history list catches up with the Job Details page before anything is written.
    if (tabs->currentIndex() == 4)
        jobHistoryPage->pageChange();
    else
        tabs->setCurrentIndex(4);
    // A failed save keeps the screen and everything typed, so the user can try again.
    const bool saved = core::guarded(
        windowTitle(), [this] { saveRecord(); }, this);
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
    if (event->type() == QEvent::MouseButtonPress && watched == tabs->widget(0)) {
        for (DateBox* d : findChildren<DateBox*>())
            d->hideCalendar();
    }
    if (event->type() == QEvent::FocusOut) {
        if (watched == txtFirstAiderDate->lineEdit()) {
            const QString text = txtFirstAiderDate->text().trimmed();
            if (!text.isEmpty() && !core::isDate(text)) {
                txtFirstAiderDate->setText({});
                core::msgbox(personnel::firstAiderDateMessage(core::session().language), {},
                             core::MsgButtons::Ok, core::MsgIcon::None, this);
                txtFirstAiderDate->lineEdit()->setFocus();
            }
        } else if (watched == txtAllocationDate->lineEdit()) {
            if (!core::isDate(txtAllocationDate->text())) txtAllocationDate->setText({});
            checkAllocation(AllocationEntry::Typed);
        } else if (auto* edit = qobject_cast<QLineEdit*>(watched)) {
            leftLineEdit(edit);
        }
    }
    return QWidget::eventFilter(watched, event);
}

void frmemployee::leftLineEdit(QLineEdit* edit) {
    if (edit == txtFname || edit == txtSurname) {
        edit->setText(personnel::capitaliseFirst(edit->text()));
    } else if (edit == txtPCode || edit == txtRegNo || edit == txtCarGrade) {
        edit->setText(edit->text().toUpper());
    } else if (edit == txtEmpHours) {
        const QString warning =
            personnel::workingTimeWarning(core::session().language, edit->text());
        if (!warning.isEmpty())
            core::msgbox(warning, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
    } else if (edit == txtDaysHoliday) {
        if (!personnel::isNumeric(edit->text().trimmed())) edit->clear();
    } else if (edit == txtCompCon) {
        percentLeft(PensionKind::Company);
    } else if (edit == txtEmpCon) {
        percentLeft(PensionKind::Employee);
    }
}

void frmemployee::pensionTicked(PensionKind kind) {
    // A loaded tick asks nothing and shows nothing until the user touches the box.
    if (loadingrecord_) return;
    const bool company = kind == PensionKind::Company;
    QCheckBox* box = company ? chkCompFig : chkEmpFig;
    QLabel* result = company ? lblCompFigure : lblEmpFigure;
    if (!box->isChecked()) {
        result->clear();
        return;
    }
    const personnel::PensionTick tick = personnel::tickPension(
        kind, txtSalary->text().trimmed(), (company ? txtCompCon : txtEmpCon)->text().trimmed(),
        core::session().baserate, false);
    if (!tick.refusal.isEmpty()) {
        core::msgbox(tick.refusal, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
        result->clear();
        box->setChecked(false);
        return;
    }
    if (!tick.question.isEmpty() &&
        core::msgbox(tick.question, "Confirm", core::MsgButtons::YesNo, core::MsgIcon::Question,
                     this) != core::MsgAnswer::Yes) {
        box->setChecked(false);
        return;
    }
    result->setText(figureText(tick.figure));
}

void frmemployee::percentLeft(PensionKind kind) {
    if (loadingrecord_) return;
    const bool company = kind == PensionKind::Company;
    QCheckBox* box = company ? chkCompFig : chkEmpFig;
    const personnel::PercentLeft left = personnel::leavePensionPercent(
        kind, box->isChecked(), txtSalary->text().trimmed(),
        (company ? txtCompCon : txtEmpCon)->text().trimmed(), core::session().baserate);
    {
        const QSignalBlocker block(box);
        box->setChecked(left.keepTicked);
    }
    (company ? lblCompFigure : lblEmpFigure)->setText(figureText(left.figure));
}

void frmemployee::leaverToggled(bool ticked) {
    const personnel::LeaverTick tick = personnel::tickLeaver(
        ticked, loadingrecord_, chkFirstAider->isChecked(), QDate::currentDate());
    if (!tick.warning.isEmpty())
        core::msgbox(tick.warning, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
    if (tick.dateLeft.isValid()) txtDateLeft->setDate(tick.dateLeft);
    for (QWidget* w : std::initializer_list<QWidget*>{txtDateLeft, txtFinReason, txtExitIntDate,
                                                      cboExitInt, txtExitNotes})
        w->setEnabled(!w->isEnabled());
}

void frmemployee::checkAllocation(AllocationEntry entry) {
    const QString message =
        personnel::allocationDateMessage(txtAllocationDate->date(), txtStartDate->date(), entry);
    if (message.isEmpty()) return;
    core::msgbox(message, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
    txtAllocationDate->setDate({});
}

void frmemployee::saveRecord() {
    PersonRecord record = collect();
    if (personId_ == 0) {
        personId_ = personnel::insertPerson(core::db(), record);
        return;
    }
    const QDate today = QDate::currentDate();
    const personnel::JobDetails details = jobDetails();
    const bool positionPicked =
        newpositionindex_.isEmpty() && core::comboId(cboPosition) != core::NoComboId;
    const personnel::JobHistorySave history =
        personnel::jobHistoryOnSave(jobHistoryPage->rows(), jobHistoryPage->flags(), details,
                                    positionPicked, record.salary.has_value(), today);
    if (history.newPeriodToday) {
        record.jhDate = today;
        record.jhNote.clear();
    }
    core::Transaction t(core::db());
    if (history.archive) personnel::insertJobPeriod(core::db(), personId_, *history.archive);
    personnel::savePerson(core::db(), personId_, record);
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
    return {recordisnew_ || provisional_,
            salarychanged_,
            positionchanged_,
            cboPosition->currentText().trimmed(),
            txtSalary->text().trimmed(),
            txtStartDate->date()};
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
        newpositionindex_ = core::findcomboitem(cboPosition, position);
    }
    if (!salary.isEmpty() && personnel::isNumeric(salary)) txtSalary->setText(salary);
    jhDate_ = jhDate;
    jhNote_ = jhNote;
}
