#pragma once

#include "messagebox.h"
#include "modal.h"

#include <QDialog>
#include <QList>
#include <deque>
#include <functional>

namespace testsupport {

// Answers every message box and keeps what was shown. Scripted answers are used in order;
// when they run out, the box's default (OK, or No for Yes/No boxes) is given.
class MessageRecorder {
public:
    MessageRecorder();
    ~MessageRecorder();

    void answerNext(core::MsgAnswer answer) { answers_.push_back(answer); }
    const QList<core::MessageCall>& calls() const { return calls_; }
    QStringList texts() const;
    bool saw(const QString& text) const;
    int count(const QString& text) const;
    void clear() { calls_.clear(); }

private:
    QList<core::MessageCall> calls_;
    std::deque<core::MsgAnswer> answers_;
};

// Plays a person at each modal dialog: handlers run in order, one per dialog shown, and
// return QDialog::Accepted or Rejected. A dialog with no handler left is rejected.
class DialogDriver {
public:
    using Handler = std::function<int(QDialog&)>;
    DialogDriver();
    ~DialogDriver();

    void then(Handler handler) { handlers_.push_back(std::move(handler)); }
    int shown() const { return shown_; }
    QStringList shownClasses() const { return classes_; }

private:
    std::deque<Handler> handlers_;
    int shown_ = 0;
    QStringList classes_;
};

} // namespace testsupport
