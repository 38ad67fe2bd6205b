#include "invoices.h"

#include "money.h"
#include "regional.h"

#include <QRegularExpression>

namespace assets {

using core::Db;

std::optional<int> wholeNumber(const QString& text) {
    static const QRegularExpression re(QStringLiteral(R"(^[+-]?\d{1,9}$)"));
    const QString t = text.trimmed();
    if (!re.match(t).hasMatch()) return std::nullopt;
    return t.toInt();
}

bool isPrice(const QString& text) {
    return core::Money::parse(text.trimmed()).has_value();
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
    const auto price = core::Money::parse(invoice.price.trimmed());
    core::Fields fields{
        {"InvoiceDate", Db::dateOrNull(core::parseDate(invoice.date))},
        {"InvoiceNumber", stored(invoice.number)},
        {"Price", price ? price->toVariant() : QVariant(QMetaType::fromType<QString>())}};
    // A key whose row has gone (removed by hand) gets a new row rather than writing nowhere.
    if (invoiceId > 0 && db.update("Invoices", "Invoice_ID", invoiceId, fields) > 0)
        return invoiceId;
    return db.insert("Invoices", "Invoice_ID", fields);
}

QString warrantyExpiry(const QVariant& invoiceDate, const QString& months) {
    const QDate date = Db::toDate(invoiceDate);
    const auto length = wholeNumber(months);
    if (!date.isValid() || !length) return QStringLiteral("N/A");
    return core::formatDate(date.addMonths(*length));
}

} // namespace assets
