#pragma once

#include <QDate>
#include <QString>

namespace core {

// The regional profile decides how dates are shown and read, the currency sign and the
// postcode caption. Screens test for one value and take the other branch for everything
// else, so each rule below names which literal it tests.
namespace regional {
inline const QString UK = QStringLiteral("English (UK)");
inline const QString US = QStringLiteral("English (US)");

bool isUS(const QString& language); // equals "English (US)"
bool isUK(const QString& language); // equals "English (UK)"

// "MM/dd/yyyy" for "English (US)", "dd/MM/yyyy" otherwise.
QString dateFormat(const QString& language);
QString formatDate(const QDate& date, const QString& language);
// Reads a date typed in the profile's order: day and month of one or two digits, a two- or
// four-digit year, "/", "-" or "." between; also yyyy-MM-dd. Invalid QDate when it is none.
QDate parseDate(const QString& text, const QString& language);
// "$" for "English (US)", "£" otherwise.
QString currencySign(const QString& language);
// "Zip Code" for "English (US)", "Post Code" otherwise.
QString postcodeCaption(const QString& language);
// "dmy" for "English (UK)", "mdy" otherwise (the order of date searches).
QString sqlDateOrder(const QString& language);
// The weekly working-time check applies to "English (UK)" only.
bool checksWorkingHours(const QString& language);
} // namespace regional

// The same rules for the session's own profile.
QString formatDate(const QDate& date);
QDate parseDate(const QString& text);
bool isDate(const QString& text);
QString currencySign();
QString postcodeCaption();

// "Please enter the date in the format MM/DD/YYYY" / "... DD/MM/YYYY".
void showdateformatus();
void showdateformatuk();
// The one of the two that the session's profile asks for.
void showdateformat();

} // namespace core
