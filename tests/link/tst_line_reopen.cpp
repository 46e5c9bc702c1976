// A port that vanishes under the running station: zorbel-sim goes away and
// comes back on the same device name, a pseudo-terminal behind a fixed
// symlink. Readings fail meanwhile and succeed again once the device is back.
#include "TestMain.h"
#include "RecordingDialogs.h"
#include "RecordingWizual.h"
#include "TestEnv.h"

#include "base/SettingsStore.h"
#include "link/Komunikator.h"
#include "link/QtEventPump.h"
#include "link/StationLine.h"
#include "link/clComm.h"

#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <array>

class LineReopenTest : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;
    QProcess m_sim;

    // zorbel-sim serving address 5; true once it has printed its device.
    bool startSimulator()
    {
        m_sim.start(TestEnv::program(QStringLiteral("zorbel-sim")),
                    {"--link", m_dir.filePath("bus"), "--addresses", "5"});
        while (!m_sim.canReadLine() && m_sim.waitForReadyRead(20000))
            ;
        return m_sim.readLine().startsWith("/dev/");
    }

private slots:
    void lostPseudoTerminalIsReopenedWhenItComesBack()
    {
        QVERIFY(startSimulator());
        MemorySettingsStore settings;
        settings.setValue(QStringLiteral("porty"), QStringLiteral("1"), m_dir.filePath("bus"));
        SystemClock clock;
        StationLine line(settings, clock);
        QtEventPump pump;
        RecordingDialogs dialogs;
        clComm comm(line, clock, pump, dialogs);
        RecordingWizual wizual;
        Komunikator komunikator(comm, wizual);
        // the lamps: a silent controller costs one try, not two
        const auto read = [&] {
            QString word = QStringLiteral("Czytaj_Diody");
            std::array<std::uint8_t, 4> lamps{};
            std::uint8_t unused = 0;
            return komunikator.WykonajRozkaz(5, word, lamps, unused);
        };
        QVERIFY2(line.open(1), qPrintable(line.errorString()));
        QVERIFY(read());

        m_sim.terminate();
        QVERIFY(m_sim.waitForFinished(10000));
        QTest::ignoreMessage(QtWarningMsg, qPrintable(QStringLiteral("zorbel: port %1 lost").arg(line.device())));
        QVERIFY(!read());
        QVERIFY(line.isOpen()); // still the station's port

        QVERIFY(startSimulator());
        QTest::ignoreMessage(QtInfoMsg, qPrintable(QStringLiteral("zorbel: port %1 back").arg(line.device())));
        QTRY_VERIFY_WITH_TIMEOUT(read(), 20000);
        m_sim.terminate();
        m_sim.waitForFinished(10000);
    }
};

ZORBEL_TEST_MAIN(LineReopenTest)
#include "tst_line_reopen.moc"
