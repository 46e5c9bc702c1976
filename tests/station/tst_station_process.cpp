#include "StationFixture.h"
#include "TestEnv.h"

#include <QProcess>
#include <QTest>

namespace {

struct Ended {
    int code;
    QString err;
};

Ended runStation(const TestEnv &env)
{
    QProcess p;
    p.setWorkingDirectory(env.path());
    p.start(TestEnv::program(QStringLiteral("zorbel")), {});
    if (!p.waitForFinished(60000)) {
        p.kill();
        p.waitForFinished();
        return {-1, QStringLiteral("still running")};
    }
    return {p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -2, QString::fromUtf8(p.readAllStandardError())};
}

}

class StationProcessTest : public QObject {
    Q_OBJECT
private slots:
    void missingDatabaseEndsTheStationWithAMessage()
    {
        TestEnv env;
        const Ended e = runStation(env);
        QCOMPARE(e.code, 1);
        QVERIFY2(e.err.contains(QLatin1String("zorbel.db")), qPrintable(e.err));
        QVERIFY(!QFile::exists(env.file(QStringLiteral("zorbel.db"))));
    }

    void badControllerRowEndsTheStationNamingTheColumn()
    {
        TestEnv env;
        {
            StationFixture f(QStringLiteral("zorbel.db"));
            f.createDatabase();
            f.addController(QStringLiteral("GPZ"), 1, {{"PrzekladniaNap", QVariant()}});
        }
        const Ended e = runStation(env);
        QCOMPARE(e.code, 1);
        QVERIFY2(e.err.contains(QLatin1String("kolumna PrzekladniaNap, Kod \"GPZ\"")), qPrintable(e.err));
    }
};

QTEST_GUILESS_MAIN(StationProcessTest)
#include "tst_station_process.moc"
