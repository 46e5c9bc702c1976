// A port that vanishes under the running station: zorbel-sim goes away and
// comes back on the same device name, on a pseudo-terminal behind a fixed
// symlink and on a fixed TCP port. Readings fail meanwhile without a busy
// wait, and succeed again once the device is back.
#include "TestMain.h"
#include "RecordingDialogs.h"
#include "RecordingWizual.h"
#include "TestEnv.h"

#include "base/Clock.h"
#include "base/SettingsStore.h"
#include "link/Komunikator.h"
#include "link/QtEventPump.h"
#include "link/StationLine.h"
#include "link/clComm.h"
#include "model/colRegulatory.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTemporaryDir>
#include <QTest>
#include <ctime>

namespace {

quint16 freeTcpPort()
{
    QTcpServer probe;
    probe.listen(QHostAddress::LocalHost);
    return probe.serverPort();
}

// zorbel-sim serving one controller at address 5 on the device that
// `where` asks for.
class Simulator {
public:
    explicit Simulator(const QStringList &where)
        : m_arguments(where + QStringList{QStringLiteral("--addresses"), QStringLiteral("5")})
    {
    }
    ~Simulator() { stop(); }

    // The first line it prints, or empty when it did not come up.
    QString start()
    {
        m_process.start(TestEnv::program(QStringLiteral("zorbel-sim")), m_arguments);
        if (!m_process.waitForStarted(10000))
            return {};
        QElapsedTimer waited;
        waited.start();
        while (!m_process.canReadLine() && waited.elapsed() < 20000 && m_process.state() == QProcess::Running)
            m_process.waitForReadyRead(200);
        return QString::fromLocal8Bit(m_process.readLine()).trimmed();
    }
    void stop()
    {
        if (m_process.state() == QProcess::NotRunning)
            return;
        m_process.terminate();
        m_process.waitForFinished(10000);
    }

private:
    QStringList m_arguments;
    QProcess m_process;
};

// The station's side: its port, with the link over it to the controller.
struct StationSide {
    explicit StationSide(const SettingsStore &settings) : line(settings, clock)
    {
    }
    bool read()
    {
        QString word = QStringLiteral("Czytaj_Kond1");
        std::uint8_t stages = 0, unused = 0;
        return komunikator.WykonajRozkaz(5, word, stages, unused);
    }

    SystemClock clock;
    StationLine line;
    QtEventPump pump;
    RecordingDialogs dialogs;
    clComm comm{line, clock, pump, dialogs};
    RecordingWizual wizual;
    Komunikator komunikator{comm, wizual};
};

class LineReopenTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;
    MemorySettingsStore m_settings;

    // The simulator runs, goes away, and comes back on the same device.
    void readingsSurviveTheDevice(Simulator &sim, std::uint8_t port)
    {
        StationSide station(m_settings);
        QVERIFY2(station.line.open(port), qPrintable(station.line.errorString()));
        QVERIFY(station.read());

        sim.stop();
        const QString device = QRegularExpression::escape(station.line.device());
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("^zorbel: port %1 lost$").arg(device)));
        QVERIFY(!station.read());
        QVERIFY(station.line.isOpen()); // still the station's port

        QVERIFY(!sim.start().isEmpty());
        QTest::ignoreMessage(QtInfoMsg, QRegularExpression(QStringLiteral("^zorbel: port %1 back$").arg(device)));
        QTRY_VERIFY_WITH_TIMEOUT(station.read(), 20000);
        QVERIFY(station.read());

        station.line.close();
        QVERIFY(!station.line.isOpen());
    }

private slots:
    void lostPseudoTerminalIsReopenedWhenItComesBack()
    {
        const QString bus = m_dir.filePath(QStringLiteral("bus"));
        Simulator sim({QStringLiteral("--link"), bus});
        const QString pty = sim.start();
        QVERIFY2(pty.startsWith(QLatin1String("/dev/")), qPrintable(pty));
        m_settings.setValue(QStringLiteral("porty"), QStringLiteral("1"), bus);
        readingsSurviveTheDevice(sim, 1);
    }

    void droppedTcpConnectionIsReopenedWhenTheGatewayComesBack()
    {
        const quint16 port = freeTcpPort();
        QVERIFY(port != 0);
        Simulator sim({QStringLiteral("--tcp"), QString::number(port)});
        QCOMPARE(sim.start(), QStringLiteral("127.0.0.1:%1").arg(port));
        const QString gateway = QStringLiteral("tcp://127.0.0.1:%1").arg(port);
        m_settings.setValue(QStringLiteral("porty"), QStringLiteral("2"), gateway);
        readingsSurviveTheDevice(sim, 2);
    }
};

}

ZORBEL_TEST_MAIN(LineReopenTest)
#include "tst_line_reopen.moc"
