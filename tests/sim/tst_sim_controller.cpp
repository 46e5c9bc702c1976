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
constexpr int kLamps3 = 0xB0;

// Blocks the controller and sets its stages, as the station would.
void blockWithStages(SimRig &rig, int address, int lamps1, int lamps2)
{
    rig.ask(SimRig::frame(address, kBlocking, 3, 0x20));
    rig.ask(SimRig::frame(address, kLamps1, 1, lamps1));
    rig.ask(SimRig::frame(address, kLamps2, 1, lamps2));
}

// Active energy as the station derives it from the two counters.
double derivedActive(const QByteArray &block)
{
    const double apparent = double(blockUnsigned(block, 0, 4));
    const double reactive = block32(block, 8);
    return std::sqrt(apparent * apparent - reactive * reactive);
}

} // namespace

class TestSimController : public QObject {
    Q_OBJECT

private slots:
    void voltageFollowsTheMeasuringVoltage_data()
    {
        QTest::addColumn<int>("measuring");
        QTest::addColumn<double>("scale");
        QTest::newRow("100 V") << 100 << 0.25;
        QTest::newRow("380 V") << 380 << 1.0;
        QTest::newRow("500 V") << 500 << 1.25;
    }
    void voltageFollowsTheMeasuringVoltage()
    {
        QFETCH(int, measuring);
        QFETCH(double, scale);
        SimRig rig({5}, measuring);
        const double volts = block16(rig.readBlock(5), 15) * scale;
        QVERIFY2(std::fabs(volts - measuring) < measuring * 0.05, qPrintable(QString::number(volts)));
    }

    void countersGrowWithTime()
    {
        SimRig rig({5});
        const QByteArray before = rig.readBlock(5);
        rig.advanceMinutes(60);
        const QByteArray after = rig.readBlock(5);
        QVERIFY(blockUnsigned(after, 0, 4) > blockUnsigned(before, 0, 4));
        QVERIFY(block32(after, 8) > block32(before, 8));  // the load is inductive, regulation keeps tg > 0
        QCOMPARE(blockUnsigned(after, 12, 3) - blockUnsigned(before, 12, 3), 3600);
        // One hour at about 2 A and 380 V: 380 * 400 * 3600 / 800 = 684000 raw units.
        const double active = derivedActive(after) - derivedActive(before);
        QVERIFY2(active > 300000 && active < 2000000, qPrintable(QString::number(active)));
    }

    void countersStartFromTheStoredState()
    {
        sim::ControllerConfig c;
        c.address = 9;
        c.currentRatio = 200;
        c.seed = sim::CounterSeed{12345.0, 4000.0, -600.0};
        SimRig rig({});
        rig.bus.addController(c);
        const QByteArray b = rig.readBlock(9);
        const double perUnit = sim::RawScale::energyPerUnit(c);
        QVERIFY(std::fabs(derivedActive(b) * perUnit - 12345.0) < 1.0);
        QVERIFY(std::fabs(block32(b, 8) * perUnit - 4000.0) < 1.0);
        QVERIFY(std::fabs(block32(b, 4) * perUnit + 600.0) < 1.0);
    }

    void regulationHoldsTgFiNearItsBand()
    {
        SimRig rig({5});
        for (int hour = 0; hour < 24; ++hour) {
            rig.advanceMinutes(60);
            const double tg = rig.bus.controller(5)->measurement().tgFi();
            QVERIFY2(tg > 0.0 && tg < 0.55, qPrintable(QStringLiteral("%1 at +%2 h").arg(tg).arg(hour)));
        }
    }

    void blockingStopsRegulation()
    {
        SimRig rig({5});
        blockWithStages(rig, 5, 0xFF, 0xFF);  // all stages off
        rig.advanceMinutes(10);
        QCOMPARE(rig.readByte(5, kLamps1), quint8(0xFF));
        QCOMPARE(rig.readByte(5, kBlocking, 5), quint8(0x20));
        QVERIFY(!(rig.readByte(5, kLamps3) & 0x80));  // "zał." lit: tg fi above the band

        rig.ask(SimRig::frame(5, kBlocking, 3, 0x00));
        rig.advanceMinutes(10);
        QVERIFY(rig.readByte(5, kLamps1) != 0xFF);
    }

    void stageWritesSwitchStages()
    {
        SimRig rig({5});
        blockWithStages(rig, 5, 0xF7, 0x7F);
        const sim::StageBank &stages = rig.bus.controller(5)->stages();
        QVERIFY(stages.isOn(3));
        QVERIFY(stages.isOn(8));
        QCOMPARE(stages.countOn(), 2);
        QCOMPARE(rig.readByte(5, kLamps1), quint8(0xF7));
        QCOMPARE(rig.readByte(5, kLamps2), quint8(0x7F));

        rig.ask(SimRig::frame(5, kLamps2, 1, 0x8F));  // stage 8 off, the other bits kept
        QVERIFY(!stages.isOn(8));
        QCOMPARE(rig.readByte(5, kLamps2), quint8(0x8F));
    }

    void dischargeTimerCountsDownSixtySeconds()
    {
        SimRig rig({5});
        rig.ask(SimRig::frame(5, 0x73, 3, 0x3C));
        QCOMPARE(rig.readByte(5, 0x73, 5), quint8(60));
        QCOMPARE(rig.readByte(5, 0x72, 5), quint8(0));
        rig.advanceSeconds(30);
        QCOMPARE(rig.readByte(5, 0x73, 5), quint8(30));
        rig.advanceSeconds(29.5);
        QCOMPARE(rig.readByte(5, 0x73, 5), quint8(1));
        rig.advanceSeconds(0.5);
        QCOMPARE(rig.readByte(5, 0x73, 5), quint8(0));
        rig.advanceMinutes(5);
        QCOMPARE(rig.readByte(5, 0x73, 5), quint8(0));
    }

    void keysAreShownInTheDataBlock()
    {
        SimRig rig({5});
        rig.ask(SimRig::frame(5, kKeys, 3, 0x09));  // R and T
        const QByteArray b = rig.readBlock(5);
        QCOMPARE(quint8(b[26]), quint8(0x09));
        QVERIFY(quint8(b[25]) & 0x20);  // manual mode shown on the state keys
        rig.ask(SimRig::frame(5, kKeys, 3, 0x00));
        QCOMPARE(quint8(rig.readBlock(5)[26]), quint8(0x00));
    }

    void manualKeyStopsRegulationAndStepsStages()
    {
        SimRig rig({5});
        rig.ask(SimRig::frame(5, kLamps1, 1, 0xFF));
        rig.ask(SimRig::frame(5, kLamps2, 1, 0xFF));
        rig.ask(SimRig::frame(5, kKeys, 3, 0x01));  // R: manual
        rig.advanceMinutes(10);
        const sim::StageBank &stages = rig.bus.controller(5)->stages();
        QCOMPARE(stages.countOn(), 0);

        rig.ask(SimRig::frame(5, kKeys, 3, 0x03));  // R and +
        rig.ask(SimRig::frame(5, kKeys, 3, 0x03));
        QCOMPARE(stages.countOn(), 2);
        QCOMPARE(rig.readByte(5, kKeys, 5), quint8(0x01));  // + springs back

        rig.ask(SimRig::frame(5, kKeys, 3, 0x05));  // R and -
        QCOMPARE(stages.countOn(), 1);
        QCOMPARE(rig.readByte(5, 0x71, 5), quint8(60));  // the stage switched off discharges
    }
};

ZORBEL_TEST_MAIN(TestSimController)
#include "tst_sim_controller.moc"
