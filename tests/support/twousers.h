#pragma once

#include "db.h"
#include "seams.h"
#include "testdb.h"

#include <QString>
#include <QVariant>
#include <memory>

namespace testsupport {

// A row that two users edit at once, read back by its key to see whose typing was kept.
struct StoredRow {
    QString table;
    QString key;
    qint64 id = 0;

    // The column's value now; null when the row has gone.
    QVariant value(core::Db& db, const QString& column) const;
    // How many rows the table holds.
    int rowsInTable(core::Db& db) const;
};

// A fresh database that user A reaches through the session connection and user B through a
// connection of their own, with A's message boxes recorded (and answered as scripted).
struct TwoUsers {
    TestDatabase fixture;
    core::Db& db = fixture.db();
    std::unique_ptr<core::Db> userB = fixture.openSecond("user-b");
    MessageRecorder boxes;

    // The first box A saw refused the save over B's change or delete of the `noun`.
    bool refusedAsChanged(const QString& noun) const;
    QString firstBox() const { return boxes.calls().value(0).text; }
};

} // namespace testsupport
