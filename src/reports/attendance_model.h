#pragma once

#include "attendance_grid.h"

#include <QAbstractTableModel>

// The grid as the screen shows it: "Name/Day" and "1" to "31"; each row keeps its employee's
// number under Qt::UserRole. A model rather than a list of items, so that ten thousand rows
// of thirty-two cells appear at once.
class AttendanceModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit AttendanceModel(QObject* parent = nullptr);

    // Rows without codes (after a month change).
    void setRows(std::vector<reports::GridRow> rows);
    // Rows with their codes (after "GO").
    void setGrid(reports::AttendanceGrid grid);
    void clear();
    // The calculated grid; days() is 0 while the rows have no codes.
    const reports::AttendanceGrid& grid() const { return grid_; }
    qint64 idAt(int row) const;
    // The grid's rows in the order shown (after a header click, sorted).
    const std::vector<int>& shownOrder() const { return order_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    // As text, ignoring case, ascending; rows that compare equal keep their order.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

private:
    QString text(int row, int column) const;
    void applySort();

    reports::AttendanceGrid grid_;
    std::vector<int> order_; // shown row -> grid row
    int sortColumn_ = -1;
};
