#include "TestMain.h"
#include "ErrorOf.h"
#include "SimStationRig.h"

#include "base/RunTimeError.h"

#include <QTest>

namespace {

ZDate at(int h, int m, int s = 0, int ms = 0)
{
    return ZDate::fromParts(2024, 1, 15, h, m, s, ms);
}

// The next point of the grid that a controller with period `period` gets
// when read at `czas` with `nastepny` as it stood.
ZDate next(ZDate nastepny, ZDate czas, std::int16_t period)
{
    clRegulator r;
    r.CzestOdczytu = period;
    r.NastepnyOdczyt = nastepny;
    r.ObliczNastepnyOdczyt(czas);
    return r.NastepnyOdczyt;
}

} // namespace

class ScheduleTest : public QObject {
    Q_OBJECT
private slots:
    void firstReadLandsOnTheQuarterHourGridWhateverTheStart_data()
    {
        QTest::addColumn<ZDate>("czas");
        QTest::addColumn<ZDate>("expected");
        QTest::newRow("just after the hour") << at(8, 0, 1) << at(8, 15);
        QTest::newRow("mid period") << at(8, 7, 31, 400) << at(8, 15);
        QTest::newRow("a second before") << at(8, 14, 59, 999) << at(8, 15);
        QTest::newRow("just after the quarter") << at(8, 15, 1) << at(8, 30);
        QTest::newRow("last quarter") << at(23, 59, 59) << ZDate::fromParts(2024, 1, 16, 0, 0, 0);
    }
    void firstReadLandsOnTheQuarterHourGridWhateverTheStart()
    {
        QFETCH(ZDate, czas);
        QFETCH(ZDate, expected);
        // billions of seconds from the zero date: a 32-bit count would be wrong here
        QCOMPARE(next(ZDate(), czas, 15), expected);
    }

    void aReadExactlyOnAGridPointFromZeroIsDueAgainAtOnce()
    {
        // a whole number of periods above 0 leaves the controller on Czas itself
        QCOMPARE(next(ZDate(), at(8, 0), 15), at(8, 0));
        // whole seconds count: a fraction of a second past the point is still on it
        QCOMPARE(next(ZDate(), at(8, 15, 0, 500), 15), at(8, 15));
    }

    void aReadOnTimeToTheSecondMovesOnePeriod()
    {
        QCOMPARE(next(at(8, 15), at(8, 15), 15), at(8, 30));
        QCOMPARE(next(at(8, 15), at(8, 15, 0, 900), 15), at(8, 30)); // whole seconds only
    }

    void twoPeriodsLateIsDueAgainAtOnceThenOnePeriodOn()
    {
        const ZDate late = next(at(8, 15), at(8, 45), 15);
        QCOMPARE(late, at(8, 45));
        QCOMPARE(next(late, at(8, 45, 0, 100), 15), at(9, 0));
    }

    void missedPointsAreSkippedNotCaughtUp()
    {
        QCOMPARE(next(at(8, 15), at(11, 7, 12), 15), at(11, 15));
    }

    void aSevenMinutePeriodStaysOnSevenMinuteStepsFromTheZeroDate()
    {
        constexpr std::int64_t step = 7 * ZDate::MsPerMinute;
        ZDate n;
        for (const ZDate czas : {at(8, 0, 13), ZDate::fromParts(2024, 1, 16, 8, 0, 13), ZDate::fromParts(2031, 6, 1)}) {
            n = next(ZDate(), czas, 7);
            QCOMPARE(n.msecs() % step, std::int64_t(0));
            QVERIFY(n > czas);
            QVERIFY(n.msecs() - czas.msecs() <= step);
        }
        // the grid does not repeat daily: a day later the time of day differs
        const ZDate d1 = next(ZDate(), at(8, 0, 13), 7);
        const ZDate d2 = next(ZDate(), ZDate::fromParts(2024, 1, 16, 8, 0, 13), 7);
        QVERIFY(d2.msecs() - d1.msecs() != ZDate::MsPerDay);
        // and it goes on from a point of the grid in 7-minute steps
        QCOMPARE(next(d1, d1.addMsecs(1500), 7), d1.addMinutes(7));
    }

    void afterAFailureTheGridGoesOnFromTheRetryMoment()
    {
        const ZDate retry = at(8, 3, 12, 345);
        QCOMPARE(next(retry, retry.addMsecs(100), 15), at(8, 18, 12, 345));
    }

    void aZeroPeriodIsARunTimeError()
    {
        QCOMPARE(errorOf([&] { next(ZDate(), at(8, 0, 1), 0); }), int(RunTimeError::DivisionByZero));
    }

    // --- OkresowyOdczyt on a station with simulated controllers ---

    void aSuccessfulFirstReadStoresLandsOnTheGridAndAsksTheBlockOnce()
    {
        SimStationRig rig;
        rig.addController(QStringLiteral("A"), 1);
        rig.station.clock.set(at(8, 7, 31));
        rig.station.start();
        clRegulator &a = rig.reg(QStringLiteral("A"));
        const ZDate czas = rig.now();

        a.OkresowyOdczyt(czas);
        QCOMPARE(a.OstatniOdczyt, czas);
        QCOMPARE(a.NastepnyOdczyt, at(8, 15));
        QCOMPARE(rig.station.count(QStringLiteral("Pomiary")), 1);
        QCOMPARE(rig.station.count(QStringLiteral("OstPomiar"), QStringLiteral("Adres = 1")), 1);
        // four reading frames, then the block byte once
        QCOMPARE(rig.line.sent.size(), 5);
        QCOMPARE(rig.line.sent.last(), frame({2, 1, 0x2F, 5}));
        QCOMPARE(rig.station.wizual.argsOf(QStringLiteral("eBlokadaRegul")),
                 (QList<QVariantList>{{std::int16_t(1), false, false}}));
        QCOMPARE(rig.station.wizual.argsOf(QStringLiteral("eOkresowyOdczyt")),
                 (QList<QVariantList>{{std::int16_t(1), true}, {std::int16_t(1), false}, {std::int16_t(1), true},
                                      {std::int16_t(1), false}}));

        // not yet due: nothing at all
        rig.line.sent.clear();
        rig.station.wizual.calls.clear();
        a.OkresowyOdczyt(at(8, 14, 59, 900));
        QVERIFY(rig.line.sent.isEmpty());
        QVERIFY(rig.station.wizual.calls.isEmpty());

        // due: a regular read, no block byte any more
        rig.station.clock.set(at(8, 15, 0, 50));
        a.OkresowyOdczyt(rig.now());
        QCOMPARE(rig.line.sent.size(), 4);
        QCOMPARE(a.NastepnyOdczyt, at(8, 30));
        QCOMPARE(rig.station.count(QStringLiteral("Pomiary")), 2);
    }

    void aControllerWithALastSampleIsNotAskedForItsBlock()
    {
        SimStationRig rig;
        rig.addController(QStringLiteral("A"), 1);
        rig.station.addLastSample(1, 0, 0, 0, 0, at(7, 45));
        rig.station.clock.set(at(8, 7, 31));
        rig.station.start();
        rig.reg(QStringLiteral("A")).OkresowyOdczyt(rig.now());
        QCOMPARE(rig.line.sent.size(), 4);
        QVERIFY(rig.station.wizual.argsOf(QStringLiteral("eBlokadaRegul")).isEmpty());
    }

    void aFailedReadRetriesAwarCzestAfterItsEndStoresNothingAndSkipsTheBlock()
    {
        SimStationRig rig;
        rig.addController(QStringLiteral("A"), 1, {{"awarCzest", 5}});
        rig.silence({1});
        rig.station.clock.set(at(8, 7, 31));
        rig.station.start();
        clRegulator &a = rig.reg(QStringLiteral("A"));
        const ZDate czas = rig.now();

        a.OkresowyOdczyt(czas);
        const ZDate end = rig.now();
        QVERIFY(end.msecs() - czas.msecs() >= 2000); // the link waited for the silent line
        QCOMPARE(a.NastepnyOdczyt, end.addMinutes(5));   // a fresh reading of the clock, not Czas
        QCOMPARE(a.OstatniOdczyt, czas);
        QCOMPARE(rig.station.count(QStringLiteral("Pomiary")), 0);
        QCOMPARE(rig.station.count(QStringLiteral("OstPomiar")), 0);
        for (const QByteArray &f : rig.line.sent)
            QVERIFY(f != frame({2, 1, 0x2F, 5}));
        QCOMPARE(rig.station.wizual.argsOf(QStringLiteral("eOkresowyOdczyt")),
                 (QList<QVariantList>{{std::int16_t(1), true}, {std::int16_t(1), false}}));

        // back on the line: the success continues from the retry moment and,
        // OstatniOdczyt being set, the block is not asked for
        rig.line.bus().setFaults({});
        rig.line.sent.clear();
        rig.station.clock.set(a.NastepnyOdczyt.addMsecs(30));
        const ZDate retry = a.NastepnyOdczyt;
        a.OkresowyOdczyt(rig.now());
        QCOMPARE(a.NastepnyOdczyt, retry.addMinutes(15));
        QCOMPARE(rig.line.sent.size(), 4);
        QCOMPARE(rig.station.count(QStringLiteral("Pomiary")), 1);
    }

    void aZeroPeriodFailsAtTheFirstSuccessfulReadOnly()
    {
        SimStationRig rig;
        rig.addController(QStringLiteral("A"), 1, {{"CzestOdczytu", 0}});
        rig.silence({1});
        rig.station.start();
        clRegulator &a = rig.reg(QStringLiteral("A"));
        a.OkresowyOdczyt(rig.now()); // a failure never divides
        rig.line.bus().setFaults({});
        rig.station.clock.set(a.NastepnyOdczyt);
        QCOMPARE(errorOf([&] { a.OkresowyOdczyt(rig.now()); }), int(RunTimeError::DivisionByZero));
        QCOMPARE(rig.station.count(QStringLiteral("Pomiary")), 0);
    }
};

ZORBEL_TEST_MAIN(ScheduleTest)
#include "tst_schedule.moc"
