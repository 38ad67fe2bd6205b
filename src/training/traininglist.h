#pragma once

#include <QWidget>

class QPushButton;
class RecordList;

// "Select training programme": picks a programme to edit or deletes one. Its caption is its
// mode: "Edit Training Programme" edits, any other caption deletes.
class TrainingList : public QWidget {
    Q_OBJECT
public:
    explicit TrainingList(QWidget* parent = nullptr);

    void load();
    // OK and a double click.
    void ok();

    RecordList* ListView1 = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void deleteSelected(qint64 id, const QString& title);
};
