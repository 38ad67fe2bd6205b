#include "db.h"
#include "errorlog.h"
#include "failure.h"
#include "logins.h"
#include "seams.h"
#include "session.h"
#include "testdb.h"

#include <QFile>
#include <QtTest>

using core::Db;
using core::DbError;
using core::DbErrorKind;
using testsupport::TestDatabase;

class TestDatabaseLayer : public QObject {
    Q_OBJECT
private slots:
    void insertReturnsGeneratedKeysAndUpdateByKey();
    void transactionRollsBackUnlessCommitted();
    void innerFailureDoomsOuterTransaction();
    void failuresAreToldApart_data();
    void failuresAreToldApart();
    void embeddedLoginsCheckTheirHash_data();
    void embeddedLoginsCheckTheirHash();
    void failedCommandShowsBoxAndWritesLog();
    void namesMatchIgnoringCaseBeyondAscii_data();
    void namesMatchIgnoringCaseBeyondAscii();
};

void TestDatabaseLayer::namesMatchIgnoringCaseBeyondAscii_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<bool>("like");
    QTest::addColumn<int>("found");
    QTest::newRow("upper case accented") << "ÖZTÜRK" << false << 1;
    QTest::newRow("prefix, lower case") << "özt%" << true << 1;
    QTest::newRow("polish") << "ŁUKASIEWICZ" << false << 1;
    QTest::newRow("apostrophe") << "o'NEIL" << false << 1;
    QTest::newRow("other name") << "Ozturk" << false << 0;
}

void TestDatabaseLayer::namesMatchIgnoringCaseBeyondAscii() {
    QFETCH(QString, typed);
    QFETCH(bool, like);
    QFETCH(int, found);
    TestDatabase t;
    for (const char* surname : {"Öztürk", "Łukasiewicz", "O'Neil"})
        t.db().insert("Person", "Person_ID",
                      {{"firstnames", "A"}, {"surname", QString::fromUtf8(surname)}});
    const QString where = like ? Db::ciLike("surname") : Db::ciEquals("surname");
    QCOMPARE(t.db().scalar("SELECT COUNT(*) FROM Person WHERE " + where, {typed}).toInt(), found);
}

void TestDatabaseLayer::insertReturnsGeneratedKeysAndUpdateByKey() {
    TestDatabase t;
    Db& db = t.db();
    const qint64 a = db.insert("Department", "Department_ID", {{"Department", "Sales"}});
    const qint64 b = db.insert("Department", "Department_ID", {{"Department", "Accounts"}});
    QVERIFY(a > 0);
    QCOMPARE(b, a + 1);
    QCOMPARE(db.update("Department", "Department_ID", a, {{"Department", "Field Sales"}}), 1);
    QCOMPARE(db.scalar("SELECT Department FROM Department WHERE Department_ID = ?", {a}).toString(),
             QString("Field Sales"));
    QCOMPARE(db.scalar("SELECT Department FROM Department WHERE Department_ID = ?", {b}).toString(),
             QString("Accounts"));
    QCOMPARE(db.update("Department", "Department_ID", b + 100, {{"Department", "x"}}), 0);
}

void TestDatabaseLayer::transactionRollsBackUnlessCommitted() {
    TestDatabase t;
    Db& db = t.db();
    const auto count = [&] { return db.scalar("SELECT COUNT(*) FROM Location").toInt(); };
    const int before = count();
    try {
        core::Transaction tx(db);
        db.insert("Location", "Location_ID", {{"Location", "Leeds"}});
        db.exec("INSERT INTO nosuchtable (x) VALUES (?)", {1});
        tx.commit();
        QFAIL("a failed statement must throw");
    } catch (const DbError& e) {
        QCOMPARE(e.kind(), DbErrorKind::Other);
    }
    QCOMPARE(count(), before);
    QVERIFY(!db.inTransaction());
    {
        core::Transaction tx(db);
        db.insert("Location", "Location_ID", {{"Location", "York"}});
        tx.commit();
    }
    QCOMPARE(count(), before + 1);
}

void TestDatabaseLayer::innerFailureDoomsOuterTransaction() {
    TestDatabase t;
    Db& db = t.db();
    const int before = db.scalar("SELECT COUNT(*) FROM Location").toInt();
    core::Transaction outer(db);
    db.insert("Location", "Location_ID", {{"Location", "Hull"}});
    {
        core::Transaction inner(db);
        db.insert("Location", "Location_ID", {{"Location", "Bath"}});
        // left without commit: the whole unit must go
    }
    QVERIFY_THROWS_EXCEPTION(DbError, outer.commit());
    QCOMPARE(db.scalar("SELECT COUNT(*) FROM Location").toInt(), before);
    QVERIFY(!db.inTransaction());
}

void TestDatabaseLayer::failuresAreToldApart_data() {
    QTest::addColumn<QString>("what");
    QTest::addColumn<int>("kind");
    QTest::addColumn<qint64>("number");
    QTest::newRow("referenced department")
        << "fk" << int(DbErrorKind::Constraint) << DbError::ConstraintNumber;
    QTest::newRow("key taken twice")
        << "pk" << int(DbErrorKind::Constraint) << DbError::ConstraintNumber;
    QTest::newRow("bad statement")
        << "syntax" << int(DbErrorKind::Other) << DbError::CommandFailedNumber;
    QTest::newRow("server not there")
        << "unreachable" << int(DbErrorKind::Unreachable) << DbError::UnreachableNumber;
    if (testsupport::testingPostgres()) {
        QTest::newRow("wrong password")
            << "password" << int(DbErrorKind::LoginRefused) << DbError::LoginRefusedNumber;
        QTest::newRow("no rights") << "permission" << int(DbErrorKind::PermissionDenied)
                                   << DbError::PermissionDeniedNumber;
    }
}

void TestDatabaseLayer::failuresAreToldApart() {
    QFETCH(QString, what);
    QFETCH(int, kind);
    QFETCH(qint64, number);
    TestDatabase t;
    Db& db = t.db();
    const qint64 dept = db.insert("Department", "Department_ID", {{"Department", "Stores"}});
    db.insert("Person", "Person_ID",
              {{"firstnames", "Ann"}, {"surname", "Lee"}, {"Department_ID", dept}});
    const QString role = QStringLiteral("qt_role_%1").arg(QCoreApplication::applicationPid());
    try {
        if (what == "fk") {
            db.exec("DELETE FROM Department WHERE Department_ID = ?", {dept});
        } else if (what == "pk") {
            db.exec("INSERT INTO Department (Department_ID, Department) VALUES (?, ?)",
                    {dept, "Again"});
        } else if (what == "syntax") {
            db.exec("SELEC nothing");
        } else if (what == "unreachable") {
            core::ConnectionParams p = t.params();
            p.host = "127.0.0.1";
            p.port = 1;
            p.sqlitePath = "/nonexistent-folder/x/personnel.db";
            Db::open(p, "unreachable");
        } else if (what == "password") {
            core::ConnectionParams p = t.params();
            p.password = "certainly-not-the-password";
            Db::open(p, "refused");
        } else if (what == "permission") {
            auto admin = Db::open(testsupport::postgresAdminParams(), "admin");
            admin->exec("DROP ROLE IF EXISTS " + admin->quoteIdentifier(role));
            admin->exec("CREATE ROLE " + admin->quoteIdentifier(role) + " LOGIN PASSWORD " +
                        admin->quoteLiteral("pw"));
            core::ConnectionParams p = t.params();
            p.user = role;
            p.password = "pw";
            auto limited = Db::open(p, "limited");
            limited->exec("DELETE FROM Department");
        }
        QFAIL("the statement should have failed");
    } catch (const DbError& e) {
        QCOMPARE(int(e.kind()), kind);
        QCOMPARE(e.number(), number);
        QVERIFY(!e.description().isEmpty());
    }
    QCOMPARE(db.scalar("SELECT COUNT(*) FROM Department WHERE Department_ID = ?", {dept}).toInt(),
             1);
    if (what == "permission") {
        auto admin = Db::open(testsupport::postgresAdminParams(), "admin");
        admin->exec("DROP OWNED BY " + admin->quoteIdentifier(role));
        admin->exec("DROP ROLE IF EXISTS " + admin->quoteIdentifier(role));
    }
}

void TestDatabaseLayer::embeddedLoginsCheckTheirHash_data() {
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("tried");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("blank sa") << "sa"
                              << ""
                              << "" << true;
    QTest::newRow("apostrophes") << "O'Neil"
                                 << "it's'me"
                                 << "it's'me" << true;
    QTest::newRow("name ignores case") << "O'Neil"
                                       << "it's'me"
                                       << "it's'me" << true;
    QTest::newRow("wrong password") << "clerk"
                                    << "secret"
                                    << "Secret" << false;
    QTest::newRow("hostile name") << "x' OR '1'='1"
                                  << "pw"
                                  << "nope" << false;
}

void TestDatabaseLayer::embeddedLoginsCheckTheirHash() {
    if (testsupport::testingPostgres()) QSKIP("PostgreSQL logins are server roles");
    QFETCH(QString, user);
    QFETCH(QString, password);
    QFETCH(QString, tried);
    QFETCH(bool, accepted);
    TestDatabase t;
    if (user != "sa") core::setEmbeddedLogin(t.db(), user, password);
    const QString asTyped = QString(QTest::currentDataTag()) == QLatin1String("name ignores case")
                                ? user.toUpper()
                                : user;
    try {
        core::verifyEmbeddedLogin(t.db(), asTyped, tried);
        QVERIFY(accepted);
    } catch (const DbError& e) {
        QVERIFY(!accepted);
        QCOMPARE(e.kind(), DbErrorKind::LoginRefused);
    }
    // The hash never holds the password itself.
    const QString stored =
        t.db()
            .scalar("SELECT pwhash FROM logins WHERE " + Db::ciEquals("login"), {user})
            .toString();
    QVERIFY(stored.startsWith("$argon2id$"));
    QVERIFY(password.isEmpty() || !stored.contains(password));
}

void TestDatabaseLayer::failedCommandShowsBoxAndWritesLog() {
    TestDatabase t;
    testsupport::MessageRecorder boxes;
    const bool ok = core::guarded("Department", [&] { t.db().exec("SELECT * FROM nowhere"); });
    QVERIFY(!ok);
    QCOMPARE(boxes.calls().size(), 1);
    QCOMPARE(boxes.calls()[0].title, QString("Error Code : %1").arg(DbError::CommandFailedNumber));
    QVERIFY(!boxes.calls()[0].text.isEmpty());
    QFile log(core::errorLogPath());
    QVERIFY(log.open(QIODevice::ReadOnly));
    const QString line = QString::fromUtf8(log.readAll()).trimmed();
    QVERIFY2(line.contains(QString::number(DbError::CommandFailedNumber)), qPrintable(line));
    QVERIFY(line.endsWith("Department"));
}

QTEST_MAIN(TestDatabaseLayer)
#include "tst_database.moc"
