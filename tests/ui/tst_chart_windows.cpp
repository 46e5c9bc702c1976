#include "TestMain.h"
#include "TestDatabases.h"
#include "UiRig.h"

#include "ChartView.h"
#include "fmWykresy1.h"
#include "fmWykresy2.h"

#include "db/Database.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLineSeries>
#include <QPushButton>

// The chart windows on a started station: what reaches the QtCharts view,
// and how the tool strip drives the drawing.
class ChartWindowsTest : public QObject {
    Q_OBJECT

    static void addSample(UiRig &rig, int adres, ZDate when, const QVariant &active, const QVariant &reactive)
    {
        SqlStatement q(QStringLiteral("INSERT INTO Pomiary (Adres, Data, EnCzynna, EnBiernaCalk) VALUES ("));
        q.value(adres) << ", ";
        q.date(when) << ", ";
        q.value(active) << ", ";
        q.value(reactive) << ")";
        rig.s.connection().exec(q);
        TestDatabases::rollUpAgain(rig.s.connection());
    }
    static int points(const QList<QLineSeries *> &segments)
    {
        int n = 0;
        for (const QLineSeries *s : segments)
            n += s->count();
        return n;
    }

private slots:
    void dailyWindowDrawsTheSamplesIntoTheViewOnlyWhenAsked()
    {
        UiRig rig;
        const ZDate day = ZDate::fromParts(2026, 11, 24);
        for (int i = 0; i < 6; ++i) // the fourth sample has no value: the line breaks there
            addSample(rig, 1, day.addMinutes(15 * i), i == 3 ? QVariant() : QVariant(2.0 + i), 1.0);
        rig.entry("mnuWykresDob")->trigger();
        auto *w = rig.frame.findChild<fmWykresy1 *>();
        QVERIFY(w);
        QCOMPARE(w->grid().majorGridStyle(0), 0); // "Y" chosen at load
        QCOMPARE(w->grid().majorGridStyle(2), 1);
        w->dtData()->setDate(QDate(2026, 11, 24));
        QCOMPARE(w->grid().rowCount(), 0); // a new date alone draws nothing
        w->findChild<QPushButton *>(QStringLiteral("btnWykresl"))->click();
        QCOMPARE(w->view()->seriesOf(1).size(), 2);
        QCOMPARE(points(w->view()->seriesOf(1)), 5);
        QCOMPARE(w->view()->chart()->title(), QStringLiteral("Zużycie energi dla 'T1' z dnia 24/11/2026"));

        w->cmbSiatka()->setCurrentText(QStringLiteral("XY"));
        QVERIFY(w->view()->chart()->axes(Qt::Horizontal).constFirst()->isGridLineVisible());
        w->chkLegenda()->click();
        QVERIFY(w->view()->chart()->legend()->isVisible());

        w->findChild<QPushButton *>(QStringLiteral("btnPrawo"))->click(); // the next day has nothing:
        QCOMPARE(w->dtData()->date(), QDate(2026, 11, 25));
        QCOMPARE(points(w->view()->seriesOf(1)), 5); // the picture stays
        QVERIFY(w->findChild<QPushButton *>(QStringLiteral("btnWykresl"))->isEnabled());

        // without a controller chosen the drawing fails in a message box
        w->cmbRegul()->setCurrentIndex(-1);
        w->findChild<QPushButton *>(QStringLiteral("btnWykresl"))->click();
        QCOMPARE(rig.f.dialogs.calls.size(), 1);
        QVERIFY(rig.prompt(0).contains(QStringLiteral("'381'")));
    }

    void periodWindowStepsEachDateByAMonthAndShowsANullSumAsAnError()
    {
        UiRig rig;
        addSample(rig, 2, ZDate::fromParts(2026, 2, 10, 8), QVariant(), QVariant());
        rig.s.oApp.NrAktRegulatora = 2;
        rig.entry("mnuWykresMies")->trigger();
        auto *w = rig.frame.findChild<fmWykresy2 *>();
        QCOMPARE(w->cmbRegul()->currentText(), QStringLiteral("T2"));
        QCOMPARE(w->cmbSiatka()->currentIndex(), -1); // the grid stays as designed
        w->dtData()->setDate(QDate(2026, 1, 10));
        w->dtDataDo()->setDate(QDate(2026, 1, 31));
        w->findChild<QPushButton *>(QStringLiteral("btnPrawo"))->click();
        QCOMPARE(w->dtData()->date(), QDate(2026, 2, 10));
        QCOMPARE(w->dtDataDo()->date(), QDate(2026, 2, 28));
        QCOMPARE(rig.f.dialogs.calls.size(), 1); // the NULL day of the energy mode
        QVERIFY(rig.prompt(0).contains(QStringLiteral("'94'")));
        w->cmbWyswietl()->setCurrentIndex(1);
        w->findChild<QPushButton *>(QStringLiteral("btnLewo"))->click(); // back to a range with nothing
        QCOMPARE(w->dtDataDo()->date(), QDate(2026, 1, 28));
        QCOMPARE(rig.f.dialogs.calls.size(), 1);
    }
};

ZORBEL_TEST_MAIN(ChartWindowsTest)
#include "tst_chart_windows.moc"
