#include "attendance_model.h"

#include <QColor>
#include <algorithm>
#include <numeric>

AttendanceModel::AttendanceModel(QObject* parent)
    : QAbstractTableModel(parent) {}

void AttendanceModel::setRows(std::vector<reports::GridRow> rows) {
    beginResetModel();
    grid_ = reports::AttendanceGrid(QDate(), std::move(rows));
    applySort();
    endResetModel();
}

void AttendanceModel::setGrid(reports::AttendanceGrid grid) {
    beginResetModel();
    grid_ = std::move(grid);
    applySort();
    endResetModel();
}

void AttendanceModel::clear() {
    setRows({});
}

qint64 AttendanceModel::idAt(int row) const {
    if (row < 0 || row >= int(order_.size())) return 0;
    return grid_.rows()[std::size_t(order_[std::size_t(row)])].id;
}

int AttendanceModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : int(order_.size());
}

int AttendanceModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : 32;
}

QString AttendanceModel::text(int row, int column) const {
    const int r = order_[std::size_t(row)];
    if (column == 0) return grid_.rows()[std::size_t(r)].name;
    if (column > grid_.days()) return {};
    return grid_.code(r, column);
}

QVariant AttendanceModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    switch (role) {
    case Qt::DisplayRole:
        return text(index.row(), index.column());
    case Qt::ForegroundRole:
        // Every code of a weekend day is red, a half-day absence's "W/" included: the colour
        // belongs to the day, the "/" only adds to its text.
        if (index.column() > 0 && index.column() <= grid_.days() &&
            grid_.monthStart().addDays(index.column() - 1).dayOfWeek() >= 6)
            return QColor(Qt::red);
        return {};
    case Qt::UserRole:
        return index.column() == 0 ? QVariant::fromValue(idAt(index.row())) : QVariant();
    case Qt::TextAlignmentRole:
        return index.column() == 0 ? QVariant() : QVariant(Qt::AlignCenter);
    default:
        return {};
    }
}

QVariant AttendanceModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
    return section == 0 ? QStringLiteral("Name/Day") : QString::number(section);
}

void AttendanceModel::sort(int column, Qt::SortOrder) {
    if (column < 0 || column >= 32) return;
    emit layoutAboutToBeChanged();
    sortColumn_ = column;
    applySort();
    emit layoutChanged();
}

void AttendanceModel::applySort() {
    order_.resize(grid_.rows().size());
    std::iota(order_.begin(), order_.end(), 0);
    if (sortColumn_ < 0) return;
    std::vector<QString> keys(order_.size());
    for (std::size_t i = 0; i < order_.size(); ++i) {
        const int r = int(i);
        keys[i] = sortColumn_ == 0              ? grid_.rows()[i].name
                  : sortColumn_ <= grid_.days() ? grid_.code(r, sortColumn_)
                                                : QString();
    }
    std::stable_sort(order_.begin(), order_.end(), [&](int a, int b) {
        const int c = keys[std::size_t(a)].compare(keys[std::size_t(b)], Qt::CaseInsensitive);
        return c != 0 ? c < 0 : keys[std::size_t(a)] < keys[std::size_t(b)];
    });
}
