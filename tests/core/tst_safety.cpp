#include "dberror.h"
#include "dbfile.h"
#include "errorlog.h"
#include "failure.h"
#include "loginthrottle.h"
#include "ownerfiles.h"
#include "seams.h"
#include "session.h"
#include "settings.h"
#include "testdb.h"
#include "textguard.h"

#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QtTest>
#include <sys/stat.h>

using testsupport::MessageRecorder;
using testsupport::TempInstall;
using testsupport::TestDatabase;

namespace {

QString octal(int bits) {
    return QString::number(bits, 8);
}

// Records the waits instead of sleeping; time moves only when someone waits or the test says.
class FakeClock : public core::ThrottleClock {
public:
    qint64 now = 1'000'000;
    QList<qint64> waits;
    qint64 nowMs() override { return now; }
    void waitMs(qint64 ms) override {
        waits << ms;
        now += ms;
    }
};

QStringList logLines() {
    QFile f(core::errorLogPath());
    if (!f.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(f.readAll()).split('\n', Qt::SkipEmptyParts);
}

} // namespace

class TestSafety : public QObject {
    Q_OBJECT
private slots:
    void initTestCase() {
        // A permissive umask, as a user may have: the program's files must not follow it.
        ::umask(022);
        core::refuseControlCharacters();
    }
    void filesTheProgramWritesAreOwnerOnly();
    void existingFilesAreTightenedAtStart();
    void failuresAlwaysSaySomething_data();
    void failuresAlwaysSaySomething();
    void controlCharactersAreNotTaken_data();
    void controlCharactersAreNotTaken();
    void nulInABoundValueIsRefusedCleanly();
    void logLinesStayOneLine();
    void throttleWaitsGrowAfterThreeRefusals();
    void embeddedFileProblems_data();
    void embeddedFileProblems();
    void startCommandReadBackExactly_data();
    void startCommandReadBackExactly();
};

void TestSafety::filesTheProgramWritesAreOwnerOnly() {
    TempInstall install;
    auto& settings = core::InstallSettings::instance();
    core::logerror(1, "something", "Test");
    core::ConnectionParams p;
    p.backend = core::Backend::Sqlite;
    p.sqlitePath = settings.embeddedDatabasePath();
    {
        auto db = core::Db::open(p, "owner-only");
        db->exec("CREATE TABLE t (x INTEGER)");
        db->exec("INSERT INTO t VALUES (1)");
        QVERIFY(QFileInfo::exists(p.sqlitePath + "-wal"));
        for (const char* suffix : {"", "-wal", "-shm"})
            QCOMPARE(octal(core::permissionBits(p.sqlitePath + suffix)), QString("600"));
    }
    const QString exported = install.path() + "/exports/new/list.xlsx";
    QVERIFY(core::writeOwnerFile(exported, "data"));
    const struct {
        QString path;
        int bits;
    } expected[] = {
        {settings.settingsFile(), 0600},
        {settings.dataFolder(), 0700},
        {settings.logFolder(), 0700},
        {settings.backupFolder(), 0700},
        {core::errorLogPath(), 0600},
        {exported, 0600},
        {install.path() + "/exports/new", 0700},
        {install.path() + "/exports", 0700},
    };
    for (const auto& e : expected)
        QVERIFY2(core::permissionBits(e.path) == e.bits,
                 qPrintable(e.path + " is " + octal(core::permissionBits(e.path))));
}

void TestSafety::existingFilesAreTightenedAtStart() {
    QTemporaryDir dir;
    const QString data = dir.path() + "/data";
    for (const QString& folder : {data, data + "/log", data + "/backups"}) {
        QVERIFY(QDir().mkpath(folder));
        ::chmod(QFile::encodeName(folder).constData(), 0755);
    }
    const QStringList files = {dir.path() + "/q.ini", data + "/personnel.db",
                               data + "/personnel.db-wal", data + "/log/errlog.txt",
                               data + "/backups/personnel.dat"};
    for (const QString& f : files) {
        QFile file(f);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(f.endsWith(".ini") ? "[General]\n_Database=personnel\n" : "x");
        file.close();
        ::chmod(QFile::encodeName(f).constData(), 0644);
    }
    core::InstallSettings::configure(dir.path() + "/q.ini", data);
    for (const QString& f : files)
        QVERIFY2(core::permissionBits(f) == 0600, qPrintable(f));
    for (const QString& folder : {data, data + "/log", data + "/backups"})
        QVERIFY2(core::permissionBits(folder) == 0700, qPrintable(folder));
    core::InstallSettings::configure(dir.path() + "/gone.ini", dir.path() + "/gone");
}

void TestSafety::failuresAlwaysSaySomething_data() {
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("description");
    QTest::newRow("empty") << int(core::DbErrorKind::Other) << QString();
    QTest::newRow("blanks") << int(core::DbErrorKind::Unreachable) << QString("  \n ");
    QTest::newRow("kept") << int(core::DbErrorKind::Constraint) << QString("FOREIGN KEY failed");
}

void TestSafety::failuresAlwaysSaySomething() {
    QFETCH(int, kind);
    QFETCH(QString, description);
    TempInstall install;
    MessageRecorder boxes;
    const core::DbError error(core::DbErrorKind(kind), description);
    core::reportFailure(error, "Test");
    core::reportFailure(std::runtime_error(""), "Test");
    QCOMPARE(boxes.calls().size(), 2);
    for (const auto& call : boxes.calls()) {
        QVERIFY(!call.text.trimmed().isEmpty());
        QVERIFY(call.title.startsWith("Error Code : "));
    }
    if (!description.trimmed().isEmpty()) QCOMPARE(boxes.calls()[0].text, description);
    // The log has both, each with something to read.
    QCOMPARE(logLines().size(), 2);
}

void TestSafety::controlCharactersAreNotTaken_data() {
    QTest::addColumn<QString>("pasted");
    QTest::addColumn<QString>("kept");
    QTest::newRow("nul") << QString("Smi") + QChar(0) + "th" << QString("Smith");
    QTest::newRow("bell and escape") << QString("a\x07"
                                                "b\x1b"
                                                "c")
                                     << QString("abc");
    QTest::newRow("delete and c1") << QString("a\x7f") + QChar(0x85) + "b" << QString("ab");
    QTest::newRow("tab kept") << QString("a\tb") << QString("a\tb");
    QTest::newRow("accents kept") << QString("Öztürk O'Neil") << QString("Öztürk O'Neil");
}

void TestSafety::controlCharactersAreNotTaken() {
    QFETCH(QString, pasted);
    QFETCH(QString, kept);
    QWidget window;
    auto* line = new QLineEdit(&window);
    auto* combo = new QComboBox(&window);
    combo->setEditable(true);
    auto* memo = new QPlainTextEdit(&window);
    window.show();

    line->setText("[]");
    line->setCursorPosition(1);
    QGuiApplication::clipboard()->setText(pasted);
    line->paste();
    QCOMPARE(line->text(), "[" + kept + "]");
    QCOMPARE(line->cursorPosition(), 1 + int(kept.size()));

    combo->lineEdit()->paste();
    QCOMPARE(combo->currentText(), kept);

    memo->setPlainText("line one\n");
    memo->moveCursor(QTextCursor::End);
    memo->insertPlainText(pasted + "\nend");
    QCOMPARE(memo->toPlainText(), "line one\n" + kept + "\nend");
}

void TestSafety::nulInABoundValueIsRefusedCleanly() {
    TestDatabase t;
    const QString secret = "other field's value";
    try {
        t.db().exec("UPDATE options SET language = ? WHERE language <> ?",
                    {QString("Eng") + QChar(0) + "lish", secret});
        QFAIL("a NUL reached the database");
    } catch (const core::DbError& e) {
        QVERIFY(!e.description().contains(secret));
        QVERIFY(e.description().contains("NUL"));
    }
    QCOMPARE(t.db().scalar("SELECT language FROM options").toString(), QString("English (UK)"));
}

void TestSafety::logLinesStayOneLine() {
    TempInstall install;
    core::logerror(7, QString("first\nsecond\r") + QChar(0) + "third", "Cap\ntion");
    const QStringList lines = logLines();
    QCOMPARE(lines.size(), 1);
    QVERIFY(lines[0].endsWith(" 7 first second  third Cap tion"));
}

void TestSafety::throttleWaitsGrowAfterThreeRefusals() {
    const QList<qint64> expected = {0, 0, 0, 1000, 2000, 4000, 8000, 16000, 30000, 30000, 30000};
    for (int n = 0; n < expected.size(); ++n)
        QCOMPARE(core::LoginThrottle::delayMs(n), expected[n]);

    TempInstall install;
    FakeClock clock;
    core::LoginThrottle throttle(clock);
    for (int i = 0; i < 6; ++i) {
        throttle.beforeAttempt();
        throttle.refused("mallory");
    }
    QCOMPARE(clock.waits, (QList<qint64>{1000, 2000, 4000}));
    // Time spent elsewhere (typing) counts towards the wait.
    clock.now += 5000;
    throttle.beforeAttempt();
    QCOMPARE(clock.waits.last(), 3000);
    throttle.accepted();
    clock.waits.clear();
    throttle.beforeAttempt();
    QVERIFY(clock.waits.isEmpty());

    const QStringList lines = logLines();
    QCOMPARE(lines.size(), 6);
    for (const QString& l : lines)
        QVERIFY2(l.contains(" Login refused for user \"mallory\" Login"), qPrintable(l));
    QVERIFY(core::loggableLogin(QString(10000, 'x')).size() < 100);
}

void TestSafety::embeddedFileProblems_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("says");
    QTest::newRow("missing") << QByteArray() << -1 << "does not exist";
    QTest::newRow("empty") << QByteArray("") << 0600 << "is empty";
    QTest::newRow("not a database")
        << QByteArray("hello, world\n").repeated(20) << 0600 << "is not a database";
    QTest::newRow("cut short") << QByteArray("cut") << 0600 << "is cut short";
    QTest::newRow("read-only") << QByteArray("whole") << 0400 << "is read-only";
    QTest::newRow("sound") << QByteArray("whole") << 0600 << "";
}

void TestSafety::embeddedFileProblems() {
    QFETCH(QByteArray, content);
    QFETCH(int, mode);
    QFETCH(QString, says);
    QTemporaryDir dir;
    const QString path = dir.path() + "/personnel.db";
    if (mode >= 0) {
        QByteArray bytes = content;
        if (content == "whole" || content == "cut") {
            core::ConnectionParams p;
            p.sqlitePath = dir.path() + "/made.db";
            {
                auto db = core::Db::open(p, "made");
                db->exec("CREATE TABLE t (x TEXT)");
                for (int i = 0; i < 200; ++i)
                    db->exec("INSERT INTO t VALUES (?)", {QString(100, 'y')});
                db->query("PRAGMA journal_mode = DELETE");
            }
            QFile made(p.sqlitePath);
            QVERIFY(made.open(QIODevice::ReadOnly));
            bytes = made.readAll();
            if (content == "cut") bytes.truncate(bytes.size() / 2);
        }
        QFile f(path);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(bytes);
        f.close();
        ::chmod(QFile::encodeName(path).constData(), mode_t(mode));
    }
    const QString problem = core::embeddedDatabaseProblem(path);
    if (says.isEmpty()) {
        QCOMPARE(problem, QString());
    } else {
        QVERIFY2(problem.contains(says) && problem.contains(path), qPrintable(problem));
    }
}

void TestSafety::startCommandReadBackExactly_data() {
    QTest::addColumn<bool>("byHand"); // typed into the file, else written by the program
    QTest::addColumn<QString>("command");
    const QString quoted = R"(pg_ctl -D "/var/lib/pg data" -o "-p 5433" start)";
    const QString leadingQuote = R"("/opt/my pg/bin/pg_ctl" -D "/srv/pg" start)";
    const QString comma = "systemctl start postgresql, pgbouncer";
    const QString backslash = R"(sh -c 'echo a\b')";
    for (bool byHand : {false, true}) {
        const char* how = byHand ? "by hand: " : "by the program: ";
        QTest::addRow("%squoted path", how) << byHand << quoted;
        QTest::addRow("%sleading quote", how) << byHand << leadingQuote;
        QTest::addRow("%scomma", how) << byHand << comma;
        QTest::addRow("%splain", how) << byHand << "/usr/bin/pg_ctlcluster 15 main start";
    }
    QTest::addRow("by the program: backslash") << false << backslash;
}

void TestSafety::startCommandReadBackExactly() {
    QFETCH(bool, byHand);
    QFETCH(QString, command);
    QTemporaryDir dir;
    const QString file = dir.path() + "/quillorne.ini";
    if (byHand) {
        QFile f(file);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(
            ("[General]\n_Server=db.example.org\nServerStartCommand=" + command + "\n").toUtf8());
    } else {
        core::InstallSettings::configure(file, dir.path() + "/data");
        core::InstallSettings::instance().setValue(core::InstallSettings::ServerStartCommand,
                                                   command);
    }
    // Read, and read again from the file as the first read saved it.
    for (int start = 0; start < 2; ++start) {
        core::InstallSettings::configure(file, dir.path() + "/data");
        QCOMPARE(core::InstallSettings::instance().serverStartCommand(), command);
    }
}

QTEST_MAIN(TestSafety)
#include "tst_safety.moc"
