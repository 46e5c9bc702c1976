#include "TestMain.h"
#include "SimStationRig.h"

#include "base/RunTimeError.h"

#include <QTest>

// The polling tick (Timer1), the operator's queue it carries out, and the alarm timers.
class PollingTickTest : public QObject {
    Q_OBJECT
private slots:
    // Two inactive controllers, A (Id 1, address 1) and B (Id 2, address 2): nothing reads them but the queue.
    void eachCallOfTheQueueCarriesOutTheOldestEntryOnly()
    {
        SimStationRig rig;
        rig.addController(QStringLiteral("A"), 1, {{"aktywny", "Nie"}});
        rig.addController(QStringLiteral("B"), 2, {{"aktywny", "Nie"}});
        rig.station.start();
        RecordingWizual &w = rig.station.wizual;
        w.calls.clear();
        clsKolejka &q = rig.s().Kolejka;
        QVERIFY(!q.Wykonaj()); // empty: nothing at all
        // unknown or miscased words are removed, one per call, and nothing done
        for (const char *word : {"Testuj", "blokuj", "WCZYTAJSTANREGUL", "Czytaj_Diody"})
            q.Add(1, QString::fromLatin1(word), true, 0, {});
        for (int left = 3; left >= 0; --left) {
            QVERIFY(!q.Wykonaj()); // always false
            QCOMPARE(q.Count(), left);
        }
        QVERIFY(w.calls.isEmpty() && rig.line.sent.isEmpty());

        rig.silence({1});
        rig.queueRead(2);
        rig.queueRead(1);
        q.Wykonaj();
        QCOMPARE(rig.sent(), (QList<int>{2, 2, 2, 2}));
        QCOMPARE(rig.sent(2), (QList<int>{0x90, 0xA0, 0xB0, 0x4F}));
        QCOMPARE(q.Count(), 1);
        QCOMPARE(rig.station.count(QStringLiteral("Pomiary")), 0); // only the periodic read stores
        // A is silent: its failed read is dropped all the same, and a click during the wait comes next
        rig.station.pump.afterMs(5, [&] { q.Add(2, QStringLiteral("Blokuj"), true, 0, {}); });
        q.Wykonaj();
        const QList<int> toA = rig.sent().mid(4);
        QVERIFY(!toA.isEmpty() && toA.count(1) == toA.size());
        QCOMPARE(q.Count(), 1);
        rig.line.bus().setFaults({});
        rig.line.sent.clear();
        q.Wykonaj();
        QCOMPARE(w.argsOf(QStringLiteral("eBlokowanieRegul")).value(0), (QVariantList{std::int16_t(2), true, true}));
        QCOMPARE(rig.line.sent.value(0), QByteArray::fromHex("02022F05"));
        QVERIFY(rig.reg(QStringLiteral("B")).Zablokowany);

        rig.line.sent.clear();
        q.Add(1, QStringLiteral("Ustaw_przel"), 0, 0, {});
        q.Wykonaj();
        QCOMPARE(rig.line.sent.value(0).left(4), QByteArray::fromHex("02016A03"));
        // stage 3 to the opposite of its present state
        clRegulator &a = rig.reg(QStringLiteral("A"));
        a.WczytajStanRegul(rig.now());
        const bool on = a.SprawdzStanDiody(3);
        q.Add(1, QStringLiteral("UstawKondensator"), QVariant::fromValue(StageSwitch{3, !on}), 0, {});
        q.Wykonaj();
        QCOMPARE(w.argsOf(on ? QStringLiteral("eWylaczanieBaterii") : QStringLiteral("eZalaczanieBaterii")).value(0),
                 (QVariantList{std::int16_t(1), true}));
        QVERIFY(rig.sent(2).contains(0x73)); // the discharge timer of stage 3
        QCOMPARE(q.Count(), 0);
    }

    void aTickReadsDueControllersThenOneQueuedEntryThenMonitoredOnes()
    {
        SimStationRig rig;
        // collection order is by Kod: the monitored one comes first
        rig.addController(QStringLiteral("A_MON"), 3, {{"aktywny", "Nie"}});
        rig.addController(QStringLiteral("B_DUE"), 1);
        rig.addController(QStringLiteral("C_QUEUED"), 2, {{"aktywny", "Nie"}});
        rig.station.clock.set(at(8, 6, 40));
        rig.station.start();
        clRegulator &mon = rig.reg(QStringLiteral("A_MON"));
        mon.Monitoring = true;
        rig.queueRead(rig.reg(QStringLiteral("C_QUEUED")).Id);
        rig.queueRead(rig.reg(QStringLiteral("C_QUEUED")).Id);

        rig.station.runTicks(1);
        // the periodic read with the one-time block byte, one queue entry, the monitoring pass
        QCOMPARE(rig.sent(), (QList<int>{1, 1, 1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3}));
        auto pos = [&](const char *name, const QVariantList &args) {
            return rig.station.wizual.calls.indexOf(RecordingWizual::Call{QString::fromLatin1(name), args});
        };
        const qsizetype monOn = pos("eMonitoring", {mon.Id, true});
        QVERIFY(monOn >= 0 && pos("eMonitoring", {mon.Id, false}) > monOn);
        QVERIFY(pos("eNoweDane", {mon.Id, QStringLiteral("O")}) > monOn);
        QVERIFY(pos("eOkresowyOdczyt", {rig.reg(QStringLiteral("B_DUE")).Id, false}) < monOn);

        // the next ticks: the other queued entry, then only the monitored one, every tick
        rig.line.sent.clear();
        rig.station.runTicks(2);
        QCOMPARE(rig.sent(), (QList<int>{2, 2, 2, 2, 3, 3, 3, 3, 3, 3, 3, 3}));
        // neither the queue nor monitoring stores or moves the schedule
        QCOMPARE(rig.station.count(QStringLiteral("Pomiary")), 1);
        QCOMPARE(rig.station.count(QStringLiteral("OstPomiar"), QStringLiteral("Adres <> 1")), 0);
        QVERIFY(mon.NastepnyOdczyt.isZero() && mon.OstatniOdczyt.isZero());
    }

    void duringATickTimer1IsOffAndTheClockOfPanel6StandsStill()
    {
        SimStationRig rig;
        rig.addController(QStringLiteral("A"), 1);
        rig.silence({1});
        rig.station.clock.set(at(15, 4, 5, 900));
        rig.station.start();
        PollingTimers &t = rig.station.timers();
        QCOMPARE((QList<int>{t.Timer1.interval(), t.Timer2.interval(), t.Timer3.interval()}),
                 (QList<int>{100, 1000, 3000}));
        t.start();
        QStringList during; // inside the reading's waits
        for (int ms : {1, 2000})
            rig.station.pump.afterMs(ms, [&] {
                during << QStringLiteral("%1 %2 ").arg(int(t.Timer1.isActive())).arg(int(t.inTick()))
                              + rig.station.panels.text(6);
            });
        t.Timer1Tick();
        // 24-hour, and still the tick's moment while the clock is past 15:04:07
        QCOMPARE(during, (QStringList{"0 1 15:04:05", "0 1 15:04:05"}));
        QVERIFY(t.Timer1.isActive() && !t.inTick());
        QCOMPARE(t.CzasTicka, at(15, 4, 5, 900));
        rig.station.clock.set(at(15, 9, 0));
        t.Timer1Tick(); // not due: an idle tick
        QCOMPARE(rig.station.panels.text(6), QStringLiteral("15:09:00"));
        rig.s().stop();
        QVERIFY(!t.Timer1.isActive() && !t.Timer3.isActive());
    }

    void aRunTimeErrorInATickEndsTheStationWithStatus1()
    {
        SimStationRig rig;
        rig.addController(QStringLiteral("A"), 1, {{"CzestOdczytu", 0}});
        rig.station.start();
        Station &s = rig.s();
        QStringList told;
        int ended = -1;
        s.setFailureReport([&](const RunTimeError &e) { told << e.message(); });
        s.setProcessEnd([&](int code) { ended = code; });
        PollingTimers &t = s.timers;
        t.setAlarmTimers(true);
        s.startPolling();
        QTRY_COMPARE(ended, 1); // Timer1 runs on real time; its first read divides by the period
        QCOMPARE(told.size(), 1);
        QVERIFY(s.stopped());
        QCOMPARE(s.exitCode(), 1);
        QVERIFY(!t.Timer1.isActive() && !t.Timer2.isActive() && !t.Timer3.isActive());
    }

    void alarmBlinkAndSoundActOnlyWhileAlarmsAreActive()
    {
        SimStationRig rig;
        rig.station.start();
        PollingTimers &t = rig.station.timers();
        QVERIFY(t.Timer3.isActive() && !t.Timer2.isActive()); // Timer3 on from the start
        QString seen; // the alarm sign after each Timer2 tick ('*' shown), then the sounds played so far
        auto ticks = [&](int alarms, int blinks) {
            rig.s().oApp.IloscAktywnychAlarmow = std::int16_t(alarms);
            for (int i = 0; i < blinks; ++i) {
                t.Timer2Tick();
                seen += rig.station.panels.picture(3) == StatusPanels::Picture::None ? '-' : '*';
            }
            t.Timer3Tick();
            seen += QString::number(rig.station.wizual.argsOf(QStringLiteral("GrajDzwiek")).size()) + ' ';
        };
        ticks(0, 1);
        ticks(1, 3);
        ticks(0, 1); // no active alarm any more: the picture stays as it is
        QCOMPARE(seen, QStringLiteral("-0 *-*1 *1 "));
        QCOMPARE(rig.station.wizual.argsOf(QStringLiteral("GrajDzwiek")).value(0),
                 QVariantList{QStringLiteral("alarm.wav")});
        // switched on, the timers drive their ticks themselves (here every millisecond)
        t.Timer2.setInterval(1);
        t.Timer3.setInterval(1);
        rig.s().oApp.IloscAktywnychAlarmow = 1;
        for (bool on : {false, true, false}) {
            t.setAlarmTimers(on);
            QVERIFY(t.Timer2.isActive() == on && t.Timer3.isActive() == on);
            QTRY_VERIFY(!on || (rig.station.panels.picture(3) == StatusPanels::Picture::None
                                && rig.station.wizual.argsOf(QStringLiteral("GrajDzwiek")).size() > 1));
        }
    }
};

ZORBEL_TEST_MAIN(PollingTickTest)
#include "tst_polling_tick.moc"
