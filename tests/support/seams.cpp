#include "seams.h"

namespace testsupport {

MessageRecorder::MessageRecorder() {
    core::setMessageResponder([this](const core::MessageCall& call) {
        calls_.push_back(call);
        if (!answers_.empty()) {
            const auto a = answers_.front();
            answers_.pop_front();
            return a;
        }
        switch (call.buttons) {
        case core::MsgButtons::YesNo:
        case core::MsgButtons::YesNoCancel:
            return core::MsgAnswer::No;
        default:
            return core::MsgAnswer::Ok;
        }
    });
}

MessageRecorder::~MessageRecorder() {
    core::setMessageResponder({});
}

QStringList MessageRecorder::texts() const {
    QStringList out;
    for (const auto& c : calls_)
        out << c.text;
    return out;
}

bool MessageRecorder::saw(const QString& text) const {
    return count(text) > 0;
}

int MessageRecorder::count(const QString& text) const {
    int n = 0;
    for (const auto& c : calls_)
        if (c.text == text) ++n;
    return n;
}

DialogDriver::DialogDriver() {
    core::setDialogResponder([this](QDialog& d) {
        ++shown_;
        classes_ << QString::fromLatin1(d.metaObject()->className());
        if (handlers_.empty()) return int(QDialog::Rejected);
        auto h = std::move(handlers_.front());
        handlers_.pop_front();
        return h(d);
    });
}

DialogDriver::~DialogDriver() {
    core::setDialogResponder({});
}

} // namespace testsupport
