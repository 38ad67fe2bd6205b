#pragma once

#include "callassets.h"

#include <QTabWidget>

class QLabel;
class QListWidget;
class QListWidgetItem;
class QPushButton;

// The call screen's pages "Computer", "Software" and "Peripherals": the asset the call is
// about, read only, with whom to call under its warranty.
class CallAssetPages : public QTabWidget {
    Q_OBJECT
public:
    explicit CallAssetPages(QWidget* parent = nullptr);

    enum Page { ComputerPage = 0, SoftwarePage = 1, PeripheralPage = 2 };

    // Blanks the details and the contact texts and empties the software list.
    void clearDetails();
    // A computer just picked says "N/A" for a warranty it cannot work out; one shown with a
    // stored call leaves the box blank, as a peripheral always does.
    void showComputer(const helpdesk::AssetDetails& details, bool picked);
    void showPeripheral(const helpdesk::AssetDetails& details);
    // The computer's software, the row the problem was started from in red.
    void showSoftware(const QStringList& rows, int redRow = -1);
    // Marks the row in red, every other one black.
    void markSoftware(QListWidgetItem* row);
    // Greys what a closed call may not change (the peripheral's contact box stays open).
    void setClosedLook(bool closed);

    // What the contact box shows.
    QString contactNo;
    QString invoiceNo;
    QString warrantyRef;
    void contactInfo();

    QLabel* lblManufacturer = nullptr;
    QLabel* lblModel = nullptr;
    QLabel* lblAssetNo = nullptr;
    QLabel* lblSerialNo = nullptr;
    QLabel* lblWarranty = nullptr;
    QPushButton* cmdContact = nullptr;
    QListWidget* lstSoftware = nullptr;
    QLabel* lblPManufacturer = nullptr;
    QLabel* lblPModel = nullptr;
    QLabel* lblPSerialNo = nullptr;
    QLabel* lblPAssetNo = nullptr;
    QLabel* lblPWarranty = nullptr;
    QPushButton* cmdPContact = nullptr;

private:
    void setContact(const helpdesk::AssetDetails& details);
};
