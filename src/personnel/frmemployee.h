#pragma once

#include "employee_rules.h"
#include "employeecontext.h"
#include "job_history_page.h"
#include "orgowner.h"
#include "person_record.h"

#include <QWidget>

class DateBox;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QTabWidget;
class QTextEdit;
class HolidayPage;
class AbsencePage;

// One employee on fourteen pages. Every instance edits its own record, so several may be open.
class frmemployee : public QWidget, public EmployeeContext, public OrgOwner, public JobHistoryHost {
    Q_OBJECT
public:
    explicit frmemployee(QWidget* parent = nullptr);
    ~frmemployee() override;

    // A new employee: today as the start date and as the holiday year.
    void isnew(bool flag);
    // Refills the seven drop-downs and keeps what they showed.
    void loadcombos() override;
    // A maintenance screen added an entry: pick it in the list of that kind.
    void setnew(const QString& list, const QString& text) override;
    // Fills the screen from the person's row and shows it.
    void loadperson(const QString& id);
    qint64 ensurePerson() override;
    bool hasFullName() const override;
    void absencesChanged() override;
    void showlengthofservice();

    personnel::JobDetails jobDetails() const override;
    QStringList positionNames() const override;
    void takePresentPost(const QString& position, const QString& salary, const QDate& jhDate,
                         const QString& jhNote) override;

    // OK: checks, saves and closes. false when the screen stays open.
    bool ok();
    // Closes without saving; a new employee written early for its lists goes with it.
    void cancel();

    bool recordIsNew() const { return recordisnew_; }
    qint64 personId() const { return personId_; }
    QString holidayYear() const;

    QTabWidget* tabs = nullptr;
    QPushButton* cmdNextTab = nullptr;
    QPushButton* cmdPreviousTab = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

    // General
    QLabel* lblPersonnelNumber = nullptr;
    QComboBox* cboTitle = nullptr;
    QLineEdit* txtFname = nullptr;
    QLineEdit* txtSurname = nullptr;
    DateBox* txtDOB = nullptr;
    QLineEdit* txtNINumber = nullptr;
    QLineEdit* txtAddress1 = nullptr;
    QLineEdit* txtAddress2 = nullptr;
    QLineEdit* txtAddress3 = nullptr;
    QLabel* lblPCode = nullptr;
    QLineEdit* txtPCode = nullptr;
    QLineEdit* txtPhone = nullptr;
    QComboBox* cboMaritalStatus = nullptr;
    QComboBox* cboDependants = nullptr;
    QLineEdit* txtNationality = nullptr;
    QComboBox* cboEthOrigin = nullptr;
    QCheckBox* chkFirstAider = nullptr;
    DateBox* txtFirstAiderDate = nullptr;
    QLabel* lblDateHint = nullptr;

    // Job details
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

    // Next of kin: [0] first, [1] second
    QLineEdit* txtNOKName[2] = {};
    QLineEdit* txtNOKRelationship[2] = {};
    QLineEdit* txtNOKAddress[2] = {};
    QLineEdit* txtNOKHomePh[2] = {};
    QLineEdit* txtNOKMobilePh[2] = {};

    // Bank
    QLineEdit* txtBankName = nullptr;
    QLineEdit* txtBankAdd1 = nullptr;
    QLineEdit* txtBankAdd2 = nullptr;
    QLineEdit* txtBankAdd3 = nullptr;
    QLabel* lblBankPCode = nullptr;
    QLineEdit* txtBankPC = nullptr;
    QLineEdit* txtAccName = nullptr;
    QLineEdit* txtAccNo = nullptr;
    QLineEdit* txtSortCode = nullptr;

    // Car
    DateBox* txtAllocationDate = nullptr;
    DateBox* txtDeAllocationDate = nullptr;
    QLineEdit* txtRegNo = nullptr;
    QLineEdit* txtCarGrade = nullptr;
    QComboBox* cboCarCategory = nullptr;
    QComboBox* cboCarTrade = nullptr;
    QLineEdit* txtCarTradeMoney = nullptr;
    QLineEdit* txtPetrolAllowance = nullptr;
    QLineEdit* txtCarAllowance = nullptr;

    // Benefits
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

    // Leaver
    QCheckBox* chkLeaver = nullptr;
    DateBox* txtDateLeft = nullptr;
    QLineEdit* txtFinReason = nullptr;
    DateBox* txtExitIntDate = nullptr;
    QComboBox* cboExitInt = nullptr;
    QTextEdit* txtExitNotes = nullptr;

    // The money signs beside the car and pension boxes.
    QList<QLabel*> currencyLabels;

    // The list pages, for the screen's own tests and for the pages' owners.
    QWidget* notesPage = nullptr;
    QWidget* reprimandsPage = nullptr;
    QWidget* appraisalsPage = nullptr;
    QWidget* documentsPage = nullptr;
    JobHistoryPage* jobHistoryPage = nullptr;
    HolidayPage* holidayPage = nullptr;
    AbsencePage* absencePage = nullptr;

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* buildGeneral();
    QWidget* buildJobDetails();
    QWidget* buildNextOfKin();
    QWidget* buildBank();
    QWidget* buildCar();
    QWidget* buildBenefits();
    QWidget* buildLeaver();
    void buildListPages();
    void applyRegionalProfile();

    personnel::PersonRecord collect() const;
    void fill(const personnel::PersonRecord& r);
    void loadListPages();
    void discardProvisional();
    void pageChanged(int index);
    // Writes the record and what the job history rules archive, in one transaction.
    void saveRecord();

    void leftLineEdit(QLineEdit* edit);
    void pensionTicked(personnel::PensionKind kind);
    void percentLeft(personnel::PensionKind kind);
    void leaverToggled(bool ticked);
    void checkAllocation(personnel::AllocationEntry entry);
    std::optional<qint64> pickedKey(QComboBox* combo, const QString& newIndex) const;

    bool recordisnew_ = true;
    bool loadingrecord_ = false;
    bool provisional_ = false; // written early for its lists, hidden until OK
    bool salarychanged_ = false;
    bool positionchanged_ = false;
    QString newpositionindex_, newdepartmentindex_, newcompanyindex_, newlocationindex_;
    qint64 personId_ = 0;
    QDate jhDate_;
    QString jhNote_;
};
