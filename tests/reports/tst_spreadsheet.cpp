#include "export.h"
#include "readback.h"
#include "seams.h"
#include "spreadsheet.h"
#include "xlsx_sheet.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using reports::CellFormat;
using reports::Sheet;
using testsupport::readWorkbook;

namespace {

const QString Red = "FFFF0000";

QString sicknessTemplate() {
    return reports::templatePath("sickness.xltx");
}

// Only the owner may read or write it.
bool ownerOnly(const QString& path) {
    const auto p = QFile::permissions(path);
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther |
                        QFile::WriteOther | QFile::ExeOther;
    return (p & others) == 0 && (p & QFile::ReadOwner) && (p & QFile::WriteOwner);
}

} // namespace

class TestSpreadsheet : public QObject {
    Q_OBJECT
private slots:
    void init() { QVERIFY(dir_.isValid()); }

    void columnNames_data() {
        QTest::addColumn<int>("column");
        QTest::addColumn<QString>("name");
        QTest::newRow("first") << 1 << "A";
        QTest::newRow("last single") << 26 << "Z";
        QTest::newRow("first double") << 27 << "AA";
        QTest::newRow("carry") << 53 << "BA";
        QTest::newRow("last double") << 702 << "ZZ";
        QTest::newRow("first triple") << 703 << "AAA";
    }
    void columnNames() {
        QFETCH(int, column);
        QFETCH(QString, name);
        QCOMPARE(reports::columnName(column), name);
        QCOMPARE(reports::columnOfReference(name + "17"), column);
    }

    // A report into the attendance template: the template's own cells and looks stay, the
    // report's text, numbers and red cells go in, and the file is a workbook.
    void fillsTemplate() {
        Sheet sheet;
        sheet.setNumber(1, 2, 1);
        sheet.addFormat(1, 2, {false, true, false});
        sheet.setNumber(1, 3, "2.5");
        sheet.setText(2, 1, "O'Neil, Mary");
        sheet.setText(2, 2, QString(), {false, true, false});
        sheet.setText(2, 3, " ");
        sheet.setText(2, 4, "S/");
        sheet.setText(3, 1, "Bell\x01, Ann", {true, false, true});
        sheet.setText(2, 4, "H/"); // the last write to a cell wins
        const QString target = dir_.filePath("grid.xlsx");
        reports::writeWorkbook(sheet, sicknessTemplate(), target);

        const auto book = readWorkbook(target);
        QVERIFY2(book.ok, qPrintable(book.error));
        QVERIFY(!book.isTemplate);
        // The template's heading and its bold band fill.
        QCOMPARE(book.cells["A1"].value, "Name/Day");
        QVERIFY(book.cells["A1"].bold);
        QCOMPARE(book.cells["A1"].fill, "FFDDEBF7");
        QCOMPARE(book.cells["B1"].type, "n");
        QCOMPARE(book.cells["B1"].value, "1");
        QCOMPARE(book.cells["B1"].fill, Red);
        QCOMPARE(book.cells["C1"].value, "2.5");
        QCOMPARE(book.cells["C1"].fill, "-");
        QCOMPARE(book.cells["A2"].value, "O'Neil, Mary");
        QCOMPARE(book.cells["B2"].type, "e");
        QCOMPARE(book.cells["B2"].fill, Red);
        QCOMPARE(book.cells["C2"].type, "s");
        QCOMPARE(book.cells["C2"].value, " ");
        QCOMPARE(book.cells["D2"].value, "H/");
        QCOMPARE(book.cells["A3"].value, "Bell, Ann");
        QVERIFY(book.cells["A3"].bold);
        QCOMPARE(book.cells["A3"].colour, Red);
        QCOMPARE(book.cells["A3"].fill, "-");
    }

    // Numbers as numbers, nulls as empty cells, bold headings, in a workbook made from nothing.
    void newWorkbook() {
        Sheet sheet;
        const CellFormat bold{true, false, false};
        sheet.setText(1, 1, "Employee ID", bold);
        sheet.setText(1, 2, "Salary", bold);
        sheet.setValue(2, 1, QVariant(qint64(9007199254740993LL)));
        sheet.setValue(2, 2, QVariant(QByteArray("30000.5000")));
        sheet.setValue(3, 1, QVariant(qint64(2)));
        sheet.setValue(3, 2, QVariant(QMetaType(QMetaType::QString)));
        sheet.setValue(3, 3, QVariant(QString("12")));
        const QString target = dir_.filePath("list.xlsx");
        reports::writeWorkbook(sheet, QString(), target);

        const auto book = readWorkbook(target);
        QVERIFY2(book.ok, qPrintable(book.error));
        QVERIFY(!book.isTemplate);
        QVERIFY(book.cells["A1"].bold);
        QVERIFY(book.cells["B1"].bold);
        QCOMPARE(book.cells["A1"].value, "Employee ID");
        QCOMPARE(book.cells["A2"].type, "n");
        QCOMPARE(book.cells["B2"].type, "n");
        QCOMPARE(book.cells["B2"].value, "30000.5");
        QVERIFY(!book.cells["A2"].bold);
        QVERIFY(!book.cells.contains("B3"));  // NULL: an empty cell
        QCOMPARE(book.cells["C3"].type, "s"); // text that looks like a number stays text
        QVERIFY(ownerOnly(target));
    }

    // A second export of the same name gets a new name; nothing is ever written over.
    void neverOverwrites() {
        const QString first =
            reports::freeFileName(dir_.path(), "Attendance for the month of May : 2024");
        QVERIFY(first.endsWith("/Attendance for the month of May : 2024.xlsx"));
        Sheet sheet;
        sheet.setText(1, 1, "one");
        reports::writeWorkbook(sheet, QString(), first);
        const QString second =
            reports::freeFileName(dir_.path(), "Attendance for the month of May : 2024");
        QVERIFY(second.endsWith("/Attendance for the month of May : 2024 (2).xlsx"));
        QVERIFY_THROWS_EXCEPTION(reports::SpreadsheetError,
                                 reports::writeWorkbook(sheet, QString(), first));
        QCOMPARE(readWorkbook(first).cells["A1"].value, "one");
        QVERIFY(reports::freeFileName(dir_.path(), "a/b").endsWith("/a-b.xlsx"));
    }

    // Each failure names the file and why, and leaves no file behind.
    void failures_data() {
        QTest::addColumn<QString>("templateFile");
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QString>("reason");
        QTest::newRow("template missing") << "/nonexistent/sickness.xltx"
                                          << ""
                                          << "does not exist";
        QTest::newRow("template no workbook") << "notazip"
                                              << ""
                                              << "cannot be opened";
        QTest::newRow("folder is a file") << ""
                                          << "file"
                                          << "cannot be created";
    }
    void failures() {
        QFETCH(QString, templateFile);
        QFETCH(QString, folder);
        QFETCH(QString, reason);
        if (templateFile == "notazip") {
            templateFile = dir_.filePath("broken.xltx");
            QFile f(templateFile);
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write("this is no workbook");
        }
        QString target = dir_.filePath("out.xlsx");
        if (folder == "file") {
            QFile f(dir_.filePath("plain"));
            QVERIFY(f.open(QIODevice::WriteOnly));
            target = dir_.filePath("plain/out.xlsx");
        }
        Sheet sheet;
        sheet.setText(1, 1, "x");
        try {
            reports::writeWorkbook(sheet, templateFile, target);
            QFAIL("no failure");
        } catch (const reports::SpreadsheetError& e) {
            QVERIFY2(e.reason().contains(reason), qPrintable(e.reason()));
            QVERIFY2(
                e.reason().contains(templateFile.isEmpty() ? dir_.filePath("plain") : templateFile),
                qPrintable(e.reason()));
        }
        QVERIFY(!QFile::exists(target));
    }

    // The export command: the message names the reason; a saved file nobody can open is
    // named to the user.
    void exportMessages() {
        testsupport::MessageRecorder boxes;
        reports::setExportFolder(dir_.filePath("Documents"));
        QStringList opened;
        reports::setSpreadsheetOpener([&](const QString& p) {
            opened << p;
            return false;
        });
        Sheet sheet;
        sheet.setText(1, 1, "x");
        const QString path = reports::exportSpreadsheet(sheet, "sickness.xltx", "Report");
        QCOMPARE(path, dir_.filePath("Documents/Report.xlsx"));
        QCOMPARE(opened, QStringList{path});
        QCOMPARE(boxes.texts().size(), 1);
        QVERIFY(boxes.texts().front().contains(path));
        QVERIFY(ownerOnly(dir_.filePath("Documents")));
        QVERIFY(ownerOnly(path));

        boxes.clear();
        QVERIFY(reports::exportSpreadsheet(sheet, "no-such-template.xltx", "Report").isEmpty());
        QCOMPARE(boxes.texts().size(), 1);
        QVERIFY(boxes.texts().front().startsWith("The spreadsheet could not be written: "));
        QVERIFY(boxes.texts().front().contains("no-such-template.xltx"));
        QVERIFY(!QFile::exists(dir_.filePath("Documents/Report (2).xlsx")));
        reports::setSpreadsheetOpener({});
        reports::setExportFolder({});
    }

private:
    QTemporaryDir dir_;
};

QTEST_MAIN(TestSpreadsheet)
#include "tst_spreadsheet.moc"
