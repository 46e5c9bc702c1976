#include "TestMain.h"
#include "SimRig.h"

#include "simcore/RawScale.h"

#include <QtTest>
#include <cmath>

namespace {

constexpr int kBlocking = 0x2F;
constexpr int kKeys = 0x6A;
constexpr int kLamps1 = 0x90;
constexpr int kLamps2 = 0xA0;

// Active energy as the station derives it from the two counters.
double derivedActive(const QByteArray &block)
{
    const double apparent = double(blockUnsigned(block, 0, 4));
    const double reactive = block32(block, 8);
    return std::sqrt(apparent * apparent - reactive * reactive);
}

} // namespace

// The controller model behind the registers: measurement, counters,
// regulation, stages, discharge timers and panel keys.
class TestSimController : public QObject {
    Q_OBJECT

private slots:
    void countersGrowWithTimeWhileRegulationHoldsTgFi()
    {
        SimRig rig({5});
        const QByteArray before = rig.readBlock(5);
        for (int hour = 0; hour < 24; ++hour) {
            rig.advanceSeconds(3600);
            const double tg = rig.bus.controller(5)->measurement().tgFi();
            QVERIFY2(tg > 0.0 && tg < 0.55, qPrintable(QStringLiteral("%1 at +%2 h").arg(tg).arg(hour)));
            if (hour == 0) {
                const QByteArray after = rig.readBlock(5);
                QCOMPARE(blockUnsigned(after, 12, 3) - blockUnsigned(before, 12, 3), 3600);
                // one hour at about 2 A and 380 V: 380 * 400 * 3600 / 800 = 684000 raw units
                const double active = derivedActive(after) - derivedActive(before);
                QVERIFY2(active > 300000 && active < 2000000, qPrintable(QString::number(active)));
            }
        }
    }

    void countersStartFromTheStoredStateAndVoltageFollowsTheMeasuringOne()
    {
        const sim::ControllerConfig c{.address = 9, .currentRatio = 200, .measuringVoltage = 100,
                                      .seed = sim::CounterSeed{12345.0, 4000.0, -600.0}};
        SimRig rig({});
        rig.bus.addController(c);
        const QByteArray b = rig.readBlock(9);
        QVERIFY(std::fabs(blockUnsigned(b, 15, 2) * 0.25 - 100) < 5); // the voltage, at the scale of 100 V
        const double perUnit = sim::RawScale::energyPerUnit(c);
        QVERIFY(std::fabs(derivedActive(b) * perUnit - 12345.0) < 1.0);
        QVERIFY(std::fabs(block32(b, 8) * perUnit - 4000.0) < 1.0);
        QVERIFY(std::fabs(block32(b, 4) * perUnit + 600.0) < 1.0);
    }

    void blockedControllerTakesStageWritesAndStopsRegulating()
    {
        SimRig rig({5});
        rig.ask(SimRig::frame(5, kBlocking, 3, 0x20));
        rig.ask(SimRig::frame(5, kLamps1, 1, 0xF7));
        rig.ask(SimRig::frame(5, kLamps2, 1, 0x7F));
        const sim::StageBank &stages = rig.bus.controller(5)->stages();
        QVERIFY(stages.isOn(3) && stages.isOn(8));
        QCOMPARE(stages.countOn(), 2);
        rig.ask(SimRig::frame(5, kLamps2, 1, 0x8F)); // stage 8 off, the other bits kept
        QVERIFY(!stages.isOn(8));
        rig.ask(SimRig::frame(5, kLamps1, 1, 0xFF));
        QCOMPARE(rig.readByte(5, kLamps2), quint8(0x8F));
        rig.advanceSeconds(600);
        QCOMPARE(rig.readByte(5, kLamps1), quint8(0xFF));
        QCOMPARE(rig.readByte(5, kBlocking, 5), quint8(0x20));
        QCOMPARE(quint8(rig.readBlock(5)[25]) & 0xE0, 0x40); // blocked, on the state keys
        QVERIFY(!(rig.readByte(5, 0xB0) & 0x80)); // lamp byte 3: "zał." lit, tg fi above the band

        rig.ask(SimRig::frame(5, kBlocking, 3, 0x00));
        rig.advanceSeconds(600);
        QVERIFY(rig.readByte(5, kLamps1) != 0xFF);
    }

    void dischargeTimerCountsDownSixtySeconds()
    {
        SimRig rig({5});
        rig.ask(SimRig::frame(5, 0x73, 3, 0x3C));
        QCOMPARE(rig.readByte(5, 0x73, 5), quint8(60));
        QCOMPARE(rig.readByte(5, 0x72, 5), quint8(0)); // the other stages' timers
        rig.advanceSeconds(59.5);
        QCOMPARE(rig.readByte(5, 0x73, 5), quint8(1));
        rig.advanceSeconds(0.5);
        QCOMPARE(rig.readByte(5, 0x73, 5), quint8(0));
    }

    void manualKeysStopRegulationAndStepStages()
    {
        SimRig rig({5});
        rig.ask(SimRig::frame(5, kLamps1, 1, 0xFF));
        rig.ask(SimRig::frame(5, kLamps2, 1, 0xFF));
        rig.ask(SimRig::frame(5, kKeys, 3, 0x09)); // R (manual) and T
        QCOMPARE(quint8(rig.readBlock(5)[26]), quint8(0x09));
        QCOMPARE(quint8(rig.readBlock(5)[25]) & 0xE0, 0x20); // manual, on the state keys
        rig.advanceSeconds(600);
        const sim::StageBank &stages = rig.bus.controller(5)->stages();
        QCOMPARE(stages.countOn(), 0);

        rig.ask(SimRig::frame(5, kKeys, 3, 0x03)); // R and +
        rig.ask(SimRig::frame(5, kKeys, 3, 0x03));
        QCOMPARE(stages.countOn(), 2);
        QCOMPARE(rig.readByte(5, kKeys, 5), quint8(0x01)); // + springs back

        rig.ask(SimRig::frame(5, kKeys, 3, 0x05)); // R and -
        QCOMPARE(stages.countOn(), 1);
        QCOMPARE(rig.readByte(5, 0x71, 5), quint8(60)); // the stage switched off discharges
        rig.ask(SimRig::frame(5, kKeys, 3, 0x00));
        QCOMPARE(quint8(rig.readBlock(5)[25]) & 0xE0, 0x80); // regulating again
    }
};

ZORBEL_TEST_MAIN(TestSimController)
#include "tst_sim_controller.moc"
