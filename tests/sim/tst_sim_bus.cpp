#include "TestMain.h"
#include "SimRig.h"

#include <QtTest>

using Kind = sim::FrameLogEntry::Kind;

class TestSimBus : public QObject {
    Q_OBJECT

private slots:
    void fullReadingOfAddressFive()
    {
        SimRig rig({1, 5, 6});
        sim::SimController &five = *rig.bus.controller(5);
        const QByteArray lamps1 = SimRig::unstuff(rig.ask(SimRig::frame(5, 0x90, 4)));
        const QByteArray lamps2 = SimRig::unstuff(rig.ask(SimRig::frame(5, 0xA0, 4)));
        const QByteArray lamps3 = SimRig::unstuff(rig.ask(SimRig::frame(5, 0xB0, 4)));
        const QByteArray data = SimRig::unstuff(rig.ask(SimRig::frame(5, 0x4F, 6)));

        QCOMPARE(lamps1, QByteArray(1, char(five.stages().lampByte1())));
        QCOMPARE(lamps2, QByteArray(1, char(five.stages().lampByte2())));
        QCOMPARE(lamps3, QByteArray(1, char(five.registerValue(0xB0))));
        QCOMPARE(data.size(), 33);
        QCOMPARE(quint8(data[0]), sim::SimController::kLeadByte);
        QCOMPARE(data.mid(1), five.dataBlock().encode());
        // A settled controller has some stages on: clear bits in lamp byte 1.
        QVERIFY(quint8(lamps1[0]) != 0xFF);
    }

    void onlyTheAddressedControllerAnswers()
    {
        SimRig rig({1, 5});
        QVERIFY(rig.ask(SimRig::frame(3, 0x90, 4)).isEmpty());
        QVERIFY(rig.ask(SimRig::frame(0, 0x4F, 6)).isEmpty());
        QCOMPARE(rig.bus.receive(SimRig::frame(5, 0x90, 4)).size(), size_t(1));
        QCOMPARE(rig.bus.receive(SimRig::frame(1, 0xB0, 4)).size(), size_t(1));
    }

    void writesGetNoReply()
    {
        SimRig rig({5});
        QVERIFY(rig.ask(SimRig::frame(5, 0x90, 1, 0xFF)).isEmpty());
        QVERIFY(rig.ask(SimRig::frame(5, 0x73, 3, 0x3C)).isEmpty());
        QVERIFY(rig.ask(SimRig::frame(5, 0x6A, 3, 0x00)).isEmpty());
    }

    void dataReplyIsStuffedThroughout()
    {
        SimRig rig({5});
        const QByteArray line = rig.ask(SimRig::frame(5, 0x4F, 6));
        const QByteArray data = SimRig::unstuff(line);
        QCOMPARE(data.size(), 33);
        QCOMPARE(line.size(), 33 + int(data.count(char(2))));
        QCOMPARE(line, sim::stuffReply(data));
    }

    void blockingByteAndTimerReadWithFunctionFive()
    {
        SimRig rig({5});
        rig.ask(SimRig::frame(5, 0x2F, 3, 0x21));
        QCOMPARE(rig.readByte(5, 0x2F, 5), quint8(0x21));
        QCOMPARE(rig.readByte(5, 0x74, 5), quint8(0));
    }

    void unknownRequestIsLoggedAndUnanswered()
    {
        SimRig rig({5});
        QVERIFY(rig.ask(SimRig::frame(5, 0xB0, 1, 0)).isEmpty());  // lamp byte 3 takes no write
        QVERIFY(rig.ask(SimRig::frame(5, 0x4F, 4)).isEmpty());
        QCOMPARE(rig.log.back().kind, Kind::Ignored);
    }

};

ZORBEL_TEST_MAIN(TestSimBus)
#include "tst_sim_bus.moc"
