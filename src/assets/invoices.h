#pragma once

#include "db.h"

#include <QDate>
#include <QString>
#include <QVariant>
#include <optional>

// The invoice behind an asset and the warranty worked out from it: what every asset screen
// shares.
namespace assets {

// A whole number as typed ("12", " 3 ", "-2"); nullopt for anything else, blank included.
std::optional<int> wholeNumber(const QString& text);
// Text that a money column can take ("12.50"); blank is not.
bool isPrice(const QString& text);

// The three invoice boxes as typed.
struct InvoiceText {
    QString date;
    QString number;
    QString price;
    // Nothing but blanks in all three.
    bool isBlank() const;
};

// The invoice's boxes as they show a stored row; nullopt when the row is not there.
std::optional<InvoiceText> loadInvoice(core::Db& db, qint64 invoiceId);

// Writes the invoice of an asset and returns its key. Blank boxes write nothing and keep
// whatever invoice the asset has (invoiceId, 0 for none): a new asset gets no empty row and
// clearing the boxes of an old one never loses its invoice. The date and price are written
// only when they read as such; the caller has refused other text before.
qint64 saveInvoice(core::Db& db, qint64 invoiceId, const InvoiceText& invoice);

// The warranty's end: the invoice date plus the months, in calendar months, in the session's
// date format; "N/A" when there is no invoice date or the length is blank or no number.
QString warrantyExpiry(const QVariant& invoiceDate, const QString& months);

// Key columns that may be NULL read as 0.
qint64 keyOrZero(const QVariant& v);
// A key to bind: NULL for 0.
QVariant keyOrNull(qint64 id);
// Text columns hold the trimmed text, "" (not NULL) for an empty box.
QString stored(const QString& text);

} // namespace assets
