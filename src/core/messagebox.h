#pragma once

#include <QString>
#include <functional>
#include <optional>

class QWidget;

namespace core {

enum class MsgButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class MsgIcon { None, Information, Question, Warning, Critical };
enum class MsgAnswer { Ok, Cancel, Yes, No };

struct MessageCall {
    QString text;
    QString title;
    MsgButtons buttons = MsgButtons::Ok;
    MsgIcon icon = MsgIcon::None;
    // The button Enter presses when the box names one (questions whose safe answer is No).
    std::optional<MsgAnswer> defaultAnswer;
};

// Every message box of the program goes through here. An empty title is a plain box,
// which shows the program's name in its frame.
MsgAnswer msgbox(const QString& text, const QString& title = {},
                 MsgButtons buttons = MsgButtons::Ok, MsgIcon icon = MsgIcon::None,
                 QWidget* parent = nullptr);
// The same with the button that Enter presses named, for questions whose safe answer is the
// second button.
MsgAnswer msgbox(const QString& text, const QString& title, MsgButtons buttons, MsgIcon icon,
                 MsgAnswer defaultAnswer, QWidget* parent = nullptr);

// Tests (and the headless screenshot run) answer the boxes instead of a person.
using MessageResponder = std::function<MsgAnswer(const MessageCall&)>;
void setMessageResponder(MessageResponder responder);
bool hasMessageResponder();

} // namespace core
