// The link against the simulated bus over a real pseudo-terminal: what the
// station sends and reads on a real serial device, with the real pump and
// clock, as it will on a plant's line.
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
#include <QTest>

namespace {

// Ids of the controllers, in the order they are added below.
// bus addresses of the simulated controllers
enum : std::int16_t { Hall = 5, Stuffed = 2, Silent = 6 };

class LinkVsSimTest : public QObject {
    Q_OBJECT

    QProcess m_sim;
    MemorySettingsStore m_settings;
    SystemClock m_clock;
    QtEventPump m_pump;
    RecordingDialogs m_dialogs;
    RecordingWizual m_wizual;
    std::unique_ptr<StationLine> m_line;
    std::unique_ptr<clComm> m_comm;
    std::unique_ptr<Komunikator> m_kom;

    bool run(std::int16_t id, const char *word, const ReplyBuffer &buffer, std::uint8_t parameter = 0)
    {
        QString w = QString::fromLatin1(word);
        return m_kom->WykonajRozkaz(id, w, buffer, parameter);
    }

private slots:
    void initTestCase()
    {
        m_sim.start(TestEnv::program(QStringLiteral("zorbel-sim")),
                    {QStringLiteral("--addresses"), QStringLiteral("2,5,6"), QStringLiteral("--silent"),
                     QStringLiteral("6")});
        QVERIFY(m_sim.waitForStarted(10000));
        QElapsedTimer waited;
        waited.start();
        while (!m_sim.canReadLine() && waited.elapsed() < 20000 && m_sim.state() == QProcess::Running)
            m_sim.waitForReadyRead(200);
        const QString pty = QString::fromLocal8Bit(m_sim.readLine()).trimmed();
        QVERIFY2(pty.startsWith(QLatin1String("/dev/")), qPrintable(pty));

        m_settings.setValue(QStringLiteral("porty"), QStringLiteral("1"), pty);
        m_line = std::make_unique<StationLine>(m_settings);
        QVERIFY2(m_line->open(1), qPrintable(m_line->errorString()));
        m_comm = std::make_unique<clComm>(*m_line, m_clock, m_pump, m_dialogs);
        m_kom = std::make_unique<Komunikator>(*m_comm, m_wizual);
    }

    void cleanupTestCase()
    {
        if (m_line)
            m_line->close();
        m_sim.terminate();
        m_sim.waitForFinished(10000);
    }

    void fullReadingBringsLampsAndWholeBlock()
    {
        std::array<std::uint8_t, 4> lamps{};
        QVERIFY(run(Hall, "Czytaj_Diody", lamps));
        QVariant unused;
        QVERIFY(run(Hall, "daj_dane", unused));
        std::uint8_t lead = 0;
        QVERIFY(run(Hall, "czytaj", lead));
        std::array<std::uint8_t, 32> block{};
        QVERIFY(run(Hall, "czytaj32", block));
        // 380 V at the controller's input, and a mains period near 2304 counts
        const int volts = block[15] * 256 + block[16];
        QVERIFY2(volts > 340 && volts < 420, qPrintable(QString::number(volts)));
        const int period = block[23] * 256 + block[24] + 1;
        QVERIFY2(period > 2250 && period < 2360, qPrintable(QString::number(period)));
    }

    void aTwoInTheAddressAndInTheReplyCrossesTheLine()
    {
        // regulation blocked so that the stage byte stays as written
        std::uint8_t code = 0;
        QVERIFY(run(Stuffed, "Ustaw_blok", code, 0x20));
        QCOMPARE(code & 0x20, 0x20);
        QVariant unused;
        QVERIFY(run(Stuffed, "Wlacz_kond", unused, 0x02));
        std::uint8_t stages = 0;
        QVERIFY(run(Stuffed, "Czytaj_Kond1", stages));
        QCOMPARE(stages, std::uint8_t(0x02)); // sent as 02 02, read as one byte
    }

    void silentAddressFailsAfterBothTries()
    {
        QElapsedTimer t;
        t.start();
        std::uint8_t lamp = 0;
        QVERIFY(!run(Silent, "Czytaj_Kond1", lamp));
        QVERIFY2(t.elapsed() > 4000 && t.elapsed() < 8000, qPrintable(QString::number(t.elapsed())));
        QCOMPARE(m_wizual.argsOf(QStringLiteral("eKomunikacja")).last(), QVariantList{std::int16_t(2)});
    }

    void dischargeTimerCountsDownFromSixty()
    {
        QVariant unused;
        QVERIFY(run(Hall, "Ustaw_kond", unused, 3));
        std::uint8_t left = 0;
        QVERIFY(run(Hall, "Badaj_kond", left, 3));
        QVERIFY2(left >= 58 && left <= 60, qPrintable(QString::number(left)));
        std::uint8_t other = 0xFF;
        QVERIFY(run(Hall, "Badaj_kond", other, 4));
        QCOMPARE(other, std::uint8_t(0)); // stage 4 was never switched off
    }
};

}

ZORBEL_TEST_MAIN(LinkVsSimTest)
#include "tst_link_vs_sim.moc"
