#include "readback.h"
#include "recordlist.h"
#include "rptpettycash.h"
#include "seams.h"
#include "session.h"
#include "spreadsheet.h"
#include "testdb.h"

#include <QComboBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

using testsupport::ReadBook;
using testsupport::TestDatabase;

namespace {

const QString Red = QStringLiteral("FFFF0000");

// "type value" of a cell, "" for a cell the reader does not list.
QString cell(const ReadBook& book, const QString& ref) {
    if (!book.cells.contains(ref)) return {};
    return book.cells[ref].type + ' ' + book.cells[ref].value;
}

} // namespace

class TestPettyCashExport : public QObject {
    Q_OBJECT
private slots:
    void init() { core::session().language = "English (UK)"; }
    void statementReadsBackRowByRow();
};

void TestPettyCashExport::statementReadsBackRowByRow() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const auto write = [&](const QDate& d, const QString& amount, const QString& reason) {
        db.insert("pettycash", "pettyid", {{"Date", d}, {"amount", amount}, {"reason", reason}});
    };
    write(QDate(2024, 10, 31), "+140.75", "Brought in");
    write(QDate(2024, 11, 1), "+20", "Top up");
    write(QDate(2024, 11, 2), "-3.125", "O'Neil's parking");
    write(QDate(2024, 12, 1), "-5", "Next month");

    QTemporaryDir folder;
    reports::setExportFolder(folder.path());
    QStringList opened;
    reports::setSpreadsheetOpener([&](const QString& path) {
        opened << path;
        return true;
    });
    testsupport::MessageRecorder boxes;

    RptPettyCash report;
    report.load();
    report.cboMonth->setEditText("November");
    report.cboYear->setEditText("2024");
    report.cmdRun->click();
    QCOMPARE(report.ListView1->count(), 4);
    report.cmdExport->click();
    reports::setSpreadsheetOpener({});
    reports::setExportFolder({});

    QCOMPARE(boxes.texts(), QStringList());
    QCOMPARE(opened, QStringList{folder.path() + "/Petty Cash Report November 2024.xlsx"});
    const ReadBook book = testsupport::readWorkbook(opened.first());
    QVERIFY2(book.ok, qPrintable(book.error));
    QVERIFY(!book.isTemplate);
    // The template's headings stay; the rows start under them.
    QCOMPARE(cell(book, "B2"), QString("s Date"));
    QCOMPARE(cell(book, "F2"), QString("s Balance"));
    QVERIFY(book.cells["B2"].bold);
    const QStringList expected{"B3 s 31/10/2024",       "F3 n 140.75",   // opening
                               "C4 s Top up",           "D4 n 20",       // money in
                               "C5 s O'Neil's parking", "E5 n 3.125",    // money out
                               "B6 s 30/11/2024",       "F6 n 157.625"}; // closing
    QStringList written;
    for (auto it = book.cells.cbegin(); it != book.cells.cend(); ++it) {
        const int row = QStringView(it.key()).mid(1).toInt();
        if (row >= 3) written << it.key() + ' ' + it->type + ' ' + it->value;
    }
    QStringList sortedExpected = expected;
    sortedExpected.sort();
    written.sort();
    QCOMPARE(written, sortedExpected);
    QCOMPARE(book.cells["F6"].colour, Red);
    QVERIFY(book.cells["F3"].colour != Red);
    QVERIFY(book.cells["D4"].colour != Red);
}

QTEST_MAIN(TestPettyCashExport)
#include "tst_pettycash_export.moc"
