#pragma once

#include "db.h"

#include <QDate>
#include <QString>
#include <optional>
#include <vector>

// The employee searches and lists that lead to a record: which rows each one shows and in
// what order, the delete of an employee, and the checks of the date search.
namespace personnel {

// One person found. A NULL date is an invalid QDate.
struct FoundPerson {
    qint64 id = 0;
    QString surname;
    QString firstnames;
    QDate date; // DOB, or the qualification date in the first aiders list
};
using FoundPeople = std::vector<FoundPerson>;

// The general search. Leavers only when includeLeavers; deleted employees never. A surname
// alone matches the start of the surname, sorted by surname and first names; together with
// a number it matches anywhere in that one employee's surname. Names ignore case. An empty
// text is a criterion not given; a number that is no number finds nobody.
FoundPeople searchGeneral(core::Db& db, const QString& number, const QString& surname,
                          bool includeLeavers);

// The date search. With includeLeavers both options search by start date; without it
// "Started" lists current staff by start date and "Left" lists leavers by finish date.
// Both ends are included.
enum class DateOption { Started, Left };
FoundPeople searchByDate(core::Db& db, const QDate& from, const QDate& to, DateOption option,
                         bool includeLeavers);

// What the date page's two texts hold. Missing when either is empty; NotADate when either is
// no date in the session's profile (checked only when both are given).
enum class DateEntry { Ok, Missing, NotADate };
struct DateRange {
    DateEntry entry = DateEntry::Missing;
    QDate from;
    QDate to;
};
DateRange readDateRange(const QString& fromText, const QString& toText);
QString missingDatesMessage(); // "Please enter a start and finish date"

// The two combo pages; nullopt (or an empty manager) is a combo not chosen. With neither
// chosen there is no search and nobody is listed. Leavers are listed; deleted employees are
// not, except by the search on the line manager alone. The manager is compared with the
// text kept in Line_Manager, ignoring case.
FoundPeople searchByPost(core::Db& db, std::optional<qint64> positionId,
                         std::optional<qint64> locationId);
FoundPeople searchByManager(core::Db& db, const QString& manager,
                            std::optional<qint64> departmentId);

// Everyone not deleted, leavers included, by surname and first names.
FoundPeople allEmployees(core::Db& db);
// Current first aiders with their qualification date, in no particular order.
FoundPeople firstAiders(core::Db& db);

// The delete of an employee.
QString deleteQuestion(const QString& firstnames, const QString& surname);
QString firstAiderWarning();
bool isFirstAider(core::Db& db, qint64 personId);
// Releases the employee's computers and marks the employee deleted, away from any company, in
// one transaction. Nothing else of the employee changes. Throws DbError, with nothing
// changed, when there is no such employee.
void deleteEmployee(core::Db& db, qint64 personId);

} // namespace personnel
