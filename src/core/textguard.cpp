#include "textguard.h"

#include <QApplication>
#include <QEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPointer>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextEdit>

namespace core {

bool isRefusedCharacter(QChar c) {
    return c.category() == QChar::Other_Control && c != u'\t' && c != u'\n' && c != u'\r';
}

bool hasRefusedCharacters(const QString& text) {
    return std::any_of(text.begin(), text.end(), isRefusedCharacter);
}

QString withoutRefusedCharacters(const QString& text) {
    QString out;
    out.reserve(text.size());
    for (QChar c : text)
        if (!isRefusedCharacter(c)) out += c;
    return out;
}

namespace {

void guardLineEdit(QLineEdit* edit) {
    QObject::connect(edit, &QLineEdit::textEdited, edit, [edit](const QString& text) {
        if (!hasRefusedCharacters(text)) return;
        const int cursor = edit->cursorPosition();
        const int removedBefore =
            int(std::count_if(text.begin(), text.begin() + std::min<qsizetype>(cursor, text.size()),
                              isRefusedCharacter));
        edit->setText(withoutRefusedCharacters(text));
        edit->setCursorPosition(cursor - removedBefore);
    });
}

void cleanDocument(QTextDocument* doc) {
    // The document's own text: toPlainText would turn its separators into line breaks.
    bool found = false;
    for (QTextBlock b = doc->begin(); b.isValid() && !found; b = b.next())
        found = hasRefusedCharacters(b.text());
    if (!found) return;
    QTextCursor cursor(doc);
    cursor.beginEditBlock();
    for (int i = doc->characterCount() - 1; i >= 0; --i) {
        if (!isRefusedCharacter(doc->characterAt(i))) continue;
        cursor.setPosition(i);
        cursor.deleteChar();
    }
    cursor.endEditBlock();
}

template <class Edit> void guardTextBox(Edit* edit) {
    QObject::connect(edit, &Edit::textChanged, edit, [edit] { cleanDocument(edit->document()); });
}

class ControlCharacterGuard : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override {
        // Each box is guarded once, when it is first polished (shown or laid out).
        if (event->type() == QEvent::Polish && !watched->property(GuardedProperty).toBool()) {
            if (auto* line = qobject_cast<QLineEdit*>(watched)) {
                guardLineEdit(line);
                watched->setProperty(GuardedProperty, true);
            } else if (auto* plain = qobject_cast<QPlainTextEdit*>(watched)) {
                guardTextBox(plain);
                watched->setProperty(GuardedProperty, true);
            } else if (auto* rich = qobject_cast<QTextEdit*>(watched)) {
                guardTextBox(rich);
                watched->setProperty(GuardedProperty, true);
            }
        }
        return QObject::eventFilter(watched, event);
    }

private:
    static constexpr const char* GuardedProperty = "quillorneControlGuard";
};

} // namespace

void refuseControlCharacters() {
    static QPointer<ControlCharacterGuard> guard;
    if (guard || !qApp) return;
    guard = new ControlCharacterGuard(qApp);
    qApp->installEventFilter(guard);
}

} // namespace core
