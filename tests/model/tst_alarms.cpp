#include "ModelRig.h"

#include "base/NumberForm.h"

#include <cmath>

using namespace rig;

namespace {

const ZDate Raised = ZDate::fromParts(2024, 3, 5, 14, 7, 9);

// A station with controllers A1 (Id 1) and B1 (Id 2) whose tree colours
// are recorded as "kod:1" (alarm colour) or "kod:0" (normal).
struct ListRig : Rig {
    ListRig() : Rig({{"A1", {}}, {"B1", {}}})
    {
        alarms().setNodePainter([this](const QString &kod, bool alarm) { painted << kod + (alarm ? ":1" : ":0"); });
    }
    // Data|Tresc|Typ|Kod_Regul|Operator|Data_potw|Data_dezakt of the table row of list row `i`.
    QString stored(int i)
    {
        return lines("SELECT Data, Tresc, Typ, Kod_Regul, Operator, Data_potw, Data_dezakt FROM Alarmy WHERE Id_alarmu = " +
                     alarms().subItem(i, 8).trimmed()).value(0);
    }
    // Data_potw|Data_dezakt of list row `i`.
    QString ends(int i) { return stored(i).section('|', 5); }
    // Active alarms, unconfirmed alarms, and the hub's signals of a change.
    QList<int> counts()
    {
        return {s().oApp.IloscAktywnychAlarmow, s().oApp.IloscNiePotwAlarmow, int(f.wizual.argsOf("eZmianaAlarmow").size())};
    }
    // Bold, red and ghosted of row `i`.
    QList<bool> look(int i) { return {alarms().row(i).bold, alarms().row(i).red, alarms().row(i).ghosted}; }

    QStringList painted;
};

}

class AlarmsTest : public QObject {
    Q_OBJECT
private slots:
    void currentAndVoltageAlarmsRiseAboveTheLimitOnlyAndFallAtIt()
    {
        Rig rig; // ProgPrad 300 at a current factor of 0.5, ProgNapiecie 420
        ActiveAlarmList &list = rig.alarms();
        QVERIFY(rig.read(normalBlock().reactiveCurrent(600).voltage(420))); // exactly at the limits
        QCOMPARE(list.rowCount(), 0);

        QVERIFY(rig.read(normalBlock().reactiveCurrent(601)));
        QCOMPARE(rig.kindsAndStates(), QStringList{" 1/ 201/A"});
        QCOMPARE(list.subItem(1, 2), QStringLiteral("Przekroczona wartość prądu ( 300.5 A)"));
        QCOMPARE(rig.hub({"eAlarm"}), QStringList{"eAlarm(1,201,( 300.5 A),true)"});
        QVERIFY(rig.read(normalBlock().reactiveCurrent(605))); // still above: no second row
        QVERIFY(rig.read(normalBlock().reactiveCurrent(600)));
        QVERIFY(rig.read(normalBlock().reactiveCurrent(-30000))); // capacitive: never above a positive limit
        QCOMPARE(rig.kindsAndStates(), QStringList{" 1/ 201/N"});
        QVERIFY(rig.read(normalBlock().reactiveCurrent(700))); // a new excess after the end is a new alarm
        QCOMPARE(list.subItem(2, 2), QStringLiteral("Przekroczona wartość prądu ( 350 A)"));

        QVERIFY(rig.read(normalBlock().voltage(421)));
        QCOMPARE(list.subItem(3, 2), QStringLiteral("Przekroczona wartość napięcia ( 421 V)"));
        QVERIFY(rig.read(normalBlock().voltage(420)));
        QCOMPARE(rig.kindsAndStates(), (QStringList{" 1/ 201/N", " 1/ 201/N", " 1/ 202/N"}));
    }

    void tgFiBandIncludesBothLimits()
    {
        Rig rig({{"R1", {{"ProgTgFi", 0.3}, {"ProgTgFiMin", 0.0}}}});
        clRegulator &r = rig.reg();
        ActiveAlarmList &list = rig.alarms();
        QVERIFY(rig.read(normalBlock())); // tg fi 0.3535534 above 0.3
        QCOMPARE(list.subItem(1, 2), QStringLiteral("Przekroczona wartość tg fi (0.3535534)"));
        const float tg = r.TgFi;

        // on a limit is inside, and the alarm ends; just beyond it a new one rises
        for (const auto &[max, min] : {std::pair{tg, 0.0f}, {std::nextafter(tg, 0.0f), 0.0f}, {1.0f, tg},
                                       {1.0f, std::nextafter(tg, 1.0f)}}) {
            r.ProgTgFiMax = max;
            r.ProgTgFiMin = min;
            QVERIFY(rig.read(normalBlock()));
        }
        QCOMPARE(rig.kindsAndStates(), (QStringList{" 1/ 203/N", " 1/ 203/N", " 1/ 203/A"}));

        // a negative tg fi below the lower limit, in the format with seven decimals
        r.ProgTgFiMin = 0.0f;
        QVERIFY(rig.read(normalBlock().reactive(-3000000)));
        QCOMPARE(rig.f.wizual.argsOf("eAlarm").last().value(2).toString(), QStringLiteral("(-0.3535534)"));
        // no active energy: tg fi 9.999 is above any usual limit
        QVERIFY(rig.read(normalBlock()));
        QVERIFY(rig.read(normalBlock().apparent(0).reactive(0)));
        QCOMPARE(rig.kindsAndStates(), (QStringList{" 1/ 203/N", " 1/ 203/N", " 1/ 203/N", " 1/ 203/A"}));
        QCOMPARE(list.subItem(4, 5), QStringLiteral("(9.9990000)")); // the single's value, not its binary tail
    }

    void clearingTouchesOnlyItsControllerAndKind()
    {
        Rig rig({{"A1", {}}, {"B1", {}}}); // addresses 5 and 6
        QVERIFY(rig.read(normalBlock().reactiveCurrent(1000), 2)); // B1: 201
        QVERIFY(!rig.reg(1).WczytajStanRegul(rig.s().now()));     // A1: 100
        QVERIFY(!rig.reg(2).WczytajStanRegul(rig.s().now()));     // B1: 100, its 201 not evaluated
        QCOMPARE(rig.kindsAndStates(), (QStringList{" 2/ 201/A", " 1/ 100/A", " 2/ 100/A"}));

        QVERIFY(rig.read(normalBlock(), 1)); // A1 answers again
        QCOMPARE(rig.kindsAndStates(), (QStringList{" 2/ 201/A", " 1/ 100/N", " 2/ 100/A"}));
        QVERIFY(rig.read(normalBlock(), 2)); // B1 answers, within its limits
        QCOMPARE(rig.kindsAndStates(), (QStringList{" 2/ 201/N", " 1/ 100/N", " 2/ 100/N"}));
    }

    void clearingWaitsForTheControllersOwnAlarmAndItsCountStopsAtItsTop()
    {
        Rig rig;
        ActiveAlarmList &list = rig.alarms();
        clRegulator &r = rig.reg();
        list.NowyAlarm(rig.s().now(), 1, 202, "( 500 V)"); // a row its own alarms did not raise
        QVERIFY(rig.read(normalBlock()));
        QCOMPARE(rig.kindsAndStates(), QStringList{" 1/ 202/A"});

        r.DodajAlarm(rig.s().now(), 100, QString());
        QCOMPARE(r.AktywneAlarmy, std::int16_t(1));
        QVERIFY(rig.read(normalBlock()));
        QCOMPARE(rig.kindsAndStates(), (QStringList{" 1/ 202/N", " 1/ 100/N"}));
        QCOMPARE(r.AktywneAlarmy, std::int16_t(1)); // never lowered by clearing

        r.AktywneAlarmy = INT16_MAX;
        QVERIFY_THROWS_NO_EXCEPTION(r.DodajAlarm(rig.s().now(), 100, QString()));
        QCOMPARE(r.AktywneAlarmy, std::int16_t(INT16_MAX));
        QCOMPARE(rig.kindsAndStates().last(), QStringLiteral(" 1/ 100/A"));
    }

    void newAlarmAddsAStoredCountedRow()
    {
        ListRig rig;
        ActiveAlarmList &list = rig.alarms();
        list.NowyAlarm(Raised, 2, 202, "( 421 V)");
        const ActiveAlarmList::Row &row = list.row(1);
        QCOMPARE(row.text, QStringLiteral("05/03/2024 14:07:09"));
        const QString key = row.subItems[8];
        QCOMPARE(QStringList(row.subItems.begin() + 1, row.subItems.end() - 1),
                 (QStringList{"B1", "Przekroczona wartość napięcia ( 421 V)", " 2", " 202", "( 421 V)", "A", "N"}));
        QVERIFY2(key.startsWith(' ') && key.trimmed().toInt() > 0, qPrintable(key));
        QCOMPARE(rig.look(1), (QList<bool>{true, true, false}));
        QCOMPARE(rig.stored(1), QStringLiteral("2024-03-05 14:07:09|Przekroczona wartość napięcia ( 421 V)|R|B1|||"));
        QCOMPARE(rig.counts(), (QList<int>{1, 1, 1}));
        QCOMPARE(rig.painted, QStringList{"B1:1"});

        // no link keeps the prefix's blank; an unknown kind has no text, yet is stored and counted
        list.NowyAlarm(Raised, 1, 100, QString());
        list.NowyAlarm(Raised, 1, 201, "( 300.5 A)");
        list.NowyAlarm(Raised, 1, 203, "(0.5000000)");
        list.NowyAlarm(Raised, 1, 300, "(x)");
        list.NowyAlarm(Raised, 1, 201, "( 301 A)"); // active already: nothing
        QCOMPARE(list.rowCount(), 5);
        QCOMPARE(rig.stored(2).section('|', 1, 1), QStringLiteral("Brak komunikacji z regulatorem "));
        QCOMPARE(list.subItem(2, 8), numberForm(key.trimmed().toInt() + 1));
        QCOMPARE(list.subItem(5, 2) + list.subItem(5, 5), QStringLiteral("(x)"));
        QCOMPARE((QList<int>{list.row(1).icon, list.row(2).icon, list.row(3).icon, list.row(4).icon, list.row(5).icon}),
                 (QList<int>{2, 1, 2, 2, 0}));
        QCOMPARE(rig.count("Alarmy"), 5);
        QCOMPARE(rig.counts(), (QList<int>{5, 5, 5}));
    }

    void confirmationHappensOnceAndTheEndKeepsTheRowBoldUntilThen()
    {
        ListRig rig;
        ActiveAlarmList &list = rig.alarms();
        list.NowyAlarm(Raised, 1, 100, QString());
        list.NowyAlarm(Raised, 1, 201, "( 301 A)");
        list.NowyAlarm(Raised, 2, 202, "( 430 V)");
        const QString confirmed = rig.s().now().toIsoText();
        list.Potwierdz(3);
        QCOMPARE(list.subItem(3, 6) + list.subItem(3, 7), QStringLiteral("AT"));
        QCOMPARE(rig.look(3), (QList<bool>{false, true, false})); // the colour tells activity only
        QCOMPARE(rig.ends(3), confirmed + '|');
        QCOMPARE(rig.counts(), (QList<int>{3, 2, 4}));
        // a second double click on the row changes and writes nothing
        rig.f.clock.advanceMs(65000);
        list.Potwierdz(3);
        QCOMPARE(rig.ends(3), confirmed + '|');
        QCOMPARE(rig.counts(), (QList<int>{3, 2, 4}));
        QCOMPARE(errorOf([&] { list.Potwierdz(0); }), int(RunTimeError::SubscriptOutOfRange)); // no row selected
        rig.painted.clear();

        list.DezaktywujAlarm(1);
        QCOMPARE(list.subItem(1, 6) + list.subItem(1, 7), QStringLiteral("NN"));
        QCOMPARE(rig.look(1), (QList<bool>{true, false, true})); // still not confirmed
        QCOMPARE(rig.ends(1), '|' + rig.s().now().toIsoText());
        QCOMPARE(rig.counts(), (QList<int>{2, 2, 4})); // the hub hears of the end of the last active one only
        // the node is back to normal although row 2 of A1 is still active
        QCOMPARE(rig.painted, QStringList{"A1:0"});
        list.DezaktywujAlarm(3);
        QCOMPARE(rig.look(3), (QList<bool>{false, false, true}));
        QCOMPARE(rig.counts(), (QList<int>{1, 2, 4}));
        list.DezaktywujAlarm(2);
        QCOMPARE(rig.counts(), (QList<int>{0, 2, 5}));
        QCOMPARE(rig.painted, (QStringList{"A1:0", "B1:0", "A1:0"}));

        // confirming an alarm that has ended keeps its end
        const QString ended = rig.s().now().toIsoText();
        rig.f.clock.advanceMs(5000);
        list.Potwierdz(1);
        QCOMPARE(rig.ends(1), rig.s().now().toIsoText() + '|' + ended);
        QCOMPARE(rig.look(1), (QList<bool>{false, false, true}));
        QCOMPARE(rig.counts(), (QList<int>{0, 1, 6}));
        QCOMPARE(list.rowCount(), 3); // rows are never removed
    }
};

ZORBEL_TEST_MAIN(AlarmsTest)
#include "tst_alarms.moc"
