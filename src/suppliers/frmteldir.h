#pragma once

#include "directory.h"

#include <QWidget>
#include <functional>

class QComboBox;
class QLineEdit;
class QPushButton;
class QTabBar;
class QTabWidget;
class QTreeWidgetItem;
class RecordList;

// "Telephone Directory": employees with their extensions, contacts and suppliers with their
// phones. Every key stroke in a search box narrows its list; the letter strip narrows the
// list in front by first letter. Contacts and suppliers are added, edited and deleted here.
class frmTelDir : public QWidget {
    Q_OBJECT
public:
    explicit frmTelDir(QWidget* parent = nullptr);

    // Brings "Find Person" (0) or "Find Supplier" (1) to the front.
    void showPage(int page);

    // What a row stands for; nullopt for "No matching entries".
    static std::optional<suppliers::EntryKind> kindAt(const QTreeWidgetItem* item);

    // Called by the supplier screen after a save: "listview2" and "listview4" renew the
    // supplier's rows, any other position adds it to both supplier lists.
    void supplierSaved(const QString& position, qint64 id, const QString& name,
                       const QString& phone);

    void searchPeople();
    void searchByName();
    void searchByService();
    void serviceChosen();
    // A click on the letter strip: "ALL" or a letter, for the list in front.
    void letterClicked(int tab);

    void openPerson(QTreeWidgetItem* item);
    void openSupplier(RecordList* list, QTreeWidgetItem* item);
    void addContact();
    void addCompany();
    void addSupplier();
    void deletePerson();
    void deleteSupplier(RecordList* list);

    QTabBar* tabLetters = nullptr;
    QTabWidget* SSTab1 = nullptr; // "Find Person", "Find Supplier"
    QTabWidget* SSTab2 = nullptr; // "By Company Name", "By Service Provided"
    QLineEdit* txtSurname = nullptr;
    RecordList* ListView1 = nullptr;
    QPushButton* cmdAddContact = nullptr;
    QPushButton* cmdAddCompany = nullptr;
    QPushButton* cmdDelete = nullptr;
    QLineEdit* txtCompany = nullptr;
    RecordList* ListView2 = nullptr;
    QPushButton* cmdDeleteSupplier = nullptr;
    QComboBox* cboService = nullptr;
    QLineEdit* txtCompany2 = nullptr;
    RecordList* ListView4 = nullptr;
    QPushButton* cmdDeleteSupplier2 = nullptr;
    QPushButton* cmdAddSupplier = nullptr;
    QPushButton* cmdExit = nullptr;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* personPage();
    QWidget* supplierPage();
    void fill(RecordList* list, const suppliers::DirectoryRows& rows);
    void refreshDeleteButton();
    void pageChanged(int page);
    qint64 chosenService() const;
    // Runs a search and fills the list; a failure is shown and the list left as it was.
    void run(RecordList* list, const std::function<suppliers::DirectoryRows()>& search);
    void followStrip(const QString& text);
    // Empties "Surname" and lists every employee and contact.
    void listEveryone();

    int page_ = 0;
};
