#pragma once

#include "db.h"
#include "loadedrow.h"
#include "money.h"
#include "typedfields.h"

#include <QDate>
#include <QString>
#include <optional>
#include <vector>

namespace personnel {

// Everything the employee screen edits in one Person row. An invalid QDate stands for NULL.
struct PersonRecord {
    // General
    QString title; // kept untrimmed, as typed
    QString firstnames;
    QString surname;
    QDate dob;
    QString niNumber; // kept as it stands
    QString address1, address2, address3;
    QString postCode;
    QString phone; // kept untrimmed
    QString maritalStatus;
    QString dependents;
    QString nationality;
    QString ethOrigin; // a copy of EthOrigin.origin, not a key
    bool firstAider = false;
    QDate firstAiderDate;

    // Job details
    QDate startDate;
    QString employmentType;
    QString recruitment;
    QString fullTime;
    QString empHours; // numeric text, read as the screen's check read it; "" is NULL
    bool isManager = false;
    QString lineManager;               // "{surname}, {firstnames}", a text copy
    std::optional<core::Money> salary; // nullopt: the box held no number, the column stays
    QString extno;
    QString daysHoliday; // numeric text
    QDate jhDate;
    QString jhNote;

    // A key is written only when the user really picked a row; nullopt leaves the column.
    std::optional<qint64> companyId;
    std::optional<qint64> departmentId;
    std::optional<qint64> positionId;
    std::optional<qint64> locationId;

    // Next of kin
    QString nok1Name, nok1Relationship, nok1Address, nok1HomePh, nok1MobilePh;
    QString nok2Name, nok2Relationship, nok2Address, nok2HomePh, nok2MobilePh;

    // Bank
    QString bankName, bankAdd1, bankAdd2, bankAdd3, bankPc;
    QString accName, accNo, sortCode;

    // Car
    QDate allocationDate;
    QDate deAllocationDate;
    QString regNo, carGrade, carCategory, carTrade;
    std::optional<core::Money> carTradeMoney, petrolAllowance, carAllowance; // nullopt: NULL

    // Benefits
    QString medCover;
    std::optional<core::Money> medCoCost, medEmpCost; // nullopt: NULL
    QDate pensionEF;
    QString compCon, empCon; // percentages as numeric text
    bool blnCompFig = false;
    bool blnEmpFig = false;
    QString lifeCover, lifeLevel, phiCover, phiLevel;

    // Leaver
    bool hasLeft = false;
    QDate finishDate;
    QString finReason;
    QDate exitIntDate;
    QString exitInt;
    QString exitNotes;

    // What loadPerson found, for display only; the save never reads these.
    struct Stored {
        qint64 personId = 0;
        std::optional<qint64> companyId, departmentId, positionId, locationId;
        QString companyName;  // Company_Name
        QString department;   // Department
        QString positionName; // Position_name
        QString location;     // Location
    } stored;
};

// Reads one person with the names of its company, department, position and location. A NULL
// column loads as empty text, an invalid date or nullopt; the foreign keys to write are left
// nullopt so that saving the record unchanged leaves them alone. Throws DbError when there
// is no such person.
PersonRecord loadPerson(core::Db& db, qint64 personId);

// The sizes of the Person columns that boxes feed with numbers.
inline constexpr core::NumericColumn HoursColumn{9, 2};       // EmpHours
inline constexpr core::NumericColumn HolidayDaysColumn{9, 2}; // DaysHoliday
inline constexpr core::NumericColumn PercentColumn{9, 4};     // CompCon, EmpCon

// The early insert that gives a new employee a key for child rows: the row is written at
// once, hidden from every list (blndeleted = 1) and marked provisional (provisional_since),
// and committed. The salary is written as it is, NULL when not given. On PostgreSQL the
// session holds a lock on the row's number while it is provisional, which tells the other
// programs that its entry is still under way.
qint64 insertProvisionalPerson(core::Db& db, const PersonRecord& record);

// A new employee saved without an early insert: one visible row, in one transaction.
qint64 insertPerson(core::Db& db, const PersonRecord& record);

// Writes the record over the person's row in one transaction. The row must still be as
// `loaded` saw it: a change by another user since (or the row gone) throws core::RowChanged
// and writes nothing. blndeleted is touched only to make a provisional new employee a real
// one; a deleted employee stays deleted. Invalid dates are written as NULL; the
// qualification date only for a first aider; a non-leaver's leaving data is wiped; the
// salary and the keys only when given; numbers rounded to their column's scale. Throws
// DbError and leaves the row as it was when the write fails.
void savePerson(core::Db& db, qint64 personId, const PersonRecord& record,
                const core::LoadedRow& loaded = {});

// The row as the save will compare it (see savePerson).
core::LoadedRow loadedPersonRow(core::Db& db, qint64 personId);

// Cancel of a new employee: removes the provisional row and every child row written under
// it, in one transaction. A person who was saved since (no longer provisional) is left
// alone. Returns whether the person was removed.
bool discardProvisionalPerson(core::Db& db, qint64 personId);

// At start-up: removes, with their child rows, the provisional employees whose entry ended
// without OK or Cancel (the program was killed): on the embedded database those begun before
// `sessionStart`, on PostgreSQL those whose program no longer holds their lock. Returns how
// many went.
int removeAbandonedProvisionalPeople(core::Db& db, const QDateTime& sessionStart);

// One entry of a drop-down: the text shown and the key kept in its item data (0 when the
// list has none; the two lists of people carry the person's key, which the screen ignores).
struct ComboEntry {
    QString text;
    qint64 id = 0;
};
using ComboEntries = std::vector<ComboEntry>;

// The seven drop-downs of the employee screen, in their statements' orders.
ComboEntries positionEntries(core::Db& db);    // Position_name trimmed, PositionID
ComboEntries ethOriginEntries(core::Db& db);   // origin, no key
ComboEntries locationEntries(core::Db& db);    // Location, Location_ID
ComboEntries departmentEntries(core::Db& db);  // Department, Department_ID
ComboEntries companyEntries(core::Db& db);     // Company_Name, Company_ID
ComboEntries lineManagerEntries(core::Db& db); // "{surname}, {firstnames}" of managers
ComboEntries interviewerEntries(core::Db& db); // "{surname}, {firstnames}" of everyone listed

// "{surname}, {firstnames}": how a person stands in the manager and interviewer lists.
QString managerName(const QString& surname, const QString& firstnames);

} // namespace personnel
