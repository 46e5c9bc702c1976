#include "TestMain.h"
#include "SimStationRig.h"

#include "base/RunTimeError.h"

#include <QTest>

namespace {

ZDate at(int h, int m, int s = 0, int ms = 0)
{
    return ZDate::fromParts(2024, 1, 15, h, m, s, ms);
}

// Position of the first recorded call of `name` with `args`, or -1.
qsizetype indexOf(const RecordingWizual &w, const QString &name, const QVariantList &args)
{
    for (qsizetype i = 0; i < w.calls.size(); ++i)
        if (w.calls[i].name == name && w.calls[i].args == args)
            return i;
    return -1;
}

} // namespace

class PollingTickTest : public QObject {
    Q_OBJECT
private slots:
    void aTickReadsDueControllersThenOneQueuedEntryThenMonitoredOnes()
    {
        SimStationRig rig;
        // collection order is by Kod: the monitored one comes first
        rig.addController(QStringLiteral("A_MON"), 3, {{"aktywny", "Nie"}});
        rig.addController(QStringLiteral("B_DUE"), 1);
        rig.addController(QStringLiteral("C_QUEUED"), 2, {{"aktywny", "Nie"}});
        rig.station.start();
        clRegulator &mon = rig.reg(QStringLiteral("A_MON"));
        mon.Monitoring = true;
        const std::int16_t queued = rig.reg(QStringLiteral("C_QUEUED")).Id;
        rig.s().Kolejka.Add(queued, QStringLiteral("WczytajStanRegul"), QVariant::fromValue(rig.now()), 0, {});
        rig.s().Kolejka.Add(queued, QStringLiteral("WczytajStanRegul"), QVariant::fromValue(rig.now()), 0, {});

        rig.station.runTicks(1);
        // periodic read with the one-time block byte, one queue entry, the monitoring pass
        QCOMPARE(rig.addressesSent(), (QList<int>{1, 1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3}));
        QCOMPARE(rig.s().Kolejka.Count(), 1);
        const RecordingWizual &w = rig.station.wizual;
        const qsizetype monOn = indexOf(w, QStringLiteral("eMonitoring"), {mon.Id, true});
        const qsizetype monOff = indexOf(w, QStringLiteral("eMonitoring"), {mon.Id, false});
        QVERIFY(monOn >= 0 && monOff > monOn);
        QVERIFY(indexOf(w, QStringLiteral("eNoweDane"), {mon.Id, QStringLiteral("O")}) > monOn);
        QVERIFY(indexOf(w, QStringLiteral("eOkresowyOdczyt"), {rig.reg(QStringLiteral("B_DUE")).Id, false}) < monOn);
        QCOMPARE(rig.station.count(QStringLiteral("Pomiary")), 1); // neither the queue nor monitoring stores
    }

    void timer1IsOffForTheWholeTickAndOnAfterIt()
    {
        SimStationRig rig;
        rig.addController(QStringLiteral("A"), 1);
        rig.station.start();
        PollingTimers &t = rig.station.timers();
        t.start();
        int seenDuring = 0;
        bool activeDuring = true;
        for (int ms : {1, 60, 110}) // inside the reading's waits
            rig.station.pump.afterMs(ms, [&] {
                ++seenDuring;
                activeDuring = activeDuring && t.Timer1.isActive();
            });
        t.Timer1Tick();
        QCOMPARE(seenDuring, 3);
        QVERIFY(!activeDuring);
        QVERIFY(t.Timer1.isActive());
        QCOMPARE(t.Timer1.interval(), 100);
        t.stop();
    }

    void aFailingTickLeavesTimer1Off()
    {
        SimStationRig rig;
        rig.addController(QStringLiteral("A"), 1, {{"CzestOdczytu", 0}});
        rig.station.start();
        PollingTimers &t = rig.station.timers();
        t.start();
        QVERIFY_THROWS_EXCEPTION(RunTimeError, t.Timer1Tick());
        QVERIFY(!t.Timer1.isActive());
    }

    void theClockOfPanel6IsTakenAtTheTickAndStandsStillDuringIt()
    {
        SimStationRig rig;
        rig.addController(QStringLiteral("A"), 1);
        rig.silence({1});
        rig.station.clock.set(at(15, 4, 5, 900));
        rig.station.start();
        QString during;
        rig.station.pump.afterMs(2000, [&] { during = rig.station.panels.text(6); });
        rig.station.timers().Timer1Tick();
        QCOMPARE(during, QStringLiteral("15:04:05")); // 24-hour, while the clock is past 15:04:07
        QCOMPARE(rig.station.panels.text(6), QStringLiteral("15:04:05"));
        QCOMPARE(rig.station.timers().CzasTicka, at(15, 4, 5, 900));
        rig.station.clock.set(at(15, 9, 0));
        rig.station.timers().Timer1Tick(); // not due: an idle tick
        QCOMPARE(rig.station.panels.text(6), QStringLiteral("15:09:00"));
    }

    void firstTickTriesAllActiveControllersOneSilentTheOthersOnTheGrid()
    {
        SimStationRig rig;
        rig.addController(QStringLiteral("A"), 1);
        rig.addController(QStringLiteral("B"), 2, {{"awarCzest", 3}});
        rig.addController(QStringLiteral("C"), 3);
        rig.addController(QStringLiteral("D_OFF"), 4, {{"aktywny", "Nie"}});
        rig.silence({2});
        rig.station.clock.set(at(8, 6, 40));
        rig.station.start();
        ZDate afterB;
        rig.station.pump.setArrivals([&, inner = FakeEventPump::arrivalsOf(rig.line)] {
            // the moment the silent one has given up is when C's first frame goes out
            if (afterB.isZero() && !rig.line.sent.isEmpty() && quint8(rig.line.sent.last().at(1)) == 3)
                afterB = rig.now();
            return inner();
        });
        rig.station.runTicks(1);

        const ZDate czas = rig.station.timers().CzasTicka;
        QCOMPARE(czas, at(8, 6, 40));
        const QList<int> sent = rig.addressesSent();
        QVERIFY(sent.contains(1) && sent.contains(2) && sent.contains(3));
        QVERIFY(!sent.contains(4));
        QCOMPARE(rig.reg(QStringLiteral("A")).NastepnyOdczyt, at(8, 15));
        QCOMPARE(rig.reg(QStringLiteral("C")).NastepnyOdczyt, at(8, 15));
        // all read at the tick's moment, however long it lasted
        for (const char *k : {"A", "B", "C"})
            QCOMPARE(rig.reg(QString::fromLatin1(k)).OstatniOdczyt, czas);
        const ZDate retry = rig.reg(QStringLiteral("B")).NastepnyOdczyt;
        QVERIFY(retry > czas.addMinutes(3).addMsecs(2000)); // counted from the end of the failed attempt
        QVERIFY(!afterB.isZero());
        QCOMPARE(retry, afterB.addMinutes(3));
        QCOMPARE(rig.station.count(QStringLiteral("Pomiary")), 2);
        QCOMPARE(rig.station.count(QStringLiteral("Pomiary"), QStringLiteral("Adres = 2")), 0);
        QCOMPARE(rig.station.count(QStringLiteral("Alarmy"), QStringLiteral("Kod_Regul = 'B'")), 1);

        // the next ticks are idle until someone is due
        rig.line.sent.clear();
        rig.station.runTicks(20);
        QVERIFY(rig.line.sent.isEmpty());
    }

    void monitoringAnInactiveControllerReadsEveryTickAndStoresNothing()
    {
        SimStationRig rig;
        rig.addController(QStringLiteral("M"), 7, {{"aktywny", "Nie"}});
        rig.station.start();
        clRegulator &m = rig.reg(QStringLiteral("M"));
        rig.station.runTicks(2);
        QVERIFY(rig.line.sent.isEmpty()); // inactive: never read by the round
        m.Monitoring = true;
        rig.station.runTicks(3);
        QCOMPARE(rig.line.sent.size(), 12);
        QCOMPARE(rig.station.wizual.argsOf(QStringLiteral("eMonitoring")).size(), 6);
        QCOMPARE(rig.station.wizual.argsOf(QStringLiteral("eNoweDane")).size(), 3);
        QCOMPARE(rig.station.count(QStringLiteral("Pomiary")), 0);
        QCOMPARE(rig.station.count(QStringLiteral("OstPomiar")), 0);
        QVERIFY(m.NastepnyOdczyt.isZero());
        QVERIFY(m.OstatniOdczyt.isZero());
    }

    void aQueueOfFiveEntriesTakesFiveTicks()
    {
        SimStationRig rig;
        rig.addController(QStringLiteral("A"), 1, {{"aktywny", "Nie"}});
        rig.station.start();
        clsKolejka &q = rig.s().Kolejka;
        for (int i = 0; i < 5; ++i)
            q.Add(1, QStringLiteral("WczytajStanRegul"), QVariant::fromValue(rig.now()), 0, {});
        for (int tick = 1; tick <= 5; ++tick) {
            rig.station.runTicks(1);
            QCOMPARE(q.Count(), 5 - tick);
            QCOMPARE(rig.line.sent.size(), 4 * tick);
        }
        rig.station.runTicks(1);
        QCOMPARE(rig.line.sent.size(), 20);
    }

    void aLongRoundDelaysTheQueue()
    {
        SimStationRig rig;
        rig.addController(QStringLiteral("A"), 1);
        rig.addController(QStringLiteral("B"), 2);
        rig.silence({1});
        rig.station.start();
        rig.s().Kolejka.Add(2, QStringLiteral("WczytajStanRegul"), QVariant::fromValue(rig.now()), 0, {});
        rig.station.wizual.calls.clear();
        const ZDate tick = rig.now();
        rig.station.runTicks(1);
        // the silent controller's timeouts come first: seconds of waiting before the queue's turn
        const QList<int> sent = rig.addressesSent();
        QCOMPARE(sent.first(), 1);
        QCOMPARE(sent.last(), 2);
        QVERIFY(rig.now().msecs() - tick.msecs() > 3000);
        QCOMPARE(rig.s().Kolejka.Count(), 0);
    }

    void alarmBlinkAndSoundActOnlyWhileAlarmsAreActive()
    {
        SimStationRig rig;
        rig.station.start();
        PollingTimers &t = rig.station.timers();
        QVERIFY(t.Timer3.isActive()); // on from the start
        QVERIFY(!t.Timer2.isActive());
        QCOMPARE(t.Timer2.interval(), 1000);
        QCOMPARE(t.Timer3.interval(), 3000);

        t.Timer2Tick();
        t.Timer3Tick();
        QVERIFY((rig.station.panels.picture(3) == StatusPanels::Picture::None));
        QVERIFY(rig.station.wizual.argsOf(QStringLiteral("GrajDzwiek")).isEmpty());

        rig.s().oApp.IloscAktywnychAlarmow = 1;
        t.Timer2Tick();
        QVERIFY((rig.station.panels.picture(3) == StatusPanels::Picture::AlarmFlash));
        t.Timer2Tick();
        QVERIFY((rig.station.panels.picture(3) == StatusPanels::Picture::None));
        t.Timer2Tick();
        t.Timer3Tick();
        QCOMPARE(rig.station.wizual.argsOf(QStringLiteral("GrajDzwiek")),
                 (QList<QVariantList>{{QStringLiteral("alarm.wav")}}));

        // no active alarm any more: the picture stays as it is
        rig.s().oApp.IloscAktywnychAlarmow = 0;
        t.Timer2Tick();
        t.Timer3Tick();
        QVERIFY((rig.station.panels.picture(3) == StatusPanels::Picture::AlarmFlash));
        QCOMPARE(rig.station.wizual.argsOf(QStringLiteral("GrajDzwiek")).size(), 1);

        t.setAlarmTimers(true);
        QVERIFY(t.Timer2.isActive() && t.Timer3.isActive());
        t.setAlarmTimers(false);
        QVERIFY(!t.Timer2.isActive() && !t.Timer3.isActive());
    }
};

ZORBEL_TEST_MAIN(PollingTickTest)
#include "tst_polling_tick.moc"
