#include "TestMain.h"
#include "UiRig.h"

#include "MainToolbar.h"
#include "ctlDioda3d.h"
#include "ctlPrzel.h"
#include "fmpanel.h"

#include "simcore/FrameLog.h"
#include "station/clsPozKolejki.h"

#include <QLineEdit>
#include <QPushButton>

// The front panel window on the station: what the device's bytes light up,
// the life of a key the operator changes, and the way to the device and back.
class FrontPanelTest : public QObject {
    Q_OBJECT

    static fmpanel *open(UiRig &rig)
    {
        rig.frame.PokazPanel(true);
        return rig.frame.findChild<fmpanel *>();
    }
    // "*" a lit lamp: stages 1 to 9, then "wył." and "zał."
    static QString lamps(const fmpanel *p)
    {
        QString out;
        for (int i = 0; i < 9; ++i)
            out += p->stageLamp(i)->Zapalona().toBool() ? '*' : '.';
        for (const ctlDioda3d *l : {p->lampWyl(), p->lampZal()})
            out += l->Zapalona().toBool() ? '*' : '.';
        return out;
    }
    // "1" a key up, keys 0 to 11
    static QString keys(const fmpanel *p)
    {
        QString out;
        for (int i = 0; i < 12; ++i)
            out += p->key(i)->Value() ? '1' : '0';
        return out;
    }
    static void setBytes(clsStan &s, std::array<std::uint8_t, 9> b)
    {
        std::tie(s.StanPrzel1, s.StanPrzel2, s.StanDisplay1, s.StanDisplay2, s.StanDisplay3, s.StanDisplay4,
                 s.StanDiod1, s.StanDiod2, s.StanDiod3) = std::tuple_cat(b);
    }

private slots:
    void panelBytesDecodeOntoLampsKeysAndDisplay()
    {
        UiRig rig;
        fmpanel *panel = open(rig);
        const struct {
            std::array<std::uint8_t, 9> bytes; // keys 1 and 2, display 1 to 4, lamps 1 to 3
            const char *lamps, *keys, *display;
        } rows[] = {
            {{0, 0, 0, 0, 0, 0, 0, 0, 0}, "***********", "000000000000", "0.000 "}, // no reading yet
            {{255, 255, 255, 255, 255, 255, 255, 255, 255}, "...........", "111111111111", " .    "},
            {{0x01, 0x02, 79, 160, 0x95, 0x1F, 0xFE, 0x7F, 0xBF}, "*.......**.", "000001000001", "4. 91 "},
            {{0x90, 0xF8, 0x30, 0xA0, 0x00, 0x70, 0x7F, 0x80, 0x7F}, ".......*..*", "100100010000", "3. 07 "},
        };
        for (const auto &row : rows) {
            setBytes(rig.s.Regulatory.Item(1).clsStan, row.bytes);
            rig.hub.eNoweDane(1, QStringLiteral("O"));
            QCOMPARE(lamps(panel), QLatin1String(row.lamps));
            QCOMPARE(keys(panel), QLatin1String(row.keys));
            QCOMPARE(panel->display()->text(), QLatin1String(row.display));
        }
        QCOMPARE(panel->windowTitle(), QStringLiteral("Regulator 'T1'"));
    }

    void controlsFollowModeAndBlockAndTheWindowTellsTheStationItIsThere()
    {
        UiRig rig;
        clRegulator &t1 = rig.s.Regulatory.Item(1);
        const struct {
            bool mode, blocked;
            const char *caption;
            bool ustawShown;
        } rows[] = {{false, false, "Zablokuj", false}, {true, false, "Zablokuj", true},
                    {true, true, "Odblokuj", true}, {false, true, "Odblokuj", false}};
        for (const auto &row : rows) {
            rig.s.oApp.TrybSterowania = row.mode;
            t1.Zablokowany = row.blocked;
            fmpanel *panel = open(rig);
            QVERIFY(rig.s.oApp.Loaded_Panel && rig.frame.panelWindow() == panel);
            QVERIFY(rig.entry("mnuRegulPanel")->isChecked());
            QCOMPARE(panel->cmdUstaw()->isVisibleTo(panel), row.ustawShown);
            QCOMPARE(panel->cmdUstaw()->isEnabled(), row.blocked);
            QCOMPARE(panel->cmdBlokuj()->text(), QLatin1String(row.caption));
            QVERIFY(!panel->cmdBlokuj()->isVisibleTo(panel) && !panel->cmdZalacz()->isVisibleTo(panel));
            for (int i = 0; i < 12; ++i)
                QCOMPARE(panel->key(i)->Enabled(), row.blocked && i >= 4 && i <= 7);
            panel->parentWidget()->close(); // its close box
            QTRY_VERIFY(!rig.frame.findChild<fmpanel *>());
            QVERIFY(!rig.s.oApp.Loaded_Panel && !rig.frame.panelWindow());
            QCOMPARE(rig.frame.toolbar().value(QStringLiteral("Panel")), 0);
        }
        // a block that takes effect: the buttons at once, the keys at the next redraw
        t1.Zablokowany = false;
        fmpanel *panel = open(rig);
        rig.hub.eBlokadaRegul(1, true, false);
        QVERIFY(panel->cmdUstaw()->isEnabled());
        QCOMPARE(panel->cmdBlokuj()->text(), QStringLiteral("Odblokuj"));
        QVERIFY(!panel->key(4)->Enabled());
        QTest::mouseClick(panel->cmdBlokuj(), Qt::LeftButton); // its own way to the block, hidden as it is
        QTest::mouseClick(panel->cmdUstaw(), Qt::LeftButton);
        QCOMPARE(rig.s.Kolejka.Count(), 2);
        QCOMPARE(rig.s.Kolejka.Item(1).Polecenie, QueueOp::Block);
        QVERIFY(rig.s.Kolejka.Item(1).flag());
        QCOMPARE(rig.s.Kolejka.Item(2).Polecenie, QueueOp::SetKeys);
    }

    void changedKeyStaysAsSetUntilSentWhateverIsRefreshedSelectedOrUnblocked()
    {
        UiRig rig;
        clRegulator &t1 = rig.s.Regulatory.Item(1);
        t1.Zablokowany = true;
        fmpanel *panel = open(rig);
        ctlPrzel *plus = panel->key(5);
        QTest::mouseDClick(plus, Qt::LeftButton);
        QVERIFY(plus->Value() && plus->Zmieniony());
        setBytes(t1.clsStan, {0xFF, 0x00, 0, 0, 0, 0, 0, 0, 0});
        rig.hub.eNoweDane(1, QStringLiteral("O"));
        QCOMPARE(keys(panel), QStringLiteral("111101001111")); // the others follow the device
        rig.s.oApp.NrAktRegulatora = 2;
        rig.hub.eZmianaRegulatora(2); // the change belongs to the key, not to the controller
        QVERIFY(plus->Value());
        rig.s.oApp.NrAktRegulatora = 1;
        t1.Zablokowany = false;
        rig.hub.eBlokadaRegul(1, false, false);
        QVERIFY(!plus->Enabled() && plus->Zmieniony());
        QTest::mouseDClick(panel->key(6), Qt::LeftButton); // a disabled key
        QVERIFY(!panel->key(6)->Value() && !panel->key(6)->Zmieniony());
        QVERIFY(rig.s.panelKeys.value(5)); // what the key command reads
        rig.s.panelKeys.releaseAll();      // and what it does after sending
        QVERIFY(!plus->Value() && !plus->Zmieniony());
        t1.clsStan.StanPrzel2 = 0x02;
        rig.hub.eNoweDane(1, QStringLiteral("O"));
        QVERIFY(plus->Value());
    }

    void keySentWithUstawReachesTheDeviceAndThePanelShowsItsAnswer()
    {
        UiRig rig(UiRig::Line::Simulated);
        QList<QByteArray> received;
        rig.simLine->bus().setLogSink([&](const sim::FrameLogEntry &e) {
            if (e.kind == sim::FrameLogEntry::Kind::Received && e.address == 1)
                received << e.bytes;
        });
        fmpanel *panel = open(rig);
        rig.entry("mnuSterWlacz")->trigger();
        rig.entry("mnuRegulZablok")->trigger();
        rig.s.Kolejka.Add(1, QueueOp::ReadState, QVariant::fromValue(rig.s.now()), 0, {});
        rig.s.timers.Timer1Tick(); // the block
        rig.s.timers.Timer1Tick(); // the reading, which enables the keys
        QVERIFY(panel->key(5)->Enabled());
        const QString before = lamps(panel);
        QTest::mouseDClick(panel->key(5), Qt::LeftButton); // "+": one stage more
        QTest::mouseClick(panel->cmdUstaw(), Qt::LeftButton);
        received.clear();
        rig.s.timers.Timer1Tick();
        QCOMPARE(received.value(0).toHex(), QByteArray("02016a0302"));
        QVERIFY(!panel->key(5)->Value() && !panel->key(5)->Zmieniony()); // a key that springs back
        QCOMPARE(lamps(panel).left(9).count('*'), before.left(9).count('*') + 1);
    }
};

ZORBEL_TEST_MAIN(FrontPanelTest)
#include "tst_front_panel.moc"
