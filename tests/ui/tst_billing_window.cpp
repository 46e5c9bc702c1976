#include "TestMain.h"
#include "UiRig.h"

#include "BillingChart.h"
#include "fmRozliczenie.h"
#include "fmWykresy1.h"

#include "db/HierarchyStore.h"
#include "db/SampleStore.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QFile>
#include <QLabel>
#include <QLineSeries>
#include <QTabWidget>
#include <QTableWidget>

// The bill window on a started station with a small archive of November
// 2026, written through the station's own path:
//   T1: 1 Nov 4 × (A 10, Q 5), 2 Nov 4 × (A 10, Q 2): A 80, Q 28, tg φ 0,350
//   T2: 2 Nov 2 × (A 100, Q 60): A 200, Q 120, tg φ 0,600
// Both under the object "Hala": A 280, Q 148, tg φ 0,529.
class BillingWindowTest : public QObject {
    Q_OBJECT

    static void fill(UiRig &rig)
    {
        const auto put = [&rig](int adres, int day, int count, double active, double reactive) {
            for (int i = 0; i < count; ++i) {
                StoredSample s;
                s.adres = std::int16_t(adres);
                s.Data = ZDate::fromParts(2026, 11, day, 6 * i);
                s.EnCzynna = active;
                s.EnBiernaCalk = reactive;
                s.EnBiernaPoj = 0.0;
                rig.s.samples.appendSample(s);
            }
        };
        put(1, 1, 4, 10, 5);
        put(1, 2, 4, 10, 2);
        put(2, 2, 2, 100, 60);
        HierarchyStore tree([&rig]() -> Database & { return rig.s.connection(); });
        tree.add("Hala", "System Zorbel", "S");
        tree.add("T1", "Hala", "R");
        tree.add("T2", "Hala", "R");
    }
    // Opens the window for the structure's current element, which computes its bill.
    static fmRozliczenie *opened(UiRig &rig, const QString &type, const QString &element, const char *entry)
    {
        rig.s.oApp.AktTypEl = type;
        rig.s.oApp.AktElStruktury = element;
        rig.entry(entry)->trigger();
        return rig.frame.findChild<fmRozliczenie *>();
    }
    static QString sumCell(fmRozliczenie *w, int column)
    {
        QTableWidget *t = w->table("tblEnergie");
        return t ? t->item(t->rowCount() - 1, column)->text() : QString();
    }

private slots:
    void billShowsTheSumsOfTheChosenScopeAndTheWorstDayOpensItsDailyChart_data()
    {
        QTest::addColumn<QString>("type");
        QTest::addColumn<QString>("element");
        QTest::addColumn<QString>("entry");
        QTest::addColumn<QString>("active");
        QTest::addColumn<QString>("tgFi");
        QTest::addColumn<QDate>("worst");
        QTest::addColumn<QString>("charted"); // the object's controller with the largest excess that day
        QTest::newRow("controller from the menu") << "R" << "T1" << "mnuRozliczenie" << "80,0" << "0,350"
                                                  << QDate(2026, 11, 1) << "T1";
        QTest::newRow("object from the tree's pop-up") << "S" << "Hala" << "mnuStrRozl" << "280,0" << "0,529"
                                                       << QDate(2026, 11, 2) << "T2";
    }
    void billShowsTheSumsOfTheChosenScopeAndTheWorstDayOpensItsDailyChart()
    {
        QFETCH(QString, type);
        QFETCH(QString, element);
        QFETCH(QString, entry);
        UiRig rig(UiRig::Line::Scripted, ZDate::fromParts(2026, 11, 20, 10));
        fill(rig);
        fmRozliczenie *w = opened(rig, type, element, qPrintable(entry));
        QVERIFY(w);
        QCOMPARE(w->dtOd()->date(), QDate(2026, 11, 1)); // the month of the station's clock
        QCOMPARE(w->dtDo()->date(), QDate(2026, 11, 30));
        QCOMPARE(rig.f.dialogs.calls.size(), 0);
        QTEST(sumCell(w, 1), "active");
        QTEST(sumCell(w, 5), "tgFi");
        QFETCH(QString, tgFi);
        QVERIFY(w->lblWynik()->text().contains(tgFi));

        QTableWidget *days = w->table("tblNadwyzka");
        QVERIFY(days && days->rowCount() > 0);
        QFETCH(QDate, worst);
        QCOMPARE(w->statement()->worstByExcess.front().day, worst);
        w->findChild<QTabWidget *>(QStringLiteral("tabRozliczenie"))->setCurrentWidget(days->parentWidget());
        const QPoint first = days->visualItemRect(days->item(0, 0)).center();
        QTest::mouseClick(days->viewport(), Qt::LeftButton, {}, first); // the view takes a double click after a press
        QTest::mouseDClick(days->viewport(), Qt::LeftButton, {}, first);
        auto *chart = rig.frame.findChild<fmWykresy1 *>();
        QVERIFY(chart);
        QCOMPARE(chart->dtData()->date(), worst);
        QTEST(chart->cmbRegul()->currentText(), "charted");
    }

    void malformedTariffValueIsToldAndLeavesNoFiguresUntilItIsMended()
    {
        UiRig rig(UiRig::Line::Scripted, ZDate::fromParts(2026, 11, 20, 10));
        fill(rig);
        rig.f.settings.setValue(QStringLiteral("Rozliczenie"), QStringLiteral("Crk"), QStringLiteral("tanio"));
        fmRozliczenie *w = opened(rig, "R", "T1", "mnuRozliczenie");
        QVERIFY(w);
        QCOMPARE(rig.f.dialogs.calls.size(), 1);
        QVERIFY2(rig.prompt(0).contains(QStringLiteral("Crk")), qPrintable(rig.prompt(0)));
        QVERIFY(!w->statement());
        QVERIFY(!w->table("tblEnergie"));
        QVERIFY(w->lblWynik()->text().isEmpty());
        QVERIFY(w->chart()->lines().isEmpty());

        rig.f.settings.setValue(QStringLiteral("Rozliczenie"), QStringLiteral("Crk"), QStringLiteral("350,50"));
        w->btnObliczClick();
        QCOMPARE(rig.f.dialogs.calls.size(), 1);
        QCOMPARE(sumCell(w, 1), QStringLiteral("80,0"));
        QVERIFY(w->statement()->total.fee.has_value());
    }

    void pdfAndCsvSaveTheShownBillWhereTheOperatorChose()
    {
        UiRig rig(UiRig::Line::Scripted, ZDate::fromParts(2026, 11, 20, 10));
        fill(rig);
        fmRozliczenie *w = opened(rig, "R", "T1", "mnuRozliczenie");
        QVERIFY(w);
        rig.f.dialogs.savePaths << rig.env.file(QStringLiteral("r.pdf")) << rig.env.file(QStringLiteral("r.csv"));
        w->savePdf();
        w->saveCsv();
        QCOMPARE(rig.f.dialogs.calls.size(), 0);
        QFile pdf(rig.env.file(QStringLiteral("r.pdf")));
        QVERIFY(pdf.open(QIODevice::ReadOnly) && pdf.read(5) == "%PDF-");
        QFile csv(rig.env.file(QStringLiteral("r.csv")));
        QVERIFY(csv.open(QIODevice::ReadOnly));
        QVERIFY(csv.readAll().contains(";T1;80.000;28.000;"));
    }

    void daysWithMissingSamplesAreRedInTheDailyTable()
    {
        UiRig rig(UiRig::Line::Scripted, ZDate::fromParts(2026, 11, 20, 10));
        fill(rig);
        SqlStatement twice(QStringLiteral("UPDATE Regulatory SET CzestOdczytu = 720 WHERE Adres = ")); // 2 a day
        twice.value(2);
        rig.s.connection().exec(twice);
        fmRozliczenie *w = opened(rig, "R", "T2", "mnuRozliczenie");
        QVERIFY(w);
        w->cmbZakres()->setCurrentText(QStringLiteral("T2"));
        w->btnObliczClick();
        QTableWidget *days = w->table("tblDni");
        QVERIFY(days);
        const QColor red(200, 0, 0);
        QCOMPARE(days->item(0, 4)->foreground().color(), red); // 1 Nov: no sample
        QVERIFY(days->item(1, 4)->foreground().color() != red); // 2 Nov: both
    }

    void dateBoxesBillAnyStretchOfDays()
    {
        UiRig rig(UiRig::Line::Scripted, ZDate::fromParts(2026, 11, 20, 10));
        fill(rig);
        fmRozliczenie *w = opened(rig, "R", "T1", "mnuRozliczenie");
        QVERIFY(w);
        w->dtOd()->setDate(QDate(2026, 11, 2));
        w->dtDo()->setDate(QDate(2026, 11, 2));
        w->btnObliczClick();
        QCOMPARE(sumCell(w, 1), QStringLiteral("40,0"));
        QCOMPARE(sumCell(w, 5), QStringLiteral("0,200"));
    }

    void chartBreaksAtDaysWithoutActiveEnergyAndDrawsTgFi0()
    {
        UiRig rig(UiRig::Line::Scripted, ZDate::fromParts(2026, 11, 20, 10));
        fill(rig);
        fmRozliczenie *w = opened(rig, "R", "T2", "mnuRozliczenie");
        QVERIFY(w);
        w->cmbZakres()->setCurrentText(QStringLiteral("T2"));
        w->btnObliczClick();
        const QList<QLineSeries *> lines = w->chart()->lines();
        QCOMPARE(lines.size(), 2); // the one day with active energy, the tg φ0 line
        QCOMPARE(lines.first()->count(), 1);
        QCOMPARE(lines.first()->at(0).y(), 0.6);
        QCOMPARE(lines.last()->at(0).y(), 0.4);
    }
};

ZORBEL_TEST_MAIN(BillingWindowTest)
#include "tst_billing_window.moc"
