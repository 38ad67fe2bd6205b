#pragma once

#include <QDate>
#include <QtGlobal>

// What the pages of the employee screen ask of the screen that holds them.
class EmployeeContext {
public:
    virtual ~EmployeeContext() = default;
    // Before any child row is added: the names must be there (otherwise the screen says
    // "Please enter Full name first" and shows its General page), and a new employee is
    // written at once (hidden until OK). Returns the person's key, or 0 when the Add must stop.
    virtual qint64 ensurePerson() = 0;
    // First names and surname are both filled in.
    virtual bool hasFullName() const = 0;
    // A page wrote rows that another page lists (unpaid leave booked from the holiday page).
    virtual void absencesChanged() {}
    // The start date typed on the screen, where the holiday years begin; none when unknown.
    virtual QDate startDate() const { return {}; }
};

#include <QDate>
#include <QString>

// What the form pages of the employee screen read from one another, through the screen.
class EmployeeFormContext {
public:
    virtual ~EmployeeFormContext() = default;
    // A stored record is being put on the pages: their rules ask nothing and say nothing.
    virtual bool loadingRecord() const = 0;
    // "Start Date" of the Job Details page.
    virtual QDate startDate() const = 0;
    // "Salary" of the Job Details page, as typed.
    virtual QString salaryText() const = 0;
    // "First Aider" of the General page is ticked.
    virtual bool firstAider() const = 0;
};
