#pragma once

#include "db.h"
#include "loadedrow.h"
#include "money.h"

#include <QDate>
#include <QString>
#include <QVariant>
#include <optional>

// The invoice behind an asset and the warranty worked out from it: what every asset screen
// shares.
namespace assets {

// A whole number as typed ("12", " 3 ", "-2"); nullopt for anything else, blank included.
std::optional<int> wholeNumber(const QString& text);
// A price as people type it ("12.50", "30,000", "£30,000.50"), rounded to the money column's
// scale; nullopt for blank, for text that is no amount and for more than the column holds.
std::optional<core::Money> invoicePrice(const QString& text);
// What is wrong with a price box, "" when nothing: blank and amounts the column holds pass.
// Text that is no amount gets `unreadable`, each screen's own words; an amount the column
// cannot hold is told how much it can, under the box's caption.
QString priceRefusal(const QString& caption, const QString& text, const QString& unreadable);

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
// clearing the boxes of an old one never loses its invoice. A blank date or price is stored as
// none; text that does not read as one (the caller has refused it before) leaves the stored
// value as it was rather than wiping it.
qint64 saveInvoice(core::Db& db, qint64 invoiceId, const InvoiceText& invoice);

// An asset's row and its invoice's row as the screen loaded them. Its save checks both in
// its transaction: another user's change to either, or either deleted, throws core::RowChanged
// and nothing is written.
struct LoadedAsset {
    core::LoadedRow row;
    core::LoadedRow invoice;
    void verify(const core::Db& db) const;
};
// Reads the asset's row (its columns in `ignoring` left out of the check) and the invoice it
// names in Invoice_ID; empty snapshots for what is not there.
LoadedAsset loadedAsset(const core::Db& db, const QString& table, const QString& keyColumn,
                        qint64 id, const QStringList& ignoring = {});

// The warranty's end: the invoice date plus the months, in calendar months; an invalid date
// when there is no invoice date or the length is blank or no number.
QDate warrantyEnd(const QVariant& invoiceDate, const QString& months);
// The same in the session's date format, "N/A" when there is none.
QString warrantyExpiry(const QVariant& invoiceDate, const QString& months);

// Key columns that may be NULL read as 0.
qint64 keyOrZero(const QVariant& v);
// A key to bind: NULL for 0.
QVariant keyOrNull(qint64 id);
// Text columns hold the trimmed text, "" (not NULL) for an empty box.
QString stored(const QString& text);

} // namespace assets
