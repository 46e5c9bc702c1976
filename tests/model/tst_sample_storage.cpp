#include "TestMain.h"
#include "ModelRig.h"

#include <QRegularExpression>
#include <QTest>

using namespace rig;

namespace {

const ZDate T1 = ZDate::fromParts(2024, 1, 15, 8, 15, 0);
const ZDate T2 = ZDate::fromParts(2024, 1, 15, 8, 30, 0);
const ZDate T3 = ZDate::fromParts(2024, 1, 15, 8, 45, 0);
const ZDate T4 = ZDate::fromParts(2024, 1, 15, 9, 0, 0);

QString text(ZDate d)
{
    return d.toIsoText();
}

// The counters and instant values of one reading.
void reading(clRegulator &r, float czynny, float biernSr, float biernPojSr, ZDate when, std::int32_t timer = 0)
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
}

// A row with its reals as floats and its dates as text.
QVariantList normalised(QVariantList row)
{
    for (QVariant &v : row) {
        if (v.typeId() == QMetaType::Double)
            v = v.toFloat();
        else if (v.typeId() == QMetaType::QString || v.typeId() == QMetaType::QDateTime)
            v = v.toString().left(19).replace('T', ' ');
        else if (v.isValid())
            v = v.toLongLong();
    }
    return row;
}

// Adres, EnCzynna, EnBiernaPoj, EnBiernaCalk, Napiecie, PradBierny, PradCalk, Czestotliwosc, Data
QList<QVariantList> samples(Rig &rig)
{
    QList<QVariantList> out;
    for (const QVariantList &r : rig.rows(QStringLiteral("SELECT Adres, EnCzynna, EnBiernaPoj, EnBiernaCalk, Napiecie, "
                                                         "PradBierny, PradCalk, Czestotliwosc, Data FROM Pomiary "
                                                         "ORDER BY Data")))
        out << normalised(r);
    return out;
}

// Adres, PopPradCzynny, PopPradBiernSr, PopPradBiernPojSr, PopTimerU, Czas
QList<QVariantList> bases(Rig &rig)
{
    QList<QVariantList> out;
    for (const QVariantList &r : rig.rows(QStringLiteral("SELECT Adres, PopPradCzynny, PopPradBiernSr, "
                                                         "PopPradBiernPojSr, PopTimerU, Czas FROM OstPomiar "
                                                         "ORDER BY Adres")))
        out << normalised(r);
    return out;
}

QVariantList sample(float enCzynna, float enBiernaPoj, float enBiernaCalk, ZDate when, int adres = 5)
{
    return {qlonglong(adres), enCzynna, enBiernaPoj, enBiernaCalk, 381.5f, 52.5f, 101.0f, 49.75f, text(when)};
}

QVariantList base(float czynny, float biernSr, float biernPojSr, int timer, ZDate when, int adres = 5)
{
    return {qlonglong(adres), czynny, biernSr, biernPojSr, qlonglong(timer), text(when)};
}

}

class SampleStorageTest : public QObject {
    Q_OBJECT
private slots:
    void firstSampleStoresNoEnergyAndCreatesTheBaseRow()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        reading(r, 500, 200, -30, T1, 1234);
        r.ZapiszDaneDB();

        // a capacitive difference keeps its sign even against a base of 0
        QCOMPARE(samples(rig), QList<QVariantList>{sample(0, -30, 0, T1)});
        QCOMPARE(r.TgFiOkres, 9.999f);
        QCOMPARE(bases(rig), QList<QVariantList>{base(500, 200, -30, 1234, T1)});
        QCOMPARE(r.PopPradCzynny, 500.0f);
        QCOMPARE(r.PopPradBiernSr, 200.0f);
        QCOMPARE(r.PopPradBiernPojSr, -30.0f);
        QCOMPARE(r.popTimerU, 1234);
        QVERIFY(rig.f.wizual.argsOf(QStringLiteral("eZapisDB")).isEmpty());
        QVERIFY(rig.f.dialogs.calls.isEmpty());
    }

    void laterSamplesStoreDifferencesOfTheCounters()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        reading(r, 500, 200, -30, T1);
        r.ZapiszDaneDB();

        reading(r, 530, 212, -30, T2, 7); // capacitive counter unchanged: 0
        r.ZapiszDaneDB();
        QCOMPARE(r.TgFiOkres, 0.4f);

        reading(r, 10, 4, 5, T3); // counters restarted: negative, and the capacitive one stores 1
        r.ZapiszDaneDB();
        QCOMPARE(r.TgFiOkres, 0.4f);

        reading(r, 20, 5, 2, T4); // the capacitive counter runs downward
        r.ZapiszDaneDB();

        QCOMPARE(samples(rig), (QList<QVariantList>{sample(0, -30, 0, T1), sample(30, 0, 12, T2),
                                                    sample(-520, 1, -208, T3), sample(10, -3, 1, T4)}));
        QCOMPARE(bases(rig), QList<QVariantList>{base(20, 5, 2, 0, T4)});
    }

    void zeroBaseOfOneCounterZeroesOnlyItsColumn()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        r.PopPradCzynny = 0;
        r.PopPradBiernSr = 100;
        r.PopPradBiernPojSr = -10;
        reading(r, 500, 130, -12, T1);
        r.ZapiszDaneDB();
        QCOMPARE(r.TgFiOkres, 9.999f); // no active energy in the period

        r.PopPradCzynny = 400;
        r.PopPradBiernSr = 0;
        reading(r, 500, 130, -12, T2);
        r.ZapiszDaneDB();
        QCOMPARE(r.TgFiOkres, 0.0f);

        QCOMPARE(samples(rig), (QList<QVariantList>{sample(0, -2, 30, T1), sample(100, 0, 0, T2)}));
    }

    void baseRowOfAnEarlierRunIsCarriedOn()
    {
        TestEnv env;
        StationFixture f(QStringLiteral("zorbel.db"));
        f.createDatabase();
        f.addController(QStringLiteral("R1"), 5);
        f.addController(QStringLiteral("R2"), 6);
        f.addLastSample(5, 1000, 400, -50, 77, T1);
        f.addLastSample(6, 9, 8, -7, 6, T1);
        f.station().StartUp();
        clRegulator &r = f.station().Regulatory.Item(1);

        reading(r, 1100, 440, -60, T2, 99);
        r.ZapiszDaneDB();
        QCOMPARE(r.TgFiOkres, 0.4f);

        QSqlQuery q = f.station().connection().exec(
            SqlStatement(QStringLiteral("SELECT EnCzynna, EnBiernaPoj, EnBiernaCalk FROM Pomiary")));
        QVERIFY(q.next());
        QCOMPARE(q.value(0).toFloat(), 100.0f);
        QCOMPARE(q.value(1).toFloat(), -10.0f);
        QCOMPARE(q.value(2).toFloat(), 40.0f);
        QVERIFY(!q.next());

        QSqlQuery b = f.station().connection().exec(SqlStatement(
            QStringLiteral("SELECT Adres, PopPradCzynny, PopTimerU, Czas FROM OstPomiar ORDER BY Adres")));
        QVERIFY(b.next());
        QCOMPARE(b.value(0).toInt(), 5);
        QCOMPARE(b.value(1).toFloat(), 1100.0f);
        QCOMPARE(b.value(2).toInt(), 99);
        QCOMPARE(b.value(3).toString().left(19).replace('T', ' '), text(T2));
        QVERIFY(b.next());
        QCOMPARE(b.value(0).toInt(), 6); // the other controller's base stays
        QCOMPARE(b.value(1).toFloat(), 9.0f);
        QCOMPARE(b.value(2).toInt(), 6);
        QVERIFY(!b.next());
    }

    void periodicReadingStoresWhatWasRead()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        ScriptedLine &line = rig.f.line;
        const ZDate t1 = ZDate::fromParts(2024, 1, 15, 8, 0, 0);
        rig.f.clock.set(t1);
        answerReading(line, 5, normalBlock());
        line.answer(frame(5, 0x2F, 0x05), byte(0), 1); // the first reading asks the block state
        r.OkresowyOdczyt(t1);
        QCOMPARE(rig.count(QStringLiteral("Pomiary")), 1);
        const float firstCapacitive = r.PradBiernPojSr;
        const float firstReactive = r.PradBiernSr;
        const float firstActive = r.PradCzynny;

        // a failed reading stores nothing
        const ZDate t2 = r.NastepnyOdczyt;
        rig.f.clock.set(t2);
        r.OkresowyOdczyt(t2);
        QCOMPARE(rig.count(QStringLiteral("Pomiary")), 1);

        const ZDate t3 = r.NastepnyOdczyt;
        rig.f.clock.set(t3);
        answerReading(line, 5, normalBlock().apparent(9300000).reactive(3100000).capacitive(-1500).voltage(390));
        r.OkresowyOdczyt(t3);

        const QList<QVariantList> rows = samples(rig);
        QCOMPARE(rows.size(), 2);
        QCOMPARE(rows[0].mid(0, 4), (QVariantList{qlonglong(5), 0.0f, firstCapacitive, 0.0f}));
        QCOMPARE(rows[0].mid(4), (QVariantList{380.0f, 50.0f, 100.0f, 50.0f, text(t1)}));
        QCOMPARE(rows[1].value(1).toFloat(), r.PradCzynny - firstActive);
        QCOMPARE(rows[1].value(2).toFloat(), r.PradBiernPojSr - firstCapacitive);
        QCOMPARE(rows[1].value(3).toFloat(), r.PradBiernSr - firstReactive);
        QCOMPARE(rows[1].value(4).toFloat(), 390.0f);
        QCOMPARE(rows[1].value(8).toString(), text(t3));
        QCOMPARE(bases(rig), QList<QVariantList>{base(r.PradCzynny, r.PradBiernSr, r.PradBiernPojSr, 1000, t3)});
    }

    void refusedSampleWriteKeepsBothTablesAndTellsTheOperator()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        reading(r, 500, 200, -30, T1);
        r.ZapiszDaneDB();
        const QList<QVariantList> samplesBefore = samples(rig);
        const QList<QVariantList> basesBefore = bases(rig);

        rig.s().connection().execText(QStringLiteral(
            "CREATE TRIGGER wstrzymaj BEFORE INSERT ON Pomiary BEGIN SELECT RAISE(ABORT, 'zapis wstrzymany'); END"));
        reading(r, 530, 212, -31, T2, 5);
        r.ZapiszDaneDB();

        QCOMPARE(samples(rig), samplesBefore);
        QCOMPARE(bases(rig), basesBefore);
        QCOMPARE(rig.f.wizual.argsOf(QStringLiteral("eZapisDB")), QList<QVariantList>{{true}});
        QCOMPARE(rig.f.dialogs.calls.size(), 1);
        const RecordingDialogs::Call box = rig.f.dialogs.calls.first();
        static const QRegularExpression form(QStringLiteral("^Błąd zapisu do bazy danych nr  3000\r'[^\r]*'$"));
        QVERIFY2(form.match(box.prompt).hasMatch(), qPrintable(box.prompt));
        QVERIFY2(box.prompt.contains(QLatin1String("zapis wstrzymany")), qPrintable(box.prompt));
        QCOMPARE(box.style, int(Dialogs::OkOnly));
        QCOMPARE(box.title, QString());
        // the lost period is not added to the next sample
        QCOMPARE(r.PopPradCzynny, 530.0f);
        QCOMPARE(r.PopPradBiernSr, 212.0f);
        QCOMPARE(r.PopPradBiernPojSr, -31.0f);
        QCOMPARE(r.popTimerU, 5);

        rig.s().connection().execText(QStringLiteral("DROP TRIGGER wstrzymaj"));
        reading(r, 540, 216, -31, T3);
        r.ZapiszDaneDB();
        QCOMPARE(samples(rig), (QList<QVariantList>{sample(0, -30, 0, T1), sample(10, 0, 4, T3)}));
        QCOMPARE(bases(rig), QList<QVariantList>{base(540, 216, -31, 0, T3)});
        QCOMPARE(rig.f.dialogs.calls.size(), 1);
    }

    void missingBaseTableUndoesTheSample()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        rig.s().connection().execText(QStringLiteral("ALTER TABLE OstPomiar RENAME TO OstPomiarStary"));
        reading(r, 500, 200, -30, T1, 3);
        r.ZapiszDaneDB();

        QCOMPARE(rig.count(QStringLiteral("Pomiary")), 0);
        QCOMPARE(rig.count(QStringLiteral("OstPomiarStary")), 0);
        QCOMPARE(rig.f.wizual.argsOf(QStringLiteral("eZapisDB")), QList<QVariantList>{{true}});
        QCOMPARE(rig.f.dialogs.calls.size(), 1);
        QVERIFY2(rig.f.dialogs.calls.first().prompt.startsWith(QStringLiteral("Błąd zapisu do bazy danych nr  3000\r'")),
                 qPrintable(rig.f.dialogs.calls.first().prompt));
        QVERIFY(rig.f.dialogs.calls.first().prompt.endsWith('\''));
        QCOMPARE(r.PopPradCzynny, 500.0f);
        QCOMPARE(r.popTimerU, 3);
    }
};

ZORBEL_TEST_MAIN(SampleStorageTest)
#include "tst_sample_storage.moc"
