#include "frmtrainrep.h"
#include "programmes.h"
#include "recordlist.h"
#include "regional.h"
#include "seams.h"
#include "session.h"
#include "testdb.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

using testsupport::MessageRecorder;
using testsupport::TestDatabase;

namespace {

QString day(int offset) {
    return core::formatDate(QDate(2024, 3, 11).addDays(offset));
}

qint64 person(core::Db& db, const QString& surname, const QString& first, int left) {
    return db.insert("Person", "Person_ID",
                     {{"surname", surname}, {"firstnames", first}, {"HasLeft", left}});
}

qint64 course(core::Db& db, const QString& title) {
    return db.scalar("SELECT Course_ID FROM Courses WHERE Title = ?", {title}).toLongLong();
}

qint64 programme(core::Db& db, qint64 course, int start) {
    training::ProgrammeText p;
    p.start = day(start);
    p.courseId = course;
    return training::saveNewProgramme(db, p);
}

// Ann and Bob on two Fire Warden programmes and one of Data Protection, one deleted programme,
// one whose course is unknown; Carl, a leaver, was never booked.
void writeBookings(core::Db& db) {
    const qint64 ann = person(db, "Brown", "Ann", 0);
    const qint64 bob = person(db, "Smith", "Bob", 0);
    person(db, "Able", "Carl", 1);
    const qint64 warden = course(db, "Fire Warden");
    const qint64 first = programme(db, warden, 0);
    programme(db, warden, 5);
    const qint64 data = programme(db, course(db, "Data Protection"), 1);
    const qint64 deleted = programme(db, warden, 3);
    training::deleteProgramme(db, deleted);
    const qint64 unknown = programme(db, 0, 2);
    for (const auto& [who, what] :
         {std::pair{ann, first}, {bob, first}, {ann, data}, {bob, deleted}, {bob, unknown}})
        db.insertRow("PersonTraining", {{"person_id", who}, {"Training_ID", what}});
}

QStringList shown(const frmTrainRep& report) {
    QStringList out;
    for (int i = 0; i < report.ListView1->topLevelItemCount(); ++i) {
        const auto* item = report.ListView1->topLevelItem(i);
        out << item->text(0) + "|" + item->text(1) + "|" + item->text(2);
    }
    return out;
}

// Picks the item whose text ends with the choice, as typing it would; "" picks nothing.
void choose(QComboBox* combo, const QString& choice) {
    if (choice.isEmpty()) return;
    const int at = combo->findText(choice, Qt::MatchEndsWith);
    QVERIFY2(at >= 0, qPrintable(choice));
    combo->setCurrentIndex(at);
}

} // namespace

class TestTrainingReport : public QObject {
    Q_OBJECT
private slots:
    void init() { core::session().language = "English (UK)"; }

    void search_data();
    void search();
};

void TestTrainingReport::search_data() {
    QTest::addColumn<bool>("byCourse");
    QTest::addColumn<QString>("choice");
    QTest::addColumn<QStringList>("rows");
    QTest::addColumn<QString>("message");
    const QString warden = day(0) + "|Fire Warden|Brown, Ann";
    QTest::newRow("all") << true << "All"
                         << QStringList{warden, "||Smith, Bob",
                                        "||",   day(5) + "|Fire Warden|",
                                        "||",   day(1) + "|Data Protection|Brown, Ann",
                                        "||",   day(2) + "||Smith, Bob"}
                         << "";
    QTest::newRow("one course") << true << "Fire Warden"
                                << QStringList{warden, "||Smith, Bob", "||",
                                               day(5) + "|Fire Warden|"}
                                << "";
    QTest::newRow("course never run") << true << "Manual Handling" << QStringList() << "";
    QTest::newRow("no course typed")
        << true << "" << QStringList()
        << "Please select a course or select all to display all courses";
    QTest::newRow("latest first") << false << "Brown, Ann"
                                  << QStringList{day(1) + "|Data Protection|",
                                                 day(0) + "|Fire Warden|"}
                                  << "";
    QTest::newRow("deleted programme hidden")
        << false << "Smith, Bob" << QStringList{day(2) + "||", day(0) + "|Fire Warden|"} << "";
    QTest::newRow("leaver never booked")
        << false << "Able, Carl" << QStringList() << "There are no matching records";
    QTest::newRow("nobody chosen")
        << false << "" << QStringList() << "Please select an employee to report on";
}

void TestTrainingReport::search() {
    QFETCH(bool, byCourse);
    QFETCH(QString, choice);
    QFETCH(QStringList, rows);
    QFETCH(QString, message);
    TestDatabase fixture;
    writeBookings(fixture.db());
    MessageRecorder boxes;
    frmTrainRep report;
    report.loadall();
    report.SSTab1->setCurrentIndex(byCourse ? 0 : 1);
    choose(byCourse ? report.cboCourse : report.cboPerson, choice);
    (byCourse ? report.cmdCourseSearch : report.cmdPersonSearch)->click();
    QCOMPARE(shown(report), rows);
    QCOMPARE(boxes.texts(), message.isEmpty() ? QStringList() : QStringList{message});
    // Each drop-down has its caption beside it.
    QLabel* caption = nullptr;
    for (auto* label : report.findChildren<QLabel*>())
        if (label->buddy() == (byCourse ? report.cboCourse : report.cboPerson)) caption = label;
    QVERIFY(caption);
    QCOMPARE(caption->text(), byCourse ? QString("Select Course") : QString("Select Person"));
}

QTEST_MAIN(TestTrainingReport)
#include "tst_training_report.moc"
