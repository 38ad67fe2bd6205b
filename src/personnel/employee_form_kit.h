#pragma once

#include "combos.h"
#include "datebox.h"
#include "money.h"
#include "typedfields.h"

#include <QCalendarWidget>
#include <QComboBox>
#include <QDate>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <optional>

// The employee screen's pages make their controls the same way.
namespace personnel::form {

inline QLineEdit* lineEdit(QWidget* parent, const QString& name) {
    auto* e = new QLineEdit(parent);
    e->setObjectName(name);
    return e;
}

inline QComboBox* combo(QWidget* parent, const QString& name, const QStringList& items = {}) {
    auto* c = core::autoCompleteCombo(parent, name);
    c->addItems(items);
    c->setCurrentIndex(-1);
    return c;
}

inline DateBox* dateBox(QWidget* parent, const QString& name) {
    auto* d = new DateBox(name, parent);
    d->calendar()->setSelectedDate(QDate::currentDate());
    // Text that is no date stays for correction; the save refuses it by name.
    d->setWarnOnInvalid(true);
    return d;
}

inline QLabel* label(QWidget* parent, const QString& text, const QString& name = {}) {
    auto* l = new QLabel(text, parent);
    if (!name.isEmpty()) l->setObjectName(name);
    return l;
}

// A text put into a drop-down picks no row, so an untouched box never writes its key.
inline void setComboText(QComboBox* c, const QString& text) {
    c->setCurrentIndex(-1);
    c->setEditText(text);
}

// The focus left the box for another control: switching to another window or program, or
// opening a popup, is no leaving of the box and runs no rule.
inline bool leftForAnotherControl(const QEvent* event) {
    if (event->type() != QEvent::FocusOut) return false;
    const auto reason = static_cast<const QFocusEvent*>(event)->reason();
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
}

// A number box as read for the save ("" when blank or refused), so the save never meets text
// it cannot store.
inline QString numberOf(core::TypedFields& typed, const QString& field, const QLineEdit* e,
                        core::NumericColumn column) {
    return core::plainNumber(typed.number(field, e->text(), column));
}

} // namespace personnel::form
