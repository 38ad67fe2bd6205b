#include "bookings.h"
#include "combos.h"
#include "commands.h"
#include "datebox.h"
#include "frmtraining.h"
#include "mdimain.h"
#include "programme_checks.h"
#include "programmes.h"
#include "recordlist.h"
#include "regional.h"
#include "screenhost.h"
#include "seams.h"
#include "session.h"
#include "testdb.h"
#include "traininglist.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPushButton>
#include <QToolBar>
#include <QtTest>

using core::MsgAnswer;
using testsupport::DialogDriver;
using testsupport::MessageRecorder;
using testsupport::TestDatabase;
using training::ProgrammeText;

namespace {

const QString NeedsCourseAndStart =
    QStringLiteral("Please select Course and enter startdate before selecting employees");
const QString AlreadyBooked = QStringLiteral("That user has already been booked");
const QString MissingField =
    QStringLiteral("Please enter a Course startdate, enddate, time and Title");
const QString DateOrder = QStringLiteral("Please ensure startdate is earlier than enddate");

qint64 addPerson(core::Db& db, const QString& surname, const QString& firstnames, int hasLeft = 0) {
    return db.insert("Person", "Person_ID",
                     {{"surname", surname}, {"firstnames", firstnames}, {"HasLeft", hasLeft}});
}

qint64 courseId(core::Db& db, const QString& title) {
    return db.scalar("SELECT Course_ID FROM Courses WHERE Title = ?", {title}).toLongLong();
}

int count(core::Db& db, const QString& table) {
    return db.scalar(QStringLiteral("SELECT COUNT(*) FROM %1").arg(table)).toInt();
}

QString day(int offset) {
    return core::formatDate(QDate(2024, 3, 11).addDays(offset));
}

ProgrammeText programme(qint64 course, const QString& start = day(0), const QString& end = day(2)) {
    ProgrammeText p;
    p.start = start;
    p.end = end;
    p.time = "09:30";
    p.courseTitle = "Fire Warden";
    p.courseId = course;
    p.location = " Leeds ";
    p.instructor = "Clearview Training Ltd";
    p.description = "Spring";
    p.price = "120.50";
    return p;
}

void pick(QComboBox* combo, qint64 id) {
    QVERIFY(core::selectComboId(combo, id));
}

QStringList booked(const frmtraining& screen) {
    QStringList out;
    for (int i = 0; i < screen.lstEmployees->count(); ++i)
        out << screen.lstEmployees->item(i)->text();
    return out;
}

QStringList bookingsOf(core::Db& db, qint64 trainingId) {
    QStringList out;
    for (const auto& e : training::bookedEmployees(db, trainingId))
        out << e.text;
    return out;
}

} // namespace

class TestProgrammes : public QObject {
    Q_OBJECT
private slots:
    void init() { core::session().language = "English (UK)"; }

    void firstBookingSavesTheProgrammeThenOkEdits();
    void scheduleRefusesAndWritesNothing_data();
    void scheduleRefusesAndWritesNothing();
    void okChecks_data();
    void okChecks();
    void editKeepsEndDateAndPriceWhenCleared();
    void unreadablePriceOrTimeIsRefused_data();
    void unreadablePriceOrTimeIsRefused();
    void editByTwoUsersIsNotOverwritten();
    void removeDeletesOnlyFromSavedProgrammes_data();
    void removeDeletesOnlyFromSavedProgrammes();
    void addedCourseIsOfferedAndSaved();
    void listEditsAndSoftDeletes();
    void menuAndToolbarOpenTheScreens();
};

void TestProgrammes::firstBookingSavesTheProgrammeThenOkEdits() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 ann = addPerson(db, "O'Neil", "Ann");
    const qint64 bob = addPerson(db, "Smith", "Bob");
    addPerson(db, "Gone", "Carl", 1);
    const qint64 warden = courseId(db, "Fire Warden");
    MessageRecorder boxes;

    frmtraining screen;
    QCOMPARE(screen.windowTitle(), QString("New Training Programme"));
    QCOMPARE(screen.cboEmployee->count(), 2); // the leaver cannot be booked
    screen.txtStartDate->setText(day(0));
    screen.txtTime->setText("0930");
    pick(screen.cboCourse, warden);
    pick(screen.cboEmployee, ann);
    screen.cmdSchedule->click();
    QCOMPARE(boxes.texts(), QStringList());
    QVERIFY(!screen.isnewtraining);
    QVERIFY(screen.trainingid > 0);
    QCOMPARE(count(db, "Training"), 1);
    pick(screen.cboEmployee, bob);
    screen.cmdSchedule->click();
    QCOMPARE(count(db, "Training"), 1);
    const QStringList both{QString("%1 - O'Neil, Ann").arg(ann),
                           QString("%1 - Smith, Bob").arg(bob)};
    QCOMPARE(booked(screen), both);
    QCOMPARE(bookingsOf(db, screen.trainingid), both);

    // OK now takes the edit path, and an empty end date is refused there too.
    screen.cmdOK->click();
    QCOMPARE(boxes.texts(), QStringList{MissingField});
    screen.txtEndDate->setText(day(0));
    screen.txtLocation->setText("Leeds ");
    screen.cmdOK->click();
    QCOMPARE(boxes.texts(), QStringList{MissingField});
    QCOMPARE(count(db, "Training"), 1);

    frmtraining again;
    again.load(screen.trainingid);
    QCOMPARE(again.windowTitle(), QString("Training : Fire Warden"));
    QCOMPARE(again.txtStartDate->text(), day(0) + " ");
    QCOMPARE(again.txtEndDate->text(), day(0));
    QCOMPARE(again.txtTime->text(), QString("09:30"));
    QCOMPARE(again.txtLocation->text(), QString("Leeds"));
    QCOMPARE(again.courseid, warden);
    QCOMPARE(booked(again), both);
}

void TestProgrammes::scheduleRefusesAndWritesNothing_data() {
    QTest::addColumn<QString>("missing");
    QTest::addColumn<QString>("message");
    QTest::newRow("no employee") << "person" << NeedsCourseAndStart;
    QTest::newRow("no start date") << "start" << NeedsCourseAndStart;
    QTest::newRow("no course") << "course" << NeedsCourseAndStart;
    QTest::newRow("already in the list") << "listed" << AlreadyBooked;
    QTest::newRow("booked by someone else") << "stored" << AlreadyBooked;
}

void TestProgrammes::scheduleRefusesAndWritesNothing() {
    QFETCH(QString, missing);
    QFETCH(QString, message);
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 ann = addPerson(db, "Brown", "Ann");
    const qint64 saved =
        training::saveNewProgramme(db, programme(courseId(db, "First Aid at Work")));
    if (missing == "stored")
        db.insertRow("PersonTraining", {{"person_id", ann}, {"Training_ID", saved}});
    const int programmes = count(db, "Training");
    const int bookings = count(db, "PersonTraining");

    training::ScheduleRequest r{ann, {}, 0, programme(courseId(db, "Fire Warden"))};
    if (missing == "person") r.personId = 0;
    if (missing == "start") r.programme.start = "  ";
    if (missing == "course") r.programme.courseId = 0;
    if (missing == "listed") r.booked = {addPerson(db, "Cole", "Di"), ann};
    if (missing == "stored") r.trainingId = saved;
    const auto outcome = training::schedule(db, r);
    QCOMPARE(outcome.message, message);
    QCOMPARE(count(db, "Training"), programmes);
    QCOMPARE(count(db, "PersonTraining"), bookings);
}

void TestProgrammes::okChecks_data() {
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("message");
    QTest::newRow("complete") << ""
                              << ""
                              << "";
    QTest::newRow("equal dates") << "end" << day(0) << "";
    QTest::newRow("end before start") << "end" << day(-1) << DateOrder;
    QTest::newRow("no start") << "start"
                              << " " << MissingField;
    QTest::newRow("start is no date") << "start"
                                      << "45/13/2024" << MissingField;
    QTest::newRow("no end") << "end"
                            << "" << MissingField;
    QTest::newRow("no time") << "time"
                             << "" << MissingField;
    QTest::newRow("no title") << "title"
                              << "  " << MissingField;
    QTest::newRow("title of no course") << "course"
                                        << "0" << MissingField;
}

void TestProgrammes::okChecks() {
    QFETCH(QString, field);
    QFETCH(QString, value);
    QFETCH(QString, message);
    ProgrammeText p = programme(7);
    if (field == "start") p.start = value;
    if (field == "end") p.end = value;
    if (field == "time") p.time = value;
    if (field == "title") p.courseTitle = value;
    if (field == "course") p.courseId = value.toLongLong();
    QCOMPARE(training::checkProgramme(p), message);
}

void TestProgrammes::editKeepsEndDateAndPriceWhenCleared() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 id = training::saveNewProgramme(db, programme(courseId(db, "Fire Warden")));
    QCOMPARE(training::loadProgramme(db, id)->price, QString("120.5"));
    ProgrammeText changed = programme(courseId(db, "Manual Handling"), day(1), "");
    changed.price = "free";
    training::updateProgramme(db, id, changed);
    const auto p = training::loadProgramme(db, id);
    QCOMPARE(p->start, QDate(2024, 3, 12));
    QCOMPARE(p->end, QDate(2024, 3, 13));
    QCOMPARE(p->price, QString("120.5"));
    QCOMPARE(p->title, QString("Manual Handling"));
}

void TestProgrammes::unreadablePriceOrTimeIsRefused_data() {
    QTest::addColumn<bool>("editing");
    QTest::addColumn<QString>("time"); // as typed into the mask
    QTest::addColumn<QString>("price");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("storedPrice"); // after OK; "" when no programme
    const QString badPrice =
        QStringLiteral("Please enter Price as an amount, such as 30000 or 30,000.50");
    const QString badTime =
        QStringLiteral("Please enter Time as a time of day in the format HH:MM");
    // clang-format off
    QTest::newRow("new: price of letters") << false << "0930" << "abc" << badPrice << "";
    QTest::newRow("new: price with an exponent") << false << "0930" << "1e5" << badPrice << "";
    QTest::newRow("new: price as people type it") << false << "0930" << QString::fromUtf8("£1,200.50") << "" << "1200.5";
    QTest::newRow("new: 99:99") << false << "9999" << "120" << badTime << "";
    QTest::newRow("new: 25:61") << false << "2561" << "120" << badTime << "";
    QTest::newRow("edit: price of letters") << true << "0930" << "abc" << badPrice << "120.5";
    QTest::newRow("edit: 24:00") << true << "2400" << "99" << badTime << "120.5";
    QTest::newRow("edit: price too large") << true << "0930" << "999999999999999"
        << "Price is too large: the most it can hold is 99999999999.9999" << "120.5";
    QTest::newRow("edit: new price") << true << "2359" << "1,000" << "" << "1000";
    // clang-format on
}

void TestProgrammes::unreadablePriceOrTimeIsRefused() {
    QFETCH(bool, editing);
    QFETCH(QString, time);
    QFETCH(QString, price);
    QFETCH(QString, message);
    QFETCH(QString, storedPrice);
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 warden = courseId(db, "Fire Warden");
    MessageRecorder boxes;
    frmtraining screen;
    qint64 id = 0;
    if (editing) {
        id = training::saveNewProgramme(db, programme(warden));
        screen.load(id);
    } else {
        screen.txtStartDate->setText(day(0));
        screen.txtEndDate->setText(day(1));
        pick(screen.cboCourse, warden);
    }
    screen.txtTime->setText(time);
    screen.txtPrice->setText(price);
    screen.cmdOK->click();
    QCOMPARE(boxes.texts(), message.isEmpty() ? QStringList() : QStringList{message});
    if (!editing) {
        QCOMPARE(count(db, "Training"), storedPrice.isEmpty() ? 0 : 1);
        id = db.scalar("SELECT MAX(Training_ID) FROM Training").toLongLong();
    }
    if (!storedPrice.isEmpty()) QCOMPARE(training::loadProgramme(db, id)->price, storedPrice);
    if (editing && !message.isEmpty())
        QCOMPARE(training::loadProgramme(db, id)->time, QString("09:30"));

    // The first booking writes the programme too, and refuses the same way.
    if (!editing && !message.isEmpty()) {
        const qint64 ann = addPerson(db, "Brown", "Ann");
        training::ScheduleRequest r{ann, {}, 0, screen.programme()};
        QCOMPARE(training::schedule(db, r).message, message);
        QCOMPARE(count(db, "Training"), 0);
    }
}

void TestProgrammes::editByTwoUsersIsNotOverwritten() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 id = training::saveNewProgramme(db, programme(courseId(db, "Fire Warden")));
    MessageRecorder boxes;
    frmtraining screen;
    screen.load(id);
    auto userB = fixture.openSecond("user-b");
    userB->update("Training", "Training_ID", id, {{"Location", "York"}});
    screen.txtPrice->setText("99");
    screen.cmdOK->click();
    QCOMPARE(boxes.calls().size(), 1);
    QVERIFY(boxes.calls()[0].text.startsWith(
        "This training programme has been changed by another user since you opened it. Your "
        "changes have not been saved."));
    QCOMPARE(screen.txtPrice->text(), QString("99"));
    QCOMPARE(training::loadProgramme(db, id)->price, QString("120.5"));
    QCOMPARE(training::loadProgramme(db, id)->location, QString("York"));
}

void TestProgrammes::removeDeletesOnlyFromSavedProgrammes_data() {
    QTest::addColumn<bool>("saved");
    QTest::newRow("saved programme") << true;
    QTest::newRow("new programme") << false;
}

void TestProgrammes::removeDeletesOnlyFromSavedProgrammes() {
    QFETCH(bool, saved);
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 ann = addPerson(db, "Brown", "Ann");
    const qint64 bob = addPerson(db, "Smith", "Bob");
    const qint64 warden = courseId(db, "Fire Warden");
    const qint64 id = training::saveNewProgramme(db, programme(warden));
    const qint64 other = training::saveNewProgramme(db, programme(warden));
    for (const auto& [person, programme] : {std::pair{ann, id}, {bob, id}, {ann, other}})
        db.insertRow("PersonTraining", {{"person_id", person}, {"Training_ID", programme}});

    frmtraining screen;
    if (saved) {
        screen.load(id);
    } else {
        auto* entry =
            new QListWidgetItem(training::personEntry(ann, "Brown", "Ann"), screen.lstEmployees);
        entry->setData(Qt::UserRole, ann);
    }
    screen.lstEmployees->setCurrentRow(0);
    screen.cmdRemove->click();
    QCOMPARE(booked(screen),
             saved ? QStringList{training::personEntry(bob, "Smith", "Bob")} : QStringList());
    QCOMPARE(bookingsOf(db, id).size(), saved ? 1 : 2);
    QCOMPARE(bookingsOf(db, other).size(), 1);
}

void TestProgrammes::addedCourseIsOfferedAndSaved() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 ann = addPerson(db, "Brown", "Ann");
    MessageRecorder boxes;
    DialogDriver dialogs;
    frmtraining screen;
    const int courses = screen.cboCourse->count();
    for (const QString title : {"   ", "  Negotiation Skills "})
        dialogs.then([title](QDialog& d) {
            d.findChild<QLineEdit*>("txtTitle")->setText(title);
            d.findChild<QPushButton*>("cmdOK")->click();
            return d.result();
        });
    screen.cmdAddCourse->click(); // a blank title is not taken
    QCOMPARE(screen.cboCourse->count(), courses);
    screen.cmdAddCourse->click();
    const qint64 added = courseId(db, "Negotiation Skills");
    QVERIFY(added > 0);
    QCOMPARE(screen.cboCourse->count(), courses + 1);
    QCOMPARE(screen.cboCourse->currentText(), QString("Negotiation Skills"));
    QCOMPARE(screen.courseid, added);

    screen.txtStartDate->setText(day(0));
    pick(screen.cboEmployee, ann);
    screen.cmdSchedule->click();
    QCOMPARE(boxes.texts(), QStringList());
    QCOMPARE(training::loadProgramme(db, screen.trainingid)->courseId, added);
}

void TestProgrammes::listEditsAndSoftDeletes() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 ann = addPerson(db, "Brown", "Ann");
    ProgrammeText early = programme(courseId(db, "Fire Warden"), day(-30), day(-30));
    early.location.clear();
    const qint64 first = training::saveNewProgramme(db, early);
    const qint64 second =
        training::saveNewProgramme(db, programme(courseId(db, "Data Protection")));
    db.insertRow("PersonTraining", {{"person_id", ann}, {"Training_ID", first}});
    MessageRecorder boxes;
    QList<QWidget*> opened;
    core::setScreenHost([&](QWidget* w) { opened << w; });

    TrainingList edit;
    edit.setWindowTitle("Edit Training Programme");
    edit.load();
    QCOMPARE(edit.ListView1->count(), 2);
    QCOMPARE(edit.ListView1->topLevelItem(0)->text(0), QString("Data Protection"));
    const QStringList cells{"Fire Warden", day(-30), "09:30", "", "Clearview Training Ltd"};
    for (int c = 0; c < cells.size(); ++c)
        QCOMPARE(edit.ListView1->topLevelItem(1)->text(c), cells[c]);
    edit.ListView1->setCurrentItem(edit.ListView1->findRecord(first));
    edit.cmdOK->click();
    core::setScreenHost({});
    QCOMPARE(opened.size(), 1);
    QCOMPARE(opened[0]->windowTitle(), QString("Training : Fire Warden"));
    delete opened[0];

    TrainingList remove;
    remove.setWindowTitle("Delete Training Programme");
    remove.load();
    remove.ListView1->setCurrentItem(remove.ListView1->findRecord(first));
    boxes.answerNext(MsgAnswer::No);
    remove.cmdOK->click();
    QCOMPARE(remove.ListView1->count(), 2);
    boxes.answerNext(MsgAnswer::Yes);
    remove.cmdOK->click();
    QCOMPARE(boxes.texts(), QStringList(2, "Are you sure you want to delete Fire Warden"));
    QCOMPARE(remove.ListView1->count(), 1);
    QCOMPARE(remove.ListView1->topLevelItem(0)->text(0), QString("Data Protection"));
    QCOMPARE(training::programmeRows(db).size(), size_t(1));
    QCOMPARE(training::programmeRows(db)[0].id, second);
    QCOMPARE(bookingsOf(db, first).size(), 1); // the bookings stay
}

void TestProgrammes::menuAndToolbarOpenTheScreens() {
    TestDatabase fixture;
    mdiMain w;
    registerTrainingCommands(w);
    const auto button = [&w](const QString& key) {
        for (QAction* a : w.toolbar()->actions())
            if (a->objectName() == key) return a;
        return static_cast<QAction*>(nullptr);
    };
    // The list's caption is its mode, so each command must give the right one.
    const QList<std::pair<QAction*, QString>> commands{
        {button("frmtraining"), "frmtraining:New Training Programme"},
        {button("traininglist"), "TrainingList:Edit Training Programme"},
        {w.item("mnuDelete"), "TrainingList:Delete Training Programme"},
        {w.item("mnuReportsTraining"), "frmTrainRep:Training Report"}};
    for (const auto& [action, opens] : commands) {
        QVERIFY2(action && action->isEnabled(), qPrintable(opens));
        action->trigger();
        QWidget* screen = w.mdiArea()->activeSubWindow()->widget();
        QCOMPARE(screen->objectName() + ":" + screen->windowTitle(), opens);
    }
}

QTEST_MAIN(TestProgrammes)
#include "tst_programmes.moc"
