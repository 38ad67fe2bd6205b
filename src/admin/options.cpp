#include "options.h"

#include "regional.h"
#include "session.h"

#include <QRegularExpression>

namespace admin {

using core::Db;

namespace {

// A number the integer columns can hold; fractions are cut as the columns always have.
std::optional<int> wholeNumber(const QString& text) {
    if (!isNumber(text)) return std::nullopt;
    bool ok = false;
    const double d = text.trimmed().toDouble(&ok);
    if (!ok || d > 32767 || d < -32768) return std::nullopt;
    return int(d);
}

// A length goes with its date: none without one.
QVariant lengthFor(const QDate& date, const QString& length) {
    if (!date.isValid()) return QVariant(QMetaType::fromType<int>());
    return wholeNumber(length).value_or(0);
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
    return {};
}

void saveOptions(Db& db, const OptionsInput& in) {
    auto& s = core::session();
    const int absence = wholeNumber(in.daysAbsence).value_or(0);
    const int rate = wholeNumber(in.baseRate).value_or(0);
    const int backup = wholeNumber(in.daysBackup).value_or(0);
    const QDate pat = core::parseDate(in.patTest.trimmed());
    const QDate fire = core::parseDate(in.fireTest.trimmed());
    const QVariant patLength = lengthFor(pat, in.patLength);
    const QVariant fireLength = lengthFor(fire, in.fireLength);
    const QString language = in.language.trimmed();
    const bool newLanguage = !language.isEmpty() && language != s.language;

    core::Transaction t(db);
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
