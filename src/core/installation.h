#pragma once

#include <QString>
#include <QStringList>

namespace core {

// The program's version, as the build names it ("1.0.0").
QString programVersion();

// The folders a spreadsheet template is looked for in, first to last: "templates" in the data
// folder (a user's own, restyled copy wins), the installed templates
// ({prefix}/share/quillorne/templates, found from the program's own bin folder), and, for a
// program run from its build tree, the source tree's config folder.
QStringList templateFolders();
// The template of this name ("pettycash.xltx") in the first of those folders that has it;
// when none has, where the installed one should be, for the failure to name.
QString templatePath(const QString& fileName);

} // namespace core
