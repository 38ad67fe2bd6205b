#pragma once

#include <QDialog>

class QPushButton;
class RecordList;

// The printers, scanners or monitors that are not deleted. Its caption is its mode: "Select
// Printer" (Scanner, Monitor) opens the picked one for editing, "Delete Printer" (Scanner,
// Monitor) deletes it after asking.
class PrinterList : public QDialog {
    Q_OBJECT
public:
    explicit PrinterList(QWidget* parent = nullptr);

    // type: "Printer", "Scanner" or "Monitor".
    void loadall(const QString& type);
    // OK and a double click.
    void ok();

    RecordList* ListView1 = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdCancel = nullptr;

private:
    void deleteSelected(qint64 id, const QString& rowText);
    QString type_;
};
