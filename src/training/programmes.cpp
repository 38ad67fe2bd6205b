#include "programmes.h"

#include "regional.h"
#include "typedfields.h"

#include <QSqlRecord>

namespace training {

namespace {

using core::Db;
using core::Money;

QVariant dateOrNull(const QString& text) {
    return Db::dateOrNull(core::parseDate(text));
}

// The checks have refused a price that cannot be read; this one is blank or a figure.
std::optional<QVariant> priceValue(const QString& text) {
    if (const auto m = Money::parseTyped(text)) return core::MoneyColumn.fit(*m).toVariant();
    return std::nullopt;
}

// A stored price as a box shows it: no trailing zeros, "" for none.
QString priceText(const QVariant& v) {
    if (v.isNull() || !v.isValid()) return {};
    return core::plainNumber(Money::fromVariant(v));
}

// Text columns hold "" rather than NULL for a box left empty (an empty box reads as a null
// string, which would bind as NULL).
QString stored(const QString& text) {
    const QString t = text.trimmed();
    return t.isNull() ? QStringLiteral("") : t;
}

QVariant courseValue(qint64 courseId) {
    return courseId > 0 ? QVariant(courseId) : QVariant(QMetaType::fromType<qint64>());
}

Entries personEntries(core::Db& db, const QString& sql, const core::Params& params = {}) {
    Entries out;
    for (const QSqlRecord& r : db.rows(sql, params)) {
        const qint64 id = Db::toId(r.value("Person_ID"));
        out.push_back(
            {personEntry(id, Db::text(r.value("Surname")), Db::text(r.value("FirstNames"))), id});
    }
    return out;
}

} // namespace

QString personEntry(qint64 personId, const QString& surname, const QString& firstnames) {
    return QStringLiteral("%1 - %2, %3").arg(personId).arg(surname, firstnames);
}

Entries courseEntries(core::Db& db) {
    Entries out;
    for (const QSqlRecord& r :
         db.rows("SELECT Course_ID, Title FROM Courses ORDER BY Title, Course_ID"))
        out.push_back({Db::text(r.value("Title")), Db::toId(r.value("Course_ID"))});
    return out;
}

Entries bookableEmployees(core::Db& db) {
    return personEntries(db, "SELECT Person_ID, Surname, FirstNames FROM Person "
                             "WHERE HasLeft = 0 AND blndeleted <> 1 "
                             "ORDER BY Surname, FirstNames, Person_ID");
}

Entries everyEmployee(core::Db& db) {
    return personEntries(db, "SELECT Person_ID, Surname, FirstNames FROM Person "
                             "ORDER BY Surname, FirstNames, Person_ID");
}

qint64 addCourse(core::Db& db, const QString& title) {
    return db.insert("Courses", "Course_ID", {{"Title", title.trimmed()}});
}

qint64 saveNewProgramme(core::Db& db, const ProgrammeText& p) {
    return db.insert("Training", "Training_ID",
                     {{"TDate", dateOrNull(p.start.trimmed())},
                      {"TTime", stored(p.time)},
                      {"Course_ID", courseValue(p.courseId)},
                      {"Location", stored(p.location)},
                      {"Instructor", stored(p.instructor)},
                      {"Description", stored(p.description)},
                      {"Edate", dateOrNull(p.end.trimmed())},
                      {"Price", priceValue(p.price.trimmed()).value_or(QVariant())}});
}

core::LoadedRow loadedProgrammeRow(core::Db& db, qint64 trainingId) {
    return core::LoadedRow::read(db, "Training", "Training_ID", trainingId);
}

void updateProgramme(core::Db& db, qint64 trainingId, const ProgrammeText& p,
                     const core::LoadedRow& loaded) {
    core::Fields fields{
        {"TDate", dateOrNull(p.start.trimmed())}, {"TTime", stored(p.time)},
        {"Course_ID", courseValue(p.courseId)},   {"Location", stored(p.location)},
        {"Instructor", stored(p.instructor)},     {"Description", stored(p.description)}};
    if (const QDate end = core::parseDate(p.end); end.isValid()) fields.push_back({"Edate", end});
    if (const auto price = priceValue(p.price)) fields.push_back({"Price", *price});
    core::Transaction t(db);
    loaded.verify(db);
    db.update("Training", "Training_ID", trainingId, fields);
    t.commit();
}

std::optional<Programme> loadProgramme(core::Db& db, qint64 trainingId) {
    const auto r = db.row("SELECT t.TDate, t.Edate, t.TTime, t.Course_ID, c.Title, t.Location, "
                          "t.Instructor, t.Description, t.Price FROM Training t "
                          "INNER JOIN Courses c ON t.Course_ID = c.Course_ID "
                          "WHERE t.Training_ID = ?",
                          {trainingId});
    if (!r) return std::nullopt;
    Programme p;
    p.start = Db::toDate(r->value("TDate"));
    p.end = Db::toDate(r->value("Edate"));
    p.time = Db::text(r->value("TTime")).trimmed();
    p.courseId = Db::toId(r->value("Course_ID"));
    p.title = Db::text(r->value("Title")).trimmed();
    p.location = Db::text(r->value("Location")).trimmed();
    p.instructor = Db::text(r->value("Instructor")).trimmed();
    p.description = Db::text(r->value("Description")).trimmed();
    p.price = priceText(r->value("Price"));
    return p;
}

Entries bookedEmployees(core::Db& db, qint64 trainingId) {
    return personEntries(db,
                         "SELECT p.Person_ID, p.Surname, p.FirstNames FROM PersonTraining pt "
                         "INNER JOIN Person p ON pt.person_id = p.Person_ID "
                         "WHERE pt.Training_ID = ? ORDER BY p.Surname, p.FirstNames, p.Person_ID",
                         {trainingId});
}

std::vector<ProgrammeRow> programmeRows(core::Db& db) {
    std::vector<ProgrammeRow> out;
    // Programmes without a start date go last, as they always have.
    const auto rows = db.rows("SELECT t.Training_ID, c.Title, t.TDate, t.TTime, t.Location, "
                              "t.Instructor FROM Training t "
                              "INNER JOIN Courses c ON t.Course_ID = c.Course_ID "
                              "WHERE t.BlnDeleted <> 1 "
                              "ORDER BY CASE WHEN t.TDate IS NULL THEN 1 ELSE 0 END, t.TDate DESC, "
                              "t.Training_ID DESC");
    out.reserve(rows.size());
    for (const QSqlRecord& r : rows) {
        const QDate start = Db::toDate(r.value("TDate"));
        out.push_back(
            {Db::toId(r.value("Training_ID")),
             {Db::text(r.value("Title")).trimmed(),
              start.isValid() ? core::formatDate(start) : QString(), Db::text(r.value("TTime")),
              Db::text(r.value("Location")), Db::text(r.value("Instructor"))}});
    }
    return out;
}

void deleteProgramme(core::Db& db, qint64 trainingId) {
    db.update("Training", "Training_ID", trainingId, {{"BlnDeleted", 1}});
}

} // namespace training
