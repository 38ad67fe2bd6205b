#pragma once

#include <QDialog>

class QLineEdit;
class QPushButton;

// "Add Course": the title of a new course.
class frmCourse : public QDialog {
    Q_OBJECT
public:
    explicit frmCourse(QWidget* parent = nullptr);

    // Set when the user confirmed a title.
    bool ok = false;

    QLineEdit* txtTitle = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void confirm();
};
