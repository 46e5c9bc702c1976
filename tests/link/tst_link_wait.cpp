#include "TestMain.h"
#include "LinkRig.h"

#include <QTest>

// Waiting for a byte and reading it: timeouts, the time the interface takes,
// and the unstuffing of replies.
class LinkWaitTest : public QObject {
    Q_OBJECT
private slots:
    void emptyLineTimesOutOnTheThirdSecondBoundary_data()
    {
        QTest::addColumn<int>("phaseMs");
        QTest::addColumn<int>("expectedMs");
        QTest::newRow("on a boundary") << 0 << 3000;
        QTest::newRow("late in a second") << 700 << 2300;
    }
    void emptyLineTimesOutOnTheThirdSecondBoundary()
    {
        QFETCH(int, phaseMs);
        QFETCH(int, expectedMs);
        LinkRig rig;
        rig.clock.advanceMs(phaseMs);
        rig.started = rig.clock.now();
        QCOMPARE(rig.comm.CzytajBajt(), std::int16_t(-1));
        QCOMPARE(rig.elapsedMs(), expectedMs);
        // the wait slept in the pump rather than spinning
        QVERIFY(rig.pump.passes <= expectedMs / clComm::IdleSliceMs + 1);
    }

    void byteAlreadyWaitingIsSeenAfterOnePass()
    {
        LinkRig rig;
        rig.line.arriveAt(rig.clock.now(), bytes({7}));
        QCOMPARE(rig.comm.CzytajBajt(), std::int16_t(7));
        QCOMPARE(rig.pump.passes, 1);
        QCOMPARE(rig.pump.idleMs, 0);
    }

    void byteArrivingJustBeforeTheTimeoutIsCaught()
    {
        LinkRig rig;
        rig.line.arriveAfterMs(2990, bytes({0x41}));
        QCOMPARE(rig.comm.CzytajBajt(), std::int16_t(0x41));
        QCOMPARE(rig.elapsedMs(), 2990);
    }

    void byteArrivingAfterTheTimeoutWaitsForTheNextRead()
    {
        LinkRig rig;
        rig.line.arriveAfterMs(3010, bytes({0x41}));
        QCOMPARE(rig.comm.CzytajBajt(), std::int16_t(-1));
        QCOMPARE(rig.comm.CzytajBajt(), std::int16_t(0x41));
    }

    void timeTheInterfaceTakesIsGivenBack()
    {
        LinkRig rig;
        // a dialog opened from a menu inside the wait, open for ten seconds
        rig.pump.afterMs(500, [&] { rig.clock.advanceMs(10'000); });
        QCOMPARE(rig.comm.CzytajBajt(), std::int16_t(-1));
        QCOMPARE(rig.elapsedMs(), 13'000);
    }

    void shortInterfaceWorkWithinASecondCostsNothing()
    {
        LinkRig rig;
        rig.clock.advanceMs(100);
        rig.started = rig.clock.now();
        rig.pump.afterMs(200, [&] { rig.clock.advanceMs(300); });
        QCOMPARE(rig.comm.CzytajBajt(), std::int16_t(-1));
        // no second boundary was crossed inside the handler
        QCOMPARE(rig.elapsedMs(), 2900);
    }

    void stuffedTwoIsReadOnce()
    {
        LinkRig rig;
        rig.line.arriveAt(rig.clock.now(), bytes({2, 2, 7}));
        QCOMPARE(rig.comm.CzytajBajt(), std::int16_t(2));
        QCOMPARE(rig.comm.CzytajBajt(), std::int16_t(7));
        QCOMPARE(rig.line.pending(), 0);
    }

    void byteAfterATwoIsDroppedWhateverItIs()
    {
        LinkRig rig;
        rig.line.arriveAt(rig.clock.now(), bytes({2, 9}));
        QCOMPARE(rig.comm.CzytajBajt(), std::int16_t(2));
        QCOMPARE(rig.line.pending(), 0);
        QCOMPARE(rig.comm.CzytajBajt(), std::int16_t(-1));
    }

    void loneTwoThenSilenceIsLost()
    {
        LinkRig rig;
        rig.line.arriveAt(rig.clock.now(), bytes({2}));
        QCOMPARE(rig.comm.CzytajBajt(), std::int16_t(-1));
        QCOMPARE(rig.line.pending(), 0);
        QCOMPARE(rig.elapsedMs(), 3000);
    }

    void twinOfATwoMayComeLate()
    {
        LinkRig rig;
        rig.line.arriveAt(rig.clock.now(), bytes({2}));
        rig.line.arriveAfterMs(2500, bytes({2, 0x33}));
        QCOMPARE(rig.comm.CzytajBajt(), std::int16_t(2));
        QCOMPARE(rig.comm.CzytajBajt(), std::int16_t(0x33));
    }

    void readIntoBufferLeavesItAloneOnSilence()
    {
        LinkRig rig;
        std::int16_t value = 77;
        QVERIFY(!rig.comm.CzytajDaneN(value));
        QCOMPARE(value, std::int16_t(77));
        QVariant v;
        rig.line.arriveAt(rig.clock.now(), bytes({0xFF}));
        QVERIFY(rig.comm.CzytajDaneN(v));
        QCOMPARE(v.toInt(), 255);
    }

    void sendDiscardsWhatArrivedButNotWhatIsOnTheWay()
    {
        LinkRig rig;
        rig.line.arriveAt(rig.clock.now(), bytes({0x11, 0x22}));
        rig.line.arriveAfterMs(5, bytes({0x33}));
        QVERIFY(rig.comm.WyslijStr(bytes({2, 2, 0x2F, 5})));
        QCOMPARE(rig.comm.CzytajBajt(), std::int16_t(0x33));
        // a frame goes out as it is: a 2 in it is not doubled
        QCOMPARE(rig.line.sent, QList<QByteArray>{bytes({2, 2, 0x2F, 5})});
    }

};

ZORBEL_TEST_MAIN(LinkWaitTest)
#include "tst_link_wait.moc"
