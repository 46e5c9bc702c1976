#include "ModelRig.h"

#include <cmath>

using namespace rig;

namespace {

// The energy factor of a controller, in kWh per raw count.
double energyFactor(double przekladnia, double skala, double przekladniaNap)
{
    return (std::sqrt(3.0) / 100.0) * przekladnia * skala * przekladniaNap * 400.0 / 3600000.0;
}

}

class ReadingTest : public QObject {
    Q_OBJECT
private slots:
    void decodesEveryFieldOfTheBlockScaledByTheRatios()
    {
        // NapieciePomiar 100: a voltage scale of 0.25
        Rig rig({{"R1", {{"Przekladnia", 40.0}, {"PrzekladniaNap", 2}, {"NapieciePomiar", 100}, {"ProgTgFi", 5.0}}}});
        clRegulator &r = rig.reg();
        Block k;
        // several fields hold a 2, which the controller sends twice
        k.put(0, 0x00021020, 4).capacitive(-2).put(8, 0x00010202, 4).put(12, 0x020304, 3).voltage(0x017C);
        k.reactiveCurrent(0x0200).put(19, 4000, 2).put(21, 0xFFFE, 2).period(2303).put(25, 0x02223344550202, 7);
        answerReading(rig.line, 5, k, {0x02, 0x7F, 0xB5});

        QVERIFY(r.WczytajStanRegul(rig.s().now()));

        QCOMPARE(rig.line.sent, (QList<QByteArray>{frame(5, Lamps1, 4), frame(5, Lamps2, 4), frame(5, Lamps3, 4),
                                                     frame(5, DataBlock, 6)}));
        const double m = energyFactor(40, 0.25, 2);
        // 380 V x 0.25 x 2; 512 A x 40 / 200; 2304 counts of a 115200 Hz clock are 50 Hz
        QCOMPARE((QList<float>{r.PradCalkSr, r.PradBiernPojSr, r.PradBiernSr, float(r.TimerU), r.Napiecie, r.PradBierny,
                               r.PradCalk, r.Faza, r.Okres}),
                 (QList<float>{float(0x00021020 * m), float(-2 * m), float(0x00010202 * m), 0x020304, 190, 102.4f, 800, -2, 50}));
        const float czynny = float(std::sqrt(double(r.PradCalkSr) * r.PradCalkSr - double(r.PradBiernSr) * r.PradBiernSr));
        QCOMPARE(r.PradCzynny, czynny);
        QCOMPARE(r.TgFi, float(double(r.PradBiernSr) / czynny));
        QVERIFY(!r.ZakloceniaHarm);
        const clsStan &st = r.clsStan;
        QCOMPARE((QList<int>{st.StanDiod1, st.StanDiod2, st.StanDiod3, st.StanPrzel1, st.StanPrzel2, st.StanDisplay1,
                             st.StanDisplay2, st.StanDisplay3, st.StanDisplay4}),
                 (QList<int>{0x02, 0x7F, 0xB5, 0x02, 0x22, 0x33, 0x44, 0x55, 0x02}));
        QCOMPARE(rig.hub({"eNoweDane", "eAlarm"}), QStringList{"eNoweDane(1,O)"});
        QVERIFY(rig.log().isEmpty());
    }

    void missingActiveEnergyOrPeriodMarksHarmonicDisturbance()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        const double m = energyFactor(100, 1, 1);
        // apparent and reactive counters: the active part is the reactive magnitude when not below the apparent one
        for (const auto &[apparent, reactive, czynny, tgFi] : {std::tuple{0u, 0, 0.0f, 9.999f},
                                                               {1000u, -2000, float(2000 * m), -1.0f},
                                                               {3000u, 3000, float(3000 * m), 1.0f}}) {
            QVERIFY(rig.read(normalBlock().apparent(apparent).reactive(reactive)));
            QCOMPARE(r.PradCzynny, czynny);
            QCOMPARE(r.TgFi, tgFi);
            QVERIFY(r.ZakloceniaHarm);
        }
        QVERIFY(rig.read(normalBlock().period(0))); // one count
        QCOMPARE(r.Okres, 115200.0f);
        QVERIFY(r.ZakloceniaHarm);
        QVERIFY(rig.read(normalBlock().period(-1))); // no count at all: the last frequency stays
        QCOMPARE(r.Okres, 115200.0f);
        QVERIFY(!r.ZakloceniaHarm);
    }

    void linkFailuresRaiseOneNoLinkAlarmThatTheNextWholeBlockEnds()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        QVERIFY(rig.read(normalBlock().period(0))); // a disturbed reading first
        rig.line.sent.clear();
        rig.f.wizual.calls.clear();

        // silent: the first lamp byte missing ends the command, and it is logged
        QVERIFY(!r.WczytajStanRegul(rig.s().now()));
        QCOMPARE(rig.line.sent, QList<QByteArray>{frame(5, Lamps1, 4)});
        QVERIFY(!r.ZakloceniaHarm); // cleared before anything was asked
        QCOMPARE(rig.log(), QStringList{QStringLiteral("Błąd komunikacji z regulatorem|B|K|R1")});
        QCOMPARE(rig.hub({"eAlarm", "eNoweDane"}), QStringList{"eAlarm(1,100,,true)"});

        // the lamps come and the block does not, or only in part: not logged
        answerReading(rig.line, 5, normalBlock(), {0x0F, 0x7F, 0x00}, 0);
        QVERIFY(!r.WczytajStanRegul(rig.s().now()));
        QCOMPARE(r.clsStan.StanDiod1, std::uint8_t(0x0F)); // the lamps were taken
        answerReading(rig.line, 5, normalBlock(), {0xF0, 0x7F, 0x00}, 12);
        QVERIFY(!r.WczytajStanRegul(rig.s().now()));
        QVERIFY(!r.ZakloceniaHarm); // no block decoded, not even the last one again
        QCOMPARE(r.AktywneAlarmy, std::int16_t(3));
        QCOMPARE(rig.kindsAndStates(), QStringList{" 1/ 100/A"}); // one row for all
        QCOMPARE(rig.log().size(), 1);
        QCOMPARE(rig.hub({"eNoweDane"}), QStringList());

        QVERIFY(rig.read(normalBlock()));
        QCOMPARE(rig.kindsAndStates(), QStringList{" 1/ 100/N"});
    }

    void stageLampsAreActiveLow()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        r.clsStan.StanDiod1 = 0xFE;
        r.clsStan.StanDiod2 = 0x7F;
        QCOMPARE((QList<bool>{r.SprawdzStanDiody(0), r.SprawdzStanDiody(1), r.SprawdzStanDiody(7), r.SprawdzStanDiody(8)}),
                 (QList<bool>{true, false, false, true})); // stage 8: bit 7 of the second byte
        r.clsStan.StanDiod1 = 0xF7;
        r.clsStan.StanDiod2 = 0x80;
        QCOMPARE((QList<bool>{r.SprawdzStanDiody(0), r.SprawdzStanDiody(3), r.SprawdzStanDiody(8)}),
                 (QList<bool>{false, true, false}));
        QCOMPARE(errorOf([&] { r.SprawdzStanDiody(9); }), int(RunTimeError::SubscriptOutOfRange));
    }
};

ZORBEL_TEST_MAIN(ReadingTest)
#include "tst_reading.moc"
