#pragma once

#include "combos.h"
#include "datebox.h"
#include "money.h"

#include <QCalendarWidget>
#include <QComboBox>
#include <QDate>
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

inline std::optional<core::Money> moneyOf(const QLineEdit* e) {
    return core::Money::parse(e->text().trimmed());
}

} // namespace personnel::form
