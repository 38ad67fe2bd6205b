#include "employee_search.h"

#include "regional.h"

#include <QStringList>

using core::Db;

namespace personnel {

namespace {

const QString Columns = QStringLiteral("SELECT Person_ID, Surname, Firstnames, %1 FROM Person");

// The query is walked by position: a list of ten thousand rows is read without a name lookup
// per cell.
FoundPeople run(core::Db& db, const QString& sql, const core::Params& params = {}) {
    QSqlQuery q = db.query(sql, params);
    FoundPeople out;
    while (q.next())
        out.push_back({Db::toId(q.value(0)), Db::text(q.value(1)), Db::text(q.value(2)),
                       Db::toDate(q.value(3))});
    return out;
}

FoundPeople select(core::Db& db, const QStringList& conditions, const QString& order,
                   const core::Params& params) {
    QString sql = Columns.arg("DOB") + " WHERE " + conditions.join(" AND ");
    if (!order.isEmpty()) sql += " ORDER BY " + order;
    return run(db, sql, params);
}

// Typed wildcards keep their meaning, as they always had; a backslash is an ordinary
// character on both backends (PostgreSQL would otherwise take it as its escape).
QString likeCondition(const QString& column) {
    return Db::ciLike(column) + " ESCAPE '\\'";
}
QString literalBackslashes(QString text) {
    return text.replace('\\', QStringLiteral("\\\\"));
}

} // namespace

FoundPeople searchGeneral(core::Db& db, const QString& number, const QString& surname,
                          bool includeLeavers) {
    QStringList where;
    core::Params params;
    if (!includeLeavers) where << "HasLeft = 0";
    if (!number.isEmpty()) {
        bool ok = false;
        const qint64 id = number.toLongLong(&ok);
        if (!ok) return {};
        where << "Person_ID = ?";
        params << id;
    }
    if (!surname.isEmpty()) {
        where << likeCondition("Surname");
        const QString typed = literalBackslashes(surname);
        params << (number.isEmpty() ? typed + "%" : "%" + typed + "%");
    }
    where << "blndeleted <> 1";
    // One employee by number needs no order; the lists do.
    const bool byNumberAndName = !number.isEmpty() && !surname.isEmpty();
    return select(db, where, byNumberAndName ? QString() : "surname, firstnames", params);
}

FoundPeople searchByDate(core::Db& db, const QDate& from, const QDate& to, DateOption option,
                         bool includeLeavers) {
    QStringList where;
    // With leavers included, "Left" still searches by start date: a settled asymmetry.
    const bool byFinish = !includeLeavers && option == DateOption::Left;
    if (!includeLeavers) where << (byFinish ? "HasLeft = 1" : "HasLeft = 0");
    const QString column = byFinish ? "FinishDate" : "StartDate";
    where << column + " >= ?" << column + " <= ?"
          << "blndeleted <> 1";
    return select(db, where, {}, {from, to});
}

DateRange readDateRange(const QString& fromText, const QString& toText) {
    if (fromText.isEmpty() || toText.isEmpty()) return {DateEntry::Missing, {}, {}};
    const QDate from = core::parseDate(fromText);
    const QDate to = core::parseDate(toText);
    if (!from.isValid() || !to.isValid()) return {DateEntry::NotADate, {}, {}};
    return {DateEntry::Ok, from, to};
}

QString missingDatesMessage() {
    return QStringLiteral("Please enter a start and finish date");
}

FoundPeople searchByPost(core::Db& db, std::optional<qint64> positionId,
                         std::optional<qint64> locationId) {
    QStringList where;
    core::Params params;
    if (positionId) {
        where << "Position_ID = ?";
        params << *positionId;
    }
    if (locationId) {
        where << "Location_ID = ?";
        params << *locationId;
    }
    if (where.isEmpty()) return {};
    where << "blndeleted <> 1";
    return select(db, where, "surname", params);
}

FoundPeople searchByManager(core::Db& db, const QString& manager,
                            std::optional<qint64> departmentId) {
    QStringList where;
    core::Params params;
    if (!manager.isEmpty()) {
        where << Db::ciEquals("Line_Manager");
        params << manager;
    }
    if (departmentId) {
        where << "Department_ID = ?";
        params << *departmentId;
    }
    if (where.isEmpty()) return {};
    // The search on the manager alone has always listed deleted employees as well.
    const bool managerAlone = !manager.isEmpty() && !departmentId;
    if (!managerAlone) where << "blndeleted <> 1";
    // An employee still being entered on someone's screen is no employee yet.
    where << "provisional_since IS NULL";
    return select(db, where, "surname", params);
}

FoundPeople allEmployees(core::Db& db) {
    return run(db, Columns.arg("DOB") + " WHERE blndeleted <> 1 ORDER BY surname, firstnames");
}

FoundPeople firstAiders(core::Db& db) {
    return run(db, Columns.arg("firstaiderdate") +
                       " WHERE firstaider = 1 AND blndeleted <> 1 AND HasLeft = 0");
}

QString deleteQuestion(const QString& firstnames, const QString& surname) {
    return QStringLiteral("Are you sure you want to permanently delete %1 %2")
        .arg(firstnames, surname);
}

QString firstAiderWarning() {
    return QStringLiteral(
        "Warning, This employee is a first aider. Please ensure that there is a replacement");
}

bool isFirstAider(core::Db& db, qint64 personId) {
    return db.scalar("SELECT firstaider FROM Person WHERE Person_ID = ?", {personId}).toInt() == 1;
}

void deleteEmployee(core::Db& db, qint64 personId) {
    core::Transaction t(db);
    // The computers stay in the register, without an owner.
    db.exec("UPDATE Computers SET person_id = NULL WHERE person_id = ?", {personId});
    // The row itself stays for good: its history still points at it.
    if (db.exec("UPDATE Person SET blndeleted = 1, Company_ID = NULL WHERE Person_ID = ?",
                {personId}) == 0)
        throw core::DbError(
            core::DbErrorKind::Other,
            QStringLiteral("There is no employee with the number %1").arg(personId));
    t.commit();
}

} // namespace personnel
