#include "taborder.h"

#include <QAbstractScrollArea>
#include <QBoxLayout>
#include <QFormLayout>
#include <QGridLayout>
#include <QLayout>
#include <QScrollArea>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>
#include <QWidget>
#include <algorithm>
#include <tuple>
#include <vector>

namespace core {
namespace {

class Walk {
public:
    explicit Walk(QWidget* screen)
        : screen_(screen) {}

    void widget(QWidget* w) {
        if (w != screen_ && w->isWindow()) return;
        if (auto* tabs = qobject_cast<QTabWidget*>(w)) {
            if (auto* bar = tabs->findChild<QTabBar*>()) take(bar);
            for (int i = 0; i < tabs->count(); ++i)
                widget(tabs->widget(i));
            return;
        }
        if (auto* stack = qobject_cast<QStackedWidget*>(w)) {
            for (int i = 0; i < stack->count(); ++i)
                widget(stack->widget(i));
            return;
        }
        if (auto* scroll = qobject_cast<QScrollArea*>(w)) {
            if (scroll->widget()) widget(scroll->widget());
            return;
        }
        // A control that takes the focus is one stop, whatever it is made of (a combo's
        // line edit, a list's viewport); the screen itself and plain containers are not.
        if (w != screen_ && (w->focusPolicy() & Qt::TabFocus) && !w->focusProxy()) {
            take(w);
            if (!w->layout()) return;
        }
        if (qobject_cast<QAbstractScrollArea*>(w)) return;
        if (w->layout())
            layout(w->layout());
        else
            looseChildren(w);
    }

    QList<QWidget*> order;

private:
    void take(QWidget* w) {
        if (!order.contains(w)) order.append(w);
    }

    void item(QLayoutItem* it) {
        if (!it) return;
        if (it->widget())
            widget(it->widget());
        else if (it->layout())
            layout(it->layout());
    }

    void layout(QLayout* l) {
        if (auto* grid = qobject_cast<QGridLayout*>(l)) {
            std::vector<std::tuple<int, int, int>> cells; // row, column, index
            for (int i = 0; i < grid->count(); ++i) {
                int row = 0, column = 0, rowSpan = 0, columnSpan = 0;
                grid->getItemPosition(i, &row, &column, &rowSpan, &columnSpan);
                cells.emplace_back(row, column, i);
            }
            std::sort(cells.begin(), cells.end());
            for (const auto& [row, column, i] : cells)
                item(grid->itemAt(i));
        } else if (auto* form = qobject_cast<QFormLayout*>(l)) {
            for (int row = 0; row < form->rowCount(); ++row)
                for (auto role :
                     {QFormLayout::LabelRole, QFormLayout::FieldRole, QFormLayout::SpanningRole})
                    item(form->itemAt(row, role));
        } else {
            std::vector<QLayoutItem*> items;
            for (int i = 0; i < l->count(); ++i)
                items.push_back(l->itemAt(i));
            if (auto* box = qobject_cast<QBoxLayout*>(l);
                box && (box->direction() == QBoxLayout::RightToLeft ||
                        box->direction() == QBoxLayout::BottomToTop))
                std::reverse(items.begin(), items.end());
            for (QLayoutItem* it : items)
                item(it);
        }
        // Controls a layout does not hold (placed by hand on a laid-out widget) follow it.
        if (QWidget* owner = l->parentWidget(); owner && owner->layout() == l) looseChildren(owner);
    }

    // Children outside any layout: by where they stand, top to bottom, left to right.
    void looseChildren(QWidget* w) {
        std::vector<QWidget*> children;
        for (QWidget* child : w->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            if (!child->isWindow() && !inLayout(w, child)) children.push_back(child);
        std::stable_sort(children.begin(), children.end(), [](QWidget* a, QWidget* b) {
            return std::pair(a->y(), a->x()) < std::pair(b->y(), b->x());
        });
        for (QWidget* child : children)
            widget(child);
    }

    static bool inLayout(QWidget* owner, QWidget* child) {
        return owner->layout() && heldBy(owner->layout(), child);
    }

    static bool heldBy(QLayout* l, QWidget* child) {
        for (int i = 0; i < l->count(); ++i) {
            QLayoutItem* it = l->itemAt(i);
            if (it->widget() == child) return true;
            if (it->layout() && heldBy(it->layout(), child)) return true;
        }
        return false;
    }

    QWidget* screen_;
};

} // namespace

QList<QWidget*> layoutTabOrder(QWidget* screen) {
    Walk walk(screen);
    walk.widget(screen);
    return walk.order;
}

void applyLayoutTabOrder(QWidget* screen) {
    const QList<QWidget*> order = layoutTabOrder(screen);
    for (qsizetype i = 1; i < order.size(); ++i)
        QWidget::setTabOrder(order[i - 1], order[i]);
}

} // namespace core
