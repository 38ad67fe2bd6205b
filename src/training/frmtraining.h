#pragma once

#include "programmes.h"

#include <QList>
#include <QWidget>

class DateBox;
class QComboBox;
class QLineEdit;
class QListWidget;
class QPushButton;

// "New Training Programme": one running of a course and the people booked on it. Bookings
// and removals are written the moment they are made; OK saves the programme's own fields.
class frmtraining : public QWidget {
    Q_OBJECT
public:
    explicit frmtraining(QWidget* parent = nullptr);

    // Shows a saved programme for editing.
    void load(qint64 trainingId);

    qint64 trainingid = 0;     // 0 until the programme is saved
    bool isnewtraining = true; // until the programme's row exists
    qint64 courseid = 0;       // the course last picked or added

    // The programme as the boxes hold it.
    training::ProgrammeText programme() const;

    void addCourse();
    void scheduleEmployee();
    void removeEmployee();
    void ok();

    DateBox* txtStartDate = nullptr;
    DateBox* txtEndDate = nullptr;
    QLineEdit* txtTime = nullptr;
    QComboBox* cboCourse = nullptr;
    QPushButton* cmdAddCourse = nullptr;
    QLineEdit* txtLocation = nullptr;
    QLineEdit* txtInstructor = nullptr;
    QLineEdit* txtDescription = nullptr;
    QLineEdit* txtPrice = nullptr;
    QComboBox* cboEmployee = nullptr;
    QListWidget* lstEmployees = nullptr;
    QPushButton* cmdSchedule = nullptr;
    QPushButton* cmdRemove = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void loadCourses();
    void addBooked(const training::Entry& entry);
    QList<qint64> bookedIds() const;
    qint64 chosenCourse() const;
    void endDateCalendar();

    core::LoadedRow loaded_; // the programme's row as loaded, for the save's check
};
