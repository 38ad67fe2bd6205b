#include "backup.h"
#include "backuplog.h"
#include "console_backup.h"
#include "db.h"
#include "ownerfiles.h"
#include "regional.h"
#include "session.h"
#include "settings.h"
#include "testdb.h"

#include <QFile>
#include <QProcess>
#include <QSqlField>
#include <QTemporaryDir>
#include <QtTest>

using core::Db;
using testsupport::TestDatabase;
using Reason = admin::BackupFailed::Reason;

namespace {

const char* const Tables[] = {"Company", "Person", "JobHistory", "options", "users"};

// Every row of the tables a restore must give back, as text.
QStringList snapshot(Db& db) {
    QStringList out;
    for (const char* table : Tables)
        for (const QSqlRecord& r :
             db.rows(QStringLiteral("SELECT * FROM %1 ORDER BY 1").arg(QLatin1String(table)))) {
            QStringList values;
            for (int i = 0; i < r.count(); ++i)
                values << (r.isNull(i) ? QStringLiteral("<null>") : r.value(i).toString());
            out << QLatin1String(table) + ": " + values.join('|');
        }
    return out;
}

void addCompanyAndEmployee(Db& db, const QString& company, const QString& surname) {
    const qint64 c = db.insert("Company", "Company_ID", {{"Company_Name", company}});
    db.insert("Person", "Person_ID",
              {{"surname", surname}, {"Company_ID", c}, {"salary", "21000.5"}});
}

} // namespace

class TestBackup : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void backupThenRestoreGivesBackTheBackedUpRows();
    void badFilesAreRefusedBeforeAnythingIsTouched_data();
    void badFilesAreRefusedBeforeAnythingIsTouched();
    void aFailedBackupLeavesTheOldFile();
    void logLines_data();
    void logLines();
    void overwriteReplacesTheOldLogLine();
    void consoleBackupAndRestore();

private:
    // The connection is closed around a restore, as the screen does, and opened again.
    void restore(const QString& file);
    QString backupFile(const QString& name) const {
        return core::InstallSettings::instance().backupFolder() + '/' + name;
    }
    std::unique_ptr<TestDatabase> db_;
};

void TestBackup::init() {
    db_ = std::make_unique<TestDatabase>();
}

void TestBackup::cleanup() {
    db_.reset();
}

void TestBackup::restore(const QString& file) {
    core::setDb(nullptr);
    admin::restoreDatabase(db_->params(), file);
    core::setDb(db_->openSecond("session"));
}

void TestBackup::backupThenRestoreGivesBackTheBackedUpRows() {
    Db& db = db_->db();
    addCompanyAndEmployee(db, "O'Neil Ltd", "O'Neil");
    db.exec("INSERT INTO users (users) VALUES (?)", {"ann"});
    const QStringList before = snapshot(db);

    const QString file = backupFile("monday.dat");
    const qint64 size = admin::backupDatabase(db.params(), file);
    QVERIFY(size > 0);
    QCOMPARE(QFileInfo(file).size(), size);
    QCOMPARE(core::permissionBits(file), 0600);
    // Nothing is left beside it.
    QCOMPARE(QDir(QFileInfo(file).absolutePath()).entryList(QDir::Files),
             QStringList{"monday.dat"});

    addCompanyAndEmployee(db, "Later plc", "Later");
    db.exec("UPDATE Person SET salary = 1 WHERE surname = ?", {"O'Neil"});
    db.exec("DELETE FROM users");
    db.exec("UPDATE options SET language = NULL");
    QVERIFY(snapshot(db) != before);

    restore(file);
    QCOMPARE(snapshot(core::db()), before);
    // Keys go on after the restored rows.
    const qint64 next = core::db().insert("Company", "Company_ID", {{"Company_Name", "Next"}});
    QVERIFY(next > core::db()
                       .scalar("SELECT MAX(Company_ID) FROM Company WHERE Company_Name <> "
                               "'Next'")
                       .toLongLong());
}

void TestBackup::badFilesAreRefusedBeforeAnythingIsTouched_data() {
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("reason");
    QTest::newRow("missing") << "missing" << int(Reason::Missing);
    QTest::newRow("truncated") << "truncated" << int(Reason::NotABackup);
    QTest::newRow("text") << "text" << int(Reason::NotABackup);
    QTest::newRow("another database") << "foreign" << int(Reason::NotABackup);
}

void TestBackup::badFilesAreRefusedBeforeAnythingIsTouched() {
    QFETCH(QString, kind);
    QFETCH(int, reason);
    Db& db = db_->db();
    addCompanyAndEmployee(db, "Acme", "Smith");
    const QString good = backupFile("good.dat");
    admin::backupDatabase(db.params(), good);
    addCompanyAndEmployee(db, "After", "Jones");
    const QStringList live = snapshot(db);

    const QString bad = backupFile("bad.dat");
    if (kind == "truncated") {
        QFile in(good);
        QVERIFY(in.open(QIODevice::ReadOnly));
        const QByteArray all = in.readAll();
        QFile out(bad);
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write(all.left(all.size() * 2 / 3));
    } else if (kind == "text") {
        QFile out(bad);
        QVERIFY(out.open(QIODevice::WriteOnly));
        out.write("Date,Description\n1,2\n");
    } else if (kind == "foreign") {
        if (testsupport::testingPostgres()) {
            const core::ConnectionParams p = testsupport::postgresAdminParams();
            QProcess dump;
            QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
            env.insert("PGPASSWORD", p.password);
            dump.setProcessEnvironment(env);
            dump.start("pg_dump", {"-Fc", "-f", bad, "-h", p.host, "-p", QString::number(p.port),
                                   "-U", p.user, "postgres"});
            QVERIFY(dump.waitForFinished(60000));
            QCOMPARE(dump.exitCode(), 0);
        } else {
            core::ConnectionParams p;
            p.sqlitePath = bad;
            auto other = Db::open(p, "foreign");
            other->exec("CREATE TABLE person (id INTEGER)");
        }
    }
    try {
        restore(bad);
        QFAIL("a bad backup was restored");
    } catch (const admin::BackupFailed& e) {
        QCOMPARE(int(e.reason()), reason);
        QCOMPARE(e.message(), reason == int(Reason::Missing) ? admin::missingBackupMessage()
                                                             : admin::damagedBackupMessage());
    }
    core::setDb(db_->openSecond("session"));
    QCOMPARE(snapshot(core::db()), live);
}

void TestBackup::aFailedBackupLeavesTheOldFile() {
    const QString file = backupFile("keep.dat");
    const qint64 size = admin::backupDatabase(db_->db().params(), file);
    core::ConnectionParams wrong = db_->db().params();
    if (testsupport::testingPostgres())
        wrong.database = "no_such_database_here";
    else
        wrong.sqlitePath = backupFile("no-such.db");
    QVERIFY_THROWS_EXCEPTION(admin::BackupFailed, admin::backupDatabase(wrong, file));
    QCOMPARE(QFileInfo(file).size(), size);
    admin::verifyBackup(wrong.backend, file);
    QCOMPARE(QDir(QFileInfo(file).absolutePath()).entryList(QDir::Files), QStringList{"keep.dat"});
}

void TestBackup::logLines_data() {
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("fields");
    QTest::addColumn<QString>("written");
    QTest::newRow("plain") << "01/02/2025 10:00:00,Monday,/b/mon.dat,1024"
                           << QStringList{"01/02/2025 10:00:00", "Monday", "/b/mon.dat", "1024"}
                           << "01/02/2025 10:00:00,Monday,/b/mon.dat,1024";
    QTest::newRow("comma quoted")
        << R"(01/02/2025 10:00:00,"Payroll, before the rise",/b/pay.dat,2048)"
        << QStringList{"01/02/2025 10:00:00", "Payroll, before the rise", "/b/pay.dat", "2048"}
        << R"(01/02/2025 10:00:00,"Payroll, before the rise",/b/pay.dat,2048)";
    QTest::newRow("quotes doubled") << R"(d t,"The ""good"" one",/b/g.dat,1)"
                                    << QStringList{"d t", R"(The "good" one)", "/b/g.dat", "1"}
                                    << R"(d t,"The ""good"" one",/b/g.dat,1)";
    QTest::newRow("old line with commas")
        << "01/02/2025 10:00:00,Payroll, before, the rise,/b/pay.dat,2048"
        << QStringList{"01/02/2025 10:00:00", "Payroll, before, the rise", "/b/pay.dat", "2048"}
        << R"(01/02/2025 10:00:00,"Payroll, before, the rise",/b/pay.dat,2048)";
    QTest::newRow("short line") << "only a date" << QStringList{"only a date", "", "", ""}
                                << "only a date,,,";
}

void TestBackup::logLines() {
    QFETCH(QString, line);
    QFETCH(QStringList, fields);
    QFETCH(QString, written);
    const admin::BackupLogEntry e = admin::parseLogLine(line);
    QCOMPARE((QStringList{e.when, e.description, e.path, e.size}), fields);
    QCOMPARE(admin::formatLogLine(e), written);
}

void TestBackup::overwriteReplacesTheOldLogLine() {
    QTemporaryDir dir;
    // The folder is made when missing.
    const QString log = dir.path() + "/backups/backuplog.txt";
    admin::recordBackup(log, {"d1", "first, with a comma", "/b/Mon.dat", "10"});
    admin::recordBackup(log, {"d2", "second", "/b/tue.dat", "20"});
    admin::recordBackup(log, {"d3", "again", "/b/mon.dat", "30"});
    const auto entries = admin::readBackupLog(log);
    QCOMPARE(entries.size(), size_t(2));
    QCOMPARE(entries[0].path, QString("/b/tue.dat"));
    QCOMPARE(entries[1].description, QString("again"));
    QCOMPARE(entries[1].size, QString("30"));
    QCOMPARE(core::permissionBits(log), 0600);
    QCOMPARE(core::permissionBits(dir.path() + "/backups"), 0700);
    QVERIFY(admin::readBackupLog(dir.path() + "/none.txt").empty());
}

void TestBackup::consoleBackupAndRestore() {
    auto& settings = core::InstallSettings::instance();
    const core::ConnectionParams p = db_->params();
    addCompanyAndEmployee(db_->db(), "Nightly Ltd", "Night");
    const QStringList before = snapshot(db_->db());
    QString outText, errText;
    QTextStream out(&outText), err(&errText);

    const QString file = QDir(settings.backupFolder()).filePath("nightly.dat");
    QCOMPARE(admin::consoleBackup(settings, p.user, p.password, file, " Nightly, full ", out, err),
             0);
    QVERIFY2(errText.isEmpty(), qPrintable(errText));
    QCOMPARE(core::permissionBits(file), 0600);
    const auto log = admin::readBackupLog(admin::backupLogPath());
    QCOMPARE(log.size(), size_t(1));
    QCOMPARE(log[0].description, QString("Nightly, full"));
    QCOMPARE(log[0].size, QString::number(QFileInfo(file).size()));
    QCOMPARE(settings.lastBackup(), core::formatDate(QDate::currentDate()));

    addCompanyAndEmployee(db_->db(), "Later plc", "Later");
    const QStringList changed = snapshot(db_->db());
    core::setDb(nullptr);
    // A file that is no backup is refused, and the database is as it was.
    QCOMPARE(admin::consoleRestore(settings, p.user, p.password, file + ".gone", out, err), 1);
    QVERIFY2(errText.contains(admin::missingBackupMessage()), qPrintable(errText));
    QCOMPARE(snapshot(*db_->openSecond("check")), changed);
    errText.clear();
    QCOMPARE(admin::consoleRestore(settings, p.user, p.password, file, out, err), 0);
    QVERIFY2(errText.isEmpty(), qPrintable(errText));
    QCOMPARE(snapshot(*db_->openSecond("check")), before);
}

QTEST_MAIN(TestBackup)
#include "tst_backup.moc"
