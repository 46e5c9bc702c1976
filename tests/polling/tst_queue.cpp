#include "TestMain.h"
#include "SimStationRig.h"

#include "base/RunTimeError.h"

#include <QTest>

namespace {

QList<int> registersSent(const SimulatedLine &line)
{
    QList<int> out;
    for (const QByteArray &f : line.sent)
        out << quint8(f.at(2));
    return out;
}

} // namespace

// The queue on a started station with two inactive simulated controllers,
// A (Id 1, address 1) and B (Id 2, address 2): nothing reads them but the queue.
class QueueTest : public QObject {
    Q_OBJECT

    static void startTwo(SimStationRig &rig)
    {
        rig.addController(QStringLiteral("A"), 1, {{"aktywny", "Nie"}});
        rig.addController(QStringLiteral("B"), 2, {{"aktywny", "Nie"}});
        rig.station.start();
    }

private slots:

    void anEmptyQueueDoesNothingAtAll()
    {
        SimStationRig rig;
        startTwo(rig);
        rig.station.wizual.calls.clear();
        QVERIFY(!rig.s().Kolejka.Wykonaj());
        QVERIFY(rig.station.wizual.calls.isEmpty());
        QVERIFY(rig.line.sent.isEmpty());
    }

    void oneCallCarriesOutOnlyTheOldestEntry()
    {
        SimStationRig rig;
        startTwo(rig);
        clsKolejka &q = rig.s().Kolejka;
        q.Add(2, QStringLiteral("WczytajStanRegul"), QVariant::fromValue(rig.now()), 0, {});
        q.Add(1, QStringLiteral("WczytajStanRegul"), QVariant::fromValue(rig.now()), 0, {});
        QVERIFY(!q.Wykonaj()); // always false
        QCOMPARE(rig.addressesSent(), (QList<int>{2, 2, 2, 2}));
        QCOMPARE(registersSent(rig.line), (QList<int>{0x90, 0xA0, 0xB0, 0x4F}));
        QCOMPARE(q.Count(), 1);
        QCOMPARE(q.Item(1).NrRegul, std::int16_t(1));
        QCOMPARE(rig.station.count(QStringLiteral("Pomiary")), 0); // only the periodic read stores
        q.Wykonaj();
        QCOMPARE(rig.addressesSent().mid(4), (QList<int>{1, 1, 1, 1}));
        QCOMPARE(q.Count(), 0);
    }

    void eachWordReachesItsOperationWithItsArgument()
    {
        SimStationRig rig;
        startTwo(rig);
        clsKolejka &q = rig.s().Kolejka;
        RecordingWizual &w = rig.station.wizual;

        q.Add(1, QStringLiteral("Ustaw_przel"), 0, 0, {});
        q.Wykonaj();
        QCOMPARE(rig.line.sent.first().left(4), frame({2, 1, 0x6A, 3}));

        rig.line.sent.clear();
        q.Add(2, QStringLiteral("Blokuj"), true, 0, {});
        q.Wykonaj();
        QCOMPARE(w.argsOf(QStringLiteral("eBlokowanieRegul")).first(), (QVariantList{std::int16_t(2), true, true}));
        QCOMPARE(rig.line.sent.first(), frame({2, 2, 0x2F, 5}));
        QVERIFY(rig.reg(QStringLiteral("B")).Zablokowany);

        // stage 3 (from 0) to the opposite of its present state
        rig.reg(QStringLiteral("A")).WczytajStanRegul(rig.now());
        const bool on = rig.reg(QStringLiteral("A")).SprawdzStanDiody(3);
        rig.line.sent.clear();
        q.Add(1, QStringLiteral("UstawKondensator"), QVariant::fromValue(StageSwitch{3, !on}), 0, {});
        q.Wykonaj();
        QCOMPARE(w.argsOf(on ? QStringLiteral("eWylaczanieBaterii") : QStringLiteral("eZalaczanieBaterii")).first(),
                 (QVariantList{std::int16_t(1), true}));
        QVERIFY(registersSent(rig.line).contains(0x73)); // the discharge timer of stage 3

        rig.line.sent.clear();
        q.Add(1, QStringLiteral("WczytajStanRegul"), QVariant::fromValue(rig.now()), 0, {});
        q.Wykonaj();
        QCOMPARE(registersSent(rig.line), (QList<int>{0x90, 0xA0, 0xB0, 0x4F}));
        QCOMPARE(q.Count(), 0);
    }

    void unknownOrMiscasedWordsAreJustRemoved_data()
    {
        QTest::addColumn<QString>("word");
        QTest::newRow("Testuj") << QStringLiteral("Testuj");
        QTest::newRow("lower case") << QStringLiteral("blokuj");
        QTest::newRow("upper case") << QStringLiteral("WCZYTAJSTANREGUL");
        QTest::newRow("link word") << QStringLiteral("Czytaj_Diody");
    }
    void unknownOrMiscasedWordsAreJustRemoved()
    {
        QFETCH(QString, word);
        SimStationRig rig;
        startTwo(rig);
        clsKolejka &q = rig.s().Kolejka;
        q.Add(1, word, true, 0, {});
        q.Add(2, QStringLiteral("Blokuj"), true, 0, {});
        rig.station.wizual.calls.clear();
        q.Wykonaj();
        QVERIFY(rig.line.sent.isEmpty());
        QVERIFY(rig.station.wizual.calls.isEmpty());
        QCOMPARE(q.Count(), 1);
        QCOMPARE(q.Item(1).Polecenie, QStringLiteral("Blokuj"));
    }

    void anEntryAddedWhileAnotherRunsWaitsForTheNextCall()
    {
        SimStationRig rig;
        startTwo(rig);
        clsKolejka &q = rig.s().Kolejka;
        q.Add(1, QStringLiteral("WczytajStanRegul"), QVariant::fromValue(rig.now()), 0, {});
        bool added = false;
        // a click during the link's wait
        rig.station.pump.afterMs(5, [&] {
            q.Add(2, QStringLiteral("WczytajStanRegul"), QVariant::fromValue(rig.now()), 0, {});
            added = true;
        });
        q.Wykonaj();
        QVERIFY(added);
        QCOMPARE(rig.addressesSent(), (QList<int>{1, 1, 1, 1}));
        QCOMPARE(q.Count(), 1);
        QCOMPARE(q.Item(1).NrRegul, std::int16_t(2));
        q.Wykonaj();
        QCOMPARE(rig.addressesSent().mid(4), (QList<int>{2, 2, 2, 2}));
    }

    void twoClicksAreTwoOperations()
    {
        SimStationRig rig;
        startTwo(rig);
        clsKolejka &q = rig.s().Kolejka;
        q.Add(1, QStringLiteral("WczytajStanRegul"), QVariant::fromValue(rig.now()), 0, {});
        q.Add(1, QStringLiteral("WczytajStanRegul"), QVariant::fromValue(rig.now()), 0, {});
        q.Wykonaj();
        q.Wykonaj();
        QCOMPARE(rig.line.sent.size(), 8);
    }

    void aFailedOperationIsNotRetried()
    {
        SimStationRig rig;
        startTwo(rig);
        rig.silence({1});
        clsKolejka &q = rig.s().Kolejka;
        q.Add(1, QStringLiteral("WczytajStanRegul"), QVariant::fromValue(rig.now()), 0, {});
        q.Wykonaj();
        QCOMPARE(q.Count(), 0);
        const int sent = rig.line.sent.size();
        q.Wykonaj();
        QCOMPARE(rig.line.sent.size(), sent);
    }
};

ZORBEL_TEST_MAIN(QueueTest)
#include "tst_queue.moc"
