#include "password_source.h"
#include "testdb.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

namespace {

struct Run {
    int code = -1;
    QString out;
    QString err;
};

Run runTool(const QStringList& arguments, const QProcessEnvironment& env) {
    QProcess p;
    p.setProcessEnvironment(env);
    p.setStandardInputFile(QProcess::nullDevice());
    p.start(QUILLORNE_ADMIN_TOOL, arguments);
    Run r;
    if (!p.waitForFinished(120000)) return r;
    r.code = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    r.out = QString::fromLocal8Bit(p.readAllStandardOutput());
    r.err = QString::fromLocal8Bit(p.readAllStandardError());
    return r;
}

void writeFile(const QString& path, const QByteArray& bytes) {
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

} // namespace

class TestConsolePassword : public QObject {
    Q_OBJECT
private slots:
    void passwordFileFirstLine_data();
    void passwordFileFirstLine();
    void fileThenEnvironmentThenPrompt();
    void theToolTakesNoPasswordArgument();
    void theToolSignsInWithEnvironmentOrFile();
};

void TestConsolePassword::passwordFileFirstLine_data() {
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("password");
    QTest::newRow("line break") << QByteArray("secret\n") << "secret";
    QTest::newRow("no line break") << QByteArray("secret") << "secret";
    QTest::newRow("windows line") << QByteArray("secret\r\nnext\r\n") << "secret";
    QTest::newRow("blanks kept") << QByteArray("  two  \n") << "  two  ";
    QTest::newRow("utf-8") << QByteArray("p\xc3\xa4ss\n") << QString::fromUtf8("p\xc3\xa4ss");
    QTest::newRow("empty") << QByteArray("\n") << "";
}

void TestConsolePassword::passwordFileFirstLine() {
    QFETCH(QByteArray, content);
    QFETCH(QString, password);
    QTemporaryDir dir;
    writeFile(dir.path() + "/pw", content);
    const auto r = admin::readPasswordFile(dir.path() + "/pw");
    QCOMPARE(r.error, QString());
    QCOMPARE(r.password, password);
}

void TestConsolePassword::fileThenEnvironmentThenPrompt() {
    QTemporaryDir dir;
    writeFile(dir.path() + "/pw", "from-file\n");
    qputenv("QUILLORNE_PASSWORD", "from-environment");
    QCOMPARE(admin::readPassword(dir.path() + "/pw", "?").password, QString("from-file"));
    QCOMPARE(admin::readPassword({}, "?").password, QString("from-environment"));
    const auto missing = admin::readPassword(dir.path() + "/none", "?");
    QVERIFY(missing.error.contains(dir.path() + "/none"));
    qunsetenv("QUILLORNE_PASSWORD");
    // Without a terminal there is no one to ask: a clear refusal, never a blank password.
    if (!isatty(STDIN_FILENO)) QVERIFY(!admin::readPassword({}, "?").error.isEmpty());
}

void TestConsolePassword::theToolTakesNoPasswordArgument() {
    const auto r = runTool({"create", "--password", "visible", "--settings", "/nonexistent/q.ini"},
                           QProcessEnvironment::systemEnvironment());
    QCOMPARE(r.code, 1);
    QVERIFY2(r.err.contains("password"), qPrintable(r.err));
}

void TestConsolePassword::theToolSignsInWithEnvironmentOrFile() {
    if (!testsupport::testingPostgres()) QSKIP("the embedded database needs no server password");
    const auto admin = testsupport::postgresAdminParams();
    QTemporaryDir dir;
    const QString database =
        QStringLiteral("qt_console_%1").arg(QCoreApplication::applicationPid());
    writeFile(dir.path() + "/q.ini", QStringLiteral("[General]\n_Server=%1:%2\n_Database=%3\n")
                                         .arg(admin.host)
                                         .arg(admin.port)
                                         .arg(database)
                                         .toUtf8());
    writeFile(dir.path() + "/right", (admin.password + "\n").toUtf8());
    writeFile(dir.path() + "/wrong", "not-the-password\n");
    const QStringList base = {"create",  "--settings",         dir.path() + "/q.ini",
                              "--data",  dir.path() + "/data", "--user",
                              admin.user};
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.remove("QUILLORNE_PASSWORD");

    const auto none = runTool(base, env);
    QCOMPARE(none.code, 1);
    QVERIFY2(none.err.contains("QUILLORNE_PASSWORD"), qPrintable(none.err));

    const auto wrong = runTool(base + QStringList{"--password-file", dir.path() + "/wrong"}, env);
    QCOMPARE(wrong.code, 1);

    const auto fromFile =
        runTool(base + QStringList{"--password-file", dir.path() + "/right"}, env);
    QVERIFY2(fromFile.code == 0, qPrintable(fromFile.err));

    env.insert("QUILLORNE_PASSWORD", admin.password);
    const auto fromEnvironment = runTool(base, env);
    QVERIFY2(fromEnvironment.code == 0, qPrintable(fromEnvironment.err));
    QVERIFY(fromEnvironment.out.contains(database));

    auto db = core::Db::open(admin, "console-cleanup");
    db->exec("DROP DATABASE IF EXISTS " + db->quoteIdentifier(database) + " WITH (FORCE)");
}

QTEST_MAIN(TestConsolePassword)
#include "tst_console_password.moc"
