#include "db.h"
#include "logins.h"
#include "testdb.h"
#include "users.h"

#include <QUuid>
#include <QtTest>

using core::Db;
using core::DbError;
using core::DbErrorKind;
using testsupport::TestDatabase;

namespace {

// Roles are the server's, shared by every test database on it: each test names its own.
QString uniqueName(const QString& stem) {
    return stem + '_' + QUuid::createUuid().toString(QUuid::Id128).left(10);
}

} // namespace

class TestUsers : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void addUserRefusals_data();
    void addUserRefusals();
    void changePasswordRefusals_data();
    void changePasswordRefusals();
    void addedUserSignsInAndIsListed();
    void takenNameIsRefusedAndNothingChanges();
    void userWithoutTheRightCannotAddUsers();
    void changedPasswordCountsFromTheNextLogin();
    void anAdminRemovesOnlyThisDatabasesLogins();

private:
    bool signsIn(const QString& user, const QString& password);
    std::unique_ptr<Db> signIn(const QString& user, const QString& password);
    // The signed-in administrator: "sa" on the embedded database, the server's on PostgreSQL.
    QString adminName() const { return db_->params().user; }

    std::unique_ptr<TestDatabase> db_;
    QStringList roles_;
};

void TestUsers::init() {
    db_ = std::make_unique<TestDatabase>();
}

void TestUsers::cleanup() {
    const QStringList roles = roles_;
    roles_.clear();
    db_.reset();
    if (!testsupport::testingPostgres()) return;
    auto admin = Db::open(testsupport::postgresAdminParams(), "drop-roles");
    for (const QString& r : roles)
        admin->exec("DROP ROLE IF EXISTS " + admin->quoteIdentifier(r));
}

std::unique_ptr<Db> TestUsers::signIn(const QString& user, const QString& password) {
    core::ConnectionParams p = db_->params();
    p.user = user;
    p.password = password;
    auto db = Db::open(p, "sign-in");
    if (!testsupport::testingPostgres()) core::verifyEmbeddedLogin(*db, user, password);
    return db;
}

bool TestUsers::signsIn(const QString& user, const QString& password) {
    try {
        signIn(user, password);
        return true;
    } catch (const DbError& e) {
        if (e.kind() != DbErrorKind::LoginRefused) throw;
        return false;
    }
}

void TestUsers::addUserRefusals_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("password");
    QTest::addColumn<QString>("confirm");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("message");
    const QString tooShort = "Please enter a password of at least 6 characters";
    const QString mismatch = "Your passwords do not match. Please enter your new password and "
                             "confirm it below.";
    QTest::newRow("blank name") << "   "
                                << "secret1"
                                << "secret1"
                                << "Admin"
                                << "please enter a login name";
    QTest::newRow("name checked before password") << ""
                                                  << ""
                                                  << "x"
                                                  << "Admin"
                                                  << "please enter a login name";
    QTest::newRow("five characters") << "ann"
                                     << "abcde"
                                     << "abcde"
                                     << "Admin" << tooShort;
    QTest::newRow("six blanks") << "ann"
                                << "      "
                                << "      "
                                << "Admin" << tooShort;
    QTest::newRow("padded five") << "ann"
                                 << " abcde "
                                 << " abcde "
                                 << "Admin" << tooShort;
    QTest::newRow("mismatch") << "ann"
                              << "secret1"
                              << "secret2"
                              << "Admin" << mismatch;
    QTest::newRow("differ by a blank") << "ann"
                                       << "secret1"
                                       << "secret1 "
                                       << "Admin" << mismatch;
    QTest::newRow("unknown type") << "ann"
                                  << "secret1"
                                  << "secret1"
                                  << "Guest"
                                  << "Please select user type";
    QTest::newRow("longer than a role name") << QString(64, 'a') << "secret1"
                                             << "secret1"
                                             << "Admin"
                                             << "The login name can be at most 63 characters";
    QTest::newRow("admin") << "ann"
                           << "secret1"
                           << "secret1"
                           << "Admin"
                           << "";
    QTest::newRow("user type") << "ann"
                               << "secret1"
                               << "secret1"
                               << " User "
                               << "";
    QTest::newRow("long password") << "O'Neil" << QString(40, 'p') << QString(40, 'p') << "Admin"
                                   << "";
}

void TestUsers::addUserRefusals() {
    QFETCH(QString, name);
    QFETCH(QString, password);
    QFETCH(QString, confirm);
    QFETCH(QString, type);
    QFETCH(QString, message);
    QCOMPARE(admin::addUserRefusal(name, password, confirm, type), message);
}

void TestUsers::changePasswordRefusals_data() {
    QTest::addColumn<QString>("newPassword");
    QTest::addColumn<QString>("confirm");
    QTest::addColumn<QString>("message");
    const QString tooShort = "The new password needs to be at least 6 characters";
    QTest::newRow("short new") << "abc"
                               << "abcdefg" << tooShort;
    QTest::newRow("short confirmation") << "abcdefg"
                                        << "abc" << tooShort;
    QTest::newRow("blanks") << "       "
                            << "       " << tooShort;
    QTest::newRow("differ") << "abcdefg"
                            << "abcdefh"
                            << "Passswords do not match";
    QTest::newRow("same") << "abcdefg"
                          << "abcdefg"
                          << "";
}

void TestUsers::changePasswordRefusals() {
    QFETCH(QString, newPassword);
    QFETCH(QString, confirm);
    QFETCH(QString, message);
    QCOMPARE(admin::changePasswordRefusal(newPassword, confirm), message);
}

void TestUsers::addedUserSignsInAndIsListed() {
    const QString name = uniqueName("ann");
    roles_ << name;
    // Passwords go to the server quoted, never spliced as typed.
    const QString password = "it's a \\ long pass phrase";
    admin::addUser(db_->db(), adminName(), name, password);
    QVERIFY(!db_->db().inTransaction());
    QVERIFY(signsIn(name, password));
    QVERIFY(!signsIn(name, "wrong password"));
    QCOMPARE(db_->db().scalar("SELECT users FROM users").toString(), name);

    // The new login reads and writes this database's tables.
    auto as = signIn(name, password);
    as->exec("UPDATE options SET nodaysbackup = 3");
    QCOMPARE(db_->db().scalar("SELECT nodaysbackup FROM options").toInt(), 3);
    if (testsupport::testingPostgres()) {
        QVERIFY(!as->scalar("SELECT rolsuper OR rolcreatedb OR rolcreaterole FROM pg_roles WHERE "
                            "rolname = ?",
                            {name})
                     .toBool());
        // Nor can it give itself the server's own powers.
        QVERIFY_THROWS_EXCEPTION(
            DbError, as->exec("GRANT pg_execute_server_program TO " + as->quoteIdentifier(name)));
        // It may add logins itself (an Admin), so the next one works through it.
        const QString second = uniqueName("bob");
        roles_ << second;
        admin::addUser(*as, name, second, "another1");
        QVERIFY(signsIn(second, "another1"));
        // A table of the caller's own that shadows the schema's changes no login's rights.
        as->exec("CREATE TEMP TABLE logingroup (rolename TEXT, adminrole TEXT)");
        as->exec("INSERT INTO logingroup VALUES (?, ?)", {"pg_execute_server_program", name});
        const QString third = uniqueName("cy");
        roles_ << third;
        admin::addUser(*as, name, third, "another2");
        QVERIFY(
            !db_->db()
                 .scalar("SELECT pg_has_role(?, 'pg_execute_server_program', 'MEMBER')", {third})
                 .toBool());
        QVERIFY(signsIn(third, "another2"));
    }
}

void TestUsers::takenNameIsRefusedAndNothingChanges() {
    const QString name = uniqueName("cat");
    roles_ << name;
    admin::addUser(db_->db(), adminName(), name, "first-pw");
    QVERIFY_THROWS_EXCEPTION(admin::UserExists,
                             admin::addUser(db_->db(), adminName(), name, "second-pw"));
    QVERIFY(!db_->db().inTransaction());
    QCOMPARE(db_->db().scalar("SELECT COUNT(*) FROM users").toInt(), 1);
    QVERIFY(signsIn(name, "first-pw"));
    QVERIFY(!signsIn(name, "second-pw"));

    // A login made outside the program, without a users row, is taken as well.
    const QString outside = uniqueName("dan");
    roles_ << outside;
    if (testsupport::testingPostgres())
        db_->db().exec("CREATE ROLE " + db_->db().quoteIdentifier(outside) + " LOGIN");
    else
        core::setEmbeddedLogin(db_->db(), outside, "x");
    QVERIFY_THROWS_EXCEPTION(admin::UserExists,
                             admin::addUser(db_->db(), adminName(), outside, "outside1"));
    QCOMPARE(db_->db().scalar("SELECT COUNT(*) FROM users").toInt(), 1);
}

void TestUsers::userWithoutTheRightCannotAddUsers() {
    const QString plain = uniqueName("eve");
    const QString wanted = uniqueName("fay");
    roles_ << plain << wanted;
    admin::addUser(db_->db(), adminName(), plain, "plain-pw", "User");
    auto as = signIn(plain, "plain-pw");
    try {
        admin::addUser(*as, plain, wanted, "wanted-pw");
        QFAIL("a login without the right added a user");
    } catch (const DbError& e) {
        QCOMPARE(admin::addUserFailureMessage(e),
                 QString("You must be an admin user to add new users"));
    }
    QVERIFY(!as->inTransaction());
    QVERIFY(!signsIn(wanted, "wanted-pw"));
    QCOMPARE(db_->db().scalar("SELECT COUNT(*) FROM users").toInt(), 1);
}

void TestUsers::changedPasswordCountsFromTheNextLogin() {
    const QString name = uniqueName("gus");
    roles_ << name;
    admin::addUser(db_->db(), adminName(), name, "old-password");
    auto session = signIn(name, "old-password");

    try {
        admin::changePassword(*session, name, "not-the-old-one", "new-password");
        QFAIL("a wrong old password was taken");
    } catch (const DbError& e) {
        QCOMPARE(e.kind(), DbErrorKind::LoginRefused);
        QCOMPARE(e.description(), QString("Old (current) password incorrect for user. The "
                                          "password was not changed."));
    }
    QVERIFY(signsIn(name, "old-password"));

    admin::changePassword(*session, name, "old-password", "new-password");
    // The session goes on with what it has; the next login needs the new password.
    QCOMPARE(session->scalar("SELECT COUNT(*) FROM users").toInt(), 1);
    QVERIFY(signsIn(name, "new-password"));
    QVERIFY(!signsIn(name, "old-password"));
    if (!testsupport::testingPostgres())
        QCOMPARE(db_->db().scalar("SELECT usertype FROM logins WHERE login = ?", {name}).toString(),
                 QString("Admin"));
}

void TestUsers::anAdminRemovesOnlyThisDatabasesLogins() {
    if (!testsupport::testingPostgres()) QSKIP("logins of other databases exist on a server");
    const QString boss = uniqueName("hank");
    const QString plain = uniqueName("ida");
    const QString outside = uniqueName("jo");
    roles_ << boss << plain << outside;
    admin::addUser(db_->db(), adminName(), boss, "hank-pw1");
    admin::addUser(db_->db(), adminName(), plain, "ida-pw12", "User");
    db_->db().exec("CREATE ROLE " + db_->db().quoteIdentifier(outside) + " LOGIN");
    const auto dropLogin = [](Db& as, const QString& name) {
        as.exec("SELECT quillorne_drop_login(?)", {name});
    };
    const auto roleExists = [&](const QString& name) {
        return db_->db().row("SELECT 1 FROM pg_roles WHERE rolname = ?", {name}).has_value();
    };

    auto asPlain = signIn(plain, "ida-pw12");
    try {
        dropLogin(*asPlain, boss);
        QFAIL("a User removed a login");
    } catch (const DbError& e) {
        QCOMPARE(e.kind(), DbErrorKind::PermissionDenied);
    }
    auto asBoss = signIn(boss, "hank-pw1");
    // Roles that are no login of this database, and the server's administrator, stay.
    for (const QString& other : {outside, adminName()}) {
        QVERIFY_THROWS_EXCEPTION(DbError, dropLogin(*asBoss, other));
        QVERIFY(roleExists(other));
    }
    dropLogin(*asBoss, plain);
    QVERIFY(!roleExists(plain));
    QVERIFY(!signsIn(plain, "ida-pw12"));
}

QTEST_MAIN(TestUsers)
#include "tst_users.moc"
