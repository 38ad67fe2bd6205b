#include "statement_sheet.h"

namespace pettycash {

reports::Sheet statementSheet(const Statement& statement) {
    reports::Sheet sheet;
    const auto money = [&](int row, int column, const std::optional<core::Money>& value,
                           reports::CellFormat format = {}) {
        if (value) sheet.setNumber(row, column, core::plainNumber(value), format);
    };
    int row = FirstRow;
    const std::size_t last = statement.rows.size() - 1;
    for (std::size_t i = 0; i < statement.rows.size(); ++i, ++row) {
        const StatementRow& r = statement.rows[i];
        if (!r.date.isEmpty()) sheet.setText(row, 2, r.date);
        if (i == last) {
            reports::CellFormat red;
            red.redFont = true;
            money(row, 6, r.balanceValue, red);
            break;
        }
        if (!r.purpose.isEmpty()) sheet.setText(row, 3, r.purpose);
        money(row, 4, r.in);
        money(row, 5, r.out);
        money(row, 6, r.balanceValue);
    }
    return sheet;
}

} // namespace pettycash
