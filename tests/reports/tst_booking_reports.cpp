#include "booking_report.h"
#include "datebox.h"
#include "frmbookingreport.h"
#include "readback.h"
#include "recordlist.h"
#include "regional.h"
#include "seams.h"
#include "session.h"
#include "testdb.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

using reports::BookingKind;
using reports::Criterion;
using testsupport::TestDatabase;

namespace {

QDate d(const char* iso) {
    return QDate::fromString(iso, Qt::ISODate);
}

struct Org {
    qint64 sales = 0, works = 0, london = 0, leeds = 0;
    qint64 ann = 0, bob = 0, carl = 0, dora = 0;
};

// Ann (sales, London), Bob (works, London, a leaver), Carl (sales, deleted), Dora (works, Leeds).
// Each has one holiday 2024-03-04..08 and one absence the same days.
Org organisation(core::Db& db) {
    Org o;
    o.sales = db.insert("Department", "Department_ID", {{"Department", "Sales"}});
    o.works = db.insert("Department", "Department_ID", {{"Department", "Works"}});
    o.london = db.insert("Location", "Location_ID", {{"Location", "London"}});
    o.leeds = db.insert("Location", "Location_ID", {{"Location", "Leeds"}});
    auto person = [&](const QString& name, qint64 dept, qint64 loc, int left, int deleted) {
        const qint64 id = db.insert("Person", "Person_ID",
                                    {{"surname", name},
                                     {"firstnames", " First "},
                                     {"Department_ID", dept},
                                     {"Location_ID", loc},
                                     {"HasLeft", left},
                                     {"blndeleted", deleted}});
        db.insert("Holiday", "holiday_ID",
                  {{"person_id", id},
                   {"date_from", d("2024-03-04")},
                   {"date_to", d("2024-03-08")},
                   {"days", "5"}});
        db.insert("Absence", "absence_ID",
                  {{"person_id", id},
                   {"startdate", d("2024-03-04")},
                   {"enddate", d("2024-03-08")},
                   {"days", "5"},
                   {"reason", "S"}});
        return id;
    };
    o.ann = person("Ann", o.sales, o.london, 0, 0);
    o.bob = person("Bob", o.works, o.london, 1, 0);
    o.carl = person("Carl", o.sales, o.london, 0, 1);
    o.dora = person("Dora", o.works, o.leeds, 0, 0);
    return o;
}

QStringList surnames(const std::vector<reports::BookingRow>& rows) {
    QStringList out;
    for (const auto& r : rows)
        out << r.name.section(',', 0, 0);
    return out;
}

} // namespace

class TestBookingReports : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        QVERIFY(tmp_.isValid());
        core::session().language = core::regional::UK;
    }

    // A booking is kept whole when it touches the range, by as little as one day.
    void rangeEdges_data() {
        QTest::addColumn<QDate>("bookFrom");
        QTest::addColumn<QDate>("bookTo");
        QTest::addColumn<QDate>("from");
        QTest::addColumn<QDate>("to");
        QTest::addColumn<bool>("kept");
        QTest::newRow("single-day range inside")
            << d("2024-03-04") << d("2024-03-08") << d("2024-03-06") << d("2024-03-06") << true;
        QTest::newRow("single-day range on the booking")
            << d("2024-03-06") << d("2024-03-06") << d("2024-03-06") << d("2024-03-06") << true;
        QTest::newRow("starts before, ends after")
            << d("2024-02-01") << d("2024-04-30") << d("2024-03-01") << d("2024-03-31") << true;
        QTest::newRow("ends on the first day")
            << d("2024-02-20") << d("2024-03-01") << d("2024-03-01") << d("2024-03-31") << true;
        QTest::newRow("starts on the last day")
            << d("2024-03-31") << d("2024-04-10") << d("2024-03-01") << d("2024-03-31") << true;
        QTest::newRow("ends the day before")
            << d("2024-02-20") << d("2024-02-29") << d("2024-03-01") << d("2024-03-31") << false;
        QTest::newRow("starts the day after")
            << d("2024-04-01") << d("2024-04-10") << d("2024-03-01") << d("2024-03-31") << false;
        QTest::newRow("no dates") << QDate() << QDate() << d("2024-03-01") << d("2024-03-31")
                                  << false;
    }
    void rangeEdges() {
        QFETCH(QDate, bookFrom);
        QFETCH(QDate, bookTo);
        QFETCH(QDate, from);
        QFETCH(QDate, to);
        QFETCH(bool, kept);
        TestDatabase t;
        auto& db = t.db();
        const qint64 p = db.insert("Person", "Person_ID", {{"surname", "Edge"}});
        db.insert("Holiday", "holiday_ID",
                  {{"person_id", p},
                   {"date_from", core::Db::dateOrNull(bookFrom)},
                   {"date_to", core::Db::dateOrNull(bookTo)},
                   {"days", "12.5"}});
        db.insert("Absence", "absence_ID",
                  {{"person_id", p},
                   {"startdate", core::Db::dateOrNull(bookFrom)},
                   {"enddate", core::Db::dateOrNull(bookTo)},
                   {"days", "12.5"},
                   {"reason", "D"}});
        for (BookingKind kind : {BookingKind::Holiday, BookingKind::Absence})
            for (Criterion c : {Criterion::AllEmployees, Criterion::ByEmployee}) {
                const auto rows = reports::bookingReport(db, kind, c, p, false, from, to);
                QCOMPARE(rows.size(), std::size_t(kept ? 1 : 0));
                if (!kept) continue;
                // Shown whole, not clipped to the range.
                QCOMPARE(rows.front().from, bookFrom);
                QCOMPARE(rows.front().to, bookTo);
                QCOMPARE(reports::bookingCells(rows.front(), kind).at(4), "12.5");
            }
    }

    // Whose bookings each criterion lists, with and without leavers.
    void criteria_data() {
        QTest::addColumn<QString>("criterion");
        QTest::addColumn<QString>("choice");
        QTest::addColumn<bool>("leavers");
        QTest::addColumn<QStringList>("listed");
        QTest::newRow("all") << "All Employees"
                             << "" << false << QStringList{"Ann", "Dora"};
        QTest::newRow("all, leavers") << "All Employees"
                                      << "" << true << QStringList{"Ann", "Bob", "Dora"};
        QTest::newRow("department") << "By Department"
                                    << "works" << false << QStringList{"Dora"};
        QTest::newRow("department, leavers") << "By Department"
                                             << "works" << true << QStringList{"Bob", "Dora"};
        QTest::newRow("department of a deleted one") << "By Department"
                                                     << "sales" << true << QStringList{"Ann"};
        QTest::newRow("location") << "By Location"
                                  << "london" << false << QStringList{"Ann"};
        QTest::newRow("location, leavers") << "By Location"
                                           << "london" << true << QStringList{"Ann", "Bob"};
        QTest::newRow("employee, a leaver") << "By Employee"
                                            << "bob" << false << QStringList{"Bob"};
        QTest::newRow("employee, deleted") << "By Employee"
                                           << "carl" << false << QStringList{"Carl"};
    }
    void criteria() {
        QFETCH(QString, criterion);
        QFETCH(QString, choice);
        QFETCH(bool, leavers);
        QFETCH(QStringList, listed);
        TestDatabase t;
        const Org o = organisation(t.db());
        const QMap<QString, qint64> ids{{"sales", o.sales},   {"works", o.works},
                                        {"london", o.london}, {"leeds", o.leeds},
                                        {"bob", o.bob},       {"carl", o.carl}};
        for (BookingKind kind : {BookingKind::Holiday, BookingKind::Absence}) {
            const auto rows = reports::bookingReport(t.db(), kind, reports::criterionOf(criterion),
                                                     ids.value(choice), leavers, d("2024-03-01"),
                                                     d("2024-03-31"));
            QCOMPARE(surnames(rows), listed);
            QCOMPARE(rows.front().name, listed.front() + ", First");
        }
    }

    // Reasons with no lookup row are listed by the names the absence page gives them.
    void absenceReasons_data() {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("reason");
        QTest::newRow("sickness") << "S"
                                  << "Sickness";
        QTest::newRow("unauthorised") << "A"
                                      << "Unauthorised Absence";
        QTest::newRow("unpaid") << "U"
                                << "Unpaid Leave";
        QTest::newRow("unknown code") << "Z  "
                                      << "Z";
    }
    void absenceReasons() {
        QFETCH(QString, code);
        QFETCH(QString, reason);
        TestDatabase t;
        const qint64 p = t.db().insert("Person", "Person_ID", {{"surname", "Why"}});
        t.db().insert("Absence", "absence_ID",
                      {{"person_id", p},
                       {"startdate", d("2024-03-04")},
                       {"enddate", d("2024-03-04")},
                       {"days", "1"},
                       {"reason", code}});
        const auto rows =
            reports::bookingReport(t.db(), BookingKind::Absence, Criterion::AllEmployees, 0, false,
                                   d("2024-03-04"), d("2024-03-04"));
        QCOMPARE(rows.size(), std::size_t(1));
        QCOMPARE(rows.front().reason, reason);
        QCOMPARE(reports::bookingCells(rows.front(), BookingKind::Absence).at(5), reason);
    }

    void checks_data() {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<QString>("criterion");
        QTest::addColumn<bool>("hasChoice");
        QTest::addColumn<QString>("message");
        QTest::newRow("no start") << ""
                                  << "01/03/2024"
                                  << "All Employees" << true
                                  << "Please enter a start date and an end date.";
        QTest::newRow("end no date")
            << "01/03/2024"
            << "31/02/2024"
            << "All Employees" << true << "Please enter a start date and an end date.";
        QTest::newRow("end before start")
            << "02/03/2024"
            << "01/03/2024"
            << "All Employees" << true << "Startdate has to be before the enddate";
        QTest::newRow("equal dates") << "01/03/2024"
                                     << "01/03/2024"
                                     << "All Employees" << false << "";
        QTest::newRow("no employee")
            << "01/03/2024"
            << "02/03/2024"
            << "By Employee" << false << "Please select the employee you want to run the report on";
        QTest::newRow("no location")
            << "01/03/2024"
            << "02/03/2024"
            << "By Location" << false << "Please select the location you want to run the report on";
        QTest::newRow("no department")
            << "01/03/2024"
            << "02/03/2024"
            << "By Department" << false
            << "Please select the department you want to run the report on";
        QTest::newRow("no criterion") << "01/03/2024"
                                      << "02/03/2024"
                                      << "" << false << "Please select a criteria";
        QTest::newRow("dates before criterion")
            << ""
            << ""
            << "" << false << "Please enter a start date and an end date.";
    }
    void checks() {
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(QString, criterion);
        QFETCH(bool, hasChoice);
        QFETCH(QString, message);
        QString got = reports::rangeCheck(from, to);
        if (got.isEmpty())
            got = reports::selectionCheck(reports::criterionOf(criterion), hasChoice);
        QCOMPARE(got, message);
    }

    // The screen: a choice typed that matches no item is no choice; a run with rows enables
    // the export, one without says so.
    void screen() {
        TestDatabase t;
        const Org o = organisation(t.db());
        testsupport::MessageRecorder boxes;
        frmAbsenceReport screen;
        screen.txtFrom->setText("01/03/2024");
        screen.txtTo->setText("31/03/2024");
        screen.cboCriteria->setCurrentIndex(0); // By Employee
        QCOMPARE(screen.cboChoice->count(), 2); // Ann and Dora: no leavers, no deleted
        screen.cboChoice->setEditText("Nobody");
        screen.cmdRun->click();
        QCOMPARE(boxes.texts(),
                 QStringList{"Please select the employee you want to run the report on"});
        screen.chkLeavers->click();
        QCOMPARE(screen.cboChoice->count(), 3);
        boxes.clear();
        screen.cboCriteria->setCurrentIndex(1); // All Employees
        QVERIFY(!screen.cboChoice->isEnabled());
        screen.cmdRun->click();
        QVERIFY(boxes.texts().isEmpty());
        QCOMPARE(screen.ListView1->count(), 3);
        QCOMPARE(screen.ListView1->topLevelItem(0)->text(5), "Sickness");
        QVERIFY(screen.cmdExport->isEnabled());
        screen.txtFrom->setText("01/01/2020");
        screen.txtTo->setText("02/01/2020");
        screen.cmdRun->click();
        QCOMPARE(boxes.texts(), QStringList{"There are no matching records"});
        QVERIFY(!screen.cmdExport->isEnabled());
        Q_UNUSED(o);
    }

    // Both reports into their templates, read back: from row 3, columns B to F (and G).
    void reportExports() {
        TestDatabase t;
        organisation(t.db());
        for (BookingKind kind : {BookingKind::Holiday, BookingKind::Absence}) {
            const bool absence = kind == BookingKind::Absence;
            const auto rows = reports::bookingReport(t.db(), kind, Criterion::AllEmployees, 0, true,
                                                     d("2024-03-01"), d("2024-03-31"));
            const QString path = tmp_.filePath(absence ? "absence.xlsx" : "holiday.xlsx");
            reports::writeWorkbook(reports::bookingSheet(rows, kind),
                                   reports::templatePath(absence ? "absence.xltx" : "holiday.xltx"),
                                   path);
            const auto book = testsupport::readWorkbook(path);
            QVERIFY2(book.ok, qPrintable(book.error));
            QCOMPARE(book.cells["B2"].value, "Emp ID"); // the template's heading stays
            QCOMPARE(book.cells["B3"].type, "n");
            QCOMPARE(book.cells["B3"].value, QString::number(rows.front().personId));
            QCOMPARE(book.cells["C3"].value, "Ann, First");
            QCOMPARE(book.cells["D3"].value, "04/03/2024");
            QCOMPARE(book.cells["E3"].value, "08/03/2024");
            QCOMPARE(book.cells["F3"].type, "n");
            QCOMPARE(book.cells["F3"].value, "5");
            QCOMPARE(book.cells["C5"].value, "Dora, First");
            QVERIFY(!book.cells.contains("C6"));
            QVERIFY(!book.cells.contains("A3"));
            if (absence)
                QCOMPARE(book.cells["G3"].value, "Sickness");
            else
                QVERIFY(!book.cells.contains("G3"));
        }
    }

    // The two lists: bold headings, current employees only, numbers as numbers, NULL as an
    // empty cell, salaries by name.
    void employeeLists() {
        TestDatabase t;
        auto& db = t.db();
        db.insert("Person", "Person_ID",
                  {{"Title", "Ms "},
                   {"firstnames", "Zoe"},
                   {"surname", "Adams"},
                   {"address1", "1 High St"},
                   {"address2", QVariant()},
                   {"address3", "Town"},
                   {"PostCode", "AB1 2CD"},
                   {"salary", "30000.5"}});
        const qint64 b = db.insert(
            "Person", "Person_ID",
            {{"Title", "Mr"}, {"firstnames", "Al"}, {"surname", "Brown"}, {"salary", QVariant()}});
        db.insert("Person", "Person_ID", {{"surname", "Gone"}, {"HasLeft", 1}});
        db.insert("Person", "Person_ID", {{"surname", "Deleted"}, {"blndeleted", 1}});

        const QString addresses = tmp_.filePath("addresses.xlsx");
        reports::writeWorkbook(reports::addressSheet(db), {}, addresses);
        auto book = testsupport::readWorkbook(addresses);
        QVERIFY2(book.ok, qPrintable(book.error));
        const QStringList headings{"Title",    "First Names", "Last Name", "Address1",
                                   "Address2", "Address3",    "Post Code"};
        for (int c = 0; c < headings.size(); ++c) {
            const QString ref = QChar('A' + c) + QStringLiteral("1");
            QCOMPARE(book.cells[ref].value, headings[c]);
            QVERIFY(book.cells[ref].bold);
        }
        QCOMPARE(book.cells["A2"].value, "Ms");
        QVERIFY(!book.cells["A2"].bold);
        QCOMPARE(book.cells["D2"].value, "1 High St");
        QVERIFY(!book.cells.contains("E2")); // NULL: empty, and the export goes on
        QCOMPARE(book.cells["G2"].value, "AB1 2CD");
        QCOMPARE(book.cells["C3"].value, "Brown");
        QVERIFY(!book.cells.contains("C4"));

        const QString salaries = tmp_.filePath("salaries.xlsx");
        reports::writeWorkbook(reports::salarySheet(db), {}, salaries);
        book = testsupport::readWorkbook(salaries);
        QVERIFY2(book.ok, qPrintable(book.error));
        QCOMPARE(book.cells["A1"].value, "Employee ID");
        QVERIFY(book.cells["E1"].bold);
        QCOMPARE(book.cells["D2"].value, "Adams");
        QCOMPARE(book.cells["E2"].type, "n");
        QCOMPARE(book.cells["E2"].value, "30000.5");
        QCOMPARE(book.cells["A3"].type, "n");
        QCOMPARE(book.cells["A3"].value, QString::number(b));
        QVERIFY(!book.cells.contains("E3"));
        QVERIFY(!book.cells.contains("D4"));
    }

private:
    QTemporaryDir tmp_;
};

QTEST_MAIN(TestBookingReports)
#include "tst_booking_reports.moc"
