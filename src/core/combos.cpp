#include "combos.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>

namespace core {

namespace {

int findFirstStartingWith(const QComboBox* combo, const QString& text) {
    for (int i = 0; i < combo->count(); ++i)
        if (combo->itemText(i).startsWith(text, Qt::CaseInsensitive)) return i;
    return -1;
}

// The character code of a key press, as the typing rule counts keys: the one character it
// types, or 0 for keys that type nothing (arrows, function keys).
int keyCodeOf(const QKeyEvent* event) {
    const QString text = event->text();
    if (text.size() != 1) return 0;
    return text.at(0).unicode();
}

class AutoCompleteFilter : public QObject {
public:
    explicit AutoCompleteFilter(QComboBox* combo)
        : QObject(combo)
        , combo_(combo) {}

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return false;
        auto* key = static_cast<QKeyEvent*>(event);
        // Ctrl shortcuts belong to Qt (copy, paste, undo); AltGr reports Ctrl+Alt and types.
        const auto mods = key->modifiers() & (Qt::ControlModifier | Qt::AltModifier);
        if (mods == Qt::ControlModifier) return false;
        // Desktops send Delete as character 127, which the rule would swallow; it edits.
        if (key->key() == Qt::Key_Delete) return false;
        int code = keyCodeOf(key);
        if (code == 0) return false;
        autocompletecombo(code, combo_);
        return code == 0;
    }

private:
    QComboBox* combo_;
};

} // namespace

void autocompletecombo(int& keyCode, QComboBox* combo) {
    if (keyCode < 32 || keyCode > 127 || !combo) return;
    QLineEdit* edit = combo->lineEdit();
    const QChar typed(keyCode);
    QString search;
    if (edit && edit->hasSelectedText())
        search = edit->text().left(edit->selectionStart()) + typed;
    else
        search = (edit ? edit->text() : combo->currentText()) + typed;

    const int found = findFirstStartingWith(combo, search);
    if (found >= 0) {
        combo->setCurrentIndex(found);
        const QString item = combo->itemText(found);
        if (edit) {
            // Setting the same index again does not rewrite text the user has edited since.
            edit->setText(item);
            edit->setSelection(int(search.size()), int(item.size() - search.size()));
        }
        // A completion is a pick, as much as a click on the list: screens that act on a
        // pick (a new post archives the old one) must not miss it because it was typed.
        emit combo->activated(found);
        emit combo->textActivated(item);
    }
    keyCode = 0;
}

void attachAutoComplete(QComboBox* combo) {
    if (!combo || !combo->isEditable()) return;
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setCompleter(nullptr);
    auto* filter = new AutoCompleteFilter(combo);
    // The combo has the focus and hands its keys to its line edit by a direct call, which
    // passes no event filter there; so the filter sits on the combo. The line edit gets one
    // too for keys sent straight to it.
    combo->installEventFilter(filter);
    if (combo->lineEdit()) combo->lineEdit()->installEventFilter(filter);
}

QString findcomboitem(QComboBox* combo, const QString& text) {
    if (!combo) return {};
    for (int i = 0; i < combo->count(); ++i) {
        if (combo->itemText(i).compare(text, Qt::CaseInsensitive) == 0) {
            combo->setCurrentIndex(i);
            return i == 0 ? QStringLiteral("0.5") : QString::number(i);
        }
    }
    return {};
}

void addComboItem(QComboBox* combo, const QString& text, qint64 id) {
    combo->addItem(text, QVariant::fromValue<qint64>(id));
}

qint64 comboId(const QComboBox* combo) {
    if (!combo) return NoComboId;
    const int index = combo->currentIndex();
    if (index < 0) return NoComboId;
    if (combo->isEditable() && combo->currentText() != combo->itemText(index)) return NoComboId;
    bool ok = false;
    const qint64 id = combo->itemData(index).toLongLong(&ok);
    return ok ? id : NoComboId;
}

QVariant comboIdValue(const QComboBox* combo) {
    const qint64 id = comboId(combo);
    return id == NoComboId ? QVariant(QMetaType::fromType<qint64>()) : QVariant(id);
}

bool selectComboId(QComboBox* combo, qint64 id) {
    if (!combo) return false;
    for (int i = 0; i < combo->count(); ++i) {
        bool ok = false;
        if (combo->itemData(i).toLongLong(&ok) == id && ok) {
            combo->setCurrentIndex(i);
            if (combo->isEditable()) combo->setEditText(combo->itemText(i));
            return true;
        }
    }
    combo->setCurrentIndex(-1);
    if (combo->isEditable()) combo->setEditText(QString());
    return false;
}

void refillCombo(QComboBox* combo, const std::function<void(QComboBox*)>& fill) {
    if (!combo) return;
    const QString shown = combo->currentText();
    const qint64 picked = comboId(combo);
    const QSignalBlocker block(combo);
    combo->clear();
    fill(combo);
    if (picked != NoComboId && selectComboId(combo, picked)) return;
    // A row that is not (or no longer) in the list, or text typed over it: shown as it was,
    // picking nothing, so that no key is written for it.
    combo->setCurrentIndex(-1);
    if (combo->isEditable())
        combo->setEditText(shown);
    else
        combo->setCurrentIndex(combo->findText(shown));
}

QComboBox* autoCompleteCombo(QWidget* parent, const QString& objectName) {
    auto* combo = new QComboBox(parent);
    combo->setObjectName(objectName);
    combo->setEditable(true);
    attachAutoComplete(combo);
    return combo;
}

} // namespace core
