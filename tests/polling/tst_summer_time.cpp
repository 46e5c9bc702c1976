#include "TestMain.h"
#include "SimStationRig.h"

#include <QTest>

namespace {

// Summer time of 2026 in central Europe, in standard time: at its start the
// wall clock goes from 02:00 to 03:00, at its end from 03:00 back to 02:00.
const ZDate SummerBegins = ZDate::fromParts(2026, 3, 29, 2, 0);
const ZDate SummerEnds = ZDate::fromParts(2026, 10, 25, 2, 0);

ZDate spring(int h, int m, int s = 0)
{
    return ZDate::fromParts(2026, 3, 29, h, m, s);
}

ZDate autumn(int h, int m, int s = 0)
{
    return ZDate::fromParts(2026, 10, 25, h, m, s);
}

// A station on the simulated line whose wall clock keeps summer time, its
// clock set in standard time.
struct SummerRig : SimStationRig {
    explicit SummerRig(ZDate standardStart)
    {
        station.clock.setSummerTime(SummerBegins, SummerEnds);
        station.clock.setStandard(standardStart);
    }
    void runUntilStandard(ZDate end)
    {
        while (station.clock.standardNow() < end)
            station.runTicks(1);
    }
    // The wall-clock times of the stored samples, in the order of storing.
    QStringList sampleTimes()
    {
        QStringList out;
        for (const QVariantMap &r : station.rows(QStringLiteral("SELECT Data FROM Pomiary ORDER BY rowid")))
            out << ZDate::fromVariant(r.value(QStringLiteral("Data"))).toString(QStringLiteral("HH:mm:ss"));
        return out;
    }
};

} // namespace

class SummerTimeTest : public QObject {
    Q_OBJECT
private slots:
    void theGridKeepsItsPointsAcrossTheChange_data()
    {
        QTest::addColumn<ZDate>("start");
        QTest::addColumn<int>("period");
        QTest::addColumn<ZDate>("end");
        QTest::addColumn<QStringList>("samples");
        // the start is at once, then the grid; standard times in, wall-clock times out
        QTest::newRow("end, every minute")
            << autumn(1, 55, 30) << 1 << autumn(2, 4, 30)
            << QStringList{"02:55:30", "02:56:00", "02:57:00", "02:58:00", "02:59:00",
                           "02:00:00", "02:01:00", "02:02:00", "02:03:00", "02:04:00"};
        QTest::newRow("start, every minute")
            << spring(1, 55, 30) << 1 << spring(2, 4, 30)
            << QStringList{"01:55:30", "01:56:00", "01:57:00", "01:58:00", "01:59:00",
                           "03:00:00", "03:01:00", "03:02:00", "03:03:00", "03:04:00"};
        QTest::newRow("end, quarter hours")
            << autumn(1, 20) << 15 << autumn(2, 50)
            << QStringList{"02:20:00", "02:30:00", "02:45:00", "02:00:00", "02:15:00", "02:30:00", "02:45:00"};
        QTest::newRow("start, quarter hours")
            << spring(1, 20) << 15 << spring(2, 35)
            << QStringList{"01:20:00", "01:30:00", "01:45:00", "03:00:00", "03:15:00", "03:30:00"};
    }
    void theGridKeepsItsPointsAcrossTheChange()
    {
        QFETCH(ZDate, start);
        QFETCH(int, period);
        QFETCH(ZDate, end);
        QFETCH(QStringList, samples);
        SummerRig rig(start);
        rig.addController(QStringLiteral("A"), 1, {{"CzestOdczytu", period}});
        rig.station.start();
        rig.runUntilStandard(end);
        QCOMPARE(rig.sampleTimes(), samples);
        const ZDate next = rig.reg(QStringLiteral("A")).NastepnyOdczyt;
        QCOMPARE(next.msecs() % (period * ZDate::MsPerMinute), std::int64_t(0));
        QVERIFY(next > end);
    }

    void failedReadsAroundTheEndAreRetriedAfterTheirMinutes()
    {
        // two silent controllers on the first tick: B fails before the wall
        // clock goes back from 03:00 to 02:00, C while it does
        SummerRig rig(autumn(1, 59, 56));
        rig.addController(QStringLiteral("B"), 2, {{"awarCzest", 3}});
        rig.addController(QStringLiteral("C"), 3, {{"awarCzest", 3}});
        rig.silence({2, 3});
        rig.station.start();
        rig.runUntilStandard(autumn(2, 7));
        QMap<int, int> tries; // by Id
        for (const QVariantList &args : rig.station.wizual.argsOf(QStringLiteral("eOkresowyOdczyt")))
            if (args.at(1).toBool())
                ++tries[args.at(0).toInt()];
        // each try about 3 s long, the next 3 minutes after its end
        QCOMPARE(tries, (QMap<int, int>{{1, 3}, {2, 3}}));
    }
};

ZORBEL_TEST_MAIN(SummerTimeTest)
#include "tst_summer_time.moc"
