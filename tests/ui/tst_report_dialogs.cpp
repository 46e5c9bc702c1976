#include "TestMain.h"
#include "TestDatabases.h"
#include "UiRig.h"

#include "Raporty.h"
#include "ReportWindow.h"
#include "fmRapDob.h"
#include "fmRapDobS.h"
#include "fmRapOkres.h"
#include "fmRapOkresS.h"

#include "db/Database.h"
#include "db/HierarchyStore.h"
#include "reports/ReportTable.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPushButton>

// The report dialogs and routines on a started station: which dialog each
// path opens, what it starts with, and which report its "&Ok" makes.
class ReportDialogsTest : public QObject {
    Q_OBJECT

    struct Shown {
        QString tytul, podtytul;
        int rows;
        bool maximised;
    };
    // Reports are recorded instead of shown.
    static QList<Shown> &record(UiRig &rig)
    {
        static QList<Shown> shown;
        shown.clear();
        rig.frame.reports().setPresenter([](const ReportTable &t, bool max) {
            shown.append({t.tytul(), t.podtytul(), t.rowCount(), max});
        });
        return shown;
    }
    static void addSample(UiRig &rig, int adres, ZDate when)
    {
        SqlStatement q(QStringLiteral("INSERT INTO Pomiary (Adres, Data, EnCzynna, EnBiernaCalk) VALUES ("));
        q.value(adres) << ", ";
        q.date(when) << ", 4, 1)";
        rig.s.connection().exec(q);
        TestDatabases::rollUpAgain(rig.s.connection());
    }
    static void click(QWidget *dialog, const char *button)
    {
        dialog->findChild<QPushButton *>(QLatin1String(button))->click();
    }

private slots:
    void periodDialogsStartOnTheFirstOfTheMonthOrOfTheMonthJustEnded_data()
    {
        QTest::addColumn<QDate>("today");
        QTest::addColumn<QDate>("first");
        QTest::newRow("within a month") << QDate(2026, 11, 25) << QDate(2026, 11, 1);
        QTest::newRow("the last of a month") << QDate(2026, 11, 30) << QDate(2026, 11, 1);
        QTest::newRow("the first: the month just ended") << QDate(2026, 12, 1) << QDate(2026, 11, 1);
        QTest::newRow("the first of March, February short") << QDate(2026, 3, 1) << QDate(2026, 2, 1);
        QTest::newRow("New Year's day") << QDate(2027, 1, 1) << QDate(2026, 12, 1);
    }
    void periodDialogsStartOnTheFirstOfTheMonthOrOfTheMonthJustEnded()
    {
        QFETCH(QDate, today);
        QFETCH(QDate, first);
        UiRig rig(UiRig::Line::Scripted, ZDate::startOf(today).addMinutes(10 * 60));
        rig.s.oApp.AktTypEl = QStringLiteral("S");
        rig.entry("mnuRapOkresowy")->trigger();
        auto *w = rig.frame.findChild<fmRapOkresS *>();
        QVERIFY(w);
        QCOMPARE(w->dtData()->date(), first);
        QCOMPARE(w->dtDataDo()->date(), today);
    }

    void eachPathOpensItsDialogAndOkLeavesItOpenForTheNextReport()
    {
        UiRig rig(UiRig::Line::Scripted, ZDate::fromParts(2026, 11, 30, 12));
        QList<Shown> &shown = record(rig);
        addSample(rig, 2, ZDate::fromParts(2026, 11, 30, 8));
        addSample(rig, 2, ZDate::fromParts(2026, 12, 1, 0)); // the next day's
        rig.s.oApp.NrAktRegulatora = 2;
        rig.s.oApp.AktTypEl = QStringLiteral("R");
        rig.frame.ToolbarAction(QStringLiteral("RapDob"), true);
        auto *daily = rig.frame.findChild<fmRapDob *>();
        QVERIFY(daily && !rig.frame.findChild<fmRapDobS *>());
        QCOMPARE(daily->cmbRegul()->currentText(), QStringLiteral("T2"));
        QCOMPARE(daily->cmbRegul()->currentData().toInt(), 2);
        QCOMPARE(daily->dtData()->date(), QDate(2026, 11, 30));
        click(daily, "Command1");
        click(daily, "Command1"); // the same day again: a report made anew
        QCOMPARE(shown.size(), 2);
        QCOMPARE(shown[1].tytul, QStringLiteral(" regulatora 'T2'"));
        QCOMPARE(shown[1].podtytul, QStringLiteral(" z dnia 30/11/2026"));
        QCOMPARE(shown[1].rows, 1);
        QVERIFY(shown[1].maximised);
        QVERIFY(daily->isVisible());

        rig.entry("mnuRapOkresowy")->trigger();
        auto *period = rig.frame.findChild<fmRapOkres *>();
        QVERIFY(period);
        period->dtDataDo()->setDate(QDate(2026, 12, 1));
        click(period, "Command1");
        QCOMPARE(shown.size(), 3);
        QCOMPARE(shown[2].podtytul, QStringLiteral(" za okres od 01/11/26 do 01/12/26"));
        QCOMPARE(shown[2].rows, 2); // one row a day
        QVERIFY(!shown[2].maximised); // the period report opens at its normal size

        // the controller tree's pop-up: today's report at once, no dialog
        rig.s.oApp.NrAktRegulatora = 1;
        rig.entry("mnuRegRapDob")->trigger();
        QCOMPARE(shown.size(), 4);
        QCOMPARE(shown[3].tytul, QStringLiteral(" regulatora 'T1'"));

        click(daily, "Command2");
        QTRY_VERIFY(!rig.frame.findChild<fmRapDob *>());
        QVERIFY(rig.f.dialogs.calls.isEmpty());
    }

    void objectReportsTakeTheTreesControllersAndFailAsTheTreeDoes_data()
    {
        QTest::addColumn<QString>("object");
        QTest::addColumn<int>("reports"); // made, with the rows of the first
        QTest::addColumn<int>("rows");
        QTest::addColumn<QString>("error"); // a part of the message box's text, empty for none
        QTest::newRow("both controllers of the hall") << "Hala A" << 1 << 2 << "";
        QTest::newRow("an object without controllers: nothing at all") << "Pusta" << 0 << 0 << "";
        QTest::newRow("an empty element inside: the engine refuses") << "Zakład" << 0 << 0 << "'3000'";
        QTest::newRow("the root is no key of the tree") << "System Zorbel" << 0 << 0 << "'35601'";
    }
    void objectReportsTakeTheTreesControllersAndFailAsTheTreeDoes()
    {
        QFETCH(QString, object);
        QFETCH(int, reports);
        QFETCH(int, rows);
        QFETCH(QString, error);
        UiRig rig(UiRig::Line::Scripted, ZDate::fromParts(2026, 11, 30, 12));
        QList<Shown> &shown = record(rig);
        HierarchyStore store([&rig]() -> Database & { return rig.s.connection(); });
        store.add(QStringLiteral("Zakład"), QStringLiteral("System Zorbel"), QStringLiteral("S"));
        store.add(QStringLiteral("Hala A"), QStringLiteral("Zakład"), QStringLiteral("S"));
        store.add(QStringLiteral("T1"), QStringLiteral("Hala A"), QStringLiteral("R"));
        store.add(QStringLiteral("T2"), QStringLiteral("Hala A"), QStringLiteral("R"));
        store.add(QStringLiteral("Pusta"), QStringLiteral("Zakład"), QStringLiteral("S"));
        addSample(rig, 1, ZDate::fromParts(2026, 11, 30, 8));
        addSample(rig, 2, ZDate::fromParts(2026, 11, 30, 9));
        addSample(rig, 7, ZDate::fromParts(2026, 11, 30, 10)); // a controller no longer there
        rig.s.oApp.AktTypEl = QStringLiteral("S");
        rig.s.oApp.AktElStruktury = object;
        rig.entry("mnuRaportyDobowy")->trigger(); // the tree is built unseen for the list
        auto *w = rig.frame.findChild<fmRapDobS *>();
        QVERIFY(w);
        QCOMPARE(w->lblStrukt()->text(), object);
        click(w, "Command1");
        QCOMPARE(shown.size(), reports);
        if (reports)
            QCOMPARE(shown[0].tytul, QStringLiteral(" obiektu '%1'").arg(object));
        if (reports)
            QCOMPARE(shown[0].rows, rows);
        QCOMPARE(rig.f.dialogs.calls.size(), error.isEmpty() ? 0 : 1);
        if (!error.isEmpty())
            QVERIFY2(rig.prompt(0).contains(error), qPrintable(rig.prompt(0)));
        QVERIFY(w->isVisible());
    }

    void reportWindowSavesPdfAndCsvOrTellsWhyNot()
    {
        UiRig rig;
        addSample(rig, 1, ZDate::fromParts(2026, 11, 30, 8));
        ReportTable table(ReportTable::Kind::Daily, QStringLiteral(" regulatora 'T1'"), QStringLiteral(" z dnia 30/11/2026"));
        ReportWindow window(table, QDate(2026, 11, 30), rig.f.dialogs);
        QCOMPARE(window.title(), QStringLiteral("Raport dobowy dla regulatora 'T1' z dnia 30/11/2026"));
        const QString dir = QDir::currentPath();
        rig.f.dialogs.savePaths = {dir + QStringLiteral("/r.pdf"), dir + QStringLiteral("/r.csv"),
                                   dir + QStringLiteral("/none/r.csv")};
        window.savePdf();
        window.saveCsv();
        window.saveCsv();
        QCOMPARE(rig.f.dialogs.savesAsked.value(0).prompt, QStringLiteral("Raport_dobowy_dla_regulatora_T1_z_dnia_30-11-2026.pdf"));
        QVERIFY(QFile(dir + QStringLiteral("/r.pdf")).size() > 0);
        QVERIFY(QFile(dir + QStringLiteral("/r.csv")).size() > 0);
        QCOMPARE(rig.f.dialogs.calls.size(), 1);
        QVERIFY(!QFile::exists(dir + QStringLiteral("/none/r.csv")));
    }
};

ZORBEL_TEST_MAIN(ReportDialogsTest)
#include "tst_report_dialogs.moc"
