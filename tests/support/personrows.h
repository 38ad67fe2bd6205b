#pragma once

#include "db.h"

#include <QStringList>

namespace testsupport {

// A Person row with every column the employee screen edits set (the title keeps a trailing
// blank, as titles are stored as typed), to be written straight into the table.
core::Fields fullPersonRow(qint64 company, qint64 department, qint64 position, qint64 location);

// Every column of a Person row as "name=value", NULL told apart from "", numbers compared as
// numbers ("37.5000" is 37.5).
QStringList personSnapshot(core::Db& db, qint64 personId);

} // namespace testsupport
