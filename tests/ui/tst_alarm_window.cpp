#include "TestMain.h"
#include "StationFixture.h"
#include "TestEnv.h"

#include "fmAlarmyN.h"

#include <QApplication>
#include <QTest>
#include <QTreeWidget>

class AlarmWindowTest : public QObject {
    Q_OBJECT
private slots:
    void rowsShowActivityAndConfirmationAndDoubleClickConfirmsOnce()
    {
        TestEnv env;
        StationFixture f(QStringLiteral("zorbel.db"));
        f.createDatabase();
        f.addController(QStringLiteral("HALA-A"), 5);
        f.station().StartUp();
        Station &s = f.station();
        f.clock.set(ZDate::fromParts(2026, 11, 23, 10, 15, 30));
        s.fmAlarmyN.NowyAlarm(f.clock.now(), 1, 202, QStringLiteral("( 431 V)"));
        s.fmAlarmyN.NowyAlarm(f.clock.now(), 1, 100, QString());
        s.fmAlarmyN.DezaktywujAlarm(2);

        fmAlarmyN window(s.fmAlarmyN, f.dialogs);
        window.show();
        QCOMPARE(window.windowTitle(), QStringLiteral("Alarmy"));
        QVERIFY(!(window.windowFlags() & Qt::WindowCloseButtonHint));
        QCOMPARE(window.minimumSize(), QSize(755, 117));
        auto *list = window.findChild<QTreeWidget *>();
        QVERIFY(list);
        QCOMPARE(list->topLevelItemCount(), 2);
        QTreeWidgetItem *voltage = list->topLevelItem(0);
        QCOMPARE(voltage->text(0), QStringLiteral("23/11/2026 10:15:30"));
        QCOMPARE(voltage->text(2), QStringLiteral("Przekroczona wartość napięcia ( 431 V)"));
        QCOMPARE(voltage->foreground(2).color(), QColor(255, 0, 0));
        QVERIFY(voltage->font(2).bold());
        QTreeWidgetItem *ended = list->topLevelItem(1);
        QCOMPARE(ended->foreground(1).color(), QColor(0, 0, 0));
        QVERIFY(ended->font(1).bold()); // over but not yet confirmed

        for (int i = 0; i < 2; ++i) {
            list->setCurrentItem(list->topLevelItem(0));
            emit list->itemDoubleClicked(list->topLevelItem(0), 0);
        }
        QCOMPARE(s.oApp.IloscNiePotwAlarmow, std::int16_t(1));
        QVERIFY(!list->topLevelItem(0)->font(2).bold());
        QCOMPARE(list->topLevelItem(0)->foreground(2).color(), QColor(255, 0, 0)); // still active
        QSqlQuery confirmed = s.db->exec(SqlStatement(QStringLiteral("SELECT COUNT(*) FROM Alarmy WHERE Data_potw IS NOT NULL")));
        QVERIFY(confirmed.next());
        QCOMPARE(confirmed.value(0).toInt(), 1);
        QVERIFY(f.dialogs.calls.isEmpty());
    }
};

ZORBEL_TEST_MAIN(AlarmWindowTest)
#include "tst_alarm_window.moc"
