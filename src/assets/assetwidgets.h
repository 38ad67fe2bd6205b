#pragma once

#include "invoices.h"
#include "software.h"
#include "suppliers.h"

#include <QWidget>
#include <vector>

class DateBox;
class QComboBox;
class QDialog;
class QLabel;
class QLineEdit;
class RecordList;

// The pieces that every asset screen has: its invoice boxes and its supplier with address.
namespace assets {

// A named text box that takes at most maxLength characters.
QLineEdit* textBox(QWidget* parent, const char* name, int maxLength);

// Fills a list with rows in one step, the sort of its header kept.
void fillList(RecordList* list, const std::vector<ListRow>& rows);

// A dialog that is also shown as a window of the main window's area closes (and so goes) when
// it is finished, by OK, Cancel or Esc, however it was shown.
void closeWhenFinished(QDialog* dialog);

// "Invoice date" (Esc puts today in it), "Invoice Number", and the price with the currency
// sign of the profile beside it.
class InvoiceFields : public QWidget {
    Q_OBJECT
public:
    InvoiceFields(QWidget* parent, const QString& dateCaption, const QString& priceCaption);

    InvoiceText text() const;
    void setText(const InvoiceText& invoice);

    DateBox* txtInvoiceDate = nullptr;
    QLineEdit* txtInvoiceNo = nullptr;
    QLineEdit* txtPrice = nullptr;
    QLabel* lblCurrency = nullptr;
};

// "Supplier Name" with the picked supplier's address, post code and phone beside it.
class SupplierFields : public QWidget {
    Q_OBJECT
public:
    explicit SupplierFields(QWidget* parent);

    // Reads the suppliers again; what the box showed is kept (the same supplier picked, or
    // the same text when it is no longer in the list).
    void load();
    // The picked supplier, 0 for none (a typed name that is no supplier's is none).
    qint64 supplierId() const;
    // Shows a stored supplier; 0 or a key no supplier has shows none.
    void select(qint64 supplierId);

    QComboBox* cboSupplier = nullptr;
    QLabel* lblAddress1 = nullptr;
    QLabel* lblAddress2 = nullptr;
    QLabel* lblAddress3 = nullptr;
    QLabel* lblPostCodeCaption = nullptr;
    QLabel* lblPostCode = nullptr;
    QLabel* lblPhone = nullptr;

private:
    void showAddress(int index);
    std::vector<SupplierEntry> suppliers_;
};

} // namespace assets
