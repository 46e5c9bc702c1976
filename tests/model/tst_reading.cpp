#include "TestMain.h"
#include "ErrorOf.h"
#include "ModelRig.h"

#include "base/RunTimeError.h"

#include <QTest>
#include <cmath>

using namespace rig;

namespace {

// The energy factor of a controller, in kWh per raw count.
double energyFactor(double przekladnia, double skala, double przekladniaNap)
{
    return (std::sqrt(3.0) / 100.0) * przekladnia * skala * przekladniaNap * 400.0 / 3600000.0;
}

// What a failed reading must leave alone.
struct Snapshot {
    explicit Snapshot(const clRegulator &r)
        : values{r.PradCalkSr, r.PradBiernPojSr, r.PradBiernSr, r.Napiecie, r.PradBierny, r.PradCalk,
                 r.PradCzynny, r.Faza, r.Okres, r.TgFi, float(r.TimerU)},
          keys{r.clsStan.StanPrzel1, r.clsStan.StanPrzel2, r.clsStan.StanDisplay1, r.clsStan.StanDisplay4}
    {
    }
    bool operator==(const Snapshot &) const = default;
    std::array<float, 11> values;
    std::array<std::uint8_t, 4> keys;
};

}

class ReadingTest : public QObject {
    Q_OBJECT
private slots:
    void decodesEveryFieldOfTheBlockScaledByTheRatios()
    {
        // NapieciePomiar 100: a voltage scale of 0.25
        Rig rig({{QStringLiteral("R1"),
                  {{"Przekladnia", 40.0}, {"PrzekladniaNap", 2}, {"NapieciePomiar", 100}, {"ProgTgFi", 5.0}}}});
        clRegulator &r = rig.reg();
        Block k;
        // several fields hold a 2, which the controller sends twice
        k.put(0, 0x00021020, 4).capacitive(-2).put(8, 0x00010202, 4).put(12, 0x020304, 3).voltage(0x017C);
        k.reactiveCurrent(0x0200).totalCurrent(4000).phase(-2).period(2303);
        for (int i = 25; i < 32; ++i)
            k.b[std::size_t(i)] = std::uint8_t(std::array{0x02, 0x22, 0x33, 0x44, 0x55, 0x02, 0x02}[std::size_t(i - 25)]);
        answerReading(rig.f.line, 5, k, {0x02, 0x7F, 0xB5});

        QVERIFY(r.WczytajStanRegul(rig.s().now()));

        QCOMPARE(rig.f.line.sent, (QList<QByteArray>{frame(5, 0x90, 4), frame(5, 0xA0, 4), frame(5, 0xB0, 4),
                                                     frame(5, 0x4F, 6)}));
        const double m = energyFactor(40, 0.25, 2);
        QCOMPARE(r.PradCalkSr, float(0x00021020 * m));
        QCOMPARE(r.PradBiernPojSr, float(-2 * m));
        QCOMPARE(r.PradBiernSr, float(0x00010202 * m));
        QCOMPARE(r.TimerU, 0x020304);
        QCOMPARE(r.Napiecie, 190.0f); // 380 x 0.25 x 2
        QCOMPARE(r.PradBierny, 102.4f); // 512 x 40 / 200
        QCOMPARE(r.PradCalk, 800.0f);
        QCOMPARE(r.Faza, -2.0f);
        QCOMPARE(r.Okres, 50.0f);
        const float czynny = float(std::sqrt(double(r.PradCalkSr) * r.PradCalkSr - double(r.PradBiernSr) * r.PradBiernSr));
        QCOMPARE(r.PradCzynny, czynny);
        QCOMPARE(r.TgFi, float(double(r.PradBiernSr) / czynny));
        QVERIFY(!r.ZakloceniaHarm);
        QCOMPARE(r.clsStan.StanDiod1, std::uint8_t(0x02));
        QCOMPARE(r.clsStan.StanDiod2, std::uint8_t(0x7F));
        QCOMPARE(r.clsStan.StanDiod3, std::uint8_t(0xB5));
        QCOMPARE(r.clsStan.StanPrzel1, std::uint8_t(0x02));
        QCOMPARE(r.clsStan.StanPrzel2, std::uint8_t(0x22));
        QCOMPARE(r.clsStan.StanDisplay1, std::uint8_t(0x33));
        QCOMPARE(r.clsStan.StanDisplay2, std::uint8_t(0x44));
        QCOMPARE(r.clsStan.StanDisplay3, std::uint8_t(0x55));
        QCOMPARE(r.clsStan.StanDisplay4, std::uint8_t(0x02));
        QCOMPARE(rig.f.wizual.argsOf(QStringLiteral("eNoweDane")), (QList<QVariantList>{{std::int16_t(1), "O"}}));
        QCOMPARE(rig.alarms().rowCount(), 0);
        QVERIFY(rig.log().isEmpty());
    }

    void voltageAndCurrentFollowTheTransformerRatios()
    {
        Rig rig; // 380 V range, Przekladnia 100
        clRegulator &r = rig.reg();
        answerReading(rig.f.line, 5, normalBlock());
        QVERIFY(r.WczytajStanRegul(rig.s().now()));
        QCOMPARE(r.Napiecie, 380.0f);
        QCOMPARE(r.PradCalk, 100.0f); // 0x00C8 at a current factor of 0.5
        QCOMPARE(r.PradBierny, 50.0f);

        Block negative = normalBlock();
        negative.voltage(-1); // FF FF: nothing rejects it
        answerReading(rig.f.line, 5, negative);
        QVERIFY(r.WczytajStanRegul(rig.s().now()));
        QCOMPARE(r.Napiecie, -1.0f);

        // a voltage range without a scale zeroes voltage and energies
        Rig unscaled({{QStringLiteral("R1"), {{"NapieciePomiar", 230}}}});
        answerReading(unscaled.f.line, 5, normalBlock());
        clRegulator &u = unscaled.reg();
        QVERIFY(u.WczytajStanRegul(unscaled.s().now()));
        QCOMPARE(u.Napiecie, 0.0f);
        QCOMPARE(u.PradCalkSr, 0.0f);
        QCOMPARE(u.PradCzynny, 0.0f);
        QCOMPARE(u.TgFi, 9.999f);
        QVERIFY(u.ZakloceniaHarm);
    }

    void missingActiveEnergyMarksHarmonicDisturbance()
    {
        Rig rig({{QStringLiteral("R1"), {{"ProgTgFi", 20.0}, {"ProgTgFiMin", -20.0}}}});
        clRegulator &r = rig.reg();
        const double m = energyFactor(100, 1, 1);

        Block zero = normalBlock();
        zero.apparent(0).reactive(0);
        answerReading(rig.f.line, 5, zero);
        QVERIFY(r.WczytajStanRegul(rig.s().now()));
        QCOMPARE(r.PradCzynny, 0.0f); // |0| is not below |0|
        QVERIFY(r.ZakloceniaHarm);
        QCOMPARE(r.TgFi, 9.999f);

        // each reading starts undisturbed
        answerReading(rig.f.line, 5, normalBlock());
        QVERIFY(r.WczytajStanRegul(rig.s().now()));
        QVERIFY(!r.ZakloceniaHarm);

        // reactive counter above the apparent one: the active part is its magnitude
        Block over = normalBlock();
        over.apparent(1000).reactive(-2000);
        answerReading(rig.f.line, 5, over);
        QVERIFY(r.WczytajStanRegul(rig.s().now()));
        QCOMPARE(r.PradCzynny, float(2000 * m));
        QVERIFY(r.ZakloceniaHarm);
        QCOMPARE(r.TgFi, -1.0f);

        // equal magnitudes count as disturbed as well
        Block equal = normalBlock();
        equal.apparent(3000).reactive(3000);
        answerReading(rig.f.line, 5, equal);
        QVERIFY(r.WczytajStanRegul(rig.s().now()));
        QCOMPARE(r.PradCzynny, float(3000 * m));
        QVERIFY(r.ZakloceniaHarm);
        QCOMPARE(r.TgFi, 1.0f);
    }

    void periodCountGivesFrequency()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        Block k = normalBlock();
        answerReading(rig.f.line, 5, k.period(2399)); // 2400 counts: 48 Hz
        QVERIFY(r.WczytajStanRegul(rig.s().now()));
        QCOMPARE(r.Okres, 48.0f);
        QVERIFY(!r.ZakloceniaHarm);

        answerReading(rig.f.line, 5, k.period(0)); // one count
        QVERIFY(r.WczytajStanRegul(rig.s().now()));
        QCOMPARE(r.Okres, 115200.0f);
        QVERIFY(r.ZakloceniaHarm);

        answerReading(rig.f.line, 5, k.period(-1)); // no count at all: the last frequency stays
        QVERIFY(r.WczytajStanRegul(rig.s().now()));
        QCOMPARE(r.Okres, 115200.0f);
        QVERIFY(!r.ZakloceniaHarm);
    }

    void overflowingFieldsStopTheReading()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        answerReading(rig.f.line, 5, normalBlock());
        QVERIFY(r.WczytajStanRegul(rig.s().now()));
        rig.f.wizual.calls.clear();

        // a period count of 32767 cannot take its 1: the fields before it are decoded
        Block k = normalBlock();
        k.voltage(400).phase(77).period(32767);
        k.b[25] = 0x99;
        answerReading(rig.f.line, 5, k);
        QCOMPARE(errorOf([&] { r.WczytajStanRegul(rig.s().now()); }), int(RunTimeError::Overflow));
        QCOMPARE(r.Napiecie, 400.0f);
        QCOMPARE(r.Faza, 77.0f);
        QCOMPARE(r.Okres, 50.0f);
        QVERIFY(r.clsStan.StanPrzel1 != 0x99);
        QVERIFY(rig.f.wizual.argsOf(QStringLiteral("eNoweDane")).isEmpty());

        // the apparent counter is usable up to 2147483647 only
        const float apparent = r.PradCalkSr;
        Block big = normalBlock();
        big.apparent(0x80000000u).voltage(410);
        answerReading(rig.f.line, 5, big);
        QCOMPARE(errorOf([&] { r.WczytajStanRegul(rig.s().now()); }), int(RunTimeError::Overflow));
        QCOMPARE(r.Napiecie, 410.0f); // the voltage comes first
        QCOMPARE(r.PradCalkSr, apparent);
        QVERIFY(rig.f.wizual.argsOf(QStringLiteral("eNoweDane")).isEmpty());
    }

    void silentControllerRaisesNoLinkAlarmAndLogsIt()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        Block k = normalBlock();
        k.period(0); // a disturbed reading first
        answerReading(rig.f.line, 5, k);
        QVERIFY(r.WczytajStanRegul(rig.s().now()));
        QVERIFY(r.ZakloceniaHarm);
        const Snapshot before(r);
        rig.f.line.sent.clear();
        rig.f.wizual.calls.clear();

        QVERIFY(!r.WczytajStanRegul(rig.s().now()));

        // the first lamp byte missing ends the command
        QCOMPARE(rig.f.line.sent, QList<QByteArray>{frame(5, 0x90, 4)});
        QVERIFY(Snapshot(r) == before);
        QVERIFY(!r.ZakloceniaHarm); // cleared before anything was asked
        QCOMPARE(rig.alarms().rowCount(), 1);
        QCOMPARE(rig.alarms().subItem(1, 2), QStringLiteral("Brak komunikacji z regulatorem "));
        QCOMPARE(rig.alarms().subItem(1, 4), QStringLiteral(" 100"));
        QCOMPARE(rig.log(), QStringList{QStringLiteral("Błąd komunikacji z regulatorem|B|K|R1")});
        QCOMPARE(rig.f.wizual.argsOf(QStringLiteral("eAlarm")),
                 (QList<QVariantList>{{std::int16_t(1), std::int16_t(100), QString(), true}}));
        QVERIFY(rig.f.wizual.argsOf(QStringLiteral("eNoweDane")).isEmpty());
    }

    void missingOrShortBlockRaisesNoLinkAlarmWithoutLogEntry()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        answerReading(rig.f.line, 5, normalBlock());
        QVERIFY(r.WczytajStanRegul(rig.s().now()));
        const Snapshot before(r);

        // lamps come, the block does not
        answerReading(rig.f.line, 5, normalBlock().voltage(300), {0x0F, 0x7F, 0x00}, 3, 0);
        QVERIFY(!r.WczytajStanRegul(rig.s().now()));
        QVERIFY(Snapshot(r) == before);
        QCOMPARE(r.clsStan.StanDiod1, std::uint8_t(0x0F)); // the lamps were taken
        QCOMPARE(rig.alarms().rowCount(), 1);
        QCOMPARE(rig.alarms().subItem(1, 4), QStringLiteral(" 100"));
        QVERIFY(rig.log().isEmpty());

        // the lead byte and part of the block
        answerReading(rig.f.line, 5, normalBlock().voltage(300), {0xF0, 0x7F, 0x00}, 3, 12);
        QVERIFY(!r.WczytajStanRegul(rig.s().now()));
        QVERIFY(Snapshot(r) == before);
        QCOMPARE(r.AktywneAlarmy, std::int16_t(2));
        QCOMPARE(rig.alarms().rowCount(), 1); // still the one active row
        QVERIFY(rig.log().isEmpty());
        QVERIFY(rig.f.wizual.argsOf(QStringLiteral("eNoweDane")).size() == 1);
    }

    void noLinkAlarmLastsOneRowAndEndsWithTheNextWholeBlock()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        for (int i = 0; i < 10; ++i)
            QVERIFY(!r.WczytajStanRegul(rig.s().now()));
        QCOMPARE(r.AktywneAlarmy, std::int16_t(10));
        QCOMPARE(rig.alarms().rowCount(), 1);
        QCOMPARE(rig.count(QStringLiteral("Alarmy")), 1);
        QCOMPARE(rig.log().size(), 10);
        QCOMPARE(rig.s().oApp.IloscAktywnychAlarmow, std::int16_t(1));

        answerReading(rig.f.line, 5, normalBlock());
        QVERIFY(r.WczytajStanRegul(rig.s().now()));
        QCOMPARE(rig.alarms().subItem(1, 6), QStringLiteral("N"));
        QCOMPARE(rig.s().oApp.IloscAktywnychAlarmow, std::int16_t(0));
        const QList<QVariantList> row = rig.rows(QStringLiteral("SELECT Data_dezakt FROM Alarmy"));
        QVERIFY(row.value(0).value(0).isValid());
    }

    void stageLampsAreActiveLow()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        r.clsStan.StanDiod1 = 0xFE;
        r.clsStan.StanDiod2 = 0x7F;
        QVERIFY(r.SprawdzStanDiody(0));
        QVERIFY(!r.SprawdzStanDiody(1));
        QVERIFY(!r.SprawdzStanDiody(7));
        QVERIFY(r.SprawdzStanDiody(8)); // bit 7 of the second byte
        r.clsStan.StanDiod1 = 0xF7;
        r.clsStan.StanDiod2 = 0x80;
        QVERIFY(r.SprawdzStanDiody(3));
        QVERIFY(!r.SprawdzStanDiody(0));
        QVERIFY(!r.SprawdzStanDiody(8));
        QCOMPARE(errorOf([&] { r.SprawdzStanDiody(9); }), int(RunTimeError::SubscriptOutOfRange));
    }
};

ZORBEL_TEST_MAIN(ReadingTest)
#include "tst_reading.moc"
