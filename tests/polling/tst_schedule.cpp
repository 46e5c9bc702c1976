#include "TestMain.h"
#include "ErrorOf.h"
#include "SimStationRig.h"

#include <QTest>

namespace {

// Summer time of 2026 in central Europe, in standard time: at its start the
// wall clock goes from 02:00 to 03:00, at its end from 03:00 back to 02:00.
ZDate spring(int h, int m, int s = 0)
{
    return ZDate::fromParts(2026, 3, 29, h, m, s);
}
ZDate autumn(int h, int m, int s = 0)
{
    return ZDate::fromParts(2026, 10, 25, h, m, s);
}

// A station whose wall clock keeps summer time, its clock set in standard time.
struct SummerRig : SimStationRig {
    explicit SummerRig(ZDate standardStart)
    {
        station.clock.setSummerTime(spring(2, 0), autumn(2, 0));
        station.clock.setStandard(standardStart);
    }
    void runUntilStandard(ZDate end)
    {
        while (station.clock.standardNow() < end)
            station.runTicks(1);
    }
};

} // namespace

// When a controller is read: the grid of its period from the zero date,
// awarCzest minutes after a failure, in standard time.
class ScheduleTest : public QObject {
    Q_OBJECT
private slots:
    void theGridFromWhereTheControllerStood_data()
    {
        QTest::addColumn<ZDate>("nastepny");
        QTest::addColumn<ZDate>("czas");
        QTest::addColumn<int>("period");
        QTest::addColumn<ZDate>("expected");
        const ZDate never;
        // billions of seconds from the zero date: a 32-bit count would be wrong here
        QTest::newRow("first, mid period") << never << at(8, 7, 31, 400) << 15 << at(8, 15);
        QTest::newRow("first, a ms before") << never << at(8, 14, 59, 999) << 15 << at(8, 15);
        QTest::newRow("first, after a quarter") << never << at(8, 15, 1) << 15 << at(8, 30);
        QTest::newRow("first, last quarter") << never << at(23, 59, 59) << 15 << ZDate::fromParts(2024, 1, 16);
        // a whole number of periods above 0 leaves it on Czas: due again at once; whole seconds count
        QTest::newRow("first, on a point") << never << at(8, 0) << 15 << at(8, 0);
        QTest::newRow("first, on a point + 0.5 s") << never << at(8, 15, 0, 500) << 15 << at(8, 15);
        QTest::newRow("on time") << at(8, 15) << at(8, 15) << 15 << at(8, 30);
        QTest::newRow("on time + 0.9 s") << at(8, 15) << at(8, 15, 0, 900) << 15 << at(8, 30);
        QTest::newRow("two periods late") << at(8, 15) << at(8, 45) << 15 << at(8, 45);
        QTest::newRow("missed points skipped") << at(8, 15) << at(11, 7, 12) << 15 << at(11, 15);
        QTest::newRow("from a retry moment") << at(8, 3, 12, 345) << at(8, 3, 12, 445) << 15 << at(8, 18, 12, 345);
        // seven minutes from the zero date: the grid does not repeat daily
        QTest::newRow("7 min") << never << at(8, 0, 13) << 7 << at(8, 7);
        QTest::newRow("7 min, a day on") << never << ZDate::fromParts(2024, 1, 16, 8, 0, 13) << 7
                                         << ZDate::fromParts(2024, 1, 16, 8, 2);
        QTest::newRow("7 min, on") << at(8, 7) << at(8, 7, 1, 500) << 7 << at(8, 14);
    }
    void theGridFromWhereTheControllerStood()
    {
        QFETCH(ZDate, nastepny);
        QFETCH(ZDate, czas);
        QFETCH(int, period);
        clRegulator r;
        r.CzestOdczytu = std::int16_t(period);
        r.NastepnyOdczyt = nastepny;
        r.ObliczNastepnyOdczyt(czas);
        QTEST(r.NastepnyOdczyt, "expected");
    }

    void aFirstReadStoresLandsOnTheGridAndAsksTheBlockOnce()
    {
        SimStationRig rig;
        rig.addController(QStringLiteral("A"), 1);
        rig.station.clock.set(at(8, 7, 31));
        rig.station.start();
        clRegulator &a = rig.reg(QStringLiteral("A"));
        const ZDate czas = rig.now();
        QVERIFY(!a.OkresowyOdczyt(czas));
        QCOMPARE(a.OstatniOdczyt, czas);
        QCOMPARE(a.NastepnyOdczyt, at(8, 15));
        QCOMPARE(rig.station.count(QStringLiteral("OstPomiar"), QStringLiteral("Adres = 1")), 1);
        // four reading frames, then the block byte once
        QCOMPARE(rig.line.sent.size(), 5);
        QCOMPARE(rig.line.sent.last(), QByteArray::fromHex("02012F05"));
        QCOMPARE(rig.station.wizual.argsOf(QStringLiteral("eBlokadaRegul")),
                 (QList<QVariantList>{{std::int16_t(1), false, false}}));
        const QVariantList on{std::int16_t(1), true}, off{std::int16_t(1), false};
        QCOMPARE(rig.station.wizual.argsOf(QStringLiteral("eOkresowyOdczyt")), (QList<QVariantList>{on, off, on, off}));

        // not yet due: nothing at all; due to the ms: a regular read without the block byte
        rig.line.sent.clear();
        rig.station.wizual.calls.clear();
        QVERIFY(!a.OkresowyOdczyt(at(8, 14, 59, 900)));
        QVERIFY(rig.line.sent.isEmpty() && rig.station.wizual.calls.isEmpty());
        rig.station.clock.set(at(8, 15));
        a.OkresowyOdczyt(rig.now());
        QCOMPARE(rig.line.sent.size(), 4);
        QCOMPARE(a.NastepnyOdczyt, at(8, 30));
        QCOMPARE(rig.station.count(QStringLiteral("Pomiary")), 2);
    }

    void aFailedReadIsRetriedAwarCzestAfterItsEndAndAZeroPeriodFailsAtTheFirstSuccess()
    {
        SimStationRig rig;
        rig.addController(QStringLiteral("A"), 1, {{"CzestOdczytu", 0}}); // a failure never divides
        rig.silence({1});
        rig.station.clock.setSummerTime(at(0, 0), at(23, 0)); // the schedule keeps standard time, an hour behind
        rig.station.clock.set(at(8, 7, 31));
        rig.station.start();
        clRegulator &a = rig.reg(QStringLiteral("A"));
        const ZDate czas = rig.now();
        QVERIFY(!a.OkresowyOdczyt(czas));
        QVERIFY(rig.now().msecs() - czas.msecs() >= 2000); // the link waited for the silent line
        // from a fresh reading of the clock, not Czas
        QCOMPARE(a.NastepnyOdczyt, rig.station.clock.standardNow().addMinutes(5));
        QCOMPARE(a.OstatniOdczyt, czas);
        QVERIFY(!rig.line.sent.contains(QByteArray::fromHex("02012F05")));
        QCOMPARE(rig.station.wizual.argsOf(QStringLiteral("eOkresowyOdczyt")),
                 (QList<QVariantList>{{std::int16_t(1), true}, {std::int16_t(1), false}}));

        // back, due on the very moment: OstatniOdczyt being set, no block byte; the first success divides
        rig.line.bus().setFaults({});
        rig.line.sent.clear();
        rig.station.clock.setStandard(a.NastepnyOdczyt);
        QCOMPARE(errorOf([&] { a.OkresowyOdczyt(rig.now()); }), int(RunTimeError::DivisionByZero));
        QCOMPARE(rig.line.sent.size(), 4);
        QCOMPARE(rig.station.count(QStringLiteral("Pomiary")), 0);
    }

    void summerTimeNeitherLosesNorRepeatsAPoint_data()
    {
        QTest::addColumn<ZDate>("start");
        QTest::addColumn<int>("period");
        QTest::addColumn<ZDate>("end");
        QTest::addColumn<QString>("samples");
        // the start is read at once, then the grid; standard times in, wall-clock times out
        QTest::newRow("end, every minute") << autumn(1, 55, 30) << 1 << autumn(2, 4, 30)
                                           << "02:55:30 02:56 02:57 02:58 02:59 02:00 02:01 02:02 02:03 02:04";
        QTest::newRow("start, every minute") << spring(1, 55, 30) << 1 << spring(2, 4, 30)
                                             << "01:55:30 01:56 01:57 01:58 01:59 03:00 03:01 03:02 03:03 03:04";
        QTest::newRow("end, quarters") << autumn(1, 20) << 15 << autumn(2, 50)
                                       << "02:20 02:30 02:45 02:00 02:15 02:30 02:45";
        QTest::newRow("start, quarters") << spring(1, 20) << 15 << spring(2, 35)
                                         << "01:20 01:30 01:45 03:00 03:15 03:30";
    }
    void summerTimeNeitherLosesNorRepeatsAPoint()
    {
        QFETCH(ZDate, start);
        QFETCH(int, period);
        QFETCH(ZDate, end);
        SummerRig rig(start);
        rig.addController(QStringLiteral("A"), 1, {{"CzestOdczytu", period}});
        rig.station.start();
        rig.runUntilStandard(end);
        QStringList times;
        for (const QVariantMap &r : rig.station.rows(QStringLiteral("SELECT Data FROM Pomiary ORDER BY rowid"))) {
            const QString t = ZDate::fromVariant(r.value(QStringLiteral("Data"))).toString(QStringLiteral("HH:mm:ss"));
            times << (t.endsWith(QLatin1String(":00")) ? t.chopped(3) : t);
        }
        QTEST(times.join(QLatin1Char(' ')), "samples");
        const ZDate next = rig.reg(QStringLiteral("A")).NastepnyOdczyt;
        QVERIFY(next.msecs() % (period * ZDate::MsPerMinute) == 0 && next > end);
    }
};

ZORBEL_TEST_MAIN(ScheduleTest)
#include "tst_schedule.moc"
