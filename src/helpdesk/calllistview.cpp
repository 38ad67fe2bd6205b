#include "calllistview.h"

#include "regional.h"

#include <QColor>
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>
#include <array>
#include <charconv>
#include <functional>
#include <string_view>

namespace {

enum Column { CallRef, Originator, Status, Logged, Required, Description, Columns };

// 900, 2000, 1640, 1000, 1000 and 3151 twips.
constexpr int Widths[Columns] = {60, 133, 109, 67, 67, 210};

// A call's number as its text, without building a string for every comparison of a sort.
struct RefText {
    std::array<char, 24> digits{};
    std::size_t size = 0;
    bool operator<(const RefText& other) const {
        return std::string_view(digits.data(), size) <
               std::string_view(other.digits.data(), other.size);
    }
};

RefText refText(qint64 id) {
    RefText t;
    t.size = static_cast<std::size_t>(
        std::to_chars(t.digits.data(), t.digits.data() + t.digits.size(), id).ptr -
        t.digits.data());
    return t;
}

} // namespace

CallListModel::CallListModel(QObject* parent)
    : QAbstractTableModel(parent) {}

void CallListModel::setRows(std::vector<helpdesk::CallListRow> rows) {
    beginResetModel();
    rows_ = std::move(rows);
    endResetModel();
}

int CallListModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int CallListModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Columns;
}

QVariant CallListModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= static_cast<int>(rows_.size())) return {};
    const helpdesk::CallListRow& r = rows_[static_cast<size_t>(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        switch (index.column()) {
        case CallRef:
            return QString::number(r.id);
        case Originator:
            return r.originator;
        case Status:
            return r.status;
        case Logged:
            return core::formatDate(r.logged);
        case Required:
            return core::formatDate(r.required);
        case Description:
            return r.description;
        }
        return {};
    case Qt::ForegroundRole:
        return r.closed ? QVariant(QColor(Qt::red)) : QVariant();
    case Qt::UserRole:
        return r.id;
    default:
        return {};
    }
}

QVariant CallListModel::headerData(int section, Qt::Orientation orientation, int role) const {
    static const char* const captions[Columns] = {"Call Ref", "Originator", "Status",
                                                  "Logged",   "Required",   "Description"};
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0 ||
        section >= Columns)
        return {};
    return QString::fromLatin1(captions[section]);
}

void CallListModel::sort(int column, Qt::SortOrder order) {
    using Row = helpdesk::CallListRow;
    auto text = [](const QString& a, const QString& b) {
        return a.compare(b, Qt::CaseInsensitive) < 0;
    };
    std::function<bool(const Row&, const Row&)> less;
    switch (column) {
    case CallRef:
        // As the text shown, so 10 comes before 9.
        less = [](const Row& a, const Row& b) { return refText(a.id) < refText(b.id); };
        break;
    case Originator:
        less = [&](const Row& a, const Row& b) { return text(a.originator, b.originator); };
        break;
    case Status:
        less = [&](const Row& a, const Row& b) { return text(a.status, b.status); };
        break;
    case Logged:
        // An invalid date is the smallest, so calls without one come first.
        less = [](const Row& a, const Row& b) { return a.logged < b.logged; };
        break;
    case Required:
        less = [](const Row& a, const Row& b) { return a.required < b.required; };
        break;
    case Description:
        less = [&](const Row& a, const Row& b) { return text(a.description, b.description); };
        break;
    default:
        return;
    }
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    if (order == Qt::AscendingOrder)
        std::stable_sort(rows_.begin(), rows_.end(), less);
    else
        std::stable_sort(rows_.begin(), rows_.end(),
                         [&](const Row& a, const Row& b) { return less(b, a); });
    // Nothing keeps an index into the rows across a sort: the selection is cleared first.
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

CallListView::CallListView(QWidget* parent)
    : QTreeView(parent)
    , model_(new CallListModel(this)) {
    setModel(model_);
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setItemsExpandable(false);
    setAllColumnsShowFocus(true);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    header()->setStretchLastSection(true);
    header()->setSectionsClickable(true);
    header()->setSortIndicatorShown(true);
    header()->setSortIndicator(-1, Qt::AscendingOrder);
    for (int c = 0; c < Columns; ++c)
        setColumnWidth(c, Widths[c]);
    // A date is never cut short, whatever the font.
    const int date = fontMetrics().horizontalAdvance(QStringLiteral("00/00/0000")) + 16;
    for (int c : {int(Logged), int(Required)})
        setColumnWidth(c, std::max(Widths[c], date));
    connect(header(), &QHeaderView::sectionClicked, this, [this](int column) {
        const qint64 kept = selectedId();
        clearSelection();
        model_->sort(column, Qt::AscendingOrder);
        header()->setSortIndicator(column, Qt::AscendingOrder);
        // The call that was highlighted stays so, wherever the sort put it.
        if (kept > 0) {
            const auto& rows = model_->rows();
            for (size_t i = 0; i < rows.size(); ++i)
                if (rows[i].id == kept) {
                    selectRow(static_cast<int>(i));
                    break;
                }
        }
    });
    connect(this, &QTreeView::doubleClicked, this, [this](const QModelIndex& index) {
        if (index.isValid()) emit callActivated(idAt(index.row()));
    });
}

void CallListView::setRows(std::vector<helpdesk::CallListRow> rows) {
    model_->setRows(std::move(rows));
    header()->setSortIndicator(-1, Qt::AscendingOrder);
}

int CallListView::count() const {
    return model_->rowCount();
}

qint64 CallListView::idAt(int row) const {
    if (row < 0 || row >= count()) return 0;
    return model_->rows()[static_cast<size_t>(row)].id;
}

qint64 CallListView::selectedId() const {
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? 0 : idAt(rows.first().row());
}

void CallListView::selectRow(int row) {
    if (row < 0 || row >= count()) return;
    const QModelIndex index = model_->index(row, 0);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect |
                                                 QItemSelectionModel::Rows);
    scrollTo(index);
}

void CallListView::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || (event->modifiers() & ~Qt::KeypadModifier)) {
        QTreeView::keyPressEvent(event);
        return;
    }
    // Only the row the user sees highlighted is opened; without one Enter goes to the screen.
    if (const qint64 id = selectedId(); id > 0) {
        emit callActivated(id);
        event->accept();
        return;
    }
    event->ignore();
}
