#include "employee_lists.h"

#include "messagebox.h"
#include "regional.h"
#include "routines.h"

#include <QSqlRecord>

namespace personnel {

namespace {

using core::Db;

QVariant dateValue(const QDate& d) {
    return Db::dateOrNull(d);
}

// Both backends put rows without a date after the dated ones, newest or oldest first alike,
// and rows of one date in the order they were added.
QString newestFirst(const QString& dateColumn, const QString& key) {
    return QStringLiteral("ORDER BY CASE WHEN %1 IS NULL THEN 1 ELSE 0 END, %1 DESC, %2")
        .arg(dateColumn, key);
}

QString oldestFirst(const QString& dateColumn, const QString& key) {
    return QStringLiteral("ORDER BY CASE WHEN %1 IS NULL THEN 1 ELSE 0 END, %1, %2")
        .arg(dateColumn, key);
}

ListRows listRows(core::Db& db, const QString& sql, qint64 personId, const char* key,
                  const char* dateColumn, std::initializer_list<const char*> textColumns) {
    ListRows out;
    for (const QSqlRecord& r : db.rows(sql, {personId})) {
        ListRow row;
        row.id = Db::toId(r.value(key));
        row.date = Db::toDate(r.value(dateColumn));
        row.cells << core::formatDate(row.date);
        for (const char* c : textColumns)
            row.cells << Db::text(r.value(c));
        out.push_back(std::move(row));
    }
    return out;
}

DialogCheck refuse(const QString& message) {
    return {false, false, message};
}

DialogCheck refuseDateFormat() {
    return {false, true, {}};
}

const QString FutureDate = QStringLiteral("You cannot enter a date in the future");

} // namespace

ListRows noteRows(core::Db& db, qint64 personId) {
    return listRows(db,
                    "SELECT Note_ID, Date, Description FROM Notes WHERE person_id = ? " +
                        newestFirst("Date", "Note_ID"),
                    personId, "Note_ID", "Date", {"Description"});
}

ListRows reprimandRows(core::Db& db, qint64 personId) {
    return listRows(db,
                    "SELECT Reprimand_ID, Date, Action, reason, notes FROM Reprimands "
                    "WHERE person_id = ? " +
                        newestFirst("Date", "Reprimand_ID"),
                    personId, "Reprimand_ID", "Date", {"Action", "reason", "notes"});
}

ListRows appraisalRows(core::Db& db, qint64 personId) {
    return listRows(db,
                    "SELECT Appraisal_ID, ADate, Manager, Rating, notes FROM Appraisal "
                    "WHERE person_id = ? " +
                        newestFirst("ADate", "Appraisal_ID"),
                    personId, "Appraisal_ID", "ADate", {"Manager", "Rating", "notes"});
}

ListRows documentRows(core::Db& db, qint64 personId) {
    ListRows rows = listRows(db,
                             "SELECT document_id, Date, Title, notes, Document FROM Document "
                             "WHERE person_id = ? " +
                                 oldestFirst("Date", "document_id"),
                             personId, "document_id", "Date", {"Title", "notes", "Document"});
    for (ListRow& r : rows)
        r.path = r.cells.last();
    return rows;
}

qint64 addNote(core::Db& db, qint64 personId, const NoteFields& f) {
    return db.insert("Notes", "Note_ID",
                     {{"person_id", personId},
                      {"Date", dateValue(f.date)},
                      {"Description", f.description.trimmed()}});
}

void updateNote(core::Db& db, qint64 noteId, const NoteFields& f, const core::LoadedRow& loaded) {
    core::updateLoaded(db, loaded, "Notes", "Note_ID", noteId,
                       {{"Date", dateValue(f.date)}, {"Description", f.description.trimmed()}});
}

void deleteNote(core::Db& db, qint64 noteId) {
    db.remove("Notes", "Note_ID", noteId);
}

qint64 addReprimand(core::Db& db, qint64 personId, const ReprimandFields& f) {
    return db.insert("Reprimands", "Reprimand_ID",
                     {{"person_id", personId},
                      {"Date", dateValue(f.date)},
                      {"Action", f.action.trimmed()},
                      {"reason", f.reason.trimmed()},
                      {"notes", f.notes.trimmed()}});
}

void updateReprimand(core::Db& db, qint64 reprimandId, const ReprimandFields& f,
                     const core::LoadedRow& loaded) {
    core::updateLoaded(db, loaded, "Reprimands", "Reprimand_ID", reprimandId,
                       {{"Date", dateValue(f.date)},
                        {"Action", f.action.trimmed()},
                        {"reason", f.reason.trimmed()},
                        {"notes", f.notes.trimmed()}});
}

void deleteReprimand(core::Db& db, qint64 reprimandId) {
    db.remove("Reprimands", "Reprimand_ID", reprimandId);
}

qint64 addAppraisal(core::Db& db, qint64 personId, const AppraisalFields& f) {
    return db.insert("Appraisal", "Appraisal_ID",
                     {{"person_id", personId},
                      {"ADate", dateValue(f.date)},
                      {"Manager", f.manager.trimmed()},
                      {"Rating", f.rating.trimmed()},
                      {"notes", f.notes.trimmed()}});
}

void updateAppraisal(core::Db& db, qint64 appraisalId, const AppraisalFields& f,
                     const core::LoadedRow& loaded) {
    core::updateLoaded(db, loaded, "Appraisal", "Appraisal_ID", appraisalId,
                       {{"ADate", dateValue(f.date)},
                        {"Manager", f.manager.trimmed()},
                        {"Rating", f.rating.trimmed()},
                        {"notes", f.notes.trimmed()}});
}

void deleteAppraisal(core::Db& db, qint64 appraisalId) {
    db.remove("Appraisal", "Appraisal_ID", appraisalId);
}

qint64 attachDocument(core::Db& db, qint64 personId, const DocumentFields& f, const QDate& today) {
    return db.insert("Document", "document_id",
                     {{"Date", dateValue(today)},
                      {"Title", f.title.trimmed()},
                      {"person_id", personId},
                      {"notes", f.notes.trimmed()},
                      {"Document", f.path.trimmed()}});
}

DocumentFields loadDocument(core::Db& db, qint64 documentId) {
    const auto r =
        db.row("SELECT Title, Document, notes FROM Document WHERE document_id = ?", {documentId});
    if (!r) return {};
    return {Db::text(r->value("Title")), Db::text(r->value("Document")),
            Db::text(r->value("notes"))};
}

void updateDocument(core::Db& db, qint64 documentId, const DocumentFields& f,
                    const core::LoadedRow& loaded) {
    core::updateLoaded(db, loaded, "Document", "document_id", documentId,
                       {{"Title", f.title.trimmed()},
                        {"Document", f.path.trimmed()},
                        {"notes", f.notes.trimmed()}});
}

void detachDocument(core::Db& db, qint64 documentId) {
    db.remove("Document", "document_id", documentId);
}

bool hasCurrentLineManagers(core::Db& db) {
    return db
        .row("SELECT Person_ID FROM Person "
             "WHERE blndeleted <> 1 AND HasLeft = 0 AND IsManager = 1")
        .has_value();
}

QString noLineManagersMessage() {
    return QStringLiteral("There are currently no line managers assigned. This should be done "
                          "before an appraisal can be added. See help for details.");
}

ComboEntries appraisalManagerEntries(core::Db& db) {
    ComboEntries out;
    for (const QSqlRecord& r : db.rows("SELECT Person_ID, surname, firstnames FROM Person "
                                       "WHERE IsManager = 1 ORDER BY surname"))
        out.push_back({managerName(Db::text(r.value("surname")), Db::text(r.value("firstnames"))),
                       Db::toId(r.value("Person_ID"))});
    return out;
}

bool acceptOrExplain(const DialogCheck& check) {
    if (check.ok) return true;
    if (check.dateFormat)
        core::showdateformat();
    else if (!check.message.isEmpty())
        core::msgbox(check.message);
    return false;
}

DialogCheck checkNote(const QString& dateText, const QString& notesText) {
    if (dateText.trimmed().isEmpty() || notesText.trimmed().isEmpty()) return refuse({});
    if (!core::isDate(dateText)) return refuseDateFormat();
    return {true, false, {}};
}

DialogCheck checkReprimand(const QString& dateText, const QString& actionText, const QDate& today) {
    if (dateText.trimmed().isEmpty() || actionText.trimmed().isEmpty())
        return refuse(QStringLiteral("You must enter a minimum of a date and action"));
    const QDate date = core::parseDate(dateText);
    if (!date.isValid()) return refuseDateFormat();
    if (date > today) return refuse(FutureDate);
    return {true, false, {}};
}

DialogCheck checkAppraisal(const QString& dateText, const QString& managerText,
                           const QDate& today) {
    if (!core::isdateorblank(dateText)) return refuseDateFormat();
    if (dateText.trimmed().isEmpty() || managerText.trimmed().isEmpty())
        return refuse(QStringLiteral("Please enter a date and Appraiser"));
    if (core::parseDate(dateText) > today) return refuse(FutureDate);
    return {true, false, {}};
}

DialogCheck checkDocument(const QString& description, const QString& location) {
    if (description.trimmed().isEmpty() || location.trimmed().isEmpty())
        return refuse(QStringLiteral("Please enter a description"));
    return {true, false, {}};
}

QString joinDocumentPath(const QString& folder, const QString& file) {
    if (folder.endsWith('/') || folder.endsWith('\\')) return folder + file;
    return folder + '/' + file;
}

QString missingDocumentMessage(const QString& path) {
    return QStringLiteral("Cannot find the specified document at location %1. Please check and "
                          "try again.")
        .arg(path);
}

} // namespace personnel
