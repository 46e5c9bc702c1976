#include "TestMain.h"
#include "StationFixture.h"
#include "TestEnv.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QSettings>
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

int countOf(const QString &sql)
{
    Database db(DatabaseConfig::fromUrl(QStringLiteral("sqlite:zorbel.db")));
    db.open();
    QSqlQuery q = db.exec(SqlStatement(sql));
    return q.next() ? q.value(0).toInt() : -1;
}

QString firstLine(QProcess &p)
{
    if (!p.waitForStarted(10000))
        return {};
    QElapsedTimer waited;
    waited.start();
    while (!p.canReadLine() && waited.elapsed() < 20000 && p.state() == QProcess::Running)
        p.waitForReadyRead(200);
    return QString::fromLocal8Bit(p.readLine()).trimmed();
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

    void pollsTheSimulatedBusAndClosesCleanlyOnTerminate()
    {
        TestEnv env;
        QProcess admin;
        admin.setWorkingDirectory(env.path());
        admin.start(TestEnv::program(QStringLiteral("zorbel-admin")), {QStringLiteral("demo")});
        QVERIFY(admin.waitForFinished(60000));
        QCOMPARE(admin.exitCode(), 0);
        const int active = countOf(QStringLiteral("SELECT COUNT(*) FROM Regulatory WHERE aktywny = 'Tak'"));
        QVERIFY(active >= 3);

        // the bus on a pseudo-terminal, as a serial port is reached
        const QString bus = env.file(QStringLiteral("bus"));
        QProcess sim;
        sim.setWorkingDirectory(env.path());
        sim.start(TestEnv::program(QStringLiteral("zorbel-sim")),
                  {QStringLiteral("--db"), QStringLiteral("sqlite:zorbel.db"), QStringLiteral("--link"), bus,
                   QStringLiteral("--silent"), QStringLiteral("6")});
        const QString device = firstLine(sim);
        QVERIFY2(device.startsWith(QLatin1String("/dev/pts/")), qPrintable(device));
        QVERIFY(QFileInfo(bus).isSymLink());
        QSettings(env.file(QStringLiteral("config/Zorbel/Zorbel.conf")), QSettings::IniFormat)
            .setValue(QStringLiteral("porty/1"), bus);

        QProcess station;
        station.setWorkingDirectory(env.path());
        station.start(TestEnv::program(QStringLiteral("zorbel")), {});
        QVERIFY(station.waitForStarted(10000));
        // every active controller but the silent one stores its first sample in the first round
        QTRY_VERIFY_WITH_TIMEOUT(countOf(QStringLiteral("SELECT COUNT(*) FROM Pomiary")) >= active - 1, 30000);
        QTRY_VERIFY_WITH_TIMEOUT(countOf(QStringLiteral("SELECT COUNT(*) FROM Alarmy WHERE Kod_Regul = 'HALA-B'")) == 1,
                                 30000);
        // the compressor house runs above its voltage threshold
        QTRY_VERIFY_WITH_TIMEOUT(countOf(QStringLiteral("SELECT COUNT(*) FROM Alarmy WHERE Kod_Regul = 'SPREZARKI'")) == 1,
                                 30000);
        station.terminate();
        QVERIFY(station.waitForFinished(30000));
        QCOMPARE(station.exitStatus(), QProcess::NormalExit);
        QCOMPARE(station.exitCode(), 0);
        sim.terminate();
        sim.waitForFinished(10000);

        QCOMPARE(countOf(QStringLiteral("SELECT COUNT(*) FROM Log WHERE Operacja = 'Start aplikacji'")), 1);
        QCOMPARE(countOf(QStringLiteral("SELECT COUNT(*) FROM Log WHERE Operacja = 'Zatrzymanie aplikacji' "
                                        "AND Id_wpisu = (SELECT MAX(Id_wpisu) FROM Log)")),
                 1);
        QCOMPARE(countOf(QStringLiteral("SELECT COUNT(*) FROM Log WHERE Operacja = 'Błąd komunikacji z regulatorem' "
                                        "AND Kod_Regul = 'HALA-B'")),
                 1);
    }
};

ZORBEL_TEST_MAIN(StationProcessTest)
#include "tst_station_process.moc"
