#pragma once

#include <functional>

class QDialog;

namespace core {

// Every modal dialog is shown through here and its QDialog result returned.
int showModal(QDialog& dialog);

// Tests fill the dialog and accept or reject it instead of a person; the responder returns
// the result code (QDialog::Accepted / Rejected) the dialog would have given.
using DialogResponder = std::function<int(QDialog&)>;
void setDialogResponder(DialogResponder responder);
bool hasDialogResponder();

} // namespace core
