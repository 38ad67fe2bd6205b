#include "recordlist.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QKeyEvent>
#include <QStyle>
#include <algorithm>
#include <utility>
#include <vector>

namespace {

// Rows compare as text in the column being sorted, ignoring case as users expect of names;
// numbers therefore sort as text too ("10" before "9").
bool textLess(const QTreeWidgetItem& a, const QTreeWidgetItem& b, int column) {
    const QString x = a.text(column);
    const QString y = b.text(column);
    const int c = x.compare(y, Qt::CaseInsensitive);
    return c != 0 ? c < 0 : x < y;
}

class RecordItem : public QTreeWidgetItem {
public:
    explicit RecordItem(const QStringList& cells)
        : QTreeWidgetItem(cells, QTreeWidgetItem::UserType) {}

    bool operator<(const QTreeWidgetItem& other) const override {
        return textLess(*this, other, treeWidget() ? treeWidget()->sortColumn() : 0);
    }
};

} // namespace

RecordList::RecordList(QWidget* parent)
    : QTreeWidget(parent) {
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setAllColumnsShowFocus(true);
    setUniformRowHeights(true);
    setSortingEnabled(false); // our own header handler sorts; Qt's would toggle every click
    header()->setSectionsClickable(true);
    header()->setSortIndicatorShown(false);
    header()->setStretchLastSection(true);

    connect(header(), &QHeaderView::sectionClicked, this, &RecordList::headerClicked);
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item, int) {
        if (count() == 0 || !item) return;
        setCurrentItem(item);
        emit recordActivated(idAt(item));
    });
}

void RecordList::setColumns(const QStringList& captions, const QList<int>& widths) {
    setColumnCount(int(captions.size()));
    setHeaderLabels(captions);
    widths_ = widths;
    for (int i = 0; i < widths.size() && i < captions.size(); ++i)
        setColumnWidth(i, widths[i]);
    setHorizontalScrollBarPolicy(captions.size() == 1 ? Qt::ScrollBarAlwaysOff
                                                      : Qt::ScrollBarAsNeeded);
}

int RecordList::cellWidth(const QFontMetrics& fm, const QString& text) const {
    // The item view's own margins either side of the text, and a little air.
    const int margin = style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1;
    return fm.horizontalAdvance(text) + 2 * margin + 6;
}

// Measured from the texts themselves, and only the longest of them: the view's own measure
// shapes the text of up to a thousand rows, which a list that refills on every key stroke
// cannot afford. Among proportional letters the widest text is one of the longest few.
void RecordList::fitColumns(const QList<QTreeWidgetItem*>& rows, bool widenOnly) {
    constexpr qsizetype Measured = 24;
    const QFontMetrics fm(font());
    for (int i = 0; i + 1 < columnCount(); ++i) {
        int wanted = widenOnly ? columnWidth(i) : i < widths_.size() ? widths_[i] : 0;
        if (!widenOnly)
            wanted = std::max(
                wanted, cellWidth(QFontMetrics(header()->font()), headerItem()->text(i)) + 10);
        std::vector<const QTreeWidgetItem*> longest(rows.begin(), rows.end());
        const auto longer = [i](const QTreeWidgetItem* a, const QTreeWidgetItem* b) {
            return a->text(i).size() > b->text(i).size();
        };
        if (qsizetype(longest.size()) > Measured) {
            std::nth_element(longest.begin(), longest.begin() + Measured, longest.end(), longer);
            longest.resize(Measured);
        }
        for (const QTreeWidgetItem* row : longest)
            wanted = std::max(wanted, cellWidth(fm, row->text(i)));
        if (wanted != columnWidth(i)) setColumnWidth(i, wanted);
    }
}

QTreeWidgetItem* RecordList::addRecord(qint64 id, const QStringList& cells) {
    auto* item = new RecordItem(cells);
    item->setData(0, Qt::UserRole, QVariant::fromValue<qint64>(id));
    if (filling_) {
        pending_.append(item);
    } else {
        insertTopLevelItem(sortedPosition(item), item);
        fitColumns({item}, true);
    }
    return item;
}

int RecordList::sortedPosition(const QTreeWidgetItem* item) const {
    int lo = 0;
    int hi = topLevelItemCount();
    if (sortColumn_ < 0) return hi;
    // After the last row that the new one does not come before, as a stable sort puts it.
    while (lo < hi) {
        const int mid = (lo + hi) / 2;
        const QTreeWidgetItem* row = topLevelItem(mid);
        const bool before = sortOrder_ == Qt::AscendingOrder ? textLess(*item, *row, sortColumn_)
                                                             : textLess(*row, *item, sortColumn_);
        if (before)
            hi = mid;
        else
            lo = mid + 1;
    }
    return lo;
}

void RecordList::beginFill() {
    filling_ = true;
}

void RecordList::endFill() {
    filling_ = false;
    if (pending_.isEmpty()) return;
    const QList<QTreeWidgetItem*> rows = std::exchange(pending_, {});
    setUpdatesEnabled(false);
    insertTopLevelItems(topLevelItemCount(), rows);
    applySort();
    fitColumns(rows, topLevelItemCount() > rows.size());
    setUpdatesEnabled(true);
}

void RecordList::clearRecords() {
    qDeleteAll(pending_);
    pending_.clear();
    clear();
}

int RecordList::count() const {
    return topLevelItemCount() + int(pending_.size());
}

qint64 RecordList::selectedId() const {
    return idAt(selectedItem());
}

QTreeWidgetItem* RecordList::selectedItem() const {
    const QList<QTreeWidgetItem*> selected = selectedItems();
    return selected.isEmpty() ? nullptr : selected.first();
}

qint64 RecordList::idAt(const QTreeWidgetItem* item) {
    return item ? item->data(0, Qt::UserRole).toLongLong() : 0;
}

QTreeWidgetItem* RecordList::findRecord(qint64 id) const {
    for (int i = 0; i < topLevelItemCount(); ++i)
        if (idAt(topLevelItem(i)) == id) return topLevelItem(i);
    return nullptr;
}

void RecordList::headerClicked(int column) {
    if (column < 0 || column >= columnCount()) return;
    if (toggleSort_ && column == rememberedColumn_) {
        sortOrder_ = Qt::DescendingOrder;
        rememberedColumn_ = -1;
    } else {
        sortOrder_ = Qt::AscendingOrder;
        if (toggleSort_) rememberedColumn_ = column;
    }
    sortColumn_ = column;
    header()->setSortIndicatorShown(true);
    applySort();
}

void RecordList::applySort() {
    if (sortColumn_ < 0 || topLevelItemCount() < 1) {
        // The header flips its own indicator on a click; keep it on what the list shows.
        if (sortColumn_ >= 0) header()->setSortIndicator(sortColumn_, sortOrder_);
        return;
    }
    sortItems(sortColumn_, sortOrder_);
}

void RecordList::activateSelected() {
    if (count() == 0) return;
    const QList<QTreeWidgetItem*> selected = selectedItems();
    if (selected.isEmpty()) return;
    emit recordActivated(idAt(selected.first()));
}

void RecordList::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || (event->modifiers() & ~Qt::KeypadModifier)) {
        QTreeWidget::keyPressEvent(event);
        return;
    }
    // The tree's own Enter would activate the current row even when it is not highlighted.
    if (QTreeWidgetItem* row = selectedItem(); row && count() > 0) {
        emit recordActivated(idAt(row));
        event->accept();
        return;
    }
    event->ignore();
}
