#include "commands.h"
#include "employee_search.h"
#include "frmemployee.h"
#include "frmesearch.h"
#include "mdimain.h"
#include "personlist.h"
#include "recordlist.h"
#include "seams.h"
#include "session.h"
#include "testdb.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QtTest>

using personnel::DateOption;
using personnel::FoundPeople;
using testsupport::MessageRecorder;
using testsupport::TestDatabase;

namespace {

// Six people, each known by a letter: their keys, and those of the posts they hold.
struct Staff {
    QMap<QString, qint64> key;
    qint64 id(const QString& letter) const { return letter.isEmpty() ? 0 : key.value(letter); }
    std::optional<qint64> opt(const QString& letter) const {
        return letter.isEmpty() ? std::nullopt : std::optional<qint64>(key.value(letter));
    }
};

Staff addStaff(core::Db& db) {
    Staff s;
    for (const char* p : {"P1", "P2"})
        s.key[p] = db.insert("Position", "PositionID", {{"Position_name", p}});
    for (const char* l : {"L1", "L2"})
        s.key[l] = db.insert("Location", "Location_ID", {{"Location", l}});
    for (const char* d : {"D1", "D2"})
        s.key[d] = db.insert("Department", "Department_ID", {{"Department", d}});
    const qint64 company = db.insert("Company", "Company_ID", {{"Company_Name", "Acme"}});
    struct Row {
        const char *letter, *surname, *firstnames, *post, *place, *dept, *manager;
        QDate start, finish;
        int left, deleted, firstAider;
    };
    const Row rows[] = {
        {"A", "Smith", "Ann", "P1", "L1", "D1", "Jones, Bob", {2020, 1, 10}, {}, 0, 0, 1},
        {"B",
         "Smithers",
         "Carl",
         "P1",
         "L2",
         "D1",
         "Jones, Bob",
         {2019, 3, 1},
         {2023, 6, 30},
         1,
         0,
         1},
        {"C", "Blacksmith", "Dora", "P2", "L1", "D2", "Jones, Bob", {2021, 7, 1}, {}, 0, 0, 0},
        {"D", "O'Neil", "Eve", "P2", "L2", "D2", "Other, Ann", {2022, 2, 2}, {}, 0, 0, 1},
        {"E", "Smithson", "Zed", "P1", "L1", "D1", "Jones, Bob", {2020, 1, 15}, {}, 0, 1, 1},
        {"F", "Jones", "Bob", "P2", "L2", "D2", "", {2018, 5, 5}, {}, 0, 0, 0},
    };
    for (const Row& r : rows)
        s.key[r.letter] =
            db.insert("Person", "Person_ID",
                      {{"firstnames", r.firstnames},
                       {"surname", r.surname},
                       {"DOB", QDate(1980, 5, 1)},
                       {"startdate", r.start},
                       {"finishdate", r.finish},
                       {"Position_ID", s.key[r.post]},
                       {"Location_ID", s.key[r.place]},
                       {"Department_ID", s.key[r.dept]},
                       {"Company_ID", company},
                       {"Line_Manager", r.manager},
                       {"IsManager", QString(r.letter) == "F" ? 1 : 0},
                       {"HasLeft", r.left},
                       {"blndeleted", r.deleted},
                       {"firstaider", r.firstAider},
                       // A first aider without a qualification date is listed all the same.
                       {"firstaiderdate", QString(r.letter) == "D" ? QDate() : QDate(2021, 4, 1)}});
    return s;
}

QStringList names(const FoundPeople& people) {
    QStringList out;
    for (const auto& p : people)
        out << p.surname + " " + p.firstnames;
    return out;
}

QStringList column(const RecordList* list, int c) {
    QStringList out;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        out << list->topLevelItem(i)->text(c);
    return out;
}

QList<frmemployee*> openEmployees() {
    QList<frmemployee*> out;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* e = qobject_cast<frmemployee*>(w); e && e->isVisible()) out << e;
    return out;
}

} // namespace

class TestEmployeeSearch : public QObject {
    Q_OBJECT
private slots:
    void init() { core::session().language = QStringLiteral("English (UK)"); }
    void cleanup() { qDeleteAll(openEmployees()); }

    void generalSearch_data();
    void generalSearch();
    void dateSearch_data();
    void dateSearch();
    void dateEntry_data();
    void dateEntry();
    void comboSearches_data();
    void comboSearches();
    void searchScreenOpensTheFirstRowAndClearsOnTabChange();
    void deleteFlow_data();
    void deleteFlow();
    void menuEntriesOpenTheLists();
};

void TestEmployeeSearch::generalSearch_data() {
    QTest::addColumn<bool>("leavers");
    QTest::addColumn<QString>("number"); // a person's letter
    QTest::addColumn<QString>("surname");
    QTest::addColumn<QStringList>("found");
    const QStringList current = {"Blacksmith Dora", "Jones Bob", "O'Neil Eve", "Smith Ann"};
    QTest::newRow("leavers, number and name anywhere") << true << "B"
                                                       << "MITH" << QStringList{"Smithers Carl"};
    QTest::newRow("leavers, number and other name") << true << "A"
                                                    << "Jones" << QStringList{};
    QTest::newRow("leavers, number") << true << "B"
                                     << "" << QStringList{"Smithers Carl"};
    QTest::newRow("leavers, deleted by number") << true << "E"
                                                << "" << QStringList{};
    QTest::newRow("leavers, name is a prefix")
        << true << ""
        << "smi" << QStringList{"Smith Ann", "Smithers Carl"};
    QTest::newRow("leavers, everyone") << true << ""
                                       << "" << (current + QStringList{"Smithers Carl"});
    QTest::newRow("current, number and name anywhere") << false << "C"
                                                       << "smith" << QStringList{"Blacksmith Dora"};
    QTest::newRow("current, leaver by number and name") << false << "B"
                                                        << "mith" << QStringList{};
    QTest::newRow("current, number") << false << "A"
                                     << "" << QStringList{"Smith Ann"};
    QTest::newRow("current, name is a prefix") << false << ""
                                               << "Smi" << QStringList{"Smith Ann"};
    QTest::newRow("current, apostrophe") << false << ""
                                         << "o'n" << QStringList{"O'Neil Eve"};
    QTest::newRow("current, everyone") << false << ""
                                       << "" << current;
}

void TestEmployeeSearch::generalSearch() {
    QFETCH(bool, leavers);
    QFETCH(QString, number);
    QFETCH(QString, surname);
    QFETCH(QStringList, found);
    TestDatabase t;
    const Staff s = addStaff(t.db());
    const QString typed = number.isEmpty() ? QString() : QString::number(s.id(number));
    QCOMPARE(names(personnel::searchGeneral(t.db(), typed, surname, leavers)), found);
}

void TestEmployeeSearch::dateSearch_data() {
    QTest::addColumn<bool>("leavers");
    QTest::addColumn<bool>("left");
    QTest::addColumn<QDate>("from");
    QTest::addColumn<QDate>("to");
    QTest::addColumn<QStringList>("found");
    const QDate y2019(2019, 1, 1), y2020end(2020, 12, 31);
    QTest::newRow("started, current only")
        << false << false << y2019 << y2020end << QStringList{"Smith Ann"};
    QTest::newRow("started, both ends included")
        << false << false << QDate(2020, 1, 10) << QDate(2020, 1, 10) << QStringList{"Smith Ann"};
    QTest::newRow("started with leavers")
        << true << false << y2019 << y2020end << QStringList{"Smith Ann", "Smithers Carl"};
    QTest::newRow("left: leavers by finish date")
        << false << true << QDate(2023, 1, 1) << QDate(2023, 12, 31)
        << QStringList{"Smithers Carl"};
    QTest::newRow("left with leavers: by start date")
        << true << true << QDate(2019, 1, 1) << QDate(2019, 12, 31) << QStringList{"Smithers Carl"};
    QTest::newRow("left with leavers: not by finish date")
        << true << true << QDate(2023, 1, 1) << QDate(2023, 12, 31) << QStringList{};
}

void TestEmployeeSearch::dateSearch() {
    QFETCH(bool, leavers);
    QFETCH(bool, left);
    QFETCH(QDate, from);
    QFETCH(QDate, to);
    QFETCH(QStringList, found);
    TestDatabase t;
    addStaff(t.db());
    QStringList got = names(personnel::searchByDate(
        t.db(), from, to, left ? DateOption::Left : DateOption::Started, leavers));
    got.sort(); // the statement has no order of its own
    QCOMPARE(got, found);
}

void TestEmployeeSearch::dateEntry_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<QString>("message"); // "" when the search runs
    const QString missing = "Please enter a start and finish date";
    const QString uk = "Please enter the date in the format DD/MM/YYYY";
    QTest::newRow("from empty") << "English (UK)"
                                << ""
                                << "x" << missing;
    QTest::newRow("to empty") << "English (UK)"
                              << "01/01/2019"
                              << "" << missing;
    QTest::newRow("no date") << "English (UK)"
                             << "01/01/2019"
                             << "31/31/2019" << uk;
    QTest::newRow("US order refused under UK") << "English (UK)"
                                               << "12/31/2019"
                                               << "12/31/2020" << uk;
    QTest::newRow("US order") << "English (US)"
                              << "01/01/2019"
                              << "12/31/2020"
                              << "";
    QTest::newRow("UK order") << "English (UK)"
                              << "01/01/2019"
                              << "31/12/2020"
                              << "";
}

void TestEmployeeSearch::dateEntry() {
    QFETCH(QString, language);
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(QString, message);
    core::session().language = language;
    TestDatabase t;
    addStaff(t.db());
    MessageRecorder messages;
    frmesearch screen;
    screen.ListView1->addRecord(1, {"stale"});
    screen.txtDateFrom->setText(from);
    screen.txtDateTo->setText(to);
    screen.chkDateLeavers->setChecked(true);
    screen.searchDates();
    QCOMPARE(messages.texts(), message.isEmpty() ? QStringList{} : QStringList{message});
    QStringList found = column(screen.ListView1, 1);
    found.sort(); // the statement has no order of its own
    QCOMPARE(found, message.isEmpty() ? (QStringList{"Smith", "Smithers"}) : QStringList());
}

void TestEmployeeSearch::comboSearches_data() {
    QTest::addColumn<bool>("managerPage");
    QTest::addColumn<QString>("first");  // position letter, or the manager's name
    QTest::addColumn<QString>("second"); // location or department letter, or typed text
    QTest::addColumn<QStringList>("found");
    QTest::newRow("position") << false << "P1"
                              << "" << QStringList{"Smith", "Smithers"};
    QTest::newRow("location") << false << ""
                              << "L1" << QStringList{"Blacksmith", "Smith"};
    QTest::newRow("position and location") << false << "P1"
                                           << "L1" << QStringList{"Smith"};
    QTest::newRow("neither") << false << ""
                             << "" << QStringList{};
    QTest::newRow("typed text is no pick") << false << "Zzz"
                                           << "L1" << QStringList{"Blacksmith", "Smith"};
    QTest::newRow("manager alone lists the deleted")
        << true << "Jones, Bob"
        << "" << QStringList{"Blacksmith", "Smith", "Smithers", "Smithson"};
    QTest::newRow("manager and department") << true << "Jones, Bob"
                                            << "D1" << QStringList{"Smith", "Smithers"};
    QTest::newRow("department") << true << ""
                                << "D2" << QStringList{"Blacksmith", "Jones", "O'Neil"};
    QTest::newRow("no such manager") << true << "Nobody, Al"
                                     << "" << QStringList{};
}

void TestEmployeeSearch::comboSearches() {
    QFETCH(bool, managerPage);
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(QStringList, found);
    TestDatabase t;
    const Staff s = addStaff(t.db());
    frmesearch screen;
    QCOMPARE(screen.cboManager->count(), 1); // "Jones, Bob", the one manager
    // The user picks by typing an entry's text; text that is no entry picks nothing.
    const auto pick = [&](QComboBox* combo, const QString& letter) {
        const int index = combo->findData(s.key.value(letter, -1));
        combo->setCurrentIndex(index);
        if (index < 0) combo->setEditText(letter == "Zzz" ? letter : QString());
    };
    if (managerPage) {
        screen.cboManager->setEditText(first);
        pick(screen.cboDepartment, second);
        screen.searchManager();
    } else {
        pick(screen.cboPosition, first);
        pick(screen.cboLocation, second);
        screen.searchPost();
    }
    QCOMPARE(column(screen.ListView1, 1), found);
    QVERIFY(screen.ListView1->selectedItems().isEmpty());
}

void TestEmployeeSearch::searchScreenOpensTheFirstRowAndClearsOnTabChange() {
    TestDatabase t;
    const Staff s = addStaff(t.db());
    QPointer<frmesearch> screen = new frmesearch;
    screen->setAttribute(Qt::WA_DeleteOnClose);
    screen->show();
    screen->searchGeneral();
    QCOMPARE(column(screen->ListView1, 0).first(), QString::number(s.id("C")) + " ");
    QCOMPARE(column(screen->ListView1, 3).first(), QStringLiteral("01/05/1980"));

    screen->txtSurname->setText("Smi");
    screen->SSTab1->setCurrentIndex(1);
    QCOMPARE(screen->ListView1->count(), 0);
    screen->SSTab1->setCurrentIndex(0);
    QCOMPARE(screen->txtSurname->text(), QStringLiteral("Smi"));
    screen->searchGeneral();
    QCOMPARE(screen->ListView1->selectedItems().size(), 1);
    screen->ok();
    QTRY_VERIFY(!screen);
    const auto opened = openEmployees();
    QCOMPARE(opened.size(), 1);
    QCOMPARE(opened[0]->personId(), s.id("A"));
}

void TestEmployeeSearch::deleteFlow_data() {
    QTest::addColumn<QString>("letter");
    QTest::addColumn<bool>("confirm");
    QTest::addColumn<bool>("warned");
    QTest::addColumn<QString>("question");
    QTest::newRow("cancelled") << "A" << false << false
                               << "Are you sure you want to permanently delete Ann Smith";
    QTest::newRow("first aider with computers")
        << "A" << true << true << "Are you sure you want to permanently delete Ann Smith";
    QTest::newRow("not a first aider")
        << "C" << true << false << "Are you sure you want to permanently delete Dora Blacksmith";
}

void TestEmployeeSearch::deleteFlow() {
    QFETCH(QString, letter);
    QFETCH(bool, confirm);
    QFETCH(bool, warned);
    QFETCH(QString, question);
    TestDatabase t;
    auto& db = t.db();
    const Staff s = addStaff(db);
    const qint64 person = s.id(letter);
    const qint64 other = s.id("F");
    for (qint64 owner : {person, person, other})
        db.insert("Computers", "Computer_ID", {{"ComputerName", "PC"}, {"person_id", owner}});
    const auto owned = [&](qint64 id) {
        return db.scalar("SELECT COUNT(*) FROM Computers WHERE person_id = ?", {id}).toInt();
    };
    MessageRecorder messages;
    messages.answerNext(confirm ? core::MsgAnswer::Ok : core::MsgAnswer::Cancel);
    PersonList list;
    list.ISDelete = true;
    QTreeWidgetItem* row = list.ListView1->findRecord(person);
    list.ListView1->setCurrentItem(row);
    emit list.ListView1->itemDoubleClicked(row, 0);

    QCOMPARE(messages.calls().first().text, question);
    QCOMPARE(messages.calls().first().buttons, core::MsgButtons::OkCancel);
    QCOMPARE(messages.count("Warning, This employee is a first aider. Please ensure that there "
                            "is a replacement"),
             warned ? 1 : 0);
    const auto stored =
        db.row("SELECT blndeleted, Company_ID FROM Person WHERE Person_ID = ?", {person});
    QCOMPARE(stored->value(0).toInt(), confirm ? 1 : 0);
    QCOMPARE(stored->value(1).isNull(), confirm);
    QCOMPARE(owned(person), confirm ? 0 : 2);
    QCOMPARE(owned(other), 1);
    QCOMPARE(db.scalar("SELECT COUNT(*) FROM Computers").toInt(), 3);
    QCOMPARE(list.ListView1->findRecord(person) == nullptr, confirm);
    QCOMPARE(list.cmdCancel->text(), confirm ? QStringLiteral("Exit") : QStringLiteral("Cancel"));
}

void TestEmployeeSearch::menuEntriesOpenTheLists() {
    TestDatabase t;
    const Staff s = addStaff(t.db());
    mdiMain window;
    registerCommands(window);
    const auto open = [&](const char* item) {
        window.item(item)->trigger();
        return window.mdiArea()->activeSubWindow()->widget();
    };
    QVERIFY(qobject_cast<frmesearch*>(open("mnuEmployeeSearch")));

    auto* all = qobject_cast<PersonList*>(open("mnuEmployeeDisplayAll"));
    QCOMPARE(all->windowTitle(), QStringLiteral("Select Employee"));
    QCOMPARE(column(all->ListView1, 1),
             (QStringList{"Blacksmith", "Jones", "O'Neil", "Smith", "Smithers"}));

    auto* remove = qobject_cast<PersonList*>(open("mnuEmployeeDelete"));
    QCOMPARE(remove->windowTitle(), QStringLiteral("Delete Employee"));
    QCOMPARE(remove->cmdOK->text(), QStringLiteral("Delete"));
    QVERIFY(remove->ISDelete);

    auto* aiders = qobject_cast<PersonList*>(open("mnupersonaiders"));
    QCOMPARE(aiders->windowTitle(), QStringLiteral("First Aiders"));
    QCOMPARE(aiders->ListView1->headerItem()->text(3), QStringLiteral("Date Completed"));
    aiders->ListView1->headerClicked(1);
    QCOMPARE(column(aiders->ListView1, 1), (QStringList{"O'Neil", "Smith"}));
    QCOMPARE(column(aiders->ListView1, 3), (QStringList{"", "01/04/2021"}));
    // Opens the employee, as the list of everyone does.
    aiders->ListView1->setCurrentItem(aiders->ListView1->findRecord(s.id("A")));
    aiders->cmdOK->click();
    QCOMPARE(openEmployees().size(), 1);

    // An emptied delete list closes on Delete.
    QPointer<PersonList> emptied = remove;
    remove->ListView1->clearRecords();
    remove->cmdOK->click();
    QTRY_VERIFY(!emptied);
}

QTEST_MAIN(TestEmployeeSearch)
#include "tst_employee_search.moc"
