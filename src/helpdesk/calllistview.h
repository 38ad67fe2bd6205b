#pragma once

#include "calllists.h"

#include <QAbstractTableModel>
#include <QTreeView>
#include <vector>

// The rows of a call list, held as read and shown as asked for, so that a hundred thousand
// calls fill the list at once. Closed calls are red.
class CallListModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit CallListModel(QObject* parent = nullptr);

    void setRows(std::vector<helpdesk::CallListRow> rows);
    const std::vector<helpdesk::CallListRow>& rows() const { return rows_; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    // "Logged" and "Required" sort as dates (none first), the others as their text ignoring
    // case, "Call Ref" included.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

private:
    std::vector<helpdesk::CallListRow> rows_;
};

// The call list: whole rows selected, the call's key behind each row. A header click sorts by
// that column; a double click, or Enter on the highlighted row, opens the call.
class CallListView : public QTreeView {
    Q_OBJECT
public:
    explicit CallListView(QWidget* parent = nullptr);

    void setRows(std::vector<helpdesk::CallListRow> rows);
    int count() const;
    // The highlighted call, 0 for none.
    qint64 selectedId() const;
    // The call shown in a row (after sorting), 0 for none.
    qint64 idAt(int row) const;
    void selectRow(int row);
    CallListModel* callModel() const { return model_; }

signals:
    void callActivated(qint64 id);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    CallListModel* model_;
};
