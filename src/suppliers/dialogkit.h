#pragma once

#include "failure.h"
#include "loadedrow.h"
#include "modal.h"
#include "session.h"

#include <QString>
#include <optional>

class QDialog;
class QLineEdit;
class QWidget;

// Small pieces the supplier and directory dialogs share.
namespace suppliers {

// A named text box.
QLineEdit* textBox(QWidget* parent, const char* objectName);
// A postcode box: upper case once the user leaves it.
QLineEdit* postcodeBox(QWidget* parent, const char* objectName);
// Sets the flag once anything is typed in one of the dialog's text boxes.
void watchDirty(QDialog* dialog, bool& flag);
// Opens a mail to the address with the desktop's mail program; says so when none starts.
void openMail(const QString& address, QWidget* parent);

// Opens a dialog on a stored row and writes what its OK confirms, checked against the row as
// the dialog loaded it: a change by another user meanwhile keeps the dialog open with the
// typing and offers the row as it now is (`what` names it). The write goes through the
// dialog's `save` hook, which its OK calls once its own checks pass. The value written, or
// nothing.
template <class Dialog, class Value>
std::optional<Value> editStored(QWidget* parent, const QString& caption, const QString& what,
                                qint64 id, core::LoadedRow (*snapshot)(core::Db&, qint64),
                                std::optional<Value> (*read)(core::Db&, qint64),
                                void (*write)(core::Db&, qint64, const Value&,
                                              const core::LoadedRow&)) {
    Dialog dialog(parent);
    core::LoadedRow loaded;
    // Taken before the values: a change in between refuses the save.
    auto fill = [&] {
        core::LoadedRow now = snapshot(core::db(), id);
        const auto value = read(core::db(), id);
        if (!value) return false;
        loaded = now;
        dialog.load(*value);
        return true;
    };
    bool found = false;
    if (!core::guarded(
            caption, [&] { found = fill(); }, parent) ||
        !found)
        return std::nullopt;
    std::optional<Value> written;
    dialog.save = [&](const Value& v) {
        const bool saved = core::saveUnlessChanged(
            caption, what, [&] { write(core::db(), id, v, loaded); }, [&] { fill(); }, &dialog);
        if (saved) written = v;
        return saved;
    };
    core::showModal(dialog);
    return dialog.ok ? written : std::nullopt;
}

} // namespace suppliers
