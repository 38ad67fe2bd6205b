#include "routines.h"

#include "regional.h"

namespace core {

Money roundcurrency(Money value) {
    return value.rounded(2);
}

bool isdateorblank(const QString& text) {
    return text.trimmed().isEmpty() || isDate(text);
}

bool isnumerickey(int key) {
    return key == 8 || key == 46 || (key >= 48 && key <= 57);
}

int daysinmonth(const QDate& date) {
    return date.isValid() ? date.daysInMonth() : 0;
}

int workingdays(const QDate& first, const QDate& last) {
    if (!first.isValid() || !last.isValid() || last < first) return 0;
    // Holiday and absence ranges may span years, so count whole weeks at once and walk only
    // the few days left over.
    const qint64 days = first.daysTo(last) + 1;
    qint64 count = days / 7 * 5;
    const int rest = int(days % 7);
    int weekday = first.dayOfWeek(); // 1 = Monday ... 7 = Sunday
    for (int i = 0; i < rest; ++i) {
        if (weekday <= 5) ++count;
        weekday = weekday % 7 + 1;
    }
    return int(count);
}

} // namespace core
