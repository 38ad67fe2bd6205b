#pragma once

#include <QDialog>

class QPushButton;
class RecordList;

// "Select software": the general picker of software, and of printers, scanners and monitors
// for a person. The caller reads the selected row after it is accepted.
class frmSoftwareSel : public QDialog {
    Q_OBJECT
public:
    explicit frmSoftwareSel(QWidget* parent = nullptr);

    // What is installed on a computer.
    void load(qint64 computerId);
    // The whole catalogue.
    void loadall();
    // The person's printers, scanners or monitors through their computers; everyone's when
    // the person has none or is 0.
    void loadPrinters(qint64 personId);
    void loadScanners(qint64 personId);
    void loadmonitors(qint64 personId);

    // The key of the selected row, 0 for none.
    qint64 softwareID() const;

    RecordList* ListView1 = nullptr;
    QPushButton* cmdClose = nullptr;
    QPushButton* cmdShowAll = nullptr;

private:
    void loadPeripherals(const QString& type, qint64 personId);
    void showAll();
    void close_();
};
