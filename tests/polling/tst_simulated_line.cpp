#include "TestMain.h"
#include "SimStationRig.h"

#include "simcore/LineTiming.h"

#include <QTest>
#include <cmath>

// The simulated line on the fake clock, and the whole station on it.
class SimulatedLineTest : public QObject {
    Q_OBJECT

    static sim::ControllerConfig controller(int address)
    {
        sim::ControllerConfig c;
        c.address = address;
        return c;
    }

private slots:
    void repliesArriveAtTheLinePaceAndThePumpWaitsForThem()
    {
        FakeClock clock;
        SimulatedLine line(clock);
        FakeEventPump pump(clock, line);
        sim::SimController &five = line.bus().addController(controller(5));
        line.bus().addController(controller(1));
        QVERIFY(line.open(1));
        const ZDate sent = clock.now();
        line.send(QByteArray::fromHex("02054F06")); // lead byte and 32 data bytes, stuffed
        const int total = line.pending();
        QVERIFY(total >= 33);
        QCOMPARE(line.bytesWaiting(), 0);
        QCOMPARE(line.readByte(), -1);
        // the first byte after 4 request bytes out and 1 reply byte in; the pump waits for it
        pump.processEvents(5000);
        QCOMPARE(clock.now().msecs() - sent.msecs(), std::int64_t(std::ceil(5 * sim::kByteMs)));
        QCOMPARE(line.bytesWaiting(), 1);
        QCOMPARE(line.readByte(), 0x06);
        // the whole reply has come in after its wire time
        clock.set(sent.addMsecs(std::int64_t(std::ceil((4 + total) * sim::kByteMs))));
        QCOMPARE(line.bytesWaiting(), total - 1);
        QVERIFY(!line.nextArrival());

        // a reply waits for the one before it; discarding keeps the bytes still in transit
        line.discardInput();
        line.send(QByteArray::fromHex("02019004"));
        const ZDate firstAt = *line.nextArrival();
        line.send(QByteArray::fromHex("0201A004"));
        QCOMPARE(line.pending(), 2);
        clock.set(firstAt);
        line.discardInput();
        QCOMPARE(line.bytesWaiting(), 0);
        QCOMPARE(line.pending(), 1);
        QVERIFY(*line.nextArrival() > firstAt);
        // the controllers' model follows the station clock
        const double before = five.counters().active();
        clock.advanceMs(3600 * 1000);
        line.send(QByteArray::fromHex("02054F06"));
        QVERIFY(five.counters().active() > before);
    }

    // Most of an hour of fake time: a sound controller, a silent one and one over its voltage limit.
    void theStationOverFourReadingPeriods()
    {
        SimStationRig rig;
        rig.addController(QStringLiteral("GOOD"), 1);
        rig.addController(QStringLiteral("MUTE"), 2);
        rig.addController(QStringLiteral("VOLT"), 3, {{"ProgNapiecie", 100.0}});
        rig.silence({2});
        rig.station.clock.set(at(8, 6, 40));
        rig.station.start();
        rig.station.runUntil(at(9, 1));
        // a sample at the start (VOLT's too, read after MUTE's waits), then the first tick on each quarter hour
        const QList<ZDate> grid{at(8, 6, 40), at(8, 15), at(8, 30), at(8, 45), at(9, 0)};
        for (int adres : {1, 3}) {
            const auto rows = rig.station.rows(
                QStringLiteral("SELECT Data FROM Pomiary WHERE Adres = %1 ORDER BY Data").arg(adres));
            QCOMPARE(rows.size(), 5);
            for (int i = 0; i < 5; ++i) {
                const auto late = ZDate::fromVariant(rows[i].value(QStringLiteral("Data"))).msecs() - grid[i].msecs();
                QVERIFY(late >= 0 && late < (i ? 500 : 1));
            }
        }
        // the silent one is tried at 08:06:40 and retried five minutes after each failure's end up to 09:01
        QCOMPARE(rig.station.count(QStringLiteral("Log"), QStringLiteral("Kod_Regul = 'MUTE' AND "
                                                                         "Operacja = 'Błąd komunikacji z regulatorem'")),
                 11);
        // one lasting alarm row per condition, however many readings found it
        QCOMPARE(rig.station.count(QStringLiteral("Alarmy")), 2);
        QCOMPARE(rig.station.count(QStringLiteral("Alarmy"), QStringLiteral("Kod_Regul = 'VOLT'")), 1);
        QCOMPARE(rig.s().oApp.IloscAktywnychAlarmow, std::int16_t(2));
    }
};

ZORBEL_TEST_MAIN(SimulatedLineTest)
#include "tst_simulated_line.moc"
