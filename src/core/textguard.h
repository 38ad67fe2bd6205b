#pragma once

#include <QString>

class QObject;

namespace core {

// Control characters other than tab and line breaks: a NUL reaches the database driver as the
// end of the text, and the others cannot be seen or printed.
bool isRefusedCharacter(QChar c);
bool hasRefusedCharacters(const QString& text);
QString withoutRefusedCharacters(const QString& text);

// From here on no text box of the application (line edits, the edit part of combos, plain
// and rich text boxes) takes such characters, whether typed, pasted or dropped: they are left
// out and the rest of the input is kept.
void refuseControlCharacters();

} // namespace core
