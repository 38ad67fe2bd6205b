#pragma once

// What the employee screen's tests share: a screen that may delete itself, rows to open it on,
// and the steps a user takes on it.
#include "employee_list_pages.h"
#include "frmemployee.h"
#include "frmnotes.h"
#include "personrows.h"
#include "seams.h"
#include "testdb.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QSqlRecord>

namespace employeescreen {

inline const QString UK = QStringLiteral("English (UK)");
inline const QString US = QStringLiteral("English (US)");

inline const QString FirstAiderMessage = QStringLiteral(
    "If you specify this employee as a first aider you must must enter the date they qualified");
inline const QString NamesMessage =
    QStringLiteral("You need to enter a Firstname,Surname and Startdate before saving an employee");

// The screen is deleted on close once it has been shown; the pointer follows that.
struct Screen {
    QPointer<frmemployee> w;
    Screen()
        : w(new frmemployee) {}
    ~Screen() { delete w.data(); }
    frmemployee* operator->() const { return w.data(); }
};

inline int count(core::Db& db, const QString& sql, const core::Params& params = {}) {
    return db.scalar(sql, params).toInt();
}

inline int people(core::Db& db) {
    return count(db, "SELECT COUNT(*) FROM Person");
}

inline int notes(core::Db& db) {
    return count(db, "SELECT COUNT(*) FROM Notes");
}

inline qint64 addNote(core::Db& db, qint64 personId) {
    return db.insert(
        "Notes", "Note_ID",
        {{"person_id", personId}, {"Date", QDate(2024, 3, 4)}, {"Description", "Induction done"}});
}

inline QVariant column(core::Db& db, qint64 id, const char* name) {
    const auto r = db.row("SELECT * FROM Person WHERE Person_ID = ?", {id});
    return r ? r->value(name) : QVariant();
}

inline QStringList snapshot(core::Db& db, qint64 id) {
    return testsupport::personSnapshot(db, id);
}

struct Keys {
    qint64 company, department, position, location;
};

inline Keys addOrganisation(core::Db& db) {
    // Entries that sort first, so that the first row of a list is never the one stored.
    db.insert("Company", "Company_ID", {{"Company_Name", "Abbey Mills"}});
    db.insert("Department", "Department_ID", {{"Department", "Admin"}});
    db.insert("Position", "PositionID", {{"Position_name", "Analyst"}});
    db.insert("Location", "Location_ID", {{"Location", "Aberdeen"}});
    return {db.insert("Company", "Company_ID", {{"Company_Name", "Harbour Trading"}}),
            db.insert("Department", "Department_ID", {{"Department", "Accounts"}}),
            db.insert("Position", "PositionID", {{"Position_name", "Clerk"}}),
            db.insert("Location", "Location_ID", {{"Location", "Bristol"}})};
}

inline qint64 addFullPerson(core::Db& db, const Keys& k) {
    return db.insert("Person", "Person_ID",
                     testsupport::fullPersonRow(k.company, k.department, k.position, k.location));
}

inline qint64 addPlainPerson(core::Db& db) {
    return db.insert("Person", "Person_ID",
                     {{"firstnames", "Tom"},
                      {"surname", "Hardy"},
                      {"startdate", QDate(2020, 1, 6)},
                      {"salary", "21000"},
                      {"HasLeft", 0},
                      {"blndeleted", 0}});
}

inline void leave(QWidget* box) {
    QFocusEvent out(QEvent::FocusOut);
    QCoreApplication::sendEvent(box, &out);
}

// Adds a note through the screen's own Notes page, as the user would.
inline void addNoteOnPage(frmemployee* w, testsupport::DialogDriver& dialogs) {
    dialogs.then([](QDialog& d) {
        auto& notes = static_cast<frmNotes&>(d);
        notes.txtDate->setDate(QDate(2024, 3, 4));
        notes.txtNotes->setPlainText("Induction done");
        notes.cmdOK->click();
        return int(QDialog::Accepted);
    });
    static_cast<EmployeeListPage*>(w->notesPage)->add();
}

inline Screen* opened(qint64 id) {
    auto* s = new Screen;
    (*s)->loadcombos();
    (*s)->loadperson(QString::number(id));
    return s;
}

inline void newNamed(frmemployee* w, const QString& first, const QString& surname) {
    w->isnew(true);
    w->loadcombos();
    w->txtFname->setText(first);
    w->txtSurname->setText(surname);
}

} // namespace employeescreen
