#pragma once

#include "employee_lists.h"
#include "loadedrow.h"

#include <QStringList>
#include <QWidget>
#include <functional>
#include <map>

class EmployeeContext;
class QDialog;
class QPushButton;
class QTreeWidgetItem;
class RecordList;

// The employee screen's dated child lists. Each command writes to its table at once; the
// list keeps the rows' keys in item data.
class EmployeeListPage : public QWidget {
    Q_OBJECT
public:
    void setContext(EmployeeContext* context) { context_ = context; }
    // Lists the person's rows; 0 empties the page (a new employee not yet written).
    void load(qint64 personId);
    qint64 personId() const { return personId_; }

    RecordList* list() const { return list_; }
    QPushButton* addButton() const { return cmdAdd_; }
    QPushButton* editButton() const { return cmdEdit_; }
    QPushButton* deleteButton() const { return cmdDelete_; }

    // The three buttons' commands.
    void add();
    void edit();
    void remove();

protected:
    struct Names {
        QString page, list, add, edit, remove;
        QString addCaption = "Add", editCaption = "Edit", removeCaption = "Delete";
    };
    // The list may be given by the page (one of RecordList's own kinds), else a plain one.
    EmployeeListPage(const Names& names, const QStringList& captions, const QList<int>& widths,
                     QWidget* parent, RecordList* list = nullptr);

    virtual personnel::ListRows rows(core::Db& db, qint64 personId) = 0;
    // Runs the dialog and writes the new row; returns its key, or 0 when nothing was written.
    virtual qint64 addRow(qint64 personId) = 0;
    // Runs the dialog over the row and writes it; false when cancelled.
    virtual bool editRow(qint64 id, const QTreeWidgetItem& row) = 0;
    virtual void deleteRow(qint64 id) = 0;
    // Refusals that come before the employee screen's own guard.
    virtual bool mayAdd() { return true; }
    // A double click on a row.
    virtual void activate() { edit(); }

    // Asks the employee screen for the person's key, writing a new employee first.
    qint64 ensurePerson();
    // Fills the list again from the table, selecting the given row.
    void reload(qint64 selectId = 0);
    void updateButtons();
    // After every fill of the list.
    virtual void reloaded() {}
    EmployeeContext* context() const { return context_; }

    // The table the page's rows live in: every fill of the list also takes the rows as they
    // are then, so that an edit is checked against the row the user saw. `what` names a row
    // in the refusal ("This note has been changed by another user…").
    struct Stored {
        QString table, key, what;
    };
    void setStored(const Stored& stored) { stored_ = stored; }
    // Writes an edited row through `save`, which gets the row as the list read it. A row
    // changed by another user meanwhile is refused and the user told; they may take the list
    // as it now is (Reloaded), or keep their typing for another try (Kept).
    core::SaveOutcome saveChecked(qint64 id,
                                  const std::function<void(const core::LoadedRow&)>& save);
    // Shows `dialog` over a row until its save goes through (true), or it is cancelled or the
    // list read again (false); `ok` is the dialog's own "accepted with valid entries".
    bool editUntilSaved(QDialog& dialog, const bool& ok, qint64 id,
                        const std::function<void(const core::LoadedRow&)>& save);

    RecordList* list_ = nullptr;

private:
    Stored stored_;
    std::map<qint64, core::LoadedRow> loaded_;
    EmployeeContext* context_ = nullptr;
    qint64 personId_ = 0;
    QPushButton* cmdAdd_ = nullptr;
    QPushButton* cmdEdit_ = nullptr;
    QPushButton* cmdDelete_ = nullptr;
};

// "Notes": dated notes, newest first.
class NotesPage : public EmployeeListPage {
    Q_OBJECT
public:
    explicit NotesPage(QWidget* parent = nullptr);

protected:
    personnel::ListRows rows(core::Db& db, qint64 personId) override;
    qint64 addRow(qint64 personId) override;
    bool editRow(qint64 id, const QTreeWidgetItem& row) override;
    void deleteRow(qint64 id) override;
};

// "Reprimands": action, reason and notes, newest first.
class ReprimandsPage : public EmployeeListPage {
    Q_OBJECT
public:
    explicit ReprimandsPage(QWidget* parent = nullptr);

protected:
    personnel::ListRows rows(core::Db& db, qint64 personId) override;
    qint64 addRow(qint64 personId) override;
    bool editRow(qint64 id, const QTreeWidgetItem& row) override;
    void deleteRow(qint64 id) override;
};

// "Appraisals": manager, rating and notes, newest first. None can be added before the
// organisation has a current line manager.
class AppraisalsPage : public EmployeeListPage {
    Q_OBJECT
public:
    explicit AppraisalsPage(QWidget* parent = nullptr);

protected:
    personnel::ListRows rows(core::Db& db, qint64 personId) override;
    qint64 addRow(qint64 personId) override;
    bool editRow(qint64 id, const QTreeWidgetItem& row) override;
    void deleteRow(qint64 id) override;
    bool mayAdd() override;
};

// "Documents": files kept by their paths, oldest first. A double click opens the file with
// the desktop; files dropped on the list are attached as they are.
class DocumentsPage : public EmployeeListPage {
    Q_OBJECT
public:
    explicit DocumentsPage(QWidget* parent = nullptr);

    // The role of column 0 that holds a row's path.
    static constexpr int PathRole = Qt::UserRole + 1;

    // Opens the selected row's file, or says that it is not where the row says.
    void openSelected();
    // Attaches each file as a row dated today, titled by its file name.
    void attachFiles(const QStringList& paths);

protected:
    personnel::ListRows rows(core::Db& db, qint64 personId) override;
    qint64 addRow(qint64 personId) override;
    bool editRow(qint64 id, const QTreeWidgetItem& row) override;
    void deleteRow(qint64 id) override;
    void activate() override { openSelected(); }
};
