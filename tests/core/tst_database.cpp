#include "db.h"
#include "errorlog.h"
#include "failure.h"
#include "loadedrow.h"
#include "logins.h"
#include "money.h"
#include "seams.h"
#include "session.h"
#include "testdb.h"
#include "typedfields.h"

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
    void failedCommitRollsBackAndReports();
    void moneyKeepsEveryDigitTheColumnHolds_data();
    void moneyKeepsEveryDigitTheColumnHolds();
    void rowChangedByAnotherUserIsTold_data();
    void rowChangedByAnotherUserIsTold();
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

void TestDatabaseLayer::failedCommitRollsBackAndReports() {
    TestDatabase t;
    Db& db = t.db();
    // A reference checked only at COMMIT: the commit itself is what fails.
    db.exec("CREATE TABLE commit_parent (id INTEGER PRIMARY KEY)");
    db.exec("CREATE TABLE commit_child (parent INTEGER REFERENCES commit_parent (id) "
            "DEFERRABLE INITIALLY DEFERRED)");
    {
        core::Transaction tx(db);
        db.exec("INSERT INTO commit_child (parent) VALUES (?)", {7});
        QVERIFY_THROWS_EXCEPTION(DbError, tx.commit());
    }
    QVERIFY(!db.inTransaction());
    // Nothing of the failed unit stays, and the next unit is a transaction of its own.
    QCOMPARE(db.scalar("SELECT COUNT(*) FROM commit_child").toInt(), 0);
    {
        core::Transaction tx(db);
        db.exec("INSERT INTO commit_parent (id) VALUES (?)", {1});
        tx.commit();
    }
    auto other = t.openSecond("commit-reader");
    QCOMPARE(other->scalar("SELECT COUNT(*) FROM commit_parent").toInt(), 1);
    QCOMPARE(other->scalar("SELECT COUNT(*) FROM commit_child").toInt(), 0);
}

void TestDatabaseLayer::moneyKeepsEveryDigitTheColumnHolds_data() {
    QTest::addColumn<QString>("typed");
    QTest::newRow("the largest amount") << "99,999,999,999.9999";
    QTest::newRow("the most negative amount") << "-99999999999.9999";
    QTest::newRow("pennies of a large amount") << "£12,345,678,901.2345";
    QTest::newRow("a plain salary") << "30000.5";
}

void TestDatabaseLayer::moneyKeepsEveryDigitTheColumnHolds() {
    QFETCH(QString, typed);
    TestDatabase t;
    core::TypedFields fields;
    const auto value = fields.money("Salary", typed);
    QVERIFY2(fields.ok(), qPrintable(fields.message()));
    const qint64 id =
        t.db().insert("Person", "Person_ID", {{"surname", "Lee"}, {"salary", value->toVariant()}});
    const auto stored = core::Money::fromVariant(
        t.db().scalar("SELECT salary FROM Person WHERE Person_ID = ?", {id}));
    QCOMPARE(stored.units(), value->units());
}

void TestDatabaseLayer::rowChangedByAnotherUserIsTold_data() {
    QTest::addColumn<QString>("change");
    QTest::addColumn<bool>("unchanged");
    QTest::newRow("nobody else saved") << "" << true;
    QTest::newRow("another user changed a column") << "surname" << false;
    QTest::newRow("another user cleared a column") << "null" << false;
    QTest::newRow("another user deleted the row") << "delete" << false;
    QTest::newRow("another user saved the same values") << "same" << true;
}

void TestDatabaseLayer::rowChangedByAnotherUserIsTold() {
    QFETCH(QString, change);
    QFETCH(bool, unchanged);
    TestDatabase t;
    Db& a = t.db();
    const qint64 id =
        a.insert("Company", "Company_ID", {{"Company_Name", "Acme"}, {"Tel_NO", "0113 496 0000"}});
    const core::LoadedRow loaded = core::LoadedRow::read(a, "Company", "Company_ID", id);
    QVERIFY(!loaded.isEmpty());

    auto b = t.openSecond("second-user");
    if (change == "surname")
        b->update("Company", "Company_ID", id, {{"Company_Name", "Acme Ltd"}});
    else if (change == "null")
        b->update("Company", "Company_ID", id,
                  {{"Tel_NO", QVariant(QMetaType::fromType<QString>())}});
    else if (change == "delete")
        b->remove("Company", "Company_ID", id);
    else if (change == "same")
        b->update("Company", "Company_ID", id, {{"Company_Name", "Acme"}});

    core::Transaction tx(a);
    if (unchanged) {
        loaded.verify(a);
        a.update("Company", "Company_ID", id, {{"fax", "0113 496 0001"}});
        tx.commit();
        QCOMPARE(b->scalar("SELECT fax FROM Company WHERE Company_ID = ?", {id}).toString(),
                 QString("0113 496 0001"));
    } else {
        QVERIFY_THROWS_EXCEPTION(core::RowChanged, loaded.verify(a));
    }
    QCOMPARE(core::rowChangedMessage("company"),
             QString("This company has been changed by another user since you opened it. Your "
                     "changes have not been saved."));
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
