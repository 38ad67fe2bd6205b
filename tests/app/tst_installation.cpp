#include "application.h"
#include "installation.h"
#include "settings.h"
#include "testdb.h"

#include <QDialog>
#include <QDir>
#include <QFile>
#include <QtTest>

class TestInstallation : public QObject {
    Q_OBJECT
private slots:
    void everyWindowShowsTheApplicationIcon();
    void usersOwnTemplateWinsOverTheShippedOne();
};

void TestInstallation::everyWindowShowsTheApplicationIcon() {
    setApplicationIdentity();
    QCOMPARE(QApplication::applicationVersion(), core::programVersion());
    QVERIFY(QRegularExpression("^\\d+\\.\\d+\\.\\d+$").match(core::programVersion()).hasMatch());
    const QIcon icon = QApplication::windowIcon();
    QCOMPARE(icon.availableSizes(), (QList<QSize>{{48, 48}, {256, 256}}));
    QDialog dialog;
    QCOMPARE(dialog.windowIcon().cacheKey(), icon.cacheKey());
}

void TestInstallation::usersOwnTemplateWinsOverTheShippedOne() {
    testsupport::TempInstall install;
    const QString data = core::InstallSettings::instance().dataFolder();
    const QStringList folders = core::templateFolders();
    // This program runs from the build tree, so the sources' templates come last.
    QCOMPARE(folders.size(), 3);
    QCOMPARE(folders.at(0), data + "/templates");
    QVERIFY(folders.at(1).endsWith("/share/quillorne/templates"));
    const QString shipped = core::templatePath("pettycash.xltx");
    QCOMPARE(shipped, folders.at(2) + "/pettycash.xltx");
    QVERIFY(QFile::exists(shipped));

    QVERIFY(QDir().mkpath(data + "/templates"));
    QVERIFY(QFile::copy(shipped, data + "/templates/pettycash.xltx"));
    QCOMPARE(core::templatePath("pettycash.xltx"), data + "/templates/pettycash.xltx");
    // A template found nowhere is named where the installation should have it.
    QCOMPARE(core::templatePath("missing.xltx"), folders.at(1) + "/missing.xltx");
}

QTEST_MAIN(TestInstallation)
#include "tst_installation.moc"
