#pragma once

#include <QWidget>

class QPushButton;
class QTreeWidgetItem;
class RecordList;

// "Select Employee": everyone not deleted. Opens the chosen employee, or, with ISDelete set
// before it is shown, deletes employees one after another; firstaiders() turns it into the
// list of first aiders.
class PersonList : public QWidget {
    Q_OBJECT
public:
    explicit PersonList(QWidget* parent = nullptr);

    bool ISDelete = false;
    void firstaiders();

    // OK and a double click: on an empty list the screen closes.
    void ok();

    RecordList* ListView1 = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void deleteSelected(QTreeWidgetItem* row);
};
