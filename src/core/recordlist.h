#pragma once

#include <QList>
#include <QStringList>
#include <QTreeWidget>

// The list of records that every screen shows: one row per record, whole rows selected, the
// record's key kept in the row (Qt::UserRole of column 0), never in its text.
//
// A header click sorts by that column as text, ignoring case, ascending; clicking the same
// column again changes nothing. In toggle mode a click on the column sorted last sorts it
// descending and forgets it, a click on any other column sorts ascending and remembers it.
// The sort stays in force when the list is filled again.
//
// A double click on a row, or Enter with a row highlighted, opens the row (recordActivated).
// Enter with no row highlighted goes on to the screen's default button; nothing here ever acts
// on a current row the user cannot see highlighted.
class QFontMetrics;

class RecordList : public QTreeWidget {
    Q_OBJECT
public:
    explicit RecordList(QWidget* parent = nullptr);

    // Captions of the columns; widths in pixels for as many columns as given. A column is
    // widened to its content when the list is filled (never narrowed below its width); the
    // last one takes the rest, and a list of one column never scrolls sideways.
    void setColumns(const QStringList& captions, const QList<int>& widths = {});

    // Between beginFill() and endFill() the rows are collected and inserted in one step,
    // which is what keeps a list of ten thousand rows quick. Outside them a row goes in at
    // once. The returned item may be changed further (colours, icons) in either case.
    QTreeWidgetItem* addRecord(qint64 id, const QStringList& cells);
    void beginFill();
    void endFill();

    void clearRecords();
    // Rows in the list, including those waiting for endFill().
    int count() const;

    // The key of the selected row, 0 when no row is selected.
    qint64 selectedId() const;
    // The highlighted row, null when none is (whatever row is current).
    QTreeWidgetItem* selectedItem() const;
    // The key of a row, 0 for none.
    static qint64 idAt(const QTreeWidgetItem* item);
    // The row with the given key, or null.
    QTreeWidgetItem* findRecord(qint64 id) const;

    void setToggleSort(bool on) { toggleSort_ = on; }
    bool toggleSort() const { return toggleSort_; }
    // Sorts as a click on the column's header does.
    void headerClicked(int column);
    // The column last sorted by (-1 for none) and its direction.
    int sortedColumn() const { return sortColumn_; }
    Qt::SortOrder sortedOrder() const { return sortOrder_; }

public slots:
    // For OK buttons: emits recordActivated for the selected row; nothing without one.
    void activateSelected();

signals:
    void recordActivated(qint64 id);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void applySort();
    void fitColumns(const QList<QTreeWidgetItem*>& rows, bool widenOnly);
    int cellWidth(const QFontMetrics& fm, const QString& text) const;
    int sortedPosition(const QTreeWidgetItem* item) const;

    QList<int> widths_;
    QList<QTreeWidgetItem*> pending_;
    bool filling_ = false;
    bool toggleSort_ = false;
    int sortColumn_ = -1;
    Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
    int rememberedColumn_ = -1; // toggle mode: the column whose next click flips
};
