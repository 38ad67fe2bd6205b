#include "regional.h"

#include "messagebox.h"
#include "session.h"

#include <QRegularExpression>

namespace core {

namespace regional {

bool isUS(const QString& language) {
    return language.trimmed() == US;
}
bool isUK(const QString& language) {
    return language.trimmed() == UK;
}

QString dateFormat(const QString& language) {
    return isUS(language) ? QStringLiteral("MM/dd/yyyy") : QStringLiteral("dd/MM/yyyy");
}

QString formatDate(const QDate& date, const QString& language) {
    return date.isValid() ? date.toString(dateFormat(language)) : QString();
}

QDate parseDate(const QString& text, const QString& language) {
    static const QRegularExpression iso(QStringLiteral("^(\\d{4})-(\\d{1,2})-(\\d{1,2})$"));
    static const QRegularExpression local(
        QStringLiteral("^(\\d{1,2})[/.-](\\d{1,2})[/.-](\\d{2}|\\d{4})$"));
    const QString t = text.trimmed();
    if (auto m = iso.match(t); m.hasMatch())
        return QDate(m.captured(1).toInt(), m.captured(2).toInt(), m.captured(3).toInt());
    auto m = local.match(t);
    if (!m.hasMatch()) return {};
    int first = m.captured(1).toInt();
    int second = m.captured(2).toInt();
    int year = m.captured(3).toInt();
    if (m.captured(3).size() == 2) year += year < 30 ? 2000 : 1900; // the usual two-digit window
    const int day = isUS(language) ? second : first;
    const int month = isUS(language) ? first : second;
    return QDate(year, month, day);
}

QString currencySign(const QString& language) {
    return isUS(language) ? QStringLiteral("$") : QStringLiteral("£");
}

QString postcodeCaption(const QString& language) {
    return isUS(language) ? QStringLiteral("Zip Code") : QStringLiteral("Post Code");
}

QString sqlDateOrder(const QString& language) {
    return isUK(language) ? QStringLiteral("dmy") : QStringLiteral("mdy");
}

bool checksWorkingHours(const QString& language) {
    return isUK(language);
}

} // namespace regional

QString formatDate(const QDate& date) {
    return regional::formatDate(date, session().language);
}
QDate parseDate(const QString& text) {
    return regional::parseDate(text, session().language);
}
bool isDate(const QString& text) {
    return parseDate(text).isValid();
}
QString currencySign() {
    return regional::currencySign(session().language);
}
QString postcodeCaption() {
    return regional::postcodeCaption(session().language);
}

void showdateformatus() {
    msgbox(QStringLiteral("Please enter the date in the format MM/DD/YYYY"));
}
void showdateformatuk() {
    msgbox(QStringLiteral("Please enter the date in the format DD/MM/YYYY"));
}

void showdateformat() {
    if (regional::isUS(session().language))
        showdateformatus();
    else
        showdateformatuk();
}

} // namespace core
