#include "datebox.h"
#include "employee_list_pages.h"
#include "employeecontext.h"
#include "recordlist.h"
#include "regional.h"
#include "seams.h"
#include "session.h"
#include "testdb.h"

#include <QComboBox>
#include <QDesktopServices>
#include <QDropEvent>
#include <QFile>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>
#include <functional>
#include <memory>

using testsupport::DialogDriver;
using testsupport::MessageRecorder;
using testsupport::TestDatabase;

namespace {

// Stands in for the employee screen: hands out a fixed key and counts the asks.
class StubContext : public EmployeeContext {
public:
    explicit StubContext(qint64 id)
        : id_(id) {}
    qint64 ensurePerson() override {
        ++calls;
        return id_;
    }
    bool hasFullName() const override { return true; }
    int calls = 0;

private:
    qint64 id_;
};

qint64 addPerson(core::Db& db, const QString& surname, const QString& firstnames, int manager,
                 int hasLeft = 0, int deleted = 0) {
    return db.insert("Person", "Person_ID",
                     {{"surname", surname},
                      {"firstnames", firstnames},
                      {"IsManager", manager},
                      {"HasLeft", hasLeft},
                      {"blndeleted", deleted}});
}

int rowCount(core::Db& db, const QString& table) {
    return db.scalar(QStringLiteral("SELECT COUNT(*) FROM %1").arg(table)).toInt();
}

QStringList listed(const EmployeeListPage& page) {
    QStringList out;
    RecordList* list = page.list();
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
        QStringList cells;
        for (int c = 0; c < list->columnCount(); ++c)
            cells << list->topLevelItem(i)->text(c);
        out << cells.join('|');
    }
    return out;
}

void selectRow(EmployeeListPage& page, const QString& firstText, int column = 1) {
    RecordList* list = page.list();
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        if (list->topLevelItem(i)->text(column) == firstText) {
            list->setCurrentItem(list->topLevelItem(i));
            return;
        }
    QFAIL(qPrintable("no row " + firstText));
}

template <class W> W* child(QDialog& d, const char* name) {
    W* w = d.findChild<W*>(name);
    if (!w) qFatal("no %s on %s", name, d.metaObject()->className());
    return w;
}

void setDate(QDialog& d, const QString& text) {
    child<DateBox>(d, "txtDate")->setText(text);
}

// Presses OK as a person would: the dialog accepts only when its checks pass.
int pressOk(QDialog& d) {
    child<QPushButton>(d, "cmdOK")->click();
    return d.result();
}

// What each page's dialog is given for one row, and what its list then shows.
struct Entry {
    QString date; // as typed; documents are dated the day they are attached
    QString text; // the page's main text
    QString path; // documents only
};

struct PageCase {
    std::function<EmployeeListPage*()> make;
    QString table;
    std::function<void(QDialog&, const Entry&)> fill;
    std::function<QString(const Entry&)> shown;
};

const QString Manager = QStringLiteral("Brown, Peter");

PageCase pageCase(const QString& name) {
    if (name == "notes")
        return {[] { return new NotesPage; }, "Notes",
                [](QDialog& d, const Entry& e) {
                    setDate(d, e.date);
                    child<QPlainTextEdit>(d, "txtNotes")->setPlainText(e.text);
                },
                [](const Entry& e) { return e.date + "|" + e.text; }};
    if (name == "reprimands")
        return {[] { return new ReprimandsPage; }, "Reprimands",
                [](QDialog& d, const Entry& e) {
                    setDate(d, e.date);
                    child<QLineEdit>(d, "txtAction")->setText(e.text);
                    child<QLineEdit>(d, "txtReason")->setText("Late");
                    child<QPlainTextEdit>(d, "txtNotes")->setPlainText("Verbal");
                },
                [](const Entry& e) { return e.date + "|" + e.text + "|Late|Verbal"; }};
    if (name == "appraisals")
        return {[] { return new AppraisalsPage; }, "Appraisal",
                [](QDialog& d, const Entry& e) {
                    setDate(d, e.date);
                    child<QComboBox>(d, "cboManager")->setEditText(Manager);
                    child<QLineEdit>(d, "txtRating")->setText(e.text);
                    child<QPlainTextEdit>(d, "txtNotes")->setPlainText("Yearly");
                },
                [](const Entry& e) { return e.date + "|" + Manager + "|" + e.text + "|Yearly"; }};
    return {[] { return new DocumentsPage; }, "Document",
            [](QDialog& d, const Entry& e) {
                child<QLineEdit>(d, "txtDescription")->setText(e.text);
                child<QLineEdit>(d, "txtLocation")->setText(e.path);
                child<QPlainTextEdit>(d, "txtNotes")->setPlainText("Signed");
            },
            [](const Entry& e) {
                return core::formatDate(QDate::currentDate()) + "|" + e.text + "|Signed|" + e.path;
            }};
}

// The column that holds each page's main text.
int textColumn(const QString& name) {
    return name == "appraisals" ? 2 : 1;
}

// A page of one kind listing Mary O'Neil's rows, with Peter Brown as the line manager.
struct OpenPage {
    explicit OpenPage(const QString& page)
        : c(pageCase(page))
        , p(c.make()) {
        p->setContext(&context);
        p->load(person);
    }
    TestDatabase fixture;
    core::Db& db = fixture.db();
    qint64 manager = addPerson(db, "Brown", "Peter", 1);
    qint64 person = addPerson(db, "O'Neil", "Mary", 0);
    StubContext context{person};
    PageCase c;
    std::unique_ptr<EmployeeListPage> p;
};

class OpenedUrls : public QObject {
    Q_OBJECT
public:
    QList<QUrl> urls;
public slots:
    void open(const QUrl& url) { urls << url; }
};

} // namespace

class TestListPages : public QObject {
    Q_OBJECT
private slots:
    void init() { core::session().language = "English (UK)"; }

    void addEditDelete_data();
    void addEditDelete();
    void dialogRefusals_data();
    void dialogRefusals();
    void editRefusedOverAnotherUsersChange_data();
    void editRefusedOverAnotherUsersChange();
    void addStopsWhenThePersonCannotBeWritten_data();
    void addStopsWhenThePersonCannotBeWritten();
    void appraisalsNeedACurrentLineManager();
    void documentsOpenByTheirWholePath();
    void droppedFilesAreAttached();
};

void TestListPages::addEditDelete_data() {
    QTest::addColumn<QString>("page");
    QTest::addColumn<bool>("newestFirst");
    QTest::newRow("notes") << "notes" << true;
    QTest::newRow("reprimands") << "reprimands" << true;
    QTest::newRow("appraisals") << "appraisals" << true;
    QTest::newRow("documents") << "documents" << false;
}

void TestListPages::addEditDelete() {
    QFETCH(QString, page);
    QFETCH(bool, newestFirst);
    OpenPage open(page);
    auto& [fixture, db, manager, person, context, c, p] = open;
    const qint64 other = addPerson(db, "Smith", "Ann", 0);
    QVERIFY(!p->editButton()->isEnabled());
    QVERIFY(!p->deleteButton()->isEnabled());

    const QDate today = QDate::currentDate();
    const Entry older{core::formatDate(today.addDays(-40)), "First O'Neil", "/srv/docs/one.pdf"};
    const Entry newer{core::formatDate(today.addDays(-3)), "Second", "/srv/docs/two k.pdf"};
    MessageRecorder boxes;
    DialogDriver dialogs;
    for (const Entry& e : {older, newer})
        dialogs.then([&, e](QDialog& d) {
            c.fill(d, e);
            return pressOk(d);
        });
    p->addButton()->click();
    p->addButton()->click();
    QCOMPARE(boxes.texts(), QStringList());
    QCOMPARE(context.calls, 2);
    const QStringList added = newestFirst ? QStringList{c.shown(newer), c.shown(older)}
                                          : QStringList{c.shown(older), c.shown(newer)};
    QCOMPARE(listed(*p), added);
    QCOMPARE(rowCount(db, c.table), 2);

    // What was written is what another load of the page lists, and only for its person.
    p->load(person);
    QCOMPARE(listed(*p), added);
    p->load(other);
    QCOMPARE(listed(*p), QStringList());
    p->load(person);

    // Edit: the dialog starts from the row and its OK rewrites it in place.
    selectRow(*p, older.text, textColumn(page));
    QVERIFY(p->editButton()->isEnabled());
    Entry changed = older;
    changed.text = "First, revised";
    changed.path = "/srv/docs/one-v2.pdf";
    QString startedFrom;
    dialogs.then([&](QDialog& d) {
        startedFrom = page == "documents"    ? child<QLineEdit>(d, "txtDescription")->text()
                      : page == "appraisals" ? child<QLineEdit>(d, "txtRating")->text()
                      : page == "notes"      ? child<QPlainTextEdit>(d, "txtNotes")->toPlainText()
                                             : child<QLineEdit>(d, "txtAction")->text();
        c.fill(d, changed);
        return pressOk(d);
    });
    p->editButton()->click();
    QCOMPARE(startedFrom, older.text);
    const QStringList edited = newestFirst ? QStringList{c.shown(newer), c.shown(changed)}
                                           : QStringList{c.shown(changed), c.shown(newer)};
    QCOMPARE(listed(*p), edited);
    p->load(person);
    QCOMPARE(listed(*p), edited);

    // A cancelled edit changes nothing.
    selectRow(*p, newer.text, textColumn(page));
    dialogs.then([&](QDialog& d) {
        c.fill(d, older);
        return int(QDialog::Rejected);
    });
    p->editButton()->click();
    p->load(person);
    QCOMPARE(listed(*p), edited);

    // Delete: no question asked, the row goes from the table and the list.
    selectRow(*p, newer.text, textColumn(page));
    p->deleteButton()->click();
    QCOMPARE(listed(*p), QStringList{c.shown(changed)});
    QCOMPARE(rowCount(db, c.table), 1);
    QCOMPARE(boxes.texts(), QStringList());
    QCOMPARE(dialogs.shown(), 4);
}

void TestListPages::dialogRefusals_data() {
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("date"); // days from today, or text typed as it is
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("message"); // "" when the OK is simply not taken
    QTest::addColumn<bool>("accepted");

    const auto day = [](int offset) {
        return core::formatDate(QDate::currentDate().addDays(offset));
    };
    const QString future = "You cannot enter a date in the future";
    const QString format = "Please enter the date in the format DD/MM/YYYY";
    QTest::newRow("note without text") << "notes" << day(0) << ""
                                       << "" << false;
    QTest::newRow("note without date") << "notes"
                                       << ""
                                       << "Met"
                                       << "" << false;
    QTest::newRow("note, no date") << "notes"
                                   << "31/02/2020"
                                   << "Met" << format << false;
    QTest::newRow("reprimand tomorrow") << "reprimands" << day(1) << "Warning" << future << false;
    QTest::newRow("reprimand today") << "reprimands" << day(0) << "Warning"
                                     << "" << true;
    QTest::newRow("reprimand without action")
        << "reprimands" << day(-1) << ""
        << "You must enter a minimum of a date and action" << false;
    QTest::newRow("reprimand, no date") << "reprimands"
                                        << "13/13/2020"
                                        << "Warning" << format << false;
    QTest::newRow("appraisal tomorrow") << "appraisals" << day(1) << "Good" << future << false;
    QTest::newRow("appraisal without date") << "appraisals"
                                            << ""
                                            << "Good"
                                            << "Please enter a date and Appraiser" << false;
    QTest::newRow("appraisal, no date") << "appraisals"
                                        << "1/1/20x"
                                        << "Good" << format << false;
    QTest::newRow("document without location") << "documents"
                                               << ""
                                               << "Contract"
                                               << "Please enter a description" << false;
    QTest::newRow("document without description") << "documents"
                                                  << ""
                                                  << ""
                                                  << "Please enter a description" << false;
}

void TestListPages::dialogRefusals() {
    QFETCH(QString, page);
    QFETCH(QString, date);
    QFETCH(QString, text);
    QFETCH(QString, message);
    QFETCH(bool, accepted);
    OpenPage open(page);
    auto& [fixture, db, manager, person, context, c, p] = open;

    MessageRecorder boxes;
    DialogDriver dialogs;
    dialogs.then([&](QDialog& d) {
        c.fill(d, {date, text, page == "documents" && !text.isEmpty() ? QString() : "/x.pdf"});
        return pressOk(d);
    });
    p->addButton()->click();
    QCOMPARE(boxes.texts(), message.isEmpty() ? QStringList() : QStringList{message});
    QCOMPARE(rowCount(db, c.table), accepted ? 1 : 0);
    QCOMPARE(p->list()->count(), accepted ? 1 : 0);
}

void TestListPages::editRefusedOverAnotherUsersChange_data() {
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("what");
    QTest::addColumn<QString>("other"); // "changed" or "deleted" by the second user
    QTest::addColumn<bool>("reload");   // the answer to "load it again as it is now?"
    const struct {
        const char *page, *key, *what;
    } pages[] = {{"notes", "Note_ID", "note"},
                 {"reprimands", "Reprimand_ID", "reprimand"},
                 {"appraisals", "Appraisal_ID", "appraisal"},
                 {"documents", "document_id", "document"}};
    for (const auto& p : pages)
        for (const char* other : {"changed", "deleted"})
            for (bool reload : {false, true})
                QTest::addRow("%s %s, %s", p.page, other, reload ? "reloaded" : "typing kept")
                    << p.page << p.key << p.what << other << reload;
}

// User A edits a row that user B changed or deleted after A's list was read: A's OK is
// refused with the message and writes nothing. A keeps the typing for another try, or takes
// the list as it now is, from which a new edit goes through.
void TestListPages::editRefusedOverAnotherUsersChange() {
    QFETCH(QString, page);
    QFETCH(QString, key);
    QFETCH(QString, what);
    QFETCH(QString, other);
    QFETCH(bool, reload);
    OpenPage open(page);
    auto& [fixture, db, manager, person, context, c, p] = open;
    MessageRecorder boxes;
    DialogDriver dialogs;
    const QString yesterday = core::formatDate(QDate::currentDate().addDays(-1));
    const Entry first{yesterday, "First", "/srv/one.pdf"};
    dialogs.then([&](QDialog& d) {
        c.fill(d, first);
        return pressOk(d);
    });
    p->addButton()->click();
    const qint64 id =
        db.scalar(QStringLiteral("SELECT MAX(%1) FROM %2").arg(key, c.table)).toLongLong();
    QVERIFY(id > 0);

    // The second user, on a connection of their own.
    auto userB = fixture.openSecond("user-b");
    const QString column = page == "notes" ? "Description" : "notes";
    if (other == "changed")
        userB->exec(QStringLiteral("UPDATE %1 SET %2 = ? WHERE %3 = ?").arg(c.table, column, key),
                    {"By B", id});
    else
        userB->exec(QStringLiteral("DELETE FROM %1 WHERE %2 = ?").arg(c.table, key), {id});
    const auto stored = [&] {
        return db.scalar(QStringLiteral("SELECT %1 FROM %2 WHERE %3 = ?").arg(column, c.table, key),
                         {id});
    };
    const QVariant storedByB = stored();

    Entry typed = first;
    typed.text = "Typed by A";
    QString shownAgain;
    dialogs.then([&](QDialog& d) {
        c.fill(d, typed);
        return pressOk(d);
    });
    if (!reload)
        dialogs.then([&](QDialog& d) {
            // The same dialog again, with what A typed.
            shownAgain = page == "documents"    ? child<QLineEdit>(d, "txtDescription")->text()
                         : page == "appraisals" ? child<QLineEdit>(d, "txtRating")->text()
                         : page == "notes" ? child<QPlainTextEdit>(d, "txtNotes")->toPlainText()
                                           : child<QLineEdit>(d, "txtAction")->text();
            return int(QDialog::Rejected);
        });
    boxes.answerNext(reload ? core::MsgAnswer::Yes : core::MsgAnswer::No);
    boxes.clear();
    p->list()->setCurrentItem(p->list()->topLevelItem(0));
    p->editButton()->click();
    QCOMPARE(boxes.calls().size(), 1);
    QVERIFY2(boxes.calls()[0].text.startsWith(
                 QStringLiteral("This %1 has been changed by another user since you opened it. "
                                "Your changes have not been saved.")
                     .arg(what)),
             qPrintable(boxes.calls()[0].text));
    QCOMPARE(stored(), storedByB);
    QCOMPARE(rowCount(db, c.table), other == "deleted" ? 0 : 1);
    if (!reload) {
        QCOMPARE(shownAgain, typed.text);
        QCOMPARE(dialogs.shown(), 3);
        return;
    }
    QCOMPARE(dialogs.shown(), 2);
    QCOMPARE(p->list()->count(), other == "deleted" ? 0 : 1);
    if (other == "deleted") return;

    // The list as it now is: an edit from it goes through.
    dialogs.then([&](QDialog& d) {
        c.fill(d, typed);
        return pressOk(d);
    });
    boxes.clear();
    p->list()->setCurrentItem(p->list()->topLevelItem(0));
    p->editButton()->click();
    QCOMPARE(boxes.texts(), QStringList());
    QCOMPARE(listed(*p), QStringList{c.shown(typed)});
}

void TestListPages::addStopsWhenThePersonCannotBeWritten_data() {
    QTest::addColumn<QString>("page");
    for (const char* name : {"notes", "reprimands", "appraisals", "documents"})
        QTest::newRow(name) << QString(name);
}

void TestListPages::addStopsWhenThePersonCannotBeWritten() {
    QFETCH(QString, page);
    TestDatabase fixture;
    auto& db = fixture.db();
    addPerson(db, "Brown", "Peter", 1);
    StubContext context(0);
    const PageCase c = pageCase(page);
    std::unique_ptr<EmployeeListPage> p(c.make());
    p->setContext(&context);
    p->load(0);
    MessageRecorder boxes;
    DialogDriver dialogs;
    p->addButton()->click();
    QCOMPARE(context.calls, 1);
    QCOMPARE(dialogs.shown(), 0);
    QCOMPARE(rowCount(db, c.table), 0);
    QCOMPARE(boxes.texts(), QStringList());
}

void TestListPages::appraisalsNeedACurrentLineManager() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 person = addPerson(db, "O'Neil", "Mary", 0);
    addPerson(db, "Adams", "Left", 1, /*hasLeft*/ 1);
    addPerson(db, "Cole", "Gone", 1, 0, /*deleted*/ 1);
    StubContext context(person);
    AppraisalsPage page;
    page.setContext(&context);
    page.load(person);

    MessageRecorder boxes;
    DialogDriver dialogs;
    page.addButton()->click();
    QCOMPARE(boxes.calls().size(), 1);
    QCOMPARE(boxes.calls().first().text,
             QString("There are currently no line managers assigned. This should be done before "
                     "an appraisal can be added. See help for details."));
    QCOMPARE(boxes.calls().first().title, QString("Quillorne"));
    QCOMPARE(dialogs.shown(), 0);
    QCOMPARE(context.calls, 0);

    // With one current manager the dialog opens, and lists leavers and deleted managers too.
    addPerson(db, "Brown", "Peter", 1);
    QStringList offered;
    dialogs.then([&](QDialog& d) {
        auto* combo = child<QComboBox>(d, "cboManager");
        for (int i = 0; i < combo->count(); ++i)
            offered << combo->itemText(i);
        return int(QDialog::Rejected);
    });
    boxes.clear();
    page.addButton()->click();
    QCOMPARE(boxes.texts(), QStringList());
    QCOMPARE(offered, (QStringList{"Adams, Left", "Brown, Peter", "Cole, Gone"}));
    QCOMPARE(rowCount(db, "Appraisal"), 0);
}

void TestListPages::documentsOpenByTheirWholePath() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 person = addPerson(db, "O'Neil", "Mary", 0);
    QTemporaryDir files;
    const QString present = files.filePath("Mary k contract.txt");
    {
        QFile f(present);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("signed");
    }
    const QString missing = files.filePath("moved away.txt");
    personnel::attachDocument(db, person, {"Contract", present, {}}, QDate(2024, 1, 2));
    personnel::attachDocument(db, person, {"Moved", missing, {}}, QDate(2024, 1, 3));

    OpenedUrls opened;
    QDesktopServices::setUrlHandler("file", &opened, "open");
    DocumentsPage page;
    page.load(person);
    MessageRecorder boxes;

    selectRow(page, "Contract");
    emit page.list()->itemDoubleClicked(page.list()->currentItem(), 0);
    QCOMPARE(opened.urls, QList<QUrl>{QUrl::fromLocalFile(present)});
    QCOMPARE(boxes.texts(), QStringList());

    selectRow(page, "Moved");
    emit page.list()->itemDoubleClicked(page.list()->currentItem(), 0);
    QCOMPARE(opened.urls.size(), 1);
    QCOMPARE(boxes.texts(), QStringList{"Cannot find the specified document at location " +
                                        missing + ". Please check and try again."});
    QDesktopServices::unsetUrlHandler("file");
}

void TestListPages::droppedFilesAreAttached() {
    TestDatabase fixture;
    auto& db = fixture.db();
    const qint64 person = addPerson(db, "O'Neil", "Mary", 0);
    StubContext context(person);
    DocumentsPage page;
    page.setContext(&context);
    page.load(person);
    QTemporaryDir files;
    const QString first = files.filePath("review k 2024.pdf");
    const QString second = files.filePath("letter.doc");

    auto* mime = new QMimeData;
    mime->setUrls({QUrl::fromLocalFile(first), QUrl::fromLocalFile(second)});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, mime, Qt::LeftButton, Qt::NoModifier);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, mime, Qt::LeftButton, Qt::NoModifier);
    MessageRecorder boxes;
    QApplication::sendEvent(page.list()->viewport(), &enter);
    QVERIFY(enter.isAccepted());
    QApplication::sendEvent(page.list()->viewport(), &drop);
    delete mime;

    QVERIFY(drop.isAccepted());
    QCOMPARE(context.calls, 1);
    const QString today = core::formatDate(QDate::currentDate());
    QCOMPARE(listed(page), (QStringList{today + "|review k 2024.pdf||" + first,
                                        today + "|letter.doc||" + second}));
    page.load(person);
    QCOMPARE(listed(page).size(), 2);
    QCOMPARE(page.list()->topLevelItem(0)->data(0, DocumentsPage::PathRole).toString(), first);
    QCOMPARE(boxes.texts(), QStringList());
}

QTEST_MAIN(TestListPages)
#include "tst_list_pages.moc"
