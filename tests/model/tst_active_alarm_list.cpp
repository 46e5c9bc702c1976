#include "TestMain.h"
#include "ErrorOf.h"
#include "ModelRig.h"

#include "base/NumberForm.h"
#include "base/RunTimeError.h"

#include <QTest>

using namespace rig;

namespace {

const ZDate Raised = ZDate::fromParts(2024, 3, 5, 14, 7, 9);

// A station with controllers A1 (Id 1) and B1 (Id 2) whose tree colours
// are recorded as "kod:1" (alarm colour) or "kod:0" (normal).
struct ListRig : Rig {
    ListRig() : Rig({{QStringLiteral("A1"), {}}, {QStringLiteral("B1"), {}}})
    {
        alarms().setNodePainter([this](const QString &kod, bool alarm) { painted << kod + (alarm ? ":1" : ":0"); });
    }
    // Data, Tresc, Typ, Kod_Regul, Operator, Data_potw, Data_dezakt of one table row, dates as text.
    QVariantList stored(const QString &key)
    {
        QVariantList row = rows(QStringLiteral("SELECT Data, Tresc, Typ, Kod_Regul, Operator, Data_potw, Data_dezakt "
                                               "FROM Alarmy WHERE Id_alarmu = ") +
                                QString::number(key.trimmed().toInt()))
                               .value(0);
        for (int i : {0, 5, 6})
            if (row.value(i).isValid())
                row[i] = row[i].toString().left(19).replace('T', ' ');
        return row;
    }
    int hubSignals() { return int(f.wizual.argsOf(QStringLiteral("eZmianaAlarmow")).size()); }
    std::int16_t active() { return s().oApp.IloscAktywnychAlarmow; }
    std::int16_t unconfirmed() { return s().oApp.IloscNiePotwAlarmow; }
    QString nowText() { return s().now().toIsoText(); }

    QStringList painted;
};

}

class ActiveAlarmListTest : public QObject {
    Q_OBJECT
private slots:
    void newAlarmAddsAStoredCountedRow()
    {
        ListRig rig;
        ActiveAlarmList &list = rig.alarms();
        list.NowyAlarm(Raised, 2, 202, QStringLiteral("( 421 V)"));

        QCOMPARE(list.rowCount(), 1);
        const ActiveAlarmList::Row &row = list.row(1);
        QCOMPARE(row.text, QStringLiteral("05/03/2024 14:07:09"));
        const QString key = row.subItems[8];
        QCOMPARE(QStringList(row.subItems.begin() + 1, row.subItems.end() - 1),
                 (QStringList{QStringLiteral("B1"), QStringLiteral("Przekroczona wartość napięcia ( 421 V)"),
                              QStringLiteral(" 2"), QStringLiteral(" 202"), QStringLiteral("( 421 V)"),
                              QStringLiteral("A"), QStringLiteral("N")}));
        QVERIFY2(key.startsWith(' ') && key.trimmed().toInt() > 0, qPrintable(key));
        QCOMPARE(row.icon, 2);
        QVERIFY(row.bold && row.red && !row.ghosted);
        QCOMPARE(rig.stored(key), (QVariantList{QStringLiteral("2024-03-05 14:07:09"),
                                                QStringLiteral("Przekroczona wartość napięcia ( 421 V)"),
                                                QStringLiteral("R"), QStringLiteral("B1"), QVariant(), QVariant(),
                                                QVariant()}));
        QCOMPARE(rig.active(), std::int16_t(1));
        QCOMPARE(rig.unconfirmed(), std::int16_t(1));
        QCOMPARE(rig.hubSignals(), 1);
        QCOMPARE(rig.painted, QStringList{QStringLiteral("B1:1")});

        // no link: the prefix keeps its blank, with nothing behind it
        list.NowyAlarm(Raised, 1, 100, QString());
        QCOMPARE(list.subItem(2, 2), QStringLiteral("Brak komunikacji z regulatorem "));
        QCOMPARE(list.row(2).icon, 1);
        QCOMPARE(rig.stored(list.subItem(2, 8)).value(1), QVariant(QStringLiteral("Brak komunikacji z regulatorem ")));
        QCOMPARE(list.subItem(2, 8), numberForm(list.subItem(1, 8).trimmed().toInt() + 1));

        list.NowyAlarm(Raised, 1, 201, QStringLiteral("( 300.5 A)"));
        QCOMPARE(list.subItem(3, 2), QStringLiteral("Przekroczona wartość prądu ( 300.5 A)"));
        list.NowyAlarm(Raised, 1, 203, QStringLiteral("(0.5000000)"));
        QCOMPARE(list.subItem(4, 2), QStringLiteral("Przekroczona wartość tg fi (0.5000000)"));
        QCOMPARE(list.row(4).icon, 2);
        QCOMPARE(rig.active(), std::int16_t(4));
        QCOMPARE(rig.unconfirmed(), std::int16_t(4));
    }

    void activeAlarmOfOneControllerAndKindGetsOneRow()
    {
        ListRig rig;
        ActiveAlarmList &list = rig.alarms();
        list.NowyAlarm(Raised, 1, 201, QStringLiteral("( 301 A)"));
        list.NowyAlarm(Raised.addSecs(60), 1, 201, QStringLiteral("( 302 A)"));
        QCOMPARE(list.rowCount(), 1);
        QCOMPARE(list.subItem(1, 5), QStringLiteral("( 301 A)"));
        QCOMPARE(rig.count(QStringLiteral("Alarmy")), 1);
        QCOMPARE(rig.active(), std::int16_t(1));
        QCOMPARE(rig.unconfirmed(), std::int16_t(1));
        QCOMPARE(rig.hubSignals(), 1);

        list.NowyAlarm(Raised, 2, 201, QStringLiteral("( 301 A)")); // another controller
        list.NowyAlarm(Raised, 1, 202, QStringLiteral("( 430 V)")); // another kind
        QCOMPARE(list.rowCount(), 3);

        list.DezaktywujAlarm(1);
        list.NowyAlarm(Raised.addSecs(120), 1, 201, QStringLiteral("( 303 A)")); // after its end
        QCOMPARE(list.rowCount(), 4);
        QCOMPARE(list.subItem(4, 6), QStringLiteral("A"));
        QCOMPARE(rig.count(QStringLiteral("Alarmy")), 4);
        QCOMPARE(rig.active(), std::int16_t(3));
        QCOMPARE(rig.unconfirmed(), std::int16_t(4));
    }

    void unknownKindHasNoTextNorIconYetIsStoredAndCounted()
    {
        ListRig rig;
        ActiveAlarmList &list = rig.alarms();
        list.NowyAlarm(Raised, 1, 300, QStringLiteral("(x)"));
        QCOMPARE(list.rowCount(), 1);
        QCOMPARE(list.subItem(1, 2), QString());
        QCOMPARE(list.subItem(1, 4), QStringLiteral(" 300"));
        QCOMPARE(list.subItem(1, 5), QStringLiteral("(x)"));
        QCOMPARE(list.row(1).icon, 0);
        QCOMPARE(rig.count(QStringLiteral("Alarmy")), 1);
        QVERIFY(!list.subItem(1, 8).isEmpty());
        QCOMPARE(rig.active(), std::int16_t(1));
    }

    void confirmationHappensOnceInEitherActivityState()
    {
        ListRig rig;
        ActiveAlarmList &list = rig.alarms();
        list.NowyAlarm(Raised, 1, 201, QStringLiteral("( 301 A)"));
        list.NowyAlarm(Raised, 2, 100, QString());
        const int before = rig.hubSignals();
        const QString firstConfirmation = rig.nowText();

        list.Potwierdz(1);
        QCOMPARE(list.subItem(1, 7), QStringLiteral("T"));
        QCOMPARE(list.subItem(1, 6), QStringLiteral("A"));
        QVERIFY(!list.row(1).bold);
        QVERIFY(list.row(1).red); // the colour tells activity only
        QCOMPARE(rig.unconfirmed(), std::int16_t(1));
        QCOMPARE(rig.active(), std::int16_t(2));
        QCOMPARE(rig.stored(list.subItem(1, 8)).mid(5), (QVariantList{firstConfirmation, QVariant()}));
        QCOMPARE(rig.hubSignals(), before + 1);

        // a second double click on the row changes and writes nothing
        rig.f.clock.advanceMs(65000);
        list.Potwierdz(1);
        QCOMPARE(rig.unconfirmed(), std::int16_t(1));
        QCOMPARE(rig.stored(list.subItem(1, 8)).value(5), QVariant(firstConfirmation));
        QCOMPARE(rig.hubSignals(), before + 1);

        // confirming an alarm that has ended keeps its end
        list.DezaktywujAlarm(2);
        const QString ended = rig.nowText();
        rig.f.clock.advanceMs(5000);
        list.Potwierdz(2);
        QCOMPARE(rig.unconfirmed(), std::int16_t(0));
        QVERIFY(!list.row(2).bold && !list.row(2).red && list.row(2).ghosted);
        QCOMPARE(rig.stored(list.subItem(2, 8)).mid(5), (QVariantList{rig.nowText(), ended}));

        // no row selected
        QCOMPARE(errorOf([&] { list.Potwierdz(0); }), int(RunTimeError::SubscriptOutOfRange));
    }

    void deactivationKeepsBoldSignalsOnlyAtZeroAndResetsTheNode()
    {
        ListRig rig;
        ActiveAlarmList &list = rig.alarms();
        list.NowyAlarm(Raised, 1, 100, QString());
        list.NowyAlarm(Raised, 1, 201, QStringLiteral("( 301 A)"));
        list.NowyAlarm(Raised, 2, 202, QStringLiteral("( 430 V)"));
        list.Potwierdz(3);
        rig.painted.clear();
        const int before = rig.hubSignals();

        list.DezaktywujAlarm(1);
        QCOMPARE(list.subItem(1, 6), QStringLiteral("N"));
        QCOMPARE(list.subItem(1, 7), QStringLiteral("N"));
        QVERIFY(list.row(1).bold); // still not confirmed
        QVERIFY(!list.row(1).red && list.row(1).ghosted);
        QCOMPARE(rig.active(), std::int16_t(2));
        QCOMPARE(rig.unconfirmed(), std::int16_t(2));
        QCOMPARE(rig.stored(list.subItem(1, 8)).mid(5), (QVariantList{QVariant(), rig.nowText()}));
        QCOMPARE(rig.hubSignals(), before); // alarms are still active
        // the node is back to normal although row 2 of A1 is still active
        QCOMPARE(rig.painted, QStringList{QStringLiteral("A1:0")});
        QVERIFY(list.row(2).red);

        list.DezaktywujAlarm(3); // confirmed: neither bold nor red now
        QVERIFY(!list.row(3).bold && !list.row(3).red && list.row(3).ghosted);
        QCOMPARE(rig.hubSignals(), before);
        list.DezaktywujAlarm(2);
        QCOMPARE(rig.active(), std::int16_t(0));
        QCOMPARE(rig.hubSignals(), before + 1);
        QCOMPARE(rig.painted, (QStringList{QStringLiteral("A1:0"), QStringLiteral("B1:0"), QStringLiteral("A1:0")}));
        QCOMPARE(list.rowCount(), 3); // rows are never removed
    }

    void failedStoreLeavesTheRowWithoutKeyAndUncounted()
    {
        ListRig rig;
        rig.s().connection().execText(QStringLiteral("ALTER TABLE Alarmy RENAME TO AlarmyStare"));
        QCOMPARE(errorOf([&] { rig.alarms().NowyAlarm(Raised, 1, 201, QStringLiteral("( 301 A)")); }), int(RunTimeError::DatabaseError));
        QCOMPARE(rig.alarms().rowCount(), 1);
        QCOMPARE(rig.alarms().subItem(1, 8), QString());
        QCOMPARE(rig.active(), std::int16_t(0));
        QCOMPARE(rig.unconfirmed(), std::int16_t(0));
        QVERIFY(rig.painted.isEmpty());
    }
};

ZORBEL_TEST_MAIN(ActiveAlarmListTest)
#include "tst_active_alarm_list.moc"
