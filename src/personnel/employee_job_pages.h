#pragma once

#include "employee_rules.h"
#include "person_record.h"

#include <QWidget>
#include <optional>

class DateBox;
class EmployeeFormContext;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTextEdit;

// The controls of each page by their names; the employee screen shows them under the same
// names.
struct JobDetailsControls {
    DateBox* txtStartDate = nullptr;
    QComboBox* cboCompany = nullptr;
    QComboBox* cboDepartment = nullptr;
    QComboBox* cboPosition = nullptr;
    QComboBox* cboLocation = nullptr;
    QPushButton* cmdNewCompany = nullptr;
    QPushButton* cmdNewDepartment = nullptr;
    QPushButton* cmdNewPosition = nullptr;
    QPushButton* cmdNewLocation = nullptr;
    QComboBox* cboEmploymentType = nullptr;
    QComboBox* cboRecruitment = nullptr;
    QComboBox* cboFullTime = nullptr;
    QLineEdit* txtEmpHours = nullptr;
    QCheckBox* chkIsManager = nullptr;
    QComboBox* cboLineManager = nullptr;
    QLabel* lblSalary = nullptr;
    QLineEdit* txtSalary = nullptr;
    QLineEdit* txtExtNo = nullptr;
    QLineEdit* txtDaysHoliday = nullptr;
    QLabel* lblYears = nullptr;
    QLabel* lblMonths = nullptr;
};

struct CarControls {
    DateBox* txtAllocationDate = nullptr;
    DateBox* txtDeAllocationDate = nullptr;
    QLineEdit* txtRegNo = nullptr;
    QLineEdit* txtCarGrade = nullptr;
    QComboBox* cboCarCategory = nullptr;
    QComboBox* cboCarTrade = nullptr;
    QLineEdit* txtCarTradeMoney = nullptr;
    QLineEdit* txtPetrolAllowance = nullptr;
    QLineEdit* txtCarAllowance = nullptr;
};

struct BenefitsControls {
    QComboBox* cboMedCover = nullptr;
    QLineEdit* txtMedCoCost = nullptr;
    QLineEdit* txtMedEmpCost = nullptr;
    DateBox* txtPensionEF = nullptr;
    QLineEdit* txtCompCon = nullptr;
    QLineEdit* txtEmpCon = nullptr;
    QCheckBox* chkCompFig = nullptr;
    QCheckBox* chkEmpFig = nullptr;
    QLabel* lblCalcNote = nullptr;
    QLabel* lblCompFigure = nullptr;
    QLabel* lblEmpFigure = nullptr;
    QComboBox* cboLifeCover = nullptr;
    QComboBox* cboLifeLevel = nullptr;
    QComboBox* cboPHICover = nullptr;
    QComboBox* cboPHILevel = nullptr;
};

struct LeaverControls {
    QCheckBox* chkLeaver = nullptr;
    DateBox* txtDateLeft = nullptr;
    QLineEdit* txtFinReason = nullptr;
    DateBox* txtExitIntDate = nullptr;
    QComboBox* cboExitInt = nullptr;
    QTextEdit* txtExitNotes = nullptr;
};

// "Job Details": the post, its organisation entries (new ones made through "New.."), the
// hours, salary and holiday entitlement.
class JobDetailsPage : public QWidget, public JobDetailsControls {
    Q_OBJECT
public:
    // The organisation screens opened by "New.." report their new entries to the owner, a
    // widget that is an OrgOwner (the employee screen).
    JobDetailsPage(EmployeeFormContext* context, QWidget* owner, QWidget* parent = nullptr);

    void fill(const personnel::PersonRecord& r);
    void collect(personnel::PersonRecord& r, core::TypedFields& typed) const;
    void showlengthofservice();

    // An entry made through "New..": where it stands in its list, "0.5" for the top row (as
    // a blank means none), until the user picks another.
    struct NewEntries {
        QString position, department, company, location;
    } newIndex;
    // A maintenance screen added an entry to the list named "Position", "Department",
    // "Location" or "Company".
    void setnew(const QString& list, const QString& text);
    // The key of the entry picked or made in the box; none for text typed over the list.
    std::optional<qint64> pickedKey(QComboBox* combo, const QString& newIndex) const;
    // A position picked from the list, by a click or completed by typing (not text typed over
    // the list, not an entry made through "New..").
    bool positionPicked() const;
    // The employee loaded again: no change made, no entry made through "New.." yet.
    void startSitting();
    bool salaryChanged() const { return salarychanged_; }
    bool positionChanged() const { return positionchanged_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    EmployeeFormContext* context_;
    bool salarychanged_ = false;
    bool positionchanged_ = false;
};

// "Car Details": the car, its dates and the allowances.
class CarPage : public QWidget, public CarControls {
    Q_OBJECT
public:
    explicit CarPage(EmployeeFormContext* context, QWidget* parent = nullptr);

    void fill(const personnel::PersonRecord& r);
    void collect(personnel::PersonRecord& r, core::TypedFields& typed) const;
    // The allocation date may not come before the start date; a refused one is cleared.
    void checkAllocation(personnel::AllocationEntry entry);

    // The money signs beside the allowances.
    QList<QLabel*> currencyLabels;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    EmployeeFormContext* context_;
};

// "Benefits": medical cover, pension with its contribution calculations, life and PHI.
class BenefitsPage : public QWidget, public BenefitsControls {
    Q_OBJECT
public:
    explicit BenefitsPage(EmployeeFormContext* context, QWidget* parent = nullptr);

    void fill(const personnel::PersonRecord& r);
    void collect(personnel::PersonRecord& r, core::TypedFields& typed) const;

    // The money signs beside the pension figures.
    QList<QLabel*> currencyLabels;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void pensionTicked(personnel::PensionKind kind);
    void percentLeft(personnel::PensionKind kind);

    EmployeeFormContext* context_;
};

// "Leaver": the leaving date, reason and exit interview, open once ticked.
class LeaverPage : public QWidget, public LeaverControls {
    Q_OBJECT
public:
    explicit LeaverPage(EmployeeFormContext* context, QWidget* parent = nullptr);

    void fill(const personnel::PersonRecord& r);
    void collect(personnel::PersonRecord& r, core::TypedFields& typed) const;

private:
    void leaverToggled(bool ticked);

    EmployeeFormContext* context_;
};
