#include "TestMain.h"
#include "StationFixture.h"
#include "TestEnv.h"

#include "ControllerViews.h"
#include "MainStatusBar.h"
#include "MainToolbar.h"
#include "ScreenWizual.h"
#include "fmGlowny.h"
#include "fmRegulatory.h"

#include "base/LoginPrompt.h"
#include "station/PollingTimers.h"
#include "station/clsPozKolejki.h"
#include "model/StatusPanels.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QSqlQuery>
#include <QTest>

namespace {

class AnsweringLogin final : public LoginPrompt {
public:
    explicit AnsweringLogin(clsoApp &app) : m_app(app) {}
    void showLogin() override
    {
        ++shown;
        m_app.setParametrGlob(answer);
    }
    bool answer = true;
    int shown = 0;

private:
    clsoApp &m_app;
};

// The front panel and data windows as the hub sees them: what it asked of them.
class ViewLog final : public PanelView, public DataView {
public:
    void OdswiezPanel() override { calls << QStringLiteral("OdswiezPanel"); }
    void setUstawVisible(bool v) override { calls << QStringLiteral("setUstawVisible %1").arg(v); }
    void showBlocked() override { calls << QStringLiteral("showBlocked"); }
    void Odswiez() override { calls << QStringLiteral("Odswiez"); }
    void setOdswiezEnabled(bool e) override { calls << QStringLiteral("setOdswiezEnabled %1").arg(e); }
    QStringList calls;
};

// A whole station on a database with two controllers, its main window
// loaded on a port that opens, the controller tree and the screen's hub.
struct Rig {
    Rig()
    {
        f.createDatabase();
        f.addController(QStringLiteral("T1"), 1);
        f.addController(QStringLiteral("T2"), 2);
        s.StartUp();
        hub.bind(s);
        s.setProcessEnd([this](int) { ++ended; });
        frame.load();
        tree = new fmRegulatory(s);
        frame.showChild(tree);
        hub.attach(&frame, tree);
        hub.setPlayer([this](const QString &file) { played << file; });
        frame.show();
    }
    Station &stationOnTheHub()
    {
        f.attachWizual(hub);
        return f.station();
    }
    QString lastLog()
    {
        QSqlQuery q = s.connection().exec(SqlStatement(QStringLiteral(
            "SELECT Operacja, Status, Typ, Kod_Regul FROM Log ORDER BY Id_wpisu DESC")));
        return q.next() ? QStringList{q.value(0).toString(), q.value(1).toString(), q.value(2).toString(),
                                      q.value(3).toString()}.join(QLatin1Char('|'))
                        : QString();
    }
    QStringList childNames() const
    {
        QStringList names;
        for (QMdiSubWindow *w : frame.area().subWindowList())
            names << w->widget()->objectName();
        return names;
    }

    TestEnv env;
    StationFixture f{QStringLiteral("zorbel.db")};
    StatusPanels &panels = f.panels;
    ScreenWizual hub{panels};
    Station &s = stationOnTheHub();
    PollingTimers &timers = s.timers;
    AnsweringLogin login{s.oApp};
    fmGlowny frame{s, login};
    fmRegulatory *tree = nullptr;
    QStringList played;
    int ended = 0;
};

QAction *entry(Rig &rig, const char *name)
{
    return rig.frame.entry(QString::fromLatin1(name));
}

}

class MainWindowTest : public QObject {
    Q_OBJECT
private slots:

    void loadPreparesBarsAndLogsTheStart()
    {
        Rig rig;
        QCOMPARE(rig.frame.toolbar().value(QStringLiteral("Komun")), 1);
        QCOMPARE(rig.frame.toolbar().value(QStringLiteral("Monit")), 0);
        QCOMPARE(rig.panels.picture(2), StatusPanels::Picture::DarkLamp);
        QCOMPARE(rig.panels.picture(4), StatusPanels::Picture::DarkLamp);
        QVERIFY(!rig.frame.statusBarPanels().showsPicture(3));
        QVERIFY(rig.frame.statusBarPanels().showsPicture(4));
        QCOMPARE(rig.s.oApp.Znakdaty, QStringLiteral("#"));
        QCOMPARE(rig.lastLog(), QStringLiteral("Start aplikacji|N|L|"));
        QVERIFY(!rig.timers.Timer1.isActive()); // polling is the start's last step, not the window's
    }

    void panelAndDataFollowTheirButtonsAndMenuMarks()
    {
        Rig rig;
        rig.frame.toolbar().button(QStringLiteral("Panel"))->trigger(); // pressed by the operator
        QVERIFY(entry(rig, "mnuRegulPanel")->isChecked());
        QVERIFY(rig.childNames().contains(QStringLiteral("fmpanel")));
        entry(rig, "mnuRegulPanel")->trigger(); // the menu passes the negation of its mark
        QVERIFY(!entry(rig, "mnuRegulPanel")->isChecked());
        QCOMPARE(rig.frame.toolbar().value(QStringLiteral("Panel")), 0);
        QTRY_VERIFY(!rig.childNames().contains(QStringLiteral("fmpanel")));

        rig.frame.PokazDane(true);
        QCOMPARE(rig.frame.toolbar().value(QStringLiteral("Dane")), 1);
        // closed by its own close box the data window releases its button and leaves the menu mark
        for (QMdiSubWindow *w : rig.frame.area().subWindowList())
            if (w->widget()->objectName() == QLatin1String("frmDane"))
                w->close();
        QCOMPARE(rig.frame.toolbar().value(QStringLiteral("Dane")), 0);
        QVERIFY(entry(rig, "mnureguldane")->isChecked());
    }

    void monitoringSetsTheCurrentControllerAndLogsIt()
    {
        Rig rig;
        rig.s.oApp.NrAktRegulatora = 2;
        rig.frame.toolbar().button(QStringLiteral("Monit"))->trigger();
        QVERIFY(rig.s.Regulatory.Item(2).Monitoring);
        QVERIFY(entry(rig, "mnuregulmonit")->isChecked());
        QCOMPARE(rig.lastLog(), QStringLiteral("Włączono monitoring|N|M|T2"));
        entry(rig, "mnuregulmonit")->trigger();
        QVERIFY(!rig.s.Regulatory.Item(2).Monitoring);
        QCOMPARE(rig.lastLog(), QStringLiteral("Wyłączono monitoring|N|M|T2"));

        // a change of controller moves the button, not the menu mark
        rig.frame.UstawMonitoring(true);
        rig.hub.eZmianaRegulatora(1);
        QCOMPARE(rig.frame.toolbar().value(QStringLiteral("Monit")), 0);
        QVERIFY(entry(rig, "mnuregulmonit")->isChecked());
    }

    void reportsOpenTheDialogOfTheSelectedKind()
    {
        Rig rig;
        rig.frame.toolbar().button(QStringLiteral("RapDob"))->trigger(); // nothing selected yet
        entry(rig, "mnuRapOkresowy")->trigger();
        QVERIFY(rig.childNames().contains(QStringLiteral("fmRapDobS")));
        QVERIFY(rig.childNames().contains(QStringLiteral("fmRapOkresS")));
        rig.s.oApp.AktTypEl = QStringLiteral("R");
        entry(rig, "mnuStrRapDob")->trigger();
        entry(rig, "mnuStrRapOkr")->trigger();
        QVERIFY(rig.childNames().contains(QStringLiteral("fmRapDob")));
        QVERIFY(rig.childNames().contains(QStringLiteral("fmRapOkres")));
    }

    void queueEntriesOfTheControlCommands()
    {
        Rig rig;
        rig.s.oApp.NrAktRegulatora = 2;
        clRegulator &t2 = rig.s.Regulatory.Item(2);
        entry(rig, "mnuRegulBatZal")->trigger(); // disabled outside control mode
        QCOMPARE(rig.s.Kolejka.Count(), 0);
        entry(rig, "mnuSterWlacz")->trigger();
        QVERIFY(rig.s.oApp.TrybSterowania);

        entry(rig, "mnuRegulBatZal")->trigger();
        QCOMPARE(rig.f.dialogs.calls.size(), 1);
        QCOMPARE(rig.f.dialogs.calls[0].prompt, QStringLiteral("Proszę najpierw zaznaczyć stopień!"));
        QCOMPARE(rig.f.dialogs.calls[0].title, QStringLiteral("Zorbel"));
        QCOMPARE(rig.f.dialogs.calls[0].style, int(Dialogs::Exclamation));
        QCOMPARE(rig.s.Kolejka.Count(), 0);

        t2.NrAktBaterii = 3;
        t2.clsStan.StanDiod1 = 0xFF & ~0x04; // stage 3 lit: its bit is 0
        entry(rig, "mnuRegulBatZal")->trigger();
        t2.clsStan.StanDiod1 = 0xFF; // dark
        entry(rig, "mnuRegulBatZal")->trigger();
        t2.Zablokowany = true;
        entry(rig, "mnuRegulZablok")->trigger(); // blocks, whatever the caption says
        QCOMPARE(rig.s.Kolejka.Count(), 3);
        const clsPozKolejki &off = rig.s.Kolejka.Item(1);
        QCOMPARE(off.Polecenie, QStringLiteral("UstawKondensator"));
        QCOMPARE(off.NrRegul, std::int16_t(2));
        QCOMPARE(off.stageSwitch().stage, std::uint8_t(2));
        QVERIFY(!off.stageSwitch().on);
        QVERIFY(rig.s.Kolejka.Item(2).stageSwitch().on);
        QCOMPARE(rig.s.Kolejka.Item(3).Polecenie, QStringLiteral("Blokuj"));
        QVERIFY(rig.s.Kolejka.Item(3).flag());
    }

    void deleteAsksAndTakesEffectOnlyInTheTable()
    {
        Rig rig;
        rig.s.oApp.NrAktRegulatora = 2;
        rig.f.dialogs.answers = {Dialogs::Cancel};
        entry(rig, "mnuRegulUsun")->trigger();
        QCOMPARE(rig.s.rsRegulatory->rowCount(), 2);
        QCOMPARE(rig.f.dialogs.calls.size(), 1);
        QCOMPARE(rig.f.dialogs.calls[0].title, QStringLiteral("UWAGA"));
        QCOMPARE(rig.f.dialogs.calls[0].style, Dialogs::OkCancel | Dialogs::Question);

        entry(rig, "mnuRegulUsun")->trigger();
        QCOMPARE(rig.f.dialogs.calls.size(), 3);
        QCOMPARE(rig.f.dialogs.calls[2].prompt,
                 QStringLiteral("Nowe ustawienia zostaną uwzględnione po ponownym uruchomieniu programu Zorbel."));
        QCOMPARE(rig.f.dialogs.calls[2].title, QStringLiteral("Uwaga"));
        QSqlQuery q = rig.s.connection().exec(SqlStatement(QStringLiteral("SELECT Kod FROM Regulatory")));
        QStringList left;
        while (q.next())
            left << q.value(0).toString();
        QCOMPARE(left, QStringList{QStringLiteral("T1")});
        QCOMPARE(rig.s.Regulatory.Count(), 2); // polled until the next start
    }

    void closingAsksAndCancelKeepsTheStationRunning()
    {
        Rig rig;
        rig.timers.start();
        rig.f.dialogs.answers = {Dialogs::Cancel};
        QVERIFY(!rig.frame.close());
        QVERIFY(rig.timers.Timer1.isActive());
        QVERIFY(rig.f.line.isOpen());
        QCOMPARE(rig.ended, 0);
        QCOMPARE(rig.f.dialogs.calls[0].prompt, QStringLiteral("Czy zakończyć działanie programu Zorbel?"));
        QCOMPARE(rig.f.dialogs.calls[0].title, QStringLiteral("Koniec programu"));

        entry(rig, "mnuKoniec")->trigger(); // the same question; Ok this time
        QCOMPARE(rig.f.dialogs.calls.size(), 2);
        QVERIFY(!rig.timers.Timer1.isActive());
        QVERIFY(!rig.f.line.isOpen());
        QVERIFY(!rig.s.db->isOpen());
        QCOMPARE(rig.ended, 1);
        rig.frame.unloadWithoutAsking(); // a signal after the close: nothing twice
        QCOMPARE(rig.ended, 1);
    }

    void hubShowsWorkLampsAndModeInTheStatusBar()
    {
        Rig rig;
        rig.hub.eOkresowyOdczyt(1, true);
        QCOMPARE(rig.frame.statusBarPanels().shownText(1), QStringLiteral("Oczytuję okresowe dane z regulatora 'T1' ..."));
        rig.hub.eBlokowanieRegul(2, false, true);
        QCOMPARE(rig.panels.text(1), QStringLiteral("Odblokowuję regulator 'T2' ..."));
        rig.hub.eWylaczanieBaterii(2, false);
        QCOMPARE(rig.panels.text(1), QString());

        rig.panels.setText(4, QStringLiteral("x"));
        for (std::int16_t ignored : {1, 2, 7}) {
            rig.hub.eKomunikacja(ignored);
            QCOMPARE(rig.panels.picture(4), StatusPanels::Picture::DarkLamp);
            QCOMPARE(rig.panels.text(4), QStringLiteral("x"));
        }
        rig.hub.eKomunikacja(3);
        QCOMPARE(rig.panels.picture(4), StatusPanels::Picture::LitLamp);
        rig.hub.eKomunikacja(0);
        QCOMPARE(rig.panels.picture(4), StatusPanels::Picture::DarkLamp);
        QCOMPARE(rig.panels.text(4), QString());
        rig.hub.eMonitoring(1, true);
        QCOMPARE(rig.panels.picture(2), StatusPanels::Picture::LitLamp);

        // no panel window loaded: menus and status bar only
        rig.hub.eZmianaTrybuSterowania(true);
        QCOMPARE(entry(rig, "mnuSterWlacz")->text(), QStringLiteral("Wyłącz tryb sterowania"));
        for (const char *on : {"mnuRegulBatZal", "mnuRegulBatTestuj", "mnuRegulZablok"})
            QVERIFY2(entry(rig, on)->isEnabled(), on);
        QCOMPARE(rig.frame.statusBarPanels().shownText(5), QStringLiteral("sterowanie"));
        QVERIFY(rig.frame.statusBarPanels().showsPicture(5));
        rig.hub.eZmianaTrybuSterowania(false);
        QCOMPARE(entry(rig, "mnuSterWlacz")->text(), QStringLiteral("Włącz tryb sterowania")); // no access key now
        QCOMPARE(rig.panels.text(5), QStringLiteral("normalny"));
        QVERIFY(!rig.frame.statusBarPanels().showsPicture(5));
    }

    void alarmSignFollowsBothCountersAndTimersTheUnconfirmed()
    {
        Rig rig;
        rig.s.oApp.IloscNiePotwAlarmow = 0;
        rig.s.oApp.IloscAktywnychAlarmow = 2;
        rig.hub.eZmianaAlarmow();
        QVERIFY(!rig.timers.Timer2.isActive() && !rig.timers.Timer3.isActive());
        QCOMPARE(rig.panels.picture(3), StatusPanels::Picture::AlarmFlash); // steady
        rig.s.oApp.IloscNiePotwAlarmow = 1;
        rig.hub.eZmianaAlarmow();
        QVERIFY(rig.timers.Timer2.isActive() && rig.timers.Timer3.isActive());
        rig.timers.Timer3Tick();
        QCOMPARE(rig.played, QStringList{QStringLiteral("alarm.wav")});
        rig.s.oApp.IloscNiePotwAlarmow = 0;
        rig.s.oApp.IloscAktywnychAlarmow = 0;
        rig.hub.eZmianaAlarmow();
        QCOMPARE(rig.panels.picture(3), StatusPanels::Picture::None);
    }

    void hubAsksLoadedWindowsOnlyAndTheRightOnes()
    {
        Rig rig;
        ViewLog views;
        rig.frame.setPanelWindow(&views);
        rig.frame.setDataWindow(&views);
        rig.hub.eNoweDane(2, QStringLiteral("O"));
        QVERIFY(views.calls.isEmpty()); // neither is loaded
        rig.s.oApp.Loaded_Panel = true;
        rig.s.oApp.Loaded_Dane = true;
        rig.hub.eNoweDane(2, QStringLiteral("O")); // another controller: the data window only
        QCOMPARE(views.calls, QStringList{QStringLiteral("Odswiez")});
        views.calls.clear();
        rig.hub.eNoweDane(1, QStringLiteral("X"));
        QVERIFY(views.calls.isEmpty());
        rig.hub.eNoweDane(1, QStringLiteral("O"));
        QCOMPARE(views.calls, (QStringList{"OdswiezPanel", "Odswiez"}));

        views.calls.clear();
        rig.s.Regulatory.Item(1).Monitoring = true;
        rig.hub.eZmianaRegulatora(1);
        QCOMPARE(views.calls, (QStringList{"OdswiezPanel", "Odswiez", "setOdswiezEnabled 0"}));
        views.calls.clear();
        rig.hub.eZmianaTrybuSterowania(true);
        QCOMPARE(views.calls, QStringList{QStringLiteral("setUstawVisible 1")});

        // a block read at a controller's first reading: no sound, the panel only for the current one
        views.calls.clear();
        rig.hub.eBlokadaRegul(2, true, false);
        QCOMPARE(rig.tree->nodeImage(QStringLiteral("T2")), 4);
        QCOMPARE(entry(rig, "mnuRegulZablok")->text(), QStringLiteral("&Odblokuj regulator"));
        QVERIFY(views.calls.isEmpty());
        QVERIFY(rig.played.isEmpty());
        rig.hub.eBlokadaRegul(1, true, true);
        QCOMPARE(views.calls, QStringList{QStringLiteral("showBlocked")});
        rig.hub.eBlokadaRegul(1, false, true);
        QCOMPARE(views.calls, (QStringList{"showBlocked", "OdswiezPanel"}));
        QCOMPARE(rig.played, (QStringList{"zablokregul.wav", "odblokregul.wav"}));
        QCOMPARE(entry(rig, "mnuRegulZablok")->text(), QStringLiteral("&Zablokuj regulator"));
    }

    void newDataRepaintsTreeNodesOfStagesAndBlock()
    {
        Rig rig;
        clRegulator &t1 = rig.s.Regulatory.Item(1);
        t1.clsStan.StanDiod1 = std::uint8_t(~0x01 & 0xFF); // stage 1 lit
        t1.clsStan.StanDiod2 = 0x00;                       // stage 9 lit (bit 7 is 0)
        t1.Zablokowany = true;
        rig.hub.eNoweDane(1, QStringLiteral("O"));
        QCOMPARE(rig.tree->nodeImage(QStringLiteral("T1")), 4);
        QCOMPARE(rig.tree->nodeImage(QStringLiteral("T1_b1")), 5);
        QCOMPARE(rig.tree->nodeForeColor(QStringLiteral("T1_b1")), 255u);
        QCOMPARE(rig.tree->nodeImage(QStringLiteral("T1_b2")), 6);
        QCOMPARE(rig.tree->nodeImage(QStringLiteral("T1_b9")), 5);
        t1.clsStan.StanDiod1 = 0xFF;
        rig.hub.eNoweDane(1, QStringLiteral("O"));
        QCOMPARE(rig.tree->nodeImage(QStringLiteral("T1_b1")), 6);
        QCOMPARE(rig.tree->nodeForeColor(QStringLiteral("T1_b1")), 0u);

        rig.hub.eZmianaBaterii(1, 9);
        QCOMPARE(entry(rig, "mnuRegulBatZal")->text(), QStringLiteral("&Wyłącz stopień"));
        rig.hub.eZmianaBaterii(1, 1);
        QCOMPARE(entry(rig, "mnuRegulBatZal")->text(), QStringLiteral("&Załącz stopień"));
    }
};

ZORBEL_TEST_MAIN(MainWindowTest)
#include "tst_main_window.moc"
