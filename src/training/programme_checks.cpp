#include "programme_checks.h"

#include "regional.h"
#include "typedfields.h"

namespace training {

QString checkProgramme(const ProgrammeText& p) {
    const QDate start = core::parseDate(p.start);
    const QDate end = core::parseDate(p.end);
    if (!start.isValid() || !end.isValid() || p.courseTitle.trimmed().isEmpty() ||
        p.courseId <= 0 || p.time.trimmed().isEmpty())
        return QStringLiteral("Please enter a Course startdate, enddate, time and Title");
    if (start > end) return QStringLiteral("Please ensure startdate is earlier than enddate");
    return unreadableValue(p);
}

QString unreadableValue(const ProgrammeText& p) {
    core::TypedFields fields;
    fields.time(QStringLiteral("Time"), p.time);
    fields.money(QStringLiteral("Price"), p.price);
    return fields.message();
}

} // namespace training
