#pragma once

#include "employee_search.h"

#include <QWidget>
#include <functional>

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QTabWidget;
class RecordList;

// "Employee Search": four pages of criteria above one result list; OK or a double click opens
// the employee found and closes the search.
class frmesearch : public QWidget {
    Q_OBJECT
public:
    explicit frmesearch(QWidget* parent = nullptr);

    // The Search command of each page.
    void searchGeneral();
    void searchDates();
    void searchPost();
    void searchManager();
    // Opens the selected employee and closes the search; nothing without a selected row.
    void ok();

    QTabWidget* SSTab1 = nullptr;
    // General
    QLineEdit* txtNumber = nullptr;
    QLineEdit* txtSurname = nullptr;
    QCheckBox* chkLeavers = nullptr;
    QPushButton* cmdSearch = nullptr;
    // Date
    QLineEdit* txtDateFrom = nullptr;
    QLineEdit* txtDateTo = nullptr;
    QRadioButton* optStarted = nullptr;
    QRadioButton* optLeft = nullptr;
    QCheckBox* chkDateLeavers = nullptr;
    QPushButton* cmdDateSearch = nullptr;
    // Position/Location
    QComboBox* cboPosition = nullptr;
    QComboBox* cboLocation = nullptr;
    QPushButton* cmdPostSearch = nullptr;
    // Manager/Dept
    QComboBox* cboManager = nullptr;
    QComboBox* cboDepartment = nullptr;
    QPushButton* cmdManagerSearch = nullptr;

    RecordList* ListView1 = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    QWidget* buildGeneral();
    QWidget* buildDate();
    struct ComboRow {
        const char* caption;
        const char* name;
        QComboBox*& combo;
    };
    QWidget* buildComboPage(const ComboRow& first, const ComboRow& second, QPushButton*& search,
                            const QString& searchName);
    void loadcombos();
    // Lays the people into the list; the general page writes its numbers with a blank after.
    void fillList(const personnel::FoundPeople& people, bool numberWithBlank);
    void run(const std::function<personnel::FoundPeople()>& search, bool numberWithBlank = false);
};
