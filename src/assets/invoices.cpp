#include "invoices.h"

#include "money.h"
#include "regional.h"
#include "typedfields.h"

#include <QRegularExpression>

namespace assets {

using core::Db;

std::optional<int> wholeNumber(const QString& text) {
    static const QRegularExpression re(QStringLiteral(R"(^[+-]?\d{1,9}$)"));
    const QString t = text.trimmed();
    if (!re.match(t).hasMatch()) return std::nullopt;
    return t.toInt();
}

std::optional<core::Money> invoicePrice(const QString& text) {
    core::TypedFields fields;
    return fields.money(QStringLiteral("Price"), text);
}

QString priceRefusal(const QString& caption, const QString& text, const QString& unreadable) {
    core::TypedFields fields;
    fields.money(caption, text);
    if (fields.ok()) return {};
    // Text that is no amount keeps the screen's own words.
    return fields.tooLarge() ? fields.message() : unreadable;
}

bool InvoiceText::isBlank() const {
    return date.trimmed().isEmpty() && number.trimmed().isEmpty() && price.trimmed().isEmpty();
}

qint64 keyOrZero(const QVariant& v) {
    return v.isNull() || !v.isValid() ? 0 : Db::toId(v);
}

QVariant keyOrNull(qint64 id) {
    return id > 0 ? QVariant(id) : QVariant(QMetaType::fromType<qint64>());
}

QString stored(const QString& text) {
    const QString t = text.trimmed();
    return t.isNull() ? QStringLiteral("") : t;
}

std::optional<InvoiceText> loadInvoice(core::Db& db, qint64 invoiceId) {
    const auto r = db.row("SELECT InvoiceDate, InvoiceNumber, Price FROM Invoices "
                          "WHERE Invoice_ID = ?",
                          {invoiceId});
    if (!r) return std::nullopt;
    InvoiceText out;
    out.date = core::formatDate(Db::toDate(r->value("InvoiceDate")));
    out.number = Db::text(r->value("InvoiceNumber")).trimmed();
    const QVariant price = r->value("Price");
    if (!price.isNull()) out.price = core::plainNumber(core::Money::fromVariant(price));
    return out;
}

qint64 saveInvoice(core::Db& db, qint64 invoiceId, const InvoiceText& invoice) {
    if (invoice.isBlank()) return invoiceId;
    core::Fields fields{{"InvoiceNumber", stored(invoice.number)}};
    if (invoice.date.trimmed().isEmpty())
        fields.push_back({"InvoiceDate", Db::dateOrNull(QDate())});
    else if (const QDate date = core::parseDate(invoice.date); date.isValid())
        fields.push_back({"InvoiceDate", date});
    if (invoice.price.trimmed().isEmpty())
        fields.push_back({"Price", QVariant(QMetaType::fromType<QString>())});
    else if (const auto price = invoicePrice(invoice.price))
        fields.push_back({"Price", price->toVariant()});
    // A key whose row has gone (removed by hand) gets a new row rather than writing nowhere.
    if (invoiceId > 0 && db.update("Invoices", "Invoice_ID", invoiceId, fields) > 0)
        return invoiceId;
    return db.insert("Invoices", "Invoice_ID", fields);
}

void LoadedAsset::verify(const core::Db& db) const {
    row.verify(db);
    invoice.verify(db);
}

LoadedAsset loadedAsset(const core::Db& db, const QString& table, const QString& keyColumn,
                        qint64 id, const QStringList& ignoring) {
    LoadedAsset out;
    out.row = core::LoadedRow::read(db, table, keyColumn, id, ignoring);
    if (const qint64 invoiceId = keyOrZero(out.row.value("Invoice_ID")); invoiceId > 0)
        out.invoice = core::LoadedRow::read(db, "Invoices", "Invoice_ID", invoiceId);
    return out;
}

QDate warrantyEnd(const QVariant& invoiceDate, const QString& months) {
    const QDate date = Db::toDate(invoiceDate);
    const auto length = wholeNumber(months);
    if (!date.isValid() || !length) return {};
    return date.addMonths(*length);
}

QString warrantyExpiry(const QVariant& invoiceDate, const QString& months) {
    const QDate end = warrantyEnd(invoiceDate, months);
    return end.isValid() ? core::formatDate(end) : QStringLiteral("N/A");
}

} // namespace assets
