#include "TestMain.h"
#include "UiRig.h"

#include "ControllerViews.h"
#include "MainToolbar.h"
#include "MonthToDateWatch.h"

namespace {

// The front panel and data windows as the hub sees them: what it asked of them.
struct ViewLog final : PanelView, DataView {
    void OdswiezPanel() override { calls << QStringLiteral("OdswiezPanel"); }
    void setUstawVisible(bool v) override { calls << QStringLiteral("setUstawVisible %1").arg(v); }
    void showBlocked() override { calls << QStringLiteral("showBlocked"); }
    void Odswiez() override { calls << QStringLiteral("Odswiez"); }
    void setOdswiezEnabled(bool e) override { calls << QStringLiteral("setOdswiezEnabled %1").arg(e); }
    QStringList calls;
};

using Pic = StatusPanels::Picture;

}

class MainWindowTest : public QObject {
    Q_OBJECT
private slots:
    // The status bar tells of a month whose tg φ runs above tg φ0 once an
    // hour, from the month's own days; a tariff value that is not a number
    // is said there instead, never ends the polling.
    void statusBarTellsOfAMonthAboveTheContract()
    {
        TestEnv env;
        StationFixture f(QStringLiteral("zorbel.db"));
        f.createDatabase();
        for (int adres : {1, 2})
            f.addController(QStringLiteral("T%1").arg(adres), adres, {{QStringLiteral("aktywny"), QStringLiteral("Nie")}});
        f.clock.set(ZDate::fromParts(2026, 11, 10, 12, 0, 0));
        Station &s = f.station();
        s.StartUp();
        // nine days of 100 kWh: T1 at tg φ 0,5, T2 at 0,2; October's day of T2 at 0,9 does not count
        const auto store = [&](int adres, ZDate at, double reactive) {
            StoredSample sample;
            sample.adres = std::int16_t(adres);
            sample.Data = at;
            sample.EnCzynna = 100.0;
            sample.EnBiernaCalk = reactive;
            sample.EnBiernaPoj = 0.0;
            s.samples.ZapiszPomiar(sample);
        };
        for (int day = 1; day <= 9; ++day) {
            store(1, ZDate::fromParts(2026, 11, day, 10, 0, 0), 50);
            store(2, ZDate::fromParts(2026, 11, day, 10, 0, 0), 20);
        }
        store(2, ZDate::fromParts(2026, 10, 31, 10, 0, 0), 90);
        MonthToDateWatch::attach(s);
        s.timers.Timer1Tick();
        const QString above = QStringLiteral("tg φ od początku miesiąca powyżej 0,40: T1 0,500");
        QCOMPARE(f.panels.notice().text, above);

        // a price set: the next hour tells the month's fee at this pace,
        // k·Crk·(√((1+0,5²)/(1+0,4²)) − 1)·A = 1000 · 0,0380683 · 0,9 MWh = 34,261 zł
        // over 9,541667 days of 30: 107,72 zł
        f.settings.setValue(QStringLiteral("Rozliczenie"), QStringLiteral("Crk"), QStringLiteral("1000"));
        s.timers.Timer1Tick();
        QCOMPARE(f.panels.notice().text, above); // the same hour: not checked again
        f.clock.advanceMs(60 * ZDate::MsPerMinute);
        s.timers.Timer1Tick();
        QCOMPARE(f.panels.notice().text, above + QStringLiteral(" (opłata w tym tempie 107,72 zł)"));

        f.settings.setValue(QStringLiteral("Rozliczenie"), QStringLiteral("tgFi0"), QStringLiteral("dużo"));
        f.clock.advanceMs(60 * ZDate::MsPerMinute);
        s.timers.Timer1Tick();
        QVERIFY2(f.panels.notice().text.contains(QStringLiteral("tgFi0")), qPrintable(f.panels.notice().text));

        f.settings.setValue(QStringLiteral("Rozliczenie"), QStringLiteral("tgFi0"), QStringLiteral("0,6"));
        f.clock.advanceMs(60 * ZDate::MsPerMinute);
        s.timers.Timer1Tick();
        QCOMPARE(f.panels.notice().text, QString());
    }

    void toolbarAndMenusShowWindowsAndMonitorTheCurrentController()
    {
        UiRig rig;
        rig.s.oApp.NrAktRegulatora = 2;
        rig.frame.toolbar().button(QStringLiteral("Monit"))->trigger();
        QVERIFY(rig.s.Regulatory.Item(2).Monitoring && rig.entry("mnuregulmonit")->isChecked());
        rig.frame.toolbar().button(QStringLiteral("Panel"))->trigger();
        rig.entry("mnuRaportyDobowy")->trigger();
        rig.s.oApp.AktTypEl = QStringLiteral("R"); // a controller's report, not the structure's
        rig.entry("mnuStrRapOkr")->trigger();
        QCOMPARE(rig.shown(), (QStringList{"fmRegulatory", "fmpanel", "fmRapDobS", "fmRapOkres"}));
    }

    void controlCommandsQueueOnlyInControlMode()
    {
        UiRig rig;
        rig.s.oApp.NrAktRegulatora = 2;
        clRegulator &t2 = rig.s.Regulatory.Item(2);
        t2.NrAktBaterii = 3;
        rig.entry("mnuRegulBatZal")->trigger(); // disabled outside control mode
        rig.entry("mnuSterWlacz")->trigger();
        t2.clsStan.StanDiod1 = 0xFF & ~0x04; // stage 3 lit: its bit is 0
        rig.entry("mnuRegulBatZal")->trigger();
        t2.clsStan.StanDiod1 = 0xFF; // dark
        rig.entry("mnuRegulBatZal")->trigger();
        t2.Zablokowany = true;
        rig.entry("mnuRegulZablok")->trigger(); // blocks, whatever the caption says
        t2.NrAktBaterii = 0;
        rig.entry("mnuRegulBatZal")->trigger();
        QCOMPARE(rig.prompt(0), QStringLiteral("Proszę najpierw zaznaczyć stopień!"));
        QCOMPARE(rig.s.Kolejka.Count(), 3);
        const clsPozKolejki &off = rig.s.Kolejka.Item(1);
        QVERIFY(off.Polecenie == QLatin1String("UstawKondensator") && off.NrRegul == 2);
        QCOMPARE(off.stageSwitch().stage, std::uint8_t(2));
        QVERIFY(!off.stageSwitch().on && rig.s.Kolejka.Item(2).stageSwitch().on);
        QVERIFY(rig.s.Kolejka.Item(3).Polecenie == QLatin1String("Blokuj") && rig.s.Kolejka.Item(3).flag());
    }

    void deleteAsksAndTakesEffectOnlyInTheTable()
    {
        UiRig rig;
        rig.s.oApp.NrAktRegulatora = 2;
        rig.f.dialogs.answers = {Dialogs::Cancel};
        rig.entry("mnuRegulUsun")->trigger();
        QCOMPARE(rig.prompt(0), QStringLiteral("Czy napewno usunąć wybrany regulator z systemu Zorbel?"));
        QCOMPARE(rig.s.rsRegulatory->rowCount(), 2);
        rig.entry("mnuRegulUsun")->trigger(); // Ok
        QCOMPARE(rig.prompt(2), QStringLiteral("Nowe ustawienia zostaną uwzględnione po ponownym uruchomieniu programu Zorbel."));
        QSqlQuery q = rig.s.connection().exec(SqlStatement(QStringLiteral("SELECT Kod FROM Regulatory")));
        QVERIFY(q.next() && q.value(0).toString() == QLatin1String("T1") && !q.next());
        QCOMPARE(rig.s.Regulatory.Count(), 2); // polled until the next start
    }

    void closingAsksAndOnlyOkStopsTheStationOnce()
    {
        UiRig rig;
        rig.s.timers.start();
        rig.f.dialogs.answers = {Dialogs::Cancel};
        QVERIFY(!rig.frame.close());
        QCOMPARE(rig.prompt(0), QStringLiteral("Czy zakończyć działanie programu Zorbel?"));
        QVERIFY(rig.s.timers.Timer1.isActive() && rig.f.line.isOpen() && rig.ended == 0);
        rig.entry("mnuKoniec")->trigger(); // the same question; Ok this time
        QCOMPARE(rig.f.dialogs.calls.size(), 2);
        QVERIFY(!rig.s.timers.Timer1.isActive() && !rig.f.line.isOpen() && !rig.s.db->isOpen() && rig.ended == 1);
        rig.frame.unloadWithoutAsking(); // a signal after the close: nothing twice
        QCOMPARE(rig.ended, 1);
    }

    void hubShowsWorkLampsAndControlMode()
    {
        UiRig rig;
        rig.hub.eOkresowyOdczyt(1, true);
        QCOMPARE(rig.panels.text(1), QStringLiteral("Oczytuję okresowe dane z regulatora 'T1' ..."));
        rig.hub.eBlokowanieRegul(2, false, true);
        QCOMPARE(rig.panels.text(1), QStringLiteral("Odblokowuję regulator 'T2' ..."));
        rig.hub.eWylaczanieBaterii(2, false); // the work is over
        QCOMPARE(rig.panels.text(1), QString());
        const auto link = [&](std::int16_t stan) { return rig.hub.eKomunikacja(stan), rig.panels.picture(4); };
        rig.panels.setText(4, QStringLiteral("x"));
        QCOMPARE(link(1), Pic::DarkLamp); // 1 and 2 leave the lamp as it is, 3 lights it
        QCOMPARE(link(3), Pic::LitLamp);
        QCOMPARE(link(2), Pic::LitLamp);
        QCOMPARE(rig.panels.text(4), QStringLiteral("x"));
        QCOMPARE(link(0), Pic::DarkLamp);
        QCOMPARE(rig.panels.text(4), QString());
        rig.hub.eMonitoring(1, true);
        QCOMPARE(rig.panels.picture(2), Pic::LitLamp);
        for (bool on : {true, false}) {
            rig.hub.eZmianaTrybuSterowania(on);
            for (const char *gated : {"mnuRegulBatZal", "mnuRegulBatTestuj", "mnuRegulZablok"})
                QVERIFY2(rig.entry(gated)->isEnabled() == on, gated);
            QCOMPARE(rig.panels.text(5), on ? QStringLiteral("sterowanie") : QStringLiteral("normalny"));
            QCOMPARE(rig.panels.picture(5), on ? Pic::ControlMode : Pic::None);
        }
    }

    void alarmSignFlashesOnlyWithUnconfirmedAlarms()
    {
        UiRig rig;
        // the flashing and sound timers running, and the sign's picture
        const auto alarms = [&](std::int16_t unconfirmed, std::int16_t active) {
            rig.s.oApp.IloscNiePotwAlarmow = unconfirmed;
            rig.s.oApp.IloscAktywnychAlarmow = active;
            rig.hub.eZmianaAlarmow();
            return qMakePair(rig.s.timers.Timer2.isActive() + rig.s.timers.Timer3.isActive(), rig.panels.picture(3));
        };
        QCOMPARE(alarms(0, 1), qMakePair(0, Pic::AlarmFlash)); // steady
        QCOMPARE(alarms(1, 0), qMakePair(2, Pic::AlarmFlash)); // an ended alarm not yet confirmed
        QCOMPARE(alarms(1, 1), qMakePair(2, Pic::AlarmFlash));
        rig.s.timers.Timer3Tick(); // sounds while one is active
        QCOMPARE(rig.played, QStringList{QStringLiteral("alarm.wav")});
        QCOMPARE(alarms(0, 1), qMakePair(0, Pic::AlarmFlash));
        QCOMPARE(alarms(0, 0), qMakePair(0, Pic::None));
    }

    void hubAsksLoadedWindowsOnlyAndTheRightOnes()
    {
        UiRig rig;
        ViewLog views;
        rig.frame.setPanelWindow(&views);
        rig.frame.setDataWindow(&views);
        rig.s.Regulatory.Item(1).Monitoring = true;
        const auto events = [&] {
            rig.hub.eNoweDane(2, QStringLiteral("O")); // another controller: the data window only
            rig.hub.eNoweDane(1, QStringLiteral("X"));
            rig.hub.eNoweDane(1, QStringLiteral("O"));
            rig.hub.eZmianaRegulatora(1);
            rig.hub.eZmianaTrybuSterowania(true);
            rig.hub.eBlokadaRegul(2, true, false); // a block read at a first reading: no sound
            rig.hub.eBlokadaRegul(1, true, true);
            rig.hub.eBlokadaRegul(1, false, true);
        };
        events();
        QVERIFY(views.calls.isEmpty()); // neither is loaded
        rig.s.oApp.Loaded_Panel = rig.s.oApp.Loaded_Dane = true;
        rig.played.clear();
        events();
        QCOMPARE(views.calls, (QStringList{"Odswiez", "OdswiezPanel", "Odswiez", "OdswiezPanel", "Odswiez",
                                           "setOdswiezEnabled 0", "setUstawVisible 1", "showBlocked", "OdswiezPanel"}));
        QCOMPARE(rig.played, (QStringList{"zablokregul.wav", "odblokregul.wav"}));
        QCOMPARE(rig.tree->nodeImage(QStringLiteral("T2")), 4);
        QCOMPARE(rig.entry("mnuRegulZablok")->text(), QStringLiteral("&Zablokuj regulator"));
        rig.hub.eBlokadaRegul(2, true, false);
        QCOMPARE(rig.entry("mnuRegulZablok")->text(), QStringLiteral("&Odblokuj regulator"));
    }

    void newDataRepaintsTreeNodesOnlyWhenTheyChange()
    {
        UiRig rig;
        clRegulator &t1 = rig.s.Regulatory.Item(1);
        const auto node = [&](const char *key) {
            return qMakePair(rig.tree->nodeImage(QLatin1String(key)), rig.tree->nodeForeColor(QLatin1String(key)));
        };
        t1.clsStan.StanDiod1 = std::uint8_t(~0x01 & 0xFF); // stage 1 lit
        t1.clsStan.StanDiod2 = 0x00;                       // stage 9 lit (bit 7 is 0)
        t1.Zablokowany = true;
        rig.tree->setNodeForeColor(QStringLiteral("T1_b2"), 255); // a stage that stays dark keeps its colour
        rig.hub.eNoweDane(1, QStringLiteral("O"));
        QCOMPARE(node("T1").first, 4);
        QCOMPARE(node("T1_b1"), qMakePair(5, 255u));
        QCOMPARE(node("T1_b2"), qMakePair(6, 255u));
        QCOMPARE(node("T1_b9"), qMakePair(5, 255u));
        t1.clsStan.StanDiod1 = 0xFF;
        t1.Zablokowany = false;
        rig.hub.eNoweDane(1, QStringLiteral("O"));
        QCOMPARE(node("T1").first, 2);
        QCOMPARE(node("T1_b1"), qMakePair(6, 0u));
    }

    void opcjeRaisesTheOpenDialogInsteadOfOpeningAnother()
    {
        UiRig rig;
        rig.entry("mnuNarzOpcje")->trigger();
        rig.frame.activateWindow();
        QTRY_COMPARE(QApplication::activeWindow(), &rig.frame);
        rig.entry("mnuNarzOpcje")->trigger();
        QCOMPARE(rig.shown().count(QStringLiteral("frmOptions")), 1);
        QTRY_COMPARE(QApplication::activeWindow(), rig.frame.findChild<frmOptions *>());
        QApplication::activeWindow()->close(); // once closed, the next click opens a new one
        rig.entry("mnuNarzOpcje")->trigger();
        QCOMPARE(rig.shown().count(QStringLiteral("frmOptions")), 1);
    }
};

ZORBEL_TEST_MAIN(MainWindowTest)
#include "tst_main_window.moc"
