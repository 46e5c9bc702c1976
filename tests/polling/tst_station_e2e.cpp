#include "TestMain.h"
#include "SimStationRig.h"

#include <QTest>

namespace {

ZDate at(int h, int m, int s = 0)
{
    return ZDate::fromParts(2024, 1, 15, h, m, s);
}

QList<ZDate> dates(const QList<QVariantMap> &rows, const char *column)
{
    QList<ZDate> out;
    for (const QVariantMap &r : rows)
        out << ZDate::fromVariant(r.value(QString::fromLatin1(column)));
    return out;
}

} // namespace

// The whole station, headless, against simulated controllers for most of an
// hour of fake time: a sound one, a silent one and one over its voltage limit.
class StationEndToEndTest : public QObject {
    Q_OBJECT
private slots:
    void threeControllersOverFourReadingPeriods()
    {
        SimStationRig rig;
        rig.addController(QStringLiteral("GOOD"), 1);
        rig.addController(QStringLiteral("MUTE"), 2, {{"awarCzest", 5}});
        rig.addController(QStringLiteral("VOLT"), 3, {{"ProgNapiecie", 100.0}});
        rig.silence({2});
        rig.station.clock.set(at(8, 6, 40));
        rig.station.start();
        rig.station.runUntil(at(9, 1));

        // a sample at the start, then one on each quarter hour
        for (int adres : {1, 3}) {
            const auto pomiary = rig.station.rows(
                QStringLiteral("SELECT Data, Napiecie FROM Pomiary WHERE Adres = %1 ORDER BY Data").arg(adres));
            const QList<ZDate> when = dates(pomiary, "Data");
            QCOMPARE(when.size(), 5);
            QCOMPARE(when[0], at(8, 6, 40));
            const QList<ZDate> grid{at(8, 15), at(8, 30), at(8, 45), at(9, 0)};
            for (int i = 1; i < 5; ++i) {
                // read on the first tick at or after the point: within one tick and one round
                QVERIFY(when[i] >= grid[i - 1]);
                QVERIFY(when[i].msecs() - grid[i - 1].msecs() < 500);
            }
            for (const QVariantMap &p : pomiary)
                QVERIFY(p.value(QStringLiteral("Napiecie")).toDouble() > 300);
            const auto ost = rig.station.rows(QStringLiteral("SELECT Czas FROM OstPomiar WHERE Adres = %1").arg(adres));
            QCOMPARE(ost.size(), 1);
            QCOMPARE(dates(ost, "Czas").first(), when.last());
        }

        // the silent one: nothing stored, retried every five minutes from each failure's end
        QCOMPARE(rig.station.count(QStringLiteral("Pomiary"), QStringLiteral("Adres = 2")), 0);
        QCOMPARE(rig.station.count(QStringLiteral("OstPomiar"), QStringLiteral("Adres = 2")), 0);
        const int tries = rig.station.count(
            QStringLiteral("Log"), QStringLiteral("Kod_Regul = 'MUTE' AND Operacja = 'Błąd komunikacji z regulatorem'"));
        QCOMPARE(tries, 11); // 08:06:40 and ten retries a little over five minutes apart, up to 09:01
        QCOMPARE(rig.reg(QStringLiteral("MUTE")).AktywneAlarmy, std::int16_t(11));
        QVERIFY(rig.reg(QStringLiteral("MUTE")).NastepnyOdczyt > at(9, 1));

        // one lasting alarm row per condition, however many readings found it
        const auto alarms =
            rig.station.rows(QStringLiteral("SELECT Kod_Regul, Data, Tresc FROM Alarmy ORDER BY Kod_Regul"));
        QCOMPARE(alarms.size(), 2);
        QCOMPARE(alarms[0].value(QStringLiteral("Kod_Regul")).toString(), QStringLiteral("MUTE"));
        QCOMPARE(alarms[1].value(QStringLiteral("Kod_Regul")).toString(), QStringLiteral("VOLT"));
        QVERIFY(!alarms[1].value(QStringLiteral("Tresc")).toString().isEmpty());
        QCOMPARE(rig.station.count(QStringLiteral("Log"), QStringLiteral("Kod_Regul = 'GOOD'")), 0);
        QCOMPARE(rig.s().oApp.IloscAktywnychAlarmow, std::int16_t(2));
    }
};

ZORBEL_TEST_MAIN(StationEndToEndTest)
#include "tst_station_e2e.moc"
