#pragma once

#include "db.h"
#include "loadedrow.h"

#include <QDate>
#include <QString>
#include <optional>

namespace admin {

// The texts of the Options screen, as typed.
struct OptionsInput {
    QString daysAbsence; // Text1
    QString baseRate;    // Text4
    QString patTest;     // Text5, a date or blank
    QString patLength;   // Combo1
    QString fireTest;    // Text6, a date or blank
    QString fireLength;  // Combo2
    QString daysBackup;  // Text3
    QString language;    // Combo3
};

// Which box a refusal is about, so the screen can put the focus there.
enum class OptionsField {
    None,
    DaysBackup,
    DaysAbsence,
    PatTest,
    FireTest,
    BaseRate,
    PatLength,
    FireLength
};

struct OptionsRefusal {
    OptionsField field = OptionsField::None;
    QString message;
    bool clearField = false;
};

// Checks in the screen's order; an empty message lets the save go ahead. Dates are read in
// the session's regional profile. A tax rate, or the length beside a date, that is typed but
// cannot be read as a number is refused by its field's name rather than stored as 0.
OptionsRefusal checkOptions(const OptionsInput& input);

// The options row as it is in the database now, as the screen shows it (for a reload after
// another user's change); the session's values when the table has no row.
OptionsInput readOptions(core::Db& db);

// The single options row as a save must find it unchanged; empty while the table has none.
core::LoadedRow loadedOptionsRow(core::Db& db);

// Writes the options row (adding it when the table is empty) and updates the session's
// copies: all at once, in one transaction. A cleared date is stored as NULL with a NULL
// length, which turns its reminder off; a blank tax rate is 0. The backup interval counts
// from the next login. When the row differs from loaded (another user saved options since
// the screen opened) nothing is written and core::RowChanged is thrown.
void saveOptions(core::Db& db, const OptionsInput& input,
                 const core::LoadedRow& loaded = core::LoadedRow());

// True for text the boxes accept as a number: an optional sign, digits, one point.
bool isNumber(const QString& text);

} // namespace admin
