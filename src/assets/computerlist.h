#pragma once

#include <QDialog>

class QPushButton;
class RecordList;

// "Select Computer": picks a computer for a helpdesk call, the caller's own first.
class computerList : public QDialog {
    Q_OBJECT
public:
    explicit computerList(QWidget* parent = nullptr);

    // The person's computers; every computer when they have none.
    void load(qint64 personId);
    void showAll();

    // Whether a computer was picked ("Select" or a double click).
    bool ok() const { return ok_; }
    qint64 selectedId() const;

    RecordList* ListView1 = nullptr;
    QPushButton* cmdSelect = nullptr;
    QPushButton* cmdCancel = nullptr;
    QPushButton* cmdShowAll = nullptr;

private:
    void select();
    bool ok_ = false;
};
