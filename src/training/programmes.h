#pragma once

#include "db.h"
#include "loadedrow.h"
#include "money.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

// Courses and the programmes that run them: what the programme screen reads and writes.
namespace training {

// A drop-down or list entry: its text and the key it stands for.
struct Entry {
    QString text;
    qint64 id = 0;
};
using Entries = std::vector<Entry>;

// "{person_id} - {surname}, {firstnames}": how a person stands in the booking lists.
QString personEntry(qint64 personId, const QString& surname, const QString& firstnames);

// Every course by title.
Entries courseEntries(core::Db& db);
// People who may be booked: neither leavers nor deleted, by surname.
Entries bookableEmployees(core::Db& db);
// Everyone ever on file, leavers and deleted ones included (whose training the report shows).
Entries everyEmployee(core::Db& db);
// The catalogue only grows; the title is stored trimmed. Returns the new Course_ID.
qint64 addCourse(core::Db& db, const QString& title);

// A programme as the screen holds it, texts as typed.
struct ProgrammeText {
    QString start;
    QString end;
    QString time; // "" when no digit has been entered
    QString courseTitle;
    qint64 courseId = 0; // the course the title stands for, 0 for none
    QString location;
    QString instructor;
    QString description;
    QString price;
};

// Writes a new programme: dates only when they are dates, the price only when it is a number.
// Returns the new Training_ID.
qint64 saveNewProgramme(core::Db& db, const ProgrammeText& programme);
// Rewrites a saved programme. An end date or price that is not there leaves the stored one
// as it was, so a box cleared by mistake never wipes the column. The row must still be as
// `loaded` saw it: another user's change since throws core::RowChanged and writes nothing.
void updateProgramme(core::Db& db, qint64 trainingId, const ProgrammeText& programme,
                     const core::LoadedRow& loaded = {});
// The programme's row as the save will compare it.
core::LoadedRow loadedProgrammeRow(core::Db& db, qint64 trainingId);

struct Programme {
    QDate start;
    QDate end;
    QString time;
    qint64 courseId = 0;
    QString title;
    QString location;
    QString instructor;
    QString description;
    QString price; // "" when none is stored; "12.5" for 12.50
};
// The programme with its course's title; nullopt when either row is missing.
std::optional<Programme> loadProgramme(core::Db& db, qint64 trainingId);
// Who is booked on a programme, leavers included.
Entries bookedEmployees(core::Db& db, qint64 trainingId);

// The programme list: "Course Title", "Date", "Time", "Location", "Instructor", latest first,
// deleted programmes left out.
struct ProgrammeRow {
    qint64 id = 0;
    QStringList cells;
};
std::vector<ProgrammeRow> programmeRows(core::Db& db);
// Hides a programme from lists and reports; its bookings stay.
void deleteProgramme(core::Db& db, qint64 trainingId);

} // namespace training
