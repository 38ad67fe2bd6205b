#pragma once

#include "spreadsheet.h"
#include "statement.h"

namespace pettycash {

// The statement as the petty cash template takes it: from row 3, one row per list row, the
// date in column B, the purpose in C, cash in and out in D and E, the balance in F; money as
// numbers. The closing row gives only its date and, in a red font, its balance.
inline constexpr int FirstRow = 3;
reports::Sheet statementSheet(const Statement& statement);

} // namespace pettycash
