#include "TestMain.h"
#include "SimRig.h"

#include <QtTest>

using sim::Fault;
using Kind = sim::FrameLogEntry::Kind;

class TestSimFaults : public QObject {
    Q_OBJECT

private:
    static int dataReplyLength(SimRig &rig, int address)
    {
        return int(SimRig::unstuff(rig.ask(SimRig::frame(address, 0x4F, 6))).size());
    }

private slots:

    void silentAddressNeitherAnswersNorActs()
    {
        SimRig rig({5, 6});
        sim::FaultPlan plan;
        plan.silentAddresses = {5};
        rig.bus.setFaults(plan);
        QVERIFY(plan.isOn(Fault::Silence));
        QVERIFY(rig.ask(SimRig::frame(5, 0x90, 4)).isEmpty());
        QVERIFY(rig.ask(SimRig::frame(5, 0x4F, 6)).isEmpty());
        rig.ask(SimRig::frame(5, 0x2F, 3, 0x20));
        QCOMPARE(rig.bus.controller(5)->blockingByte(), quint8(0));
        QCOMPARE(rig.log.back().kind, Kind::Silent);
        QCOMPARE(dataReplyLength(rig, 6), 33);
    }

    void certainDropLosesTheWholeReply()
    {
        SimRig rig({5});
        sim::FaultPlan plan;
        plan.dropProbability = 1;
        rig.bus.setFaults(plan);
        QCOMPARE(dataReplyLength(rig, 5), 0);
    }

    void noiseAddsOneByte()
    {
        SimRig rig({5});
        sim::FaultPlan plan;
        plan.noiseProbability = 1;
        rig.bus.setFaults(plan);
        for (int i = 0; i < 20; ++i) {
            const QByteArray clean = sim::stuffReply(QByteArray(1, char(rig.bus.controller(5)->stages().lampByte1())));
            QCOMPARE(rig.ask(SimRig::frame(5, 0x90, 4)).size(), clean.size() + 1);
        }
    }

    void delayIsHandedToThePort()
    {
        SimRig rig({5});
        sim::FaultPlan plan;
        plan.delayMs = 250;
        rig.bus.setFaults(plan);
        const auto out = rig.bus.receive(SimRig::frame(5, 0xB0, 4));
        QCOMPARE(out.size(), size_t(1));
        QCOMPARE(out[0].delayMs, qint64(250));
        QCOMPARE(out[0].bytes.size() >= 1, true);
        rig.bus.setFaults({});
        QCOMPARE(rig.bus.receive(SimRig::frame(5, 0xB0, 4))[0].delayMs, qint64(0));
    }

    void countersResetAtTheHour()
    {
        SimRig rig({5, 6});
        sim::FaultPlan plan;
        plan.resettingAddresses = {5};
        rig.bus.setFaults(plan);
        rig.advanceMinutes(50);  // 10:50
        const qint64 apparentFive = blockUnsigned(rig.readBlock(5), 0, 4);
        const qint64 apparentSix = blockUnsigned(rig.readBlock(6), 0, 4);
        rig.advanceMinutes(15);  // 11:05
        const QByteArray five = rig.readBlock(5);
        QVERIFY(blockUnsigned(five, 0, 4) < apparentFive);
        QCOMPARE(blockUnsigned(five, 12, 3), 5 * 60);  // the timer restarted at 11:00
        QVERIFY(blockUnsigned(rig.readBlock(6), 0, 4) > apparentSix);
    }

};

ZORBEL_TEST_MAIN(TestSimFaults)
#include "tst_sim_faults.moc"
