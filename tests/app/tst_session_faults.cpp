#include "companieslist.h"
#include "errorlog.h"
#include "failure.h"
#include "frmlogin.h"
#include "logins.h"
#include "privatepg.h"
#include "recordlist.h"
#include "seams.h"
#include "session.h"
#include "settings.h"
#include "startup.h"
#include "testdb.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

using core::InstallSettings;
using testsupport::DialogDriver;
using testsupport::MessageRecorder;
using testsupport::TempInstall;
using testsupport::TestDatabase;

namespace {

const QString Refused = "Incorrect username or password, please try again";
const QString Problem = "There is a problem with the database. Please contact help@example.org "
                        "for more information";

DialogDriver::Handler loginAs(const QString& user, const QString& password) {
    return [=](QDialog& d) {
        auto& login = dynamic_cast<core::frmLogin&>(d);
        login.txtUserName->setText(user);
        login.txtPassword->setText(password);
        login.cmdOK->click();
        return int(QDialog::Accepted);
    };
}

QString goodUser(const TestDatabase& t) {
    return testsupport::testingPostgres() ? t.params().user : "sa";
}
QString goodPassword(const TestDatabase& t) {
    return testsupport::testingPostgres() ? t.params().password : QString();
}

class FakeClock : public core::ThrottleClock {
public:
    qint64 now = 0;
    QList<qint64> waits;
    qint64 nowMs() override { return now; }
    void waitMs(qint64 ms) override {
        waits << ms;
        now += ms;
    }
};

QString logText() {
    QFile f(core::errorLogPath());
    return f.open(QIODevice::ReadOnly) ? QString::fromUtf8(f.readAll()) : QString();
}

bool runningAsRoot() {
    return ::geteuid() == 0;
}

} // namespace

class TestSessionFaults : public QObject {
    Q_OBJECT
private slots:
    void init() { core::session() = core::SessionState{}; }
    void closingTheLoginNeverSignsIn_data();
    void closingTheLoginNeverSignsIn();
    void passwordsAreTakenAsTyped();
    void hostileLoginsAreRefusedLogins_data();
    void hostileLoginsAreRefusedLogins();
    void guessingIsThrottledAndLogged();
    void startFailuresSayTheirCause_data();
    void startFailuresSayTheirCause();
    void silentServerEndsQuickly();
    void unreadableSettingsStopTheStart_data();
    void unreadableSettingsStopTheStart();
    void deleteRefusedByALockSaysSo();
    void serverRestartDuringASession();
};

void TestSessionFaults::closingTheLoginNeverSignsIn_data() {
    QTest::addColumn<QString>("how");
    QTest::newRow("Esc") << "esc";
    QTest::newRow("close button") << "close";
    QTest::newRow("Cancel") << "cancel";
}

void TestSessionFaults::closingTheLoginNeverSignsIn() {
    QFETCH(QString, how);
    // A new embedded database signs "sa" in with a blank password: closing must not.
    TempInstall install;
    MessageRecorder boxes;
    DialogDriver dialogs;
    dialogs.then([&](QDialog& d) {
        d.show();
        if (how == "esc")
            QTest::keyClick(&d, Qt::Key_Escape);
        else if (how == "close")
            d.close();
        else
            dynamic_cast<core::frmLogin&>(d).cmdCancel->click();
        return d.result();
    });
    Startup startup(nullptr, {});
    QVERIFY(!startup.run());
    QVERIFY(!core::hasDb());
    QCOMPARE(core::session().currentuser, QString());
    QVERIFY(!boxes.saw(
        "This account has a blank password. You should change the password for security reasons"));
}

void TestSessionFaults::passwordsAreTakenAsTyped() {
    TestDatabase t;
    const QString user = QStringLiteral("spaced%1").arg(QCoreApplication::applicationPid());
    const QString password = "  two blanks each side  ";
    std::unique_ptr<core::Db> admin;
    if (testsupport::testingPostgres()) {
        admin = core::Db::open(testsupport::postgresAdminParams(), "admin");
        admin->exec("DROP ROLE IF EXISTS " + admin->quoteIdentifier(user));
        admin->exec("CREATE ROLE " + admin->quoteIdentifier(user) + " LOGIN PASSWORD " +
                    admin->quoteLiteral(password));
        t.db().exec("GRANT SELECT ON ALL TABLES IN SCHEMA public TO " +
                    t.db().quoteIdentifier(user));
    } else {
        core::setEmbeddedLogin(t.db(), user, password);
    }
    core::setDb(nullptr);
    MessageRecorder boxes;
    DialogDriver dialogs;
    dialogs.then(loginAs(user, password.trimmed()));
    dialogs.then(loginAs(" " + user + " ", password));
    Startup startup(nullptr, {});
    QVERIFY(startup.run());
    QCOMPARE(boxes.count(Refused), 1);
    QCOMPARE(core::session().currentuser, user);
    core::setDb(nullptr);
    if (admin) {
        auto owner = t.openSecond("cleanup");
        owner->exec("REVOKE ALL ON ALL TABLES IN SCHEMA public FROM " +
                    owner->quoteIdentifier(user));
        owner.reset();
        admin->exec("DROP ROLE " + admin->quoteIdentifier(user));
    }
}

void TestSessionFaults::hostileLoginsAreRefusedLogins_data() {
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("password");
    QTest::newRow("10,000 characters") << QString(10000, 'a') << "x";
    QTest::newRow("NUL in name") << QString("s") + QChar(0) + "a"
                                 << "";
    QTest::newRow("NUL in password") << "sa" << QString("pw") + QChar(0) + "rest";
}

void TestSessionFaults::hostileLoginsAreRefusedLogins() {
    QFETCH(QString, user);
    QFETCH(QString, password);
    TestDatabase t;
    core::setDb(nullptr);
    InstallSettings::instance().setValue(InstallSettings::SupportAddress, "help@example.org");
    MessageRecorder boxes;
    DialogDriver dialogs;
    dialogs.then(loginAs(user, password));
    dialogs.then(loginAs(goodUser(t), goodPassword(t)));
    Startup startup(nullptr, {});
    QVERIFY(startup.run());
    QCOMPARE(boxes.count(Refused), 1);
    for (const QString& text : boxes.texts())
        QVERIFY2(!text.startsWith("There is a problem"), qPrintable(text));
    QVERIFY(logText().contains("Login refused for user"));
}

void TestSessionFaults::guessingIsThrottledAndLogged() {
    TestDatabase t;
    core::setDb(nullptr);
    const QString password = "guess-no-%1";
    MessageRecorder boxes;
    DialogDriver dialogs;
    for (int i = 0; i < 6; ++i)
        dialogs.then(loginAs(goodUser(t), password.arg(i)));
    dialogs.then(loginAs(goodUser(t), goodPassword(t)));
    FakeClock clock;
    Startup startup(nullptr, {{}, &clock});
    QElapsedTimer elapsed;
    elapsed.start();
    QVERIFY(startup.run());
    QCOMPARE(boxes.count(Refused), 6);
    // Three attempts are free; the fourth waits 1 s, the fifth 2 s, the sixth 4 s and the
    // seventh, the right one, 8 s.
    QCOMPARE(clock.waits, (QList<qint64>{1000, 2000, 4000, 8000}));
    QVERIFY(elapsed.elapsed() < 20000); // the injected clock waited, not the test

    const QString log = logText();
    QCOMPARE(log.count("Login refused for user \"" + goodUser(t) + "\""), 6);
    for (int i = 0; i < 6; ++i)
        QVERIFY(!log.contains(password.arg(i)));
}

void TestSessionFaults::startFailuresSayTheirCause_data() {
    QTest::addColumn<QString>("damage");
    QTest::addColumn<QString>("cause");
    QTest::newRow("empty file") << "empty"
                                << "is empty";
    QTest::newRow("truncated file") << "truncate"
                                    << "is cut short";
    QTest::newRow("not a database") << "garbage"
                                    << "is not a database";
    QTest::newRow("missing file") << "remove"
                                  << "does not exist";
    QTest::newRow("read-only file") << "readonly"
                                    << "is read-only";
    QTest::newRow("read-only folder") << "readonly-folder"
                                      << "is read-only";
    QTest::newRow("unknown host") << "unknown-host"
                                  << "no-such-host.invalid";
}

void TestSessionFaults::startFailuresSayTheirCause() {
    QFETCH(QString, damage);
    QFETCH(QString, cause);
    TempInstall install;
    auto& settings = InstallSettings::instance();
    settings.setValue(InstallSettings::SupportAddress, "help@example.org");
    // A working embedded database, made by a first start, then damaged.
    {
        MessageRecorder boxes;
        Startup first(nullptr, {});
        core::setDialogResponder([](QDialog& d) {
            if (auto* login = qobject_cast<core::frmLogin*>(&d)) {
                login->txtUserName->setText("sa");
                login->cmdOK->click();
            } else {
                d.accept();
            }
            return int(QDialog::Accepted);
        });
        QVERIFY(first.run());
        core::setDialogResponder({});
        core::setDb(nullptr);
    }
    const QString path = settings.embeddedDatabasePath();
    QFile::remove(path + "-wal");
    QFile::remove(path + "-shm");
    QFile file(path);
    const qint64 size = file.size();
    const QByteArray native = QFile::encodeName(path);
    if (damage == "empty") {
        QVERIFY(file.resize(0));
    } else if (damage == "truncate") {
        QVERIFY(file.resize(size / 2));
    } else if (damage == "garbage") {
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(4096, 'z'));
        file.close();
    } else if (damage == "remove") {
        QVERIFY(file.remove());
    } else if (damage == "readonly") {
        ::chmod(native.constData(), 0400);
    } else if (damage == "readonly-folder") {
        ::chmod(QFile::encodeName(settings.dataFolder()).constData(), 0500);
    } else if (damage == "unknown-host") {
        settings.setValue(InstallSettings::Server, "no-such-host.invalid");
    }

    MessageRecorder boxes;
    DialogDriver dialogs;
    dialogs.then(loginAs(damage == "unknown-host" ? "someone" : "sa", ""));
    Startup startup(nullptr, {});
    QElapsedTimer elapsed;
    elapsed.start();
    const bool started = startup.run();
    ::chmod(QFile::encodeName(settings.dataFolder()).constData(), 0700);
    QVERIFY(!started);
    QVERIFY(!core::hasDb());
    QCOMPARE(boxes.calls().size(), 1);
    QCOMPARE(boxes.calls()[0].title, QString("Database Error"));
    const QStringList lines = boxes.calls()[0].text.split('\n');
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines[0], Problem);
    QVERIFY2(lines[1].contains(cause), qPrintable(lines[1]));
    QCOMPARE(lines[2], "The error log is " + core::errorLogPath());
    QVERIFY(logText().contains(lines[1]));
    // Nothing was made in place of the damaged file.
    if (damage == "remove") QVERIFY(!QFileInfo::exists(path));
    if (damage == "empty") QCOMPARE(QFileInfo(path).size(), 0);
}

void TestSessionFaults::silentServerEndsQuickly() {
    // A server that takes the connection and never answers: the system completes the
    // handshake for a listening socket nobody serves.
    const int silent = ::socket(AF_INET, SOCK_STREAM, 0);
    QVERIFY(silent >= 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    QVERIFY(::bind(silent, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0);
    QVERIFY(::listen(silent, 8) == 0);
    socklen_t length = sizeof address;
    ::getsockname(silent, reinterpret_cast<sockaddr*>(&address), &length);
    const auto closeSilent = qScopeGuard([silent] { ::close(silent); });
    TempInstall install;
    auto& settings = InstallSettings::instance();
    settings.setValue(InstallSettings::Server,
                      QStringLiteral("127.0.0.1:%1").arg(ntohs(address.sin_port)));
    settings.setValue(InstallSettings::CleanInstall, "No");
    settings.setValue(InstallSettings::SupportAddress, "help@example.org");
    MessageRecorder boxes;
    DialogDriver dialogs;
    dialogs.then(loginAs("someone", "secret"));
    Startup startup(nullptr, {});
    QElapsedTimer elapsed;
    elapsed.start();
    QVERIFY(!startup.run());
    QVERIFY2(elapsed.elapsed() < 10000, qPrintable(QString::number(elapsed.elapsed())));
    QCOMPARE(boxes.calls().size(), 1);
    QVERIFY(boxes.calls()[0].text.startsWith(Problem + "\n"));
    QVERIFY(boxes.calls()[0].text.contains("timeout", Qt::CaseInsensitive));
}

void TestSessionFaults::unreadableSettingsStopTheStart_data() {
    QTest::addColumn<QString>("kind");
    QTest::newRow("a folder") << "folder";
    QTest::newRow("binary") << "binary";
    QTest::newRow("no read permission") << "mode";
}

void TestSessionFaults::unreadableSettingsStopTheStart() {
    QFETCH(QString, kind);
    if (kind == "mode" && runningAsRoot()) QSKIP("the administrator reads any file");
    QTemporaryDir dir;
    const QString file = dir.path() + "/quillorne.ini";
    const QString data = dir.path() + "/data";
    if (kind == "folder") {
        QVERIFY(QDir().mkpath(file));
    } else {
        QFile f(file);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(kind == "binary" ? QByteArray("[General]\n_Server=db\0\xff\xfe", 22)
                                 : QByteArray("[General]\n_Server=db.example.org\n"));
        f.close();
        if (kind == "mode") ::chmod(QFile::encodeName(file).constData(), 0);
    }
    try {
        InstallSettings::configure(file, data);
        QFAIL("unreadable settings were taken");
    } catch (const core::SettingsError& e) {
        QVERIFY2(e.message().contains(file), qPrintable(e.message()));
    }
    QVERIFY(!QFileInfo::exists(data));
    if (kind == "binary") QCOMPARE(QFileInfo(file).size(), 22);
}

void TestSessionFaults::deleteRefusedByALockSaysSo() {
    TestDatabase t;
    auto& db = t.db();
    const qint64 id = db.insert("Department", "Department_ID", {{"Department", "Unused Dept"}});
    MessageRecorder boxes;
    companieslist list;
    list.setWindowTitle("Delete Department");
    list.loadall("Department", "Department_ID", "Department");
    // Another user holds the table while the delete runs.
    auto other = t.openSecond("lock-holder");
    other->begin();
    if (testsupport::testingPostgres()) {
        other->exec("LOCK TABLE Department IN SHARE MODE");
        db.exec("SET lock_timeout = '300ms'");
    } else {
        other->exec("UPDATE Department SET Department = Department WHERE Department_ID = ?", {id});
        db.query("PRAGMA busy_timeout = 300");
    }
    bool found = false;
    for (int i = 0; i < list.ListView1->topLevelItemCount(); ++i)
        if (list.ListView1->topLevelItem(i)->text(0) == "Unused Dept") {
            list.ListView1->setCurrentItem(list.ListView1->topLevelItem(i));
            found = true;
        }
    QVERIFY(found);
    boxes.answerNext(core::MsgAnswer::Yes);
    list.ok();
    other->rollback();
    QCOMPARE(boxes.calls().size(), 2);
    const auto& failure = boxes.calls()[1];
    QVERIFY2(!failure.text.startsWith("Cannot delete"), qPrintable(failure.text));
    QVERIFY(!failure.text.trimmed().isEmpty());
    QVERIFY(failure.title.startsWith("Error Code : "));
    QVERIFY(logText().contains("Delete Department"));
    QCOMPARE(db.scalar("SELECT COUNT(*) FROM Department WHERE Department_ID = ?", {id}).toInt(), 1);
}

void TestSessionFaults::serverRestartDuringASession() {
    if (!testsupport::testingPostgres()) QSKIP("the embedded database has no server");
    testsupport::PrivatePostgres server;
    if (!server.problem().isEmpty()) QFAIL(qPrintable(server.problem()));
    {
        auto admin = core::Db::open(server.params(), "setup");
        admin->exec("CREATE TABLE notes (id SERIAL PRIMARY KEY, body TEXT)");
        admin->exec("INSERT INTO notes (body) VALUES (?)", {"first"});
    }
    auto session = core::Db::open(server.params(), "session");
    const auto count = [&] { return session->scalar("SELECT COUNT(*) FROM notes").toInt(); };
    QCOMPARE(count(), 1);

    // A read after the restart is run again on a new connection.
    QVERIFY(server.restart());
    QCOMPARE(count(), 1);

    // A write is not repeated: it is refused with the message, and the next one goes in.
    QVERIFY(server.restart());
    try {
        session->exec("INSERT INTO notes (body) VALUES (?)", {"lost"});
        QFAIL("a write on a lost connection passed");
    } catch (const core::DbError& e) {
        QCOMPARE(e.description(), QString(core::Db::LostConnectionMessage));
    }
    session->exec("INSERT INTO notes (body) VALUES (?)", {"second"});
    QCOMPARE(count(), 2);

    // A transaction cut by the restart is lost whole, and its commit says so.
    {
        core::Transaction tx(*session);
        session->exec("INSERT INTO notes (body) VALUES (?)", {"half"});
        QVERIFY(server.restart());
        QVERIFY_THROWS_EXCEPTION(
            core::DbError, session->exec("INSERT INTO notes (body) VALUES (?)", {"other half"}));
        QVERIFY_THROWS_EXCEPTION(core::DbError, tx.commit());
    }
    QCOMPARE(session->scalar("SELECT COUNT(*) FROM notes WHERE body LIKE '%half'").toInt(), 0);

    // A server still down says why, every time; once it is back the session goes on.
    QVERIFY(server.stop());
    for (int attempt = 0; attempt < 2; ++attempt) {
        try {
            count();
            QFAIL("a read passed with the server down");
        } catch (const core::DbError& e) {
            QVERIFY(!e.description().trimmed().isEmpty());
            QCOMPARE(e.kind(), core::DbErrorKind::Unreachable);
        }
    }
    QVERIFY(server.start());
    QCOMPARE(count(), 2);

    // Through a command: the box says what happened, under its number.
    QVERIFY(server.restart());
    TempInstall install;
    MessageRecorder boxes;
    core::guarded("Notes", [&] { session->exec("UPDATE notes SET body = ?", {"changed"}); });
    QCOMPARE(boxes.texts(), QStringList{core::Db::LostConnectionMessage});
    QVERIFY(boxes.calls()[0].title.startsWith("Error Code : "));
}

QTEST_MAIN(TestSessionFaults)
#include "tst_session_faults.moc"
