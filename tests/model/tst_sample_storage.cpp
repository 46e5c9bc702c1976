#include "ModelRig.h"

using namespace rig;

namespace {

const ZDate T1 = ZDate::fromParts(2024, 1, 15, 8, 15, 0), T2 = T1.addMinutes(15), T3 = T1.addMinutes(30),
            T4 = T1.addMinutes(45);

// Stores a sample of a reading with these counters.
void store(clRegulator &r, float czynny, float biernSr, float biernPojSr, ZDate when, std::int32_t timer = 0)
{
    r.PradCzynny = czynny;
    r.PradBiernSr = biernSr;
    r.PradBiernPojSr = biernPojSr;
    r.TimerU = timer;
    r.Napiecie = 381.5f;
    r.PradBierny = 52.5f;
    r.PradCalk = 101.0f;
    r.Okres = 49.75f;
    r.OstatniOdczyt = when;
    r.ZapiszDaneDB();
}

QStringList samples(Rig &rig)
{
    return rig.lines("SELECT Adres, EnCzynna, EnBiernaPoj, EnBiernaCalk, Napiecie, PradBierny, PradCalk, Czestotliwosc, "
                     "Data FROM Pomiary ORDER BY Data");
}
QStringList bases(Rig &rig)
{
    return rig.lines("SELECT Adres, PopPradCzynny, PopPradBiernSr, PopPradBiernPojSr, PopTimerU, Czas FROM OstPomiar");
}
QString sample(const QString &energies, ZDate when)
{
    return "5|" + energies + "|381.5|52.5|101|49.75|" + when.toIsoText();
}

}

class SampleStorageTest : public QObject {
    Q_OBJECT
private slots:
    void samplesStoreDifferencesOfTheCountersAndMoveTheBase()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        store(r, 500, 200, -30, T1, 1234);
        QCOMPARE(r.TgFiOkres, 9.999f); // no base: no energy
        QCOMPARE(bases(rig), QStringList{"5|500|200|-30|1234|" + T1.toIsoText()});

        store(r, 530, 212, -30, T2, 7); // capacitive counter unchanged: 0
        QCOMPARE(r.TgFiOkres, 0.4f);
        store(r, 10, 4, 5, T3); // counters restarted: negative, and the capacitive one stores 1
        QCOMPARE(r.TgFiOkres, 0.4f);
        store(r, 20, 5, 2, T4); // the capacitive counter runs downward

        // a capacitive difference keeps its sign even against a base of 0
        QCOMPARE(samples(rig), (QStringList{sample("0|-30|0", T1), sample("30|0|12", T2), sample("-520|1|-208", T3),
                                            sample("10|-3|1", T4)}));
        QCOMPARE(bases(rig), QStringList{"5|20|5|2|0|" + T4.toIsoText()});
        QVERIFY(rig.f.wizual.argsOf("eZapisDB").isEmpty());
        QVERIFY(rig.f.dialogs.calls.isEmpty());
    }

    void periodicReadingStoresWhatWasReadOnItsGrid()
    {
        Rig rig; // every 15 minutes, 5 after a failure
        clRegulator &r = rig.reg();
        const ZDate t1 = ZDate::fromParts(2024, 1, 15, 8, 0, 0);
        rig.f.clock.set(t1);
        answerReading(rig.line, 5, normalBlock());
        rig.line.answer(frame(5, 0x2F, 0x05), byte(0x20), 1); // the first reading asks the block state
        r.OkresowyOdczyt(t1);
        QVERIFY(r.Zablokowany);
        const float capacitive = r.PradBiernPojSr, reactive = r.PradBiernSr, active = r.PradCzynny;
        QCOMPARE(r.NastepnyOdczyt.toIsoText(), t1.toIsoText()); // on the grid: due again at the next tick

        r.OkresowyOdczyt(t1); // a failed reading stores nothing and retries 5 minutes after its end
        const ZDate t3 = r.NastepnyOdczyt;
        QCOMPARE(t3.toIsoText(), rig.s().standardNow().addMinutes(5).toIsoText());
        rig.f.clock.set(t3);
        answerReading(rig.line, 5, normalBlock().apparent(9300000).reactive(3100000).capacitive(-1500).voltage(390));
        r.OkresowyOdczyt(t3);
        QCOMPARE(r.NastepnyOdczyt.toIsoText(), t3.addMinutes(15).toIsoText());

        QCOMPARE(samples(rig), (QStringList{"5|0|" + num(capacitive) + "|0|380|50|100|50|" + t1.toIsoText(),
                                            "5|" + num(r.PradCzynny - active) + '|' + num(r.PradBiernPojSr - capacitive) +
                                                '|' + num(r.PradBiernSr - reactive) + "|390|50|100|50|" + t3.toIsoText()}));
        QCOMPARE(bases(rig), QStringList{"5|" + num(r.PradCzynny) + '|' + num(r.PradBiernSr) + '|' +
                                         num(r.PradBiernPojSr) + "|1000|" + t3.toIsoText()});
    }

    void refusedWriteKeepsBothTablesTellsTheOperatorAndStillMovesTheBase()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        store(r, 500, 200, -30, T1);
        const QStringList samplesBefore = samples(rig), basesBefore = bases(rig);

        rig.s().connection().execText(
            "CREATE TRIGGER wstrzymaj BEFORE INSERT ON Pomiary BEGIN SELECT RAISE(ABORT, 'zapis wstrzymany'); END");
        store(r, 530, 212, -31, T2, 5);
        QCOMPARE(samples(rig), samplesBefore);
        QCOMPARE(bases(rig), basesBefore);
        QCOMPARE(rig.f.wizual.argsOf("eZapisDB"), QList<QVariantList>{{true}});
        QCOMPARE(rig.f.dialogs.calls.size(), 1);
        const RecordingDialogs::Call box = rig.f.dialogs.calls.first();
        QVERIFY2(box.prompt.startsWith("Błąd zapisu do bazy danych nr  3000\r'") && box.prompt.endsWith('\'') &&
                     box.prompt.contains("zapis wstrzymany"),
                 qPrintable(box.prompt));
        QCOMPARE(box.style, int(Dialogs::OkOnly));

        // the lost period is not added to the next sample
        rig.s().connection().execText("DROP TRIGGER wstrzymaj");
        store(r, 540, 216, -31, T3);
        QCOMPARE(samples(rig), (QStringList{sample("0|-30|0", T1), sample("10|0|4", T3)}));
        QCOMPARE(bases(rig), QStringList{"5|540|216|-31|0|" + T3.toIsoText()});

        // the base write failing undoes the sample written before it
        rig.s().connection().execText("ALTER TABLE OstPomiar RENAME TO OstPomiarStary");
        store(r, 550, 220, -32, T4, 9);
        QCOMPARE(rig.count("Pomiary"), 2);
        QCOMPARE(rig.f.dialogs.calls.size(), 2);
        QCOMPARE((QList<float>{r.PopPradCzynny, r.PopPradBiernSr, r.PopPradBiernPojSr, float(r.popTimerU)}),
                 (QList<float>{550, 220, -32, 9}));
    }
};

ZORBEL_TEST_MAIN(SampleStorageTest)
#include "tst_sample_storage.moc"
