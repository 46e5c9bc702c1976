#include "TestMain.h"
#include "FakeClock.h"
#include "FakeEventPump.h"
#include "SimulatedLine.h"

#include "simcore/LineTiming.h"

#include <QTest>
#include <cmath>

static QByteArray frame(std::initializer_list<int> values)
{
    QByteArray b;
    for (int v : values)
        b.append(char(v));
    return b;
}

class SimulatedLineTest : public QObject {
    Q_OBJECT

    static sim::ControllerConfig at(int address)
    {
        sim::ControllerConfig c;
        c.address = address;
        return c;
    }

private slots:
    void replyBytesArriveAtTheLinePaceAfterTheRequestCrossedTheLine()
    {
        FakeClock clock;
        SimulatedLine line(clock);
        line.bus().addController(at(5));
        QVERIFY(line.open(1));
        const ZDate sent = clock.now();
        line.send(frame({2, 5, 0x4F, 6})); // lead byte and 32 data bytes, stuffed
        QVERIFY(line.pending() >= 33);
        QCOMPARE(line.bytesWaiting(), 0);
        QCOMPARE(line.readByte(), -1);

        // the first byte: 4 request bytes out, 1 reply byte in
        const auto first = line.nextArrival();
        QVERIFY(first);
        QCOMPARE(first->msecs() - sent.msecs(), std::int64_t(std::ceil(5 * sim::kByteMs)));
        clock.set(*first);
        QCOMPARE(line.bytesWaiting(), 1);
        QCOMPARE(line.readByte(), 0x06); // the lead byte
        QCOMPARE(line.readByte(), -1);

        // the whole reply has come in after its wire time
        const int total = line.pending() + 1;
        clock.set(sent.addMsecs(std::int64_t(std::ceil((4 + total) * sim::kByteMs))));
        QCOMPARE(line.bytesWaiting(), total - 1);
        QVERIFY(!line.nextArrival());
    }

    void answersOnlyAddressedControllersAndNothingFromASilentOne()
    {
        FakeClock clock;
        SimulatedLine line(clock);
        line.bus().addController(at(1));
        line.bus().addController(at(2));
        sim::FaultPlan plan;
        plan.silentAddresses = {2};
        line.bus().setFaults(plan);
        line.send(frame({2, 2, 0x90, 4}));
        line.send(frame({2, 9, 0x90, 4}));
        QCOMPARE(line.pending(), 0);
        line.send(frame({2, 1, 0x90, 4}));
        QCOMPARE(line.pending(), 1);
        QCOMPARE(line.sent.size(), 3);
    }

    void aReplyWaitsForTheOneBeforeItAndDiscardKeepsBytesInTransit()
    {
        FakeClock clock;
        SimulatedLine line(clock);
        line.bus().addController(at(1));
        line.send(frame({2, 1, 0x90, 4}));
        const ZDate firstAt = *line.nextArrival();
        line.send(frame({2, 1, 0xA0, 4}));
        QCOMPARE(line.pending(), 2);
        clock.set(firstAt);
        QCOMPARE(line.bytesWaiting(), 1);
        line.discardInput(); // drops what was received, not what is still on the way
        QCOMPARE(line.bytesWaiting(), 0);
        QCOMPARE(line.pending(), 1);
        QVERIFY(*line.nextArrival() > firstAt);
    }

    void theModelFollowsTheStationClock()
    {
        FakeClock clock(ZDate::fromParts(2024, 1, 15, 8, 0, 0));
        SimulatedLine line(clock);
        sim::SimController &c = line.bus().addController(at(1));
        const double before = c.counters().active();
        clock.advanceMs(3600 * 1000);
        line.send(frame({2, 1, 0x4F, 6}));
        QVERIFY(c.counters().active() > before);
    }

    void aFakePumpWaitsForTheNextSimulatedByte()
    {
        FakeClock clock;
        SimulatedLine line(clock);
        FakeEventPump pump(clock, line);
        line.bus().addController(at(1));
        line.send(frame({2, 1, 0x90, 4}));
        const ZDate due = *line.nextArrival();
        pump.processEvents(5000);
        QCOMPARE(clock.now(), due);
        QCOMPARE(line.bytesWaiting(), 1);
    }

};

ZORBEL_TEST_MAIN(SimulatedLineTest)
#include "tst_simulated_line.moc"
