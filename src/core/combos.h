#pragma once

#include <QString>
#include <QVariant>
#include <functional>

class QComboBox;
class QWidget;

namespace core {

// The drop-downs' typing rule. For character keys 32-127 the search text is the text before
// the selection plus the key (or, with no selection, the whole text plus the key, wherever
// the caret stands); the first item beginning with it, ignoring case, is selected and its
// untyped rest highlighted. keyCode is then set to 0 whether or not an item was found, so
// the key never reaches the box and the box only ever holds the beginning of an item. Other
// keys (backspace, arrows, Enter...) are left alone. An item found counts as picked: the
// combo emits activated() and textActivated() for it, as for a click on the list.
void autocompletecombo(int& keyCode, QComboBox* combo);

// Gives an editable combo the typing rule above, for its whole life, with one call (made
// after setEditable(true)). Also stops Qt from adding typed text as a new item and turns off
// Qt's own completer, which would fight the rule. A combo that is not editable keeps Qt's
// own search by typing.
void attachAutoComplete(QComboBox* combo);

// A named, editable drop-down with the typing rule above.
QComboBox* autoCompleteCombo(QWidget* parent, const QString& objectName);

// Exact search ignoring case. Found: selects the item and returns its index as text, except
// that index 0 comes back as "0.5" so that callers may test the result as a number for
// truth. Not found: returns "" and leaves the selection alone.
QString findcomboitem(QComboBox* combo, const QString& text);

// Drop-downs over a foreign key keep the row's key in the item data.
void addComboItem(QComboBox* combo, const QString& text, qint64 id);

// The key of the picked item, or NoComboId when nothing is picked: no current item, an item
// without a key, or an editable box whose text no longer is the current item's text (the
// user has cleared or changed it).
inline constexpr qint64 NoComboId = -1;
qint64 comboId(const QComboBox* combo);
// The same as a value to bind: NULL when nothing is picked.
QVariant comboIdValue(const QComboBox* combo);

// Picks the item with the given key. When no item has it the box is left with nothing picked
// and empty text, so that a stale pick from an earlier record never survives; returns false.
bool selectComboId(QComboBox* combo, qint64 id);

// Clears the drop-down and fills it again through `fill`, keeping what it showed: the same
// keyed row picked again when the new list still has it, otherwise the same text with no row
// picked. No signal reaches the screen while the list is rebuilt.
void refillCombo(QComboBox* combo, const std::function<void(QComboBox*)>& fill);

} // namespace core
