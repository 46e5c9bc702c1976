// The programs as processes: their command lines, read by one parser, and
// the station polling the bus of zorbel-sim until it is terminated.
#include "TestMain.h"
#include "StationFixture.h"
#include "TestEnv.h"

#include <QProcess>
#include <QRegularExpression>
#include <QSettings>
#include <QTest>

namespace {

int countOf(const QString &sql)
{
    Database db(DatabaseConfig::fromUrl(QStringLiteral("sqlite:zorbel.db")));
    db.open();
    QSqlQuery q = db.exec(SqlStatement(QStringLiteral("SELECT COUNT(*) FROM ") + sql));
    return q.next() ? q.value(0).toInt() : -1;
}

}

class StationProcessTest : public QObject {
    Q_OBJECT
private slots:
    // Help and version on the standard output with status 0, without a screen;
    // a refusal, or the station's failure to start, on the standard error.
    void programsAnswerTheirCommandLines_data()
    {
        QTest::addColumn<QString>("command");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QString>("says");
        const QString version = QStringLiteral(", wersja \\d+\\.\\d+\\.\\d+\\n$");
        QTest::newRow("station help") << "zorbel --help" << 0 << "^Użycie: zorbel \\[opcje\\]\\n.*--screenshot PLIK";
        QTest::newRow("station version") << "zorbel -platform xcb --version" << 0 << "^zorbel" + version;
        QTest::newRow("station refuses") << "zorbel --trigger" << 2
                                         << "zorbel: opcja --trigger wymaga wartości\\nPomoc: zorbel --help\\n$";
        QTest::newRow("station, no database") << "zorbel" << 1 << "zorbel\\.db";
        QTest::newRow("station, no display") << "zorbel -platform xcb" << 1 << "^zorbel: brak ekranu \\(DISPLAY\\)";
        QTest::newRow("admin version") << "zorbel-admin --version" << 0 << "^zorbel-admin" + version;
        QTest::newRow("admin refuses") << "zorbel-admin init --colour" << 2
                                       << "^zorbel-admin: nieznana opcja --colour\\n";
        QTest::newRow("simulator version") << "zorbel-sim --version" << 0 << "^zorbel-sim" + version;
        QTest::newRow("simulator refuses")
            << "zorbel-sim --addresses 1 --drop 7" << 2
            << "^zorbel-sim: błędna wartość opcji --drop: 7 \\(dozwolona: liczba od 0 do 1\\)\\n";
    }
    void programsAnswerTheirCommandLines()
    {
        QFETCH(QString, command);
        QFETCH(int, exitCode);
        QFETCH(QString, says);
        TestEnv env;
        QProcess p;
        QProcessEnvironment e = QProcessEnvironment::systemEnvironment();
        e.remove(QStringLiteral("DISPLAY"));
        e.remove(QStringLiteral("WAYLAND_DISPLAY"));
        if (exitCode == 0) // a program that wanted a screen would end here with Qt's complaint
            e.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
        p.setProcessEnvironment(e);
        const QStringList args = command.split(QLatin1Char(' '));
        p.start(TestEnv::program(args.first()), args.mid(1));
        QVERIFY(p.waitForFinished(20000));
        QCOMPARE(p.exitStatus(), QProcess::NormalExit);
        QCOMPARE(p.exitCode(), exitCode);
        // one stream says it, the other stays empty
        const QString said = QString::fromUtf8(exitCode ? p.readAllStandardError() : p.readAllStandardOutput());
        QVERIFY2(QRegularExpression(says, QRegularExpression::DotMatchesEverythingOption).match(said).hasMatch(),
                 qPrintable(said));
        QVERIFY((exitCode ? p.readAllStandardOutput() : p.readAllStandardError()).isEmpty());
    }

    void pollsTheSimulatedBusAndClosesCleanlyOnTerminate()
    {
        TestEnv env;
        QProcess admin;
        admin.start(TestEnv::program(QStringLiteral("zorbel-admin")), {QStringLiteral("demo")});
        QVERIFY(admin.waitForFinished(60000));
        QCOMPARE(admin.exitCode(), 0);
        const int active = countOf(QStringLiteral("Regulatory WHERE aktywny = 'Tak'"));
        QVERIFY(active >= 3);

        // the bus on a pseudo-terminal, as a serial port is reached; controller 6 silent
        const QString bus = env.file(QStringLiteral("bus"));
        QProcess sim;
        sim.start(TestEnv::program(QStringLiteral("zorbel-sim")),
                  {QStringLiteral("--db"), QStringLiteral("sqlite:zorbel.db"), QStringLiteral("--link"), bus,
                   QStringLiteral("--silent"), QStringLiteral("6")});
        QTRY_VERIFY_WITH_TIMEOUT(sim.canReadLine(), 20000);
        const QString device = QString::fromLocal8Bit(sim.readLine()).trimmed();
        QVERIFY2(device.startsWith(QLatin1String("/dev/pts/")), qPrintable(device));
        QSettings(env.file(QStringLiteral("config/Zorbel/Zorbel.conf")), QSettings::IniFormat)
            .setValue(QStringLiteral("porty/1"), bus);

        QProcess station;
        station.start(TestEnv::program(QStringLiteral("zorbel")), {});
        QVERIFY(station.waitForStarted(10000));
        // every active controller but the silent one stores its first sample in the first round;
        // the silent one raises its alarm, and the compressor house runs above its voltage threshold
        QTRY_VERIFY_WITH_TIMEOUT(countOf(QStringLiteral("Pomiary")) >= active - 1, 30000);
        QTRY_COMPARE_WITH_TIMEOUT(countOf(QStringLiteral("Alarmy WHERE Kod_Regul = 'HALA-B'")), 1, 30000);
        QTRY_COMPARE_WITH_TIMEOUT(countOf(QStringLiteral("Alarmy WHERE Kod_Regul = 'SPREZARKI'")), 1, 30000);
        station.terminate();
        QVERIFY(station.waitForFinished(30000));
        QCOMPARE(station.exitStatus(), QProcess::NormalExit);
        QCOMPARE(station.exitCode(), 0);
        sim.terminate();
        sim.waitForFinished(10000);

        // started once, the silent one's error logged once, and the stop last
        for (const char *log : {"Operacja = 'Start aplikacji'",
                                "Operacja = 'Błąd komunikacji z regulatorem' AND Kod_Regul = 'HALA-B'",
                                "Operacja = 'Zatrzymanie aplikacji' AND Id_wpisu = (SELECT MAX(Id_wpisu) FROM Log)"})
            QCOMPARE(countOf(QStringLiteral("Log WHERE ") + QString::fromUtf8(log)), 1);
    }
};

ZORBEL_TEST_MAIN(StationProcessTest)
#include "tst_station_process.moc"
