#include "options.h"

#include "regional.h"
#include "session.h"
#include "typedfields.h"

#include <QRegularExpression>

namespace admin {

using core::Db;

namespace {

// The integer columns of the options row.
constexpr core::NumericColumn IntegerColumn{9, 0};

const char* const RateField = "Basic rate tax";
const char* const PatLengthField = "the months the PAT test is valid for";
const char* const FireLengthField = "the months the fire extinguisher test is valid for";

// A number the integer columns can hold; fractions are cut as the columns always have.
std::optional<int> wholeNumber(const QString& text) {
    if (!isNumber(text)) return std::nullopt;
    bool ok = false;
    const double d = text.trimmed().toDouble(&ok);
    if (!ok || d > 32767 || d < -32768) return std::nullopt;
    return int(d);
}

// A number as people type it ("12", "1,000"), rounded to a whole one; 0 when blank.
// Unreadable text is left for the caller's check to refuse.
std::optional<int> typedInteger(core::TypedFields& typed, const QString& field,
                                const QString& text) {
    if (text.trimmed().isEmpty()) return 0;
    const std::optional<core::Money> m = typed.number(field, text, IntegerColumn);
    if (!m) return std::nullopt;
    return int(m->units() / core::Money::Scale);
}

// A length goes with its date: none without one.
QVariant lengthFor(const QDate& date, const QString& field, const QString& length) {
    if (!date.isValid()) return QVariant(QMetaType::fromType<int>());
    core::TypedFields typed;
    return typedInteger(typed, field, length).value_or(0);
}

QString dateText(const QDate& d) {
    return d.isValid() ? core::formatDate(d) : QString();
}

QString lengthText(const QDate& d, int length) {
    return d.isValid() && length != 0 ? QString::number(length) : QString();
}

} // namespace

bool isNumber(const QString& text) {
    static const QRegularExpression number(QStringLiteral("^[+-]?(\\d+\\.?\\d*|\\.\\d+)$"));
    return number.match(text.trimmed()).hasMatch();
}

OptionsRefusal checkOptions(const OptionsInput& in) {
    if (!wholeNumber(in.daysBackup))
        return {OptionsField::DaysBackup,
                QStringLiteral("Please enter a number in the Backup notification box"), false};
    if (!wholeNumber(in.daysAbsence))
        return {OptionsField::DaysAbsence,
                QStringLiteral("Please enter a number in the days absent notification box only"),
                true};
    // A date that cannot be read is refused rather than dropped.
    if (!in.patTest.trimmed().isEmpty() && !core::isDate(in.patTest))
        return {OptionsField::PatTest, {}, false};
    if (!in.fireTest.trimmed().isEmpty() && !core::isDate(in.fireTest))
        return {OptionsField::FireTest, {}, false};
    // Typed but unreadable: refused by name rather than stored as 0 in silence.
    core::TypedFields typed;
    if (!typedInteger(typed, RateField, in.baseRate))
        return {OptionsField::BaseRate, typed.message(), false};
    if (!in.patTest.trimmed().isEmpty() && !typedInteger(typed, PatLengthField, in.patLength))
        return {OptionsField::PatLength, typed.message(), false};
    if (!in.fireTest.trimmed().isEmpty() && !typedInteger(typed, FireLengthField, in.fireLength))
        return {OptionsField::FireLength, typed.message(), false};
    return {};
}

OptionsInput readOptions(Db& db) {
    const auto& s = core::session();
    const std::optional<QSqlRecord> row = db.row("SELECT * FROM options");
    if (!row)
        return {QString::number(s.NoDaysAbsence),
                QString::number(s.baserate),
                dateText(s.pattest),
                lengthText(s.pattest, s.patlength),
                dateText(s.fireexttest),
                lengthText(s.fireexttest, s.firelength),
                QString::number(s.nodaysbackup),
                s.language};
    const auto number = [&](const char* column) {
        return QString::number(row->value(column).toInt());
    };
    const QDate pat = Db::toDate(row->value("pattest"));
    const QDate fire = Db::toDate(row->value("fireexttest"));
    return {number("NoDaysAbsence"), number("baserate"),
            dateText(pat),           lengthText(pat, row->value("patlength").toInt()),
            dateText(fire),          lengthText(fire, row->value("firelength").toInt()),
            number("nodaysbackup"),  Db::text(row->value("language")).trimmed()};
}

core::LoadedRow loadedOptionsRow(Db& db) {
    // The table holds one row and has no key: the condition 1 = 1 finds it.
    return core::LoadedRow::read(db, "options", "1", 1);
}

void saveOptions(Db& db, const OptionsInput& in, const core::LoadedRow& loaded) {
    auto& s = core::session();
    const int absence = wholeNumber(in.daysAbsence).value_or(0);
    core::TypedFields typed;
    const int rate = typedInteger(typed, RateField, in.baseRate).value_or(0);
    const int backup = wholeNumber(in.daysBackup).value_or(0);
    const QDate pat = core::parseDate(in.patTest.trimmed());
    const QDate fire = core::parseDate(in.fireTest.trimmed());
    const QVariant patLength = lengthFor(pat, PatLengthField, in.patLength);
    const QVariant fireLength = lengthFor(fire, FireLengthField, in.fireLength);
    const QString language = in.language.trimmed();
    const bool newLanguage = !language.isEmpty() && language != s.language;

    core::Transaction t(db);
    loaded.verify(db);
    const bool added = !db.row("SELECT 1 FROM options");
    if (added) db.exec("INSERT INTO options (nodaysbackup) VALUES (0)");
    db.exec(
        "UPDATE options SET NoDaysAbsence = ?, baserate = ?, pattest = ?, patlength = ?, "
        "fireexttest = ?, firelength = ?, nodaysbackup = ?",
        {absence, rate, Db::dateOrNull(pat), patLength, Db::dateOrNull(fire), fireLength, backup});
    // A row of its own gets the language shown, or the next login would have none.
    if (newLanguage || (added && !language.isEmpty()))
        db.exec("UPDATE options SET language = ?", {language});
    t.commit();

    s.NoDaysAbsence = absence;
    s.baserate = rate;
    s.pattest = pat;
    s.patlength = patLength.toInt();
    s.fireexttest = fire;
    s.firelength = fireLength.toInt();
    if (newLanguage) s.language = language;
}

} // namespace admin
