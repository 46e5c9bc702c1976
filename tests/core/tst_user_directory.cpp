#include "TestMain.h"
#include "RecordingDialogs.h"
#include "TestEnv.h"

#include "station/UserDirectory.h"

#include <QDir>
#include <QTest>

// The start from the menu (zorbel --user-dir): into the user's own
// directory, made where missing, with a database made by zorbel-admin when
// there is none and the operator says so.
class UserDirectoryTest : public QObject {
    Q_OBJECT
private slots:
    void asksForADatabaseOnlyWhereNoneIsAndMakesItOnYes_data()
    {
        QTest::addColumn<QString>("url");
        QTest::addColumn<int>("answer");
        QTest::addColumn<bool>("asked");
        QTest::addColumn<bool>("goesOn");
        QTest::newRow("none, yes") << "sqlite:zorbel.db" << int(Dialogs::Yes) << true << true;
        QTest::newRow("none, no") << "sqlite:zorbel.db" << int(Dialogs::No) << true << false;
        QTest::newRow("file there") << "sqlite:here.db" << int(Dialogs::Yes) << false << true;
        QTest::newRow("server") << "postgresql://u:p@localhost:5432/zorbel" << int(Dialogs::Yes) << false << true;
    }
    void asksForADatabaseOnlyWhereNoneIsAndMakesItOnYes()
    {
        QFETCH(QString, url);
        QFETCH(int, answer);
        QFETCH(bool, asked);
        QFETCH(bool, goesOn);
        TestEnv env;
        const QString home = env.file(QStringLiteral("share/Zorbel"));
        if (url.endsWith(QLatin1String("here.db")))
            QVERIFY(QDir().mkpath(home) && QFile(home + QStringLiteral("/here.db")).open(QIODevice::WriteOnly));
        RecordingDialogs dialogs;
        dialogs.answers = {answer};
        const UserDirectory dir(env.file(QStringLiteral("share")));
        QCOMPARE(dir.enter(DatabaseConfig::fromUrl(url), dialogs, TestEnv::program(QString())), goesOn);
        QCOMPARE(QDir::currentPath(), home);
        QCOMPARE(dialogs.calls.size(), int(asked));
        QCOMPARE(QFileInfo(QStringLiteral("zorbel.db")).size() > 0, asked && goesOn);
    }

    void findsTheAdminToolBesideTheStationElseOnThePath()
    {
        TestEnv env;
        const QString bin = TestEnv::program(QString());
        const QByteArray path = qgetenv("PATH");
        qputenv("PATH", bin.toLocal8Bit());
        const QString found[] = {UserDirectory::adminProgram(bin), UserDirectory::adminProgram(env.path())};
        qputenv("PATH", path);
        QCOMPARE(found[0], QDir(bin).filePath(QStringLiteral("zorbel-admin")));
        QCOMPARE(found[1], found[0]);
    }
};

ZORBEL_TEST_MAIN(UserDirectoryTest)
#include "tst_user_directory.moc"
