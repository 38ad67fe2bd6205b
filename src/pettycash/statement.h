#pragma once

#include "db.h"
#include "ledger.h"
#include "money.h"

#include <QString>
#include <QStringList>
#include <vector>

// The monthly petty cash statement: the balance brought forward, the month's entries, and the
// balance carried at the month's end.
namespace pettycash {

// "January" ... "December".
const QStringList& monthNames();
// 1-12 for a month's name (case and surrounding blanks ignored), 0 for anything else.
int monthNumber(const QString& name);

struct StatementRow {
    QString date;    // the opening and closing rows only
    QString purpose; // the entry's reason
    QString cashIn;  // "£20"
    QString cashOut; // "£4.5"
    QString balance; // the opening and closing rows only: "£15.5"
    // The figures behind the texts, for a spreadsheet.
    std::optional<core::Money> in;
    std::optional<core::Money> out;
    std::optional<core::Money> balanceValue;
};

struct Statement {
    core::Money opening;
    core::Money closing;
    // The opening row, one row per entry in date order, the closing row.
    std::vector<StatementRow> rows;
};

// Lays out a month: the opening row on the last day of the month before (31 December of the
// year before for January), the entries as given, the closing row on the month's last day.
// Dates in the profile's format; money with the profile's currency sign.
Statement buildStatement(int year, int month, core::Money opening,
                         const std::vector<Entry>& monthEntries, const QString& language);

// The year of the ledger's earliest entry; nullopt for an empty ledger.
std::optional<int> firstYear(core::Db& db);

// The statement of one month of the ledger: the opening balance is the sum of everything
// before the month's first day, the rows are the month's entries.
Statement monthStatement(core::Db& db, int year, int month, const QString& language);

} // namespace pettycash
