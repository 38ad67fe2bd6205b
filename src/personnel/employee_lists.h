#pragma once

#include "db.h"
#include "loadedrow.h"
#include "person_record.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <vector>

// The four simple dated lists of an employee: notes, reprimands, appraisals and documents.
// Each command writes to its table at once.
namespace personnel {

// One list row: its key, the date it carries and the cells shown (dates in the session's
// profile, "" when the column is no date). Documents carry their file's path apart.
struct ListRow {
    qint64 id = 0;
    QDate date;
    QStringList cells;
    QString path;
};
using ListRows = std::vector<ListRow>;

// Newest first: "Date", "Notes".
ListRows noteRows(core::Db& db, qint64 personId);
// Newest first: "Date", "Action", "Reason", "Notes".
ListRows reprimandRows(core::Db& db, qint64 personId);
// Newest first: "Date", "Manager", "Rating", "Notes".
ListRows appraisalRows(core::Db& db, qint64 personId);
// Oldest first: "Date", "Title", "Notes", "location".
ListRows documentRows(core::Db& db, qint64 personId);

// The dialogs' fields; texts are stored trimmed.
struct NoteFields {
    QDate date;
    QString description;
};
struct ReprimandFields {
    QDate date;
    QString action;
    QString reason;
    QString notes;
};
struct AppraisalFields {
    QDate date;
    QString manager;
    QString rating;
    QString notes;
};
struct DocumentFields {
    QString title;
    QString path;
    QString notes;
};

qint64 addNote(core::Db& db, qint64 personId, const NoteFields& fields);
void updateNote(core::Db& db, qint64 noteId, const NoteFields& fields,
                const core::LoadedRow& loaded = {});
void deleteNote(core::Db& db, qint64 noteId);

qint64 addReprimand(core::Db& db, qint64 personId, const ReprimandFields& fields);
void updateReprimand(core::Db& db, qint64 reprimandId, const ReprimandFields& fields,
                     const core::LoadedRow& loaded = {});
void deleteReprimand(core::Db& db, qint64 reprimandId);

qint64 addAppraisal(core::Db& db, qint64 personId, const AppraisalFields& fields);
void updateAppraisal(core::Db& db, qint64 appraisalId, const AppraisalFields& fields,
                     const core::LoadedRow& loaded = {});
void deleteAppraisal(core::Db& db, qint64 appraisalId);

// A document is dated the day it is attached; editing keeps that date. Detaching removes the
// row only, never the file.
qint64 attachDocument(core::Db& db, qint64 personId, const DocumentFields& fields,
                      const QDate& today);
DocumentFields loadDocument(core::Db& db, qint64 documentId);
void updateDocument(core::Db& db, qint64 documentId, const DocumentFields& fields,
                    const core::LoadedRow& loaded = {});
void detachDocument(core::Db& db, qint64 documentId);

// Appraisals need a current line manager on file before their dialog opens.
bool hasCurrentLineManagers(core::Db& db);
QString noLineManagersMessage(); // shown with the title "Quillorne"
// The appraisal dialog's managers, leavers and deleted ones included.
ComboEntries appraisalManagerEntries(core::Db& db);

// What a dialog's OK decides. Not ok: show the message when there is one, or the date format
// message of the profile (core::showdateformat) when dateFormat is set; the dialog stays.
struct DialogCheck {
    bool ok = false;
    bool dateFormat = false;
    QString message;
};
// Shows why a dialog's OK was refused (the date-format message, or the refusal's own text when
// it has one) and answers whether the dialog may close.
bool acceptOrExplain(const DialogCheck& check);
DialogCheck checkNote(const QString& dateText, const QString& notesText);
DialogCheck checkReprimand(const QString& dateText, const QString& actionText, const QDate& today);
DialogCheck checkAppraisal(const QString& dateText, const QString& managerText, const QDate& today);
DialogCheck checkDocument(const QString& description, const QString& location);

// The picked folder and file as one path: joined as they are when the folder already ends in
// a separator, with one put between otherwise.
QString joinDocumentPath(const QString& folder, const QString& file);
QString missingDocumentMessage(const QString& path);

} // namespace personnel
