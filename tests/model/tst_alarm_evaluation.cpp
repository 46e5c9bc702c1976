#include "TestMain.h"
#include "ModelRig.h"

#include <QTest>
#include <cmath>

using namespace rig;

namespace {

// Kind (" 201") and activity ("A"/"N") of each row of the list, in order.
QStringList kindsAndStates(ActiveAlarmList &list)
{
    QStringList out;
    for (int i = 1; i <= list.rowCount(); ++i)
        out << list.subItem(i, 3) + '/' + list.subItem(i, 4) + '/' + list.subItem(i, 6);
    return out;
}

bool read(Rig &rig, const Block &k, int id = 1, std::uint8_t adres = 5)
{
    answerReading(rig.f.line, adres, k);
    return rig.reg(id).WczytajStanRegul(rig.s().now());
}

}

class AlarmEvaluationTest : public QObject {
    Q_OBJECT
private slots:
    void currentAlarmRisesAboveTheLimitOnlyAndFallsAtIt()
    {
        Rig rig; // ProgPrad 300, current factor 0.5
        ActiveAlarmList &list = rig.alarms();
        QVERIFY(read(rig, normalBlock().reactiveCurrent(600))); // exactly at the limit
        QCOMPARE(list.rowCount(), 0);

        QVERIFY(read(rig, normalBlock().reactiveCurrent(601)));
        QCOMPARE(kindsAndStates(list), QStringList{QStringLiteral(" 1/ 201/A")});
        QCOMPARE(list.subItem(1, 2), QStringLiteral("Przekroczona wartość prądu ( 300.5 A)"));
        QCOMPARE(list.subItem(1, 5), QStringLiteral("( 300.5 A)"));
        QCOMPARE(rig.f.wizual.argsOf(QStringLiteral("eAlarm")),
                 (QList<QVariantList>{{std::int16_t(1), std::int16_t(201), QStringLiteral("( 300.5 A)"), true}}));

        QVERIFY(read(rig, normalBlock().reactiveCurrent(605))); // still above: no second row
        QCOMPARE(list.rowCount(), 1);

        QVERIFY(read(rig, normalBlock().reactiveCurrent(600)));
        QCOMPARE(kindsAndStates(list), QStringList{QStringLiteral(" 1/ 201/N")});

        // capacitive load: a negative current never exceeds a positive limit
        QVERIFY(read(rig, normalBlock().reactiveCurrent(-30000)));
        QCOMPARE(list.rowCount(), 1);

        // a new excess after the end is a new alarm
        QVERIFY(read(rig, normalBlock().reactiveCurrent(700)));
        QCOMPARE(kindsAndStates(list), (QStringList{QStringLiteral(" 1/ 201/N"), QStringLiteral(" 1/ 201/A")}));
        QCOMPARE(list.subItem(2, 2), QStringLiteral("Przekroczona wartość prądu ( 350 A)"));
        QCOMPARE(rig.count(QStringLiteral("Alarmy")), 2);
    }

    void voltageAlarmRisesAboveTheLimitOnly()
    {
        Rig rig; // ProgNapiecie 420
        ActiveAlarmList &list = rig.alarms();
        QVERIFY(read(rig, normalBlock().voltage(420)));
        QCOMPARE(list.rowCount(), 0);
        QVERIFY(read(rig, normalBlock().voltage(421)));
        QCOMPARE(kindsAndStates(list), QStringList{QStringLiteral(" 1/ 202/A")});
        QCOMPARE(list.subItem(1, 2), QStringLiteral("Przekroczona wartość napięcia ( 421 V)"));
        QVERIFY(read(rig, normalBlock().voltage(420)));
        QCOMPARE(kindsAndStates(list), QStringList{QStringLiteral(" 1/ 202/N")});
    }

    void tgFiBandIncludesBothLimits()
    {
        Rig rig({{QStringLiteral("R1"), {{"ProgTgFi", 0.3}, {"ProgTgFiMin", 0.0}}}});
        clRegulator &r = rig.reg();
        ActiveAlarmList &list = rig.alarms();

        QVERIFY(read(rig, normalBlock())); // tg fi 0.3535534 above 0.3
        QCOMPARE(kindsAndStates(list), QStringList{QStringLiteral(" 1/ 203/A")});
        QCOMPARE(list.subItem(1, 2), QStringLiteral("Przekroczona wartość tg fi (0.3535534)"));
        const float tg = r.TgFi;

        r.ProgTgFiMax = tg; // on the upper limit: inside, and the alarm ends
        QVERIFY(read(rig, normalBlock()));
        QCOMPARE(kindsAndStates(list), QStringList{QStringLiteral(" 1/ 203/N")});
        r.ProgTgFiMax = std::nextafter(tg, 0.0f);
        QVERIFY(read(rig, normalBlock()));
        QCOMPARE(list.rowCount(), 2);
        QCOMPARE(list.subItem(2, 6), QStringLiteral("A"));

        r.ProgTgFiMax = 1.0f;
        r.ProgTgFiMin = tg; // on the lower limit: inside
        QVERIFY(read(rig, normalBlock()));
        QCOMPARE(list.subItem(2, 6), QStringLiteral("N"));
        r.ProgTgFiMin = std::nextafter(tg, 1.0f);
        QVERIFY(read(rig, normalBlock()));
        QCOMPARE(list.rowCount(), 3);
        QCOMPARE(list.subItem(3, 6), QStringLiteral("A"));

        // a negative tg fi below the lower limit, in the format with seven decimals
        r.ProgTgFiMin = 0.0f;
        QVERIFY(read(rig, normalBlock().reactive(-3000000)));
        QCOMPARE(list.subItem(3, 6), QStringLiteral("A")); // the same kind stays active in its row
        QCOMPARE(rig.f.wizual.argsOf(QStringLiteral("eAlarm")).last().value(2).toString(),
                 QStringLiteral("(-0.3535534)"));

        // no active energy: tg fi 9.999 is above any usual limit
        QVERIFY(read(rig, normalBlock()));
        QCOMPARE(list.subItem(3, 6), QStringLiteral("N"));
        QVERIFY(read(rig, normalBlock().apparent(0).reactive(0)));
        QCOMPARE(list.rowCount(), 4);
        QCOMPARE(list.subItem(4, 4), QStringLiteral(" 203"));
        QCOMPARE(list.subItem(4, 5), QStringLiteral("(9.9990000)")); // the single's value, not its binary tail
    }

    void limitKindsOfOneReadingComeInOrderAndFallTogether()
    {
        Rig rig({{QStringLiteral("R1"), {{"ProgPrad", 10.0}, {"ProgNapiecie", 100.0}, {"ProgTgFi", 0.1}}}});
        QVERIFY(read(rig, normalBlock()));
        QCOMPARE(kindsAndStates(rig.alarms()), (QStringList{QStringLiteral(" 1/ 201/A"), QStringLiteral(" 1/ 202/A"),
                                                            QStringLiteral(" 1/ 203/A")}));
        QList<std::int16_t> kinds;
        for (const QVariantList &a : rig.f.wizual.argsOf(QStringLiteral("eAlarm")))
            kinds << a.value(1).value<std::int16_t>();
        QCOMPARE(kinds, (QList<std::int16_t>{201, 202, 203}));
        QCOMPARE(rig.s().oApp.IloscAktywnychAlarmow, std::int16_t(3));

        clRegulator &r = rig.reg();
        r.ProgPrad = 300;
        r.ProgNapiecie = 420;
        r.ProgTgFiMax = 0.4f;
        QVERIFY(read(rig, normalBlock()));
        QCOMPARE(kindsAndStates(rig.alarms()), (QStringList{QStringLiteral(" 1/ 201/N"), QStringLiteral(" 1/ 202/N"),
                                                            QStringLiteral(" 1/ 203/N")}));
        QCOMPARE(rig.s().oApp.IloscAktywnychAlarmow, std::int16_t(0));
    }

    void missingThresholdsNeverRaiseCurrentOrVoltageButAlwaysTgFi()
    {
        Rig rig({{QStringLiteral("R1"), {{"ProgPrad", QVariant()}, {"ProgNapiecie", QVariant()},
                                         {"ProgTgFiMin", QVariant()}}}});
        QVERIFY(read(rig, normalBlock().reactiveCurrent(32767).voltage(32767)));
        QCOMPARE(kindsAndStates(rig.alarms()), QStringList{QStringLiteral(" 1/ 203/A")});
        QVERIFY(read(rig, normalBlock()));
        QCOMPARE(kindsAndStates(rig.alarms()), QStringList{QStringLiteral(" 1/ 203/A")});
    }

    void clearingTouchesOnlyItsControllerAndKind()
    {
        Rig rig({{QStringLiteral("A1"), {}}, {QStringLiteral("B1"), {}}}); // addresses 5 and 6
        ActiveAlarmList &list = rig.alarms();
        QVERIFY(read(rig, normalBlock().reactiveCurrent(1000), 2, 6)); // B1: 201
        QVERIFY(!rig.reg(1).WczytajStanRegul(rig.s().now()));      // A1: 100
        QVERIFY(!rig.reg(2).WczytajStanRegul(rig.s().now()));      // B1: 100, its 201 not evaluated
        QCOMPARE(kindsAndStates(list), (QStringList{QStringLiteral(" 2/ 201/A"), QStringLiteral(" 1/ 100/A"),
                                                    QStringLiteral(" 2/ 100/A")}));
        QCOMPARE(list.subItem(2, 1), QStringLiteral("A1"));
        QCOMPARE(list.subItem(3, 1), QStringLiteral("B1"));

        QVERIFY(read(rig, normalBlock(), 1, 5)); // A1 answers again
        QCOMPARE(kindsAndStates(list), (QStringList{QStringLiteral(" 2/ 201/A"), QStringLiteral(" 1/ 100/N"),
                                                    QStringLiteral(" 2/ 100/A")}));

        QVERIFY(read(rig, normalBlock(), 2, 6)); // B1 answers, within its limits
        QCOMPARE(kindsAndStates(list), (QStringList{QStringLiteral(" 2/ 201/N"), QStringLiteral(" 1/ 100/N"),
                                                    QStringLiteral(" 2/ 100/N")}));
    }

    void clearingIsSkippedUntilTheControllerHasRaisedAnAlarm()
    {
        Rig rig;
        ActiveAlarmList &list = rig.alarms();
        clRegulator &r = rig.reg();
        // a row of this controller that its own alarms did not raise
        list.NowyAlarm(rig.s().now(), 1, 202, QStringLiteral("( 500 V)"));
        QVERIFY(read(rig, normalBlock()));
        QCOMPARE(list.subItem(1, 6), QStringLiteral("A"));
        QCOMPARE(r.AktywneAlarmy, std::int16_t(0));

        r.DodajAlarm(rig.s().now(), 100, QString());
        QCOMPARE(r.AktywneAlarmy, std::int16_t(1));
        QVERIFY(read(rig, normalBlock()));
        QCOMPARE(kindsAndStates(list), (QStringList{QStringLiteral(" 1/ 202/N"), QStringLiteral(" 1/ 100/N")}));
        // never lowered by clearing
        QCOMPARE(r.AktywneAlarmy, std::int16_t(1));
    }
};

ZORBEL_TEST_MAIN(AlarmEvaluationTest)
#include "tst_alarm_evaluation.moc"
