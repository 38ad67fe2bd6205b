#include "employee_job_pages.h"

#include "employee_form_kit.h"
#include "employeecontext.h"
#include "frmcompany.h"
#include "frmlookupentry.h"
#include "messagebox.h"
#include "regional.h"
#include "screenhost.h"
#include "session.h"
#include "widgetkit.h"

#include <QCheckBox>
#include <QEvent>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTextEdit>

using namespace personnel::form;
using core::Money;
using personnel::AllocationEntry;
using personnel::PensionKind;
using personnel::PersonRecord;

namespace {

// The sign stands in its own label beside the figure.
QString figureText(const std::optional<Money>& m) {
    return m ? m->toString(2) : QString();
}

bool isUS() {
    return core::regional::isUS(core::session().language);
}

} // namespace

JobDetailsPage::JobDetailsPage(EmployeeFormContext* context, QWidget* owner, QWidget* parent)
    : QWidget(parent)
    , context_(context) {
    setObjectName("FrameJD");
    auto* form = new QFormLayout(this);

    txtStartDate = dateBox(this, "txtStartDate");
    cboCompany = combo(this, "cboCompany");
    cboDepartment = combo(this, "cboDepartment");
    cboPosition = combo(this, "cboPosition");
    cboLocation = combo(this, "cboLocation");
    cmdNewCompany = core::makeButton(this, "New..", "cmdNewCompany");
    cmdNewDepartment = core::makeButton(this, "New..", "cmdNewDepartment");
    cmdNewPosition = core::makeButton(this, "New..", "cmdNewPosition");
    cmdNewLocation = core::makeButton(this, "New..", "cmdNewLocation");
    cboEmploymentType = combo(this, "cboEmploymentType", {"Temporary", "Permanent", "Contract"});
    cboRecruitment = combo(this, "cboRecruitment", {"Direct", "Agency", "Advertisment"});
    cboFullTime = combo(this, "cboFullTime", {"Full Time", "Part Time"});
    txtEmpHours = lineEdit(this, "txtEmpHours");
    chkIsManager = new QCheckBox("Line Manager", this);
    chkIsManager->setObjectName("chkIsManager");
    cboLineManager = combo(this, "cboLineManager");
    lblSalary = label(this, "Salary", "lblSalary");
    txtSalary = lineEdit(this, "txtSalary");
    txtExtNo = lineEdit(this, "txtExtNo");
    txtDaysHoliday = lineEdit(this, "txtDaysHoliday");
    lblYears = label(this, {}, "lblYears");
    lblMonths = label(this, {}, "lblMonths");

    auto withNew = [](QComboBox* c, QPushButton* b) {
        auto* row = new QHBoxLayout;
        row->addWidget(c, 1);
        row->addWidget(b);
        return row;
    };
    auto* service = new QHBoxLayout;
    service->addWidget(lblYears);
    service->addWidget(new QLabel(" Years", this));
    service->addWidget(lblMonths);
    service->addWidget(new QLabel(" Months", this));
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
    if (isUS()) lblSalary->setText("Salary                         $");

    for (QLineEdit* e : {txtEmpHours, txtDaysHoliday})
        e->installEventFilter(this);
    connect(txtStartDate, &DateBox::dateChanged, this, &JobDetailsPage::showlengthofservice);
    connect(txtSalary, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (!context_->loadingRecord() && personnel::isNumeric(text)) salarychanged_ = true;
    });
    // A later pick wins over an entry made through "New..".
    connect(cboPosition, &QComboBox::activated, this, [this] {
        positionchanged_ = true;
        newIndex.position.clear();
    });
    connect(cboDepartment, &QComboBox::activated, this, [this] { newIndex.department.clear(); });
    connect(cboLocation, &QComboBox::activated, this, [this] { newIndex.location.clear(); });
    connect(cboCompany, &QComboBox::activated, this, [this] { newIndex.company.clear(); });

    auto openChild = [owner](auto* screen) {
        screen->ischild = true;
        screen->addpos = owner;
        core::showModalScreen(screen, owner);
    };
    connect(cmdNewCompany, &QPushButton::clicked, this, [openChild] { openChild(new frmCompany); });
    connect(cmdNewDepartment, &QPushButton::clicked, this, [openChild] { openChild(new frmDept); });
    connect(cmdNewPosition, &QPushButton::clicked, this,
            [openChild] { openChild(new frmPosition); });
    connect(cmdNewLocation, &QPushButton::clicked, this,
            [openChild] { openChild(new frmLocation); });
}

bool JobDetailsPage::eventFilter(QObject* watched, QEvent* event) {
    if (!leftForAnotherControl(event)) return QWidget::eventFilter(watched, event);
    if (watched == txtEmpHours) {
        const QString warning =
            personnel::workingTimeWarning(core::session().language, txtEmpHours->text());
        if (!warning.isEmpty())
            core::msgbox(warning, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
    }
    return QWidget::eventFilter(watched, event);
}

void JobDetailsPage::showlengthofservice() {
    const auto service = personnel::lengthOfService(txtStartDate->date(), QDate::currentDate());
    if (!service) return;
    lblYears->setText(QString::number(service->years));
    lblMonths->setText(QString::number(service->months));
}

void JobDetailsPage::setnew(const QString& list, const QString& text) {
    if (list == "Position")
        newIndex.position = core::findcomboitem(cboPosition, text);
    else if (list == "Department")
        newIndex.department = core::findcomboitem(cboDepartment, text);
    else if (list == "Location")
        newIndex.location = core::findcomboitem(cboLocation, text);
    else if (list == "Company")
        newIndex.company = core::findcomboitem(cboCompany, text);
}

std::optional<qint64> JobDetailsPage::pickedKey(QComboBox* c, const QString& index) const {
    if (!index.isEmpty()) {
        const int i = index == "0.5" ? 0 : index.toInt();
        bool ok = false;
        const qint64 id = c->itemData(i).toLongLong(&ok);
        if (ok) return id;
    }
    // Text typed over the list, or a name shown from the row, picks nothing.
    const qint64 id = core::comboId(c);
    if (id == core::NoComboId) return std::nullopt;
    return id;
}

bool JobDetailsPage::positionPicked() const {
    return newIndex.position.isEmpty() && core::comboId(cboPosition) != core::NoComboId;
}

void JobDetailsPage::startSitting() {
    salarychanged_ = positionchanged_ = false;
    newIndex = {};
}

void JobDetailsPage::fill(const PersonRecord& r) {
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
}

void JobDetailsPage::collect(PersonRecord& r, core::TypedFields& typed) const {
    r.startDate = typed.date("Start Date", txtStartDate->text());
    r.employmentType = cboEmploymentType->currentText();
    r.recruitment = cboRecruitment->currentText();
    r.fullTime = cboFullTime->currentText();
    r.empHours = numberOf(typed, "Employee hours", txtEmpHours, personnel::HoursColumn);
    r.isManager = chkIsManager->isChecked();
    r.lineManager = cboLineManager->currentText();
    r.salary = typed.money("Salary", txtSalary->text());
    r.extno = txtExtNo->text();
    r.daysHoliday = numberOf(typed, "Days Holiday", txtDaysHoliday, personnel::HolidayDaysColumn);
    r.companyId = pickedKey(cboCompany, newIndex.company);
    r.departmentId = pickedKey(cboDepartment, newIndex.department);
    r.positionId = pickedKey(cboPosition, newIndex.position);
    r.locationId = pickedKey(cboLocation, newIndex.location);
}

CarPage::CarPage(EmployeeFormContext* context, QWidget* parent)
    : QWidget(parent)
    , context_(context) {
    setObjectName("frameCD");
    auto* layout = new QHBoxLayout(this);

    auto* general = new QGroupBox("General", this);
    auto* g = new QFormLayout(general);
    txtAllocationDate = dateBox(general, "txtAllocationDate");
    txtDeAllocationDate = dateBox(general, "txtDeAllocationDate");
    txtRegNo = lineEdit(general, "txtRegNo");
    txtCarGrade = lineEdit(general, "txtCarGrade");
    g->addRow("Allocation Date", txtAllocationDate);
    g->addRow("Deallocation Date", txtDeAllocationDate);
    g->addRow("Registration No", txtRegNo);
    g->addRow("Grade of Car", txtCarGrade);

    auto* allowance = new QGroupBox("Allowance info", this);
    auto* a = new QFormLayout(allowance);
    cboCarCategory = combo(allowance, "cboCarCategory", {"Business Need", "Benefit Car"});
    cboCarTrade = combo(allowance, "cboCarTrade", {"UP", "DOWN", "NONE"});
    txtCarTradeMoney = lineEdit(allowance, "txtCarTradeMoney");
    txtPetrolAllowance = lineEdit(allowance, "txtPetrolAllowance");
    txtCarAllowance = lineEdit(allowance, "txtCarAllowance");
    const QString sign = isUS() ? QStringLiteral("$") : QStringLiteral("£");
    auto money = [this, allowance, &sign](QWidget* before, QLineEdit* box) {
        auto* row = new QHBoxLayout;
        if (before) row->addWidget(before);
        auto* l = label(allowance, sign, box->objectName() + "Sign");
        currencyLabels << l;
        row->addWidget(l);
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
}

bool CarPage::eventFilter(QObject* watched, QEvent* event) {
    if (!leftForAnotherControl(event)) return QWidget::eventFilter(watched, event);
    if (watched == txtAllocationDate->lineEdit()) {
        // Text that is no date is the date box's to point out, and stays for correction.
        if (core::isDate(txtAllocationDate->text())) checkAllocation(AllocationEntry::Typed);
    } else if (watched == txtRegNo || watched == txtCarGrade) {
        auto* edit = static_cast<QLineEdit*>(watched);
        edit->setText(edit->text().toUpper());
    }
    return QWidget::eventFilter(watched, event);
}

void CarPage::checkAllocation(AllocationEntry entry) {
    const QString message =
        personnel::allocationDateMessage(txtAllocationDate->date(), context_->startDate(), entry);
    if (message.isEmpty()) return;
    core::msgbox(message, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
    txtAllocationDate->setDate({});
}

void CarPage::fill(const PersonRecord& r) {
    txtAllocationDate->setDate(r.allocationDate);
    txtDeAllocationDate->setDate(r.deAllocationDate);
    txtRegNo->setText(r.regNo);
    txtCarGrade->setText(r.carGrade);
    setComboText(cboCarCategory, r.carCategory);
    setComboText(cboCarTrade, r.carTrade);
    txtCarTradeMoney->setText(core::plainNumber(r.carTradeMoney));
    txtPetrolAllowance->setText(core::plainNumber(r.petrolAllowance));
    txtCarAllowance->setText(core::plainNumber(r.carAllowance));
}

void CarPage::collect(PersonRecord& r, core::TypedFields& typed) const {
    r.allocationDate = typed.date("Allocation Date", txtAllocationDate->text());
    r.deAllocationDate = typed.date("Deallocation Date", txtDeAllocationDate->text());
    r.regNo = txtRegNo->text();
    r.carGrade = txtCarGrade->text();
    r.carCategory = cboCarCategory->currentText();
    r.carTrade = cboCarTrade->currentText();
    r.carTradeMoney = typed.money("Car Trade", txtCarTradeMoney->text());
    r.petrolAllowance = typed.money("Petrol Allowance", txtPetrolAllowance->text());
    r.carAllowance = typed.money("Car Allowance", txtCarAllowance->text());
}

BenefitsPage::BenefitsPage(EmployeeFormContext* context, QWidget* parent)
    : QWidget(parent)
    , context_(context) {
    setObjectName("frameB");
    auto* grid = new QGridLayout(this);

    auto* medical = new QGroupBox("Medical", this);
    auto* m = new QFormLayout(medical);
    cboMedCover = combo(medical, "cboMedCover",
                        {"None - refused", "Employee", "Emp + Partner", "Emp + family"});
    txtMedCoCost = lineEdit(medical, "txtMedCoCost");
    txtMedEmpCost = lineEdit(medical, "txtMedEmpCost");
    m->addRow("Cover", cboMedCover);
    m->addRow("Co Cost", txtMedCoCost);
    m->addRow("Emp Cost", txtMedEmpCost);

    auto* pension = new QGroupBox("Pension", this);
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
    const QString sign = isUS() ? QStringLiteral("$") : QStringLiteral("£");
    auto figure = [this, pension, &sign](QLabel* result) {
        auto* row = new QHBoxLayout;
        auto* l = label(pension, sign, result->objectName() + "Sign");
        currencyLabels << l;
        row->addWidget(l);
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

    auto* life = new QGroupBox("Life", this);
    auto* l = new QFormLayout(life);
    cboLifeCover = combo(life, "cboLifeCover", {"Yes", "Refused"});
    cboLifeLevel = combo(life, "cboLifeLevel", {"2*", "3*", "4*"});
    l->addRow("Cover", cboLifeCover);
    l->addRow("Level", cboLifeLevel);

    auto* phi = new QGroupBox("PHI", this);
    auto* h = new QFormLayout(phi);
    cboPHICover = combo(phi, "cboPHICover", {"Yes", "Refused"});
    cboPHILevel = combo(phi, "cboPHILevel", {"50 %", "75 %"});
    h->addRow("Cover", cboPHICover);
    h->addRow("Level", cboPHILevel);

    grid->addWidget(medical, 0, 0);
    grid->addWidget(pension, 0, 1, 2, 1);
    grid->addWidget(life, 1, 0);
    grid->addWidget(phi, 2, 0);

    // The calculations rest on the UK basic rate of tax.
    if (isUS()) {
        for (QWidget* w : std::initializer_list<QWidget*>{chkCompFig, chkEmpFig, lblCalcNote,
                                                          lblCompFigure, lblEmpFigure})
            w->setEnabled(false);
    }

    connect(chkCompFig, &QCheckBox::toggled, this, [this] { pensionTicked(PensionKind::Company); });
    connect(chkEmpFig, &QCheckBox::toggled, this, [this] { pensionTicked(PensionKind::Employee); });
    for (QLineEdit* e : {txtCompCon, txtEmpCon})
        e->installEventFilter(this);
}

bool BenefitsPage::eventFilter(QObject* watched, QEvent* event) {
    if (leftForAnotherControl(event)) {
        if (watched == txtCompCon)
            percentLeft(PensionKind::Company);
        else if (watched == txtEmpCon)
            percentLeft(PensionKind::Employee);
    }
    return QWidget::eventFilter(watched, event);
}

void BenefitsPage::pensionTicked(PensionKind kind) {
    // A loaded tick asks nothing and shows nothing until the user touches the box.
    if (context_->loadingRecord()) return;
    const bool company = kind == PensionKind::Company;
    QCheckBox* box = company ? chkCompFig : chkEmpFig;
    QLabel* result = company ? lblCompFigure : lblEmpFigure;
    if (!box->isChecked()) {
        result->clear();
        return;
    }
    const personnel::PensionTick tick = personnel::tickPension(
        kind, context_->salaryText().trimmed(),
        (company ? txtCompCon : txtEmpCon)->text().trimmed(), core::session().baserate, false);
    if (!tick.refusal.isEmpty()) {
        core::msgbox(tick.refusal, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
        result->clear();
        box->setChecked(false);
        return;
    }
    if (!tick.question.isEmpty() &&
        // It asks before changing money: Enter answers No.
        core::msgbox(tick.question, "Confirm", core::MsgButtons::YesNo, core::MsgIcon::Question,
                     core::MsgAnswer::No, this) != core::MsgAnswer::Yes) {
        box->setChecked(false);
        return;
    }
    result->setText(figureText(tick.figure));
}

void BenefitsPage::percentLeft(PensionKind kind) {
    if (context_->loadingRecord()) return;
    const bool company = kind == PensionKind::Company;
    QCheckBox* box = company ? chkCompFig : chkEmpFig;
    const personnel::PercentLeft left = personnel::leavePensionPercent(
        kind, box->isChecked(), context_->salaryText().trimmed(),
        (company ? txtCompCon : txtEmpCon)->text().trimmed(), core::session().baserate);
    {
        const QSignalBlocker block(box);
        box->setChecked(left.keepTicked);
    }
    (company ? lblCompFigure : lblEmpFigure)->setText(figureText(left.figure));
}

void BenefitsPage::fill(const PersonRecord& r) {
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
}

void BenefitsPage::collect(PersonRecord& r, core::TypedFields& typed) const {
    r.medCover = cboMedCover->currentText();
    r.medCoCost = typed.money("Co Cost", txtMedCoCost->text());
    r.medEmpCost = typed.money("Emp Cost", txtMedEmpCost->text());
    r.pensionEF = typed.date("Effective From", txtPensionEF->text());
    r.compCon = numberOf(typed, "Co Cont (Gross)", txtCompCon, personnel::PercentColumn);
    r.empCon = numberOf(typed, "Emp Cont (Net)", txtEmpCon, personnel::PercentColumn);
    r.blnCompFig = chkCompFig->isChecked();
    r.blnEmpFig = chkEmpFig->isChecked();
    r.lifeCover = cboLifeCover->currentText();
    r.lifeLevel = cboLifeLevel->currentText();
    r.phiCover = cboPHICover->currentText();
    r.phiLevel = cboPHILevel->currentText();
}

LeaverPage::LeaverPage(EmployeeFormContext* context, QWidget* parent)
    : QWidget(parent)
    , context_(context) {
    setObjectName("frmleaver");
    auto* form = new QFormLayout(this);
    chkLeaver = new QCheckBox("Leaver", this);
    chkLeaver->setObjectName("chkLeaver");
    txtDateLeft = dateBox(this, "txtDateLeft");
    txtFinReason = lineEdit(this, "txtFinReason");
    txtExitIntDate = dateBox(this, "txtExitIntDate");
    cboExitInt = combo(this, "cboExitInt");
    txtExitNotes = new QTextEdit(this);
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
    connect(chkLeaver, &QCheckBox::toggled, this, &LeaverPage::leaverToggled);
}

void LeaverPage::leaverToggled(bool ticked) {
    const personnel::LeaverTick tick = personnel::tickLeaver(
        ticked, context_->loadingRecord(), context_->firstAider(), QDate::currentDate());
    if (!tick.warning.isEmpty())
        core::msgbox(tick.warning, {}, core::MsgButtons::Ok, core::MsgIcon::None, this);
    if (tick.dateLeft.isValid()) txtDateLeft->setDate(tick.dateLeft);
    for (QWidget* w : std::initializer_list<QWidget*>{txtDateLeft, txtFinReason, txtExitIntDate,
                                                      cboExitInt, txtExitNotes})
        w->setEnabled(!w->isEnabled());
}

void LeaverPage::fill(const PersonRecord& r) {
    // Ticking runs the page's side effects (today as the leaving date); the row's own
    // dates then replace it.
    chkLeaver->setChecked(r.hasLeft);
    txtDateLeft->setDate(r.finishDate);
    txtFinReason->setText(r.finReason);
    txtExitIntDate->setDate(r.exitIntDate);
    setComboText(cboExitInt, r.exitInt);
    txtExitNotes->setPlainText(r.exitNotes);
}

void LeaverPage::collect(PersonRecord& r, core::TypedFields& typed) const {
    r.hasLeft = chkLeaver->isChecked();
    // A non-leaver's leaving data is wiped whatever its boxes hold.
    if (r.hasLeft) {
        r.finishDate = typed.date("Date Left", txtDateLeft->text());
        r.exitIntDate = typed.date("Exit Interview date", txtExitIntDate->text());
    }
    r.finReason = txtFinReason->text();
    r.exitInt = cboExitInt->currentText();
    r.exitNotes = txtExitNotes->toPlainText();
}
