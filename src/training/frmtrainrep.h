#pragma once

#include <QWidget>

class QComboBox;
class QPushButton;
class QTabWidget;
class RecordList;

// "Training Report": who attended a course (by course, or every course), and what one person
// attended.
class frmTrainRep : public QWidget {
    Q_OBJECT
public:
    explicit frmTrainRep(QWidget* parent = nullptr);

    // Fills the person and course lists.
    void loadall();

    void searchByCourse();
    void searchByEmployee();

    QTabWidget* SSTab1 = nullptr;
    QComboBox* cboCourse = nullptr;
    QComboBox* cboPerson = nullptr;
    QPushButton* cmdCourseSearch = nullptr;
    QPushButton* cmdPersonSearch = nullptr;
    RecordList* ListView1 = nullptr;
    QPushButton* cmdClose = nullptr;

private:
    void pageChanged();
    void showRows(const std::vector<QStringList>& rows);
};
