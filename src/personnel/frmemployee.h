#pragma once

#include "employee_job_pages.h"
#include "employee_personal_pages.h"
#include "employee_rules.h"
#include "employeecontext.h"
#include "job_history_page.h"
#include "orgowner.h"
#include "person_record.h"

#include <QWidget>

class QPushButton;
class QTabWidget;
class HolidayPage;
class AbsencePage;

// One employee on fourteen pages. Every instance edits its own record, so several may be open.
// The pages are widgets of their own that reach the screen only through the contexts it gives
// them; the screen shows their controls under their own names.
class frmemployee : public QWidget,
                    public EmployeeContext,
                    public EmployeeFormContext,
                    public OrgOwner,
                    public JobHistoryHost,
                    public GeneralControls,
                    public JobDetailsControls,
                    public NextOfKinControls,
                    public BankControls,
                    public CarControls,
                    public BenefitsControls,
                    public LeaverControls {
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

    // The money signs beside the car and pension boxes.
    QList<QLabel*> currencyLabels;

    // The pages.
    GeneralPage* generalPage = nullptr;
    JobDetailsPage* jobDetailsPage = nullptr;
    NextOfKinPage* nextOfKinPage = nullptr;
    BankPage* bankPage = nullptr;
    CarPage* carPage = nullptr;
    BenefitsPage* benefitsPage = nullptr;
    LeaverPage* leaverPage = nullptr;
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
    // EmployeeFormContext
    bool loadingRecord() const override { return loadingrecord_; }
    QDate startDate() const override;
    QString salaryText() const override;
    bool firstAider() const override;

    void buildListPages();
    // Reads the boxes; text that cannot be read is noted in `typed` with its field's name.
    personnel::PersonRecord collect(core::TypedFields& typed) const;
    // Brings the page of the named field to the front and puts the focus in its box.
    void showField(const QString& field);
    void fill(const personnel::PersonRecord& r);
    void loadListPages();
    void discardProvisional();
    void pageChanged(int index);
    // Writes the record and what the job history rules archive, in one transaction.
    void saveRecord();

    bool recordisnew_ = true;
    bool loadingrecord_ = false;
    bool provisional_ = false; // written early for its lists, hidden until OK
    qint64 personId_ = 0;
    core::LoadedRow loaded_; // the row as loaded, for the save's check
    QDate jhDate_;
    QString jhNote_;
};
