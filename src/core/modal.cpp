#include "modal.h"

#include <QDialog>

namespace core {

namespace {
DialogResponder& responder() {
    static DialogResponder r;
    return r;
}
} // namespace

void setDialogResponder(DialogResponder r) {
    responder() = std::move(r);
}

bool hasDialogResponder() {
    return static_cast<bool>(responder());
}

int showModal(QDialog& dialog) {
    if (responder()) {
        dialog.setModal(true);
        const int result = responder()(dialog);
        dialog.setResult(result);
        dialog.hide();
        return result;
    }
    return dialog.exec();
}

} // namespace core
