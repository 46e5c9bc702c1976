#include "TestMain.h"
#include "ModelRig.h"

#include <QTest>

using namespace rig;

class AlarmCounterTest : public QObject {
    Q_OBJECT
private slots:
    void theCountStopsAtItsTopAndTheAlarmStillGoesThrough()
    {
        Rig rig;
        clRegulator &r = rig.reg();
        r.AktywneAlarmy = INT16_MAX;
        QVERIFY_THROWS_NO_EXCEPTION(r.DodajAlarm(rig.s().now(), 100, QString()));
        QCOMPARE(r.AktywneAlarmy, std::int16_t(INT16_MAX));
        QCOMPARE(rig.alarms().rowCount(), 1);
        QCOMPARE(rig.alarms().subItem(1, 6), QStringLiteral("A"));
    }
};

ZORBEL_TEST_MAIN(AlarmCounterTest)
#include "tst_alarm_counter.moc"
