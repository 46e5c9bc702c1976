#include "TestMain.h"
#include "UiRig.h"

#include "MainToolbar.h"
#include "fmAlarmyN.h"

class ControllerTreeTest : public QObject {
    Q_OBJECT
private slots:
    void leftClickOnControllerMakesItCurrentAndTellsTheHub()
    {
        UiRig rig;
        rig.s.Regulatory.Item(2).Monitoring = true;
        rig.s.oApp.AktElStruktury = QStringLiteral("Hala");
        rig.click("T2");
        QCOMPARE(rig.s.oApp.NrAktRegulatora, std::int16_t(2));
        QCOMPARE(rig.s.oApp.AktElStruktury, QString());
        QCOMPARE(rig.s.oApp.AktTypEl, QStringLiteral("R"));
        QCOMPARE(rig.frame.toolbar().value(QStringLiteral("Monit")), 1); // the hub shows the new one's monitoring
        rig.click("T1");
        QCOMPARE(rig.frame.toolbar().value(QStringLiteral("Monit")), 0);
        QVERIFY(!rig.frame.area().subWindowList().first()->close()); // nor can the operator close the tree
    }

    void stageClickSelectsStageOfItsControllerAndKeepsTheCurrentController()
    {
        UiRig rig;
        rig.s.Regulatory.Item(1).clsStan.StanDiod1 = 0xFF & ~0x08; // stage 4 lit
        rig.s.Regulatory.Item(2).clsStan.StanDiod1 = 0xFF;
        rig.click("T2_b4");
        QCOMPARE(rig.s.Regulatory.Item(2).NrAktBaterii, std::uint8_t(4));
        QCOMPARE(rig.s.oApp.NrAktRegulatora, std::int16_t(1));
        // the hub is told of stage 4 of the current controller
        QCOMPARE(rig.entry("mnuRegulBatZal")->text(), QStringLiteral("&Wyłącz stopień"));
    }

    void rightClickSelectsThenOpensThePopupOfTheNodesKind()
    {
        UiRig rig;
        rig.click("T2", Qt::RightButton);
        QCOMPARE(rig.s.oApp.NrAktRegulatora, std::int16_t(2));
        rig.click("Reg", Qt::RightButton);
        rig.click("T1_b7", Qt::RightButton);
        rig.click("Korzen", Qt::RightButton);
        QCOMPARE(rig.popups, (QStringList{"popmnuRegul", "mnuBaza", "mnuRegulBat"}));
        QCOMPARE(rig.s.Regulatory.Item(1).NrAktBaterii, std::uint8_t(7));
        rig.click("T1"); // the left mouse-down clears the flag
        QCOMPARE(rig.popups.size(), 3);
    }

    void alarmsPaintTheNodeAndTheWindowConfirmsByDoubleClickOnce()
    {
        UiRig rig;
        rig.s.fmAlarmyN.setNodePainter([&](const QString &kod, bool alarm) { rig.tree->paintAlarm(kod, alarm); });
        rig.s.fmAlarmyN.NowyAlarm(rig.f.clock.now(), 2, 202, QStringLiteral("( 431 V)"));
        rig.s.fmAlarmyN.NowyAlarm(rig.f.clock.now(), 2, 100, QString());
        QCOMPARE(rig.tree->nodeForeColor(QStringLiteral("T2")), 255u); // red
        rig.s.fmAlarmyN.DezaktywujAlarm(2); // the first end of any of its alarms
        QCOMPARE(rig.tree->nodeForeColor(QStringLiteral("T2")), 0u);

        fmAlarmyN window(rig.s.fmAlarmyN, rig.f.dialogs);
        auto *list = window.findChild<QTreeWidget *>();
        QTreeWidgetItem *voltage = list->topLevelItem(0);
        QCOMPARE(voltage->text(2), QStringLiteral("Przekroczona wartość napięcia ( 431 V)"));
        QVERIFY(voltage->foreground(2).color() == Qt::red && voltage->font(2).bold()); // active, not yet confirmed
        QVERIFY(list->topLevelItem(1)->font(1).bold() && list->topLevelItem(1)->foreground(1).color() == Qt::black);
        for (int i = 0; i < 2; ++i) {
            list->setCurrentItem(list->topLevelItem(0));
            emit list->itemDoubleClicked(list->topLevelItem(0), 0);
        }
        QCOMPARE(rig.s.oApp.IloscNiePotwAlarmow, std::int16_t(1));
        QVERIFY(!list->topLevelItem(0)->font(2).bold());
        QCOMPARE(list->topLevelItem(0)->foreground(2).color(), QColor(255, 0, 0)); // still active

        // a change keeps the rows where they are: the selection and the scroll stay
        rig.s.fmAlarmyN.setChangeListener([&] { window.refresh(); });
        QTreeWidgetItem *selected = list->topLevelItem(1);
        list->setCurrentItem(selected);
        rig.s.fmAlarmyN.NowyAlarm(rig.f.clock.now(), 1, 100, QString());
        rig.s.fmAlarmyN.DezaktywujAlarm(1);
        QCOMPARE(list->topLevelItemCount(), 3);
        QCOMPARE(list->currentItem(), selected);
        QCOMPARE(list->topLevelItem(0)->foreground(2).color(), QColor(0, 0, 0)); // no longer active
    }
};

ZORBEL_TEST_MAIN(ControllerTreeTest)
#include "tst_controller_tree.moc"
