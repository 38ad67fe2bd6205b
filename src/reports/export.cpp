#include "export.h"

#include "messagebox.h"
#include "progress.h"

#include <QDir>

namespace reports {

QString exportSpreadsheet(const Sheet& sheet, const QString& templateName, const QString& baseName,
                          QWidget* parent) {
    const QString templateFile = templateName.isEmpty() ? QString() : templatePath(templateName);
    QString target;
    try {
        ProgressPanel progress(QStringLiteral("Exporting to a spreadsheet"), parent);
        target = freeFileName(exportFolder(), baseName);
        writeWorkbook(sheet, templateFile, target,
                      [&](int done, int total) { progress.set(done, total); });
    } catch (const SpreadsheetError& e) {
        core::msgbox(QStringLiteral("The spreadsheet could not be written: %1").arg(e.reason()), {},
                     core::MsgButtons::Ok, core::MsgIcon::None, parent);
        return {};
    }
    if (!openSpreadsheet(target))
        core::msgbox(QStringLiteral("No program on this computer could open the spreadsheet. It "
                                    "has been saved as %1")
                         .arg(QDir::toNativeSeparators(target)),
                     {}, core::MsgButtons::Ok, core::MsgIcon::None, parent);
    return target;
}

} // namespace reports
