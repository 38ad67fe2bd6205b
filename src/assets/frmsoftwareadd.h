#pragma once

#include <QDialog>

class QPushButton;
class RecordList;

// The catalogue with the licences left of each product. Its caption is its mode: "License
// Summary" only shows; any other caption picks a product to install, warning (never
// refusing) when no licence is left. The caller reads the selected row after it is accepted.
class frmSoftwareadd : public QDialog {
    Q_OBJECT
public:
    explicit frmSoftwareadd(QWidget* parent = nullptr);

    void loadall();
    // The picked product, 0 for none.
    qint64 selectedId() const;

    RecordList* ListView1 = nullptr;
    QPushButton* cmdOK = nullptr;
    QPushButton* cmdClose = nullptr;

private:
    bool isSummary() const;
    void warnIfUnlicensed();
    void ok();
};
