#include "TestMain.h"
#include "ErrorOf.h"
#include "TestDatabases.h"
#include "TestEnv.h"

#include "db/Database.h"
#include "db/RowSet.h"
#include "db/Schema.h"
#include "reports/DailyChart.h"
#include "reports/PeriodChart.h"

#include <QTest>
#include <cmath>

namespace {

const QDate Day(2026, 11, 24);

struct Sample {
    int adres;
    ZDate when;
    QVariant active, reactive; // invalid: NULL
};

void add(Database &db, const QList<Sample> &samples)
{
    if (!db.isOpen()) {
        db.open(Database::OpenMode::CreateIfMissing);
        Schema::create(db);
    }
    for (const Sample &s : samples) {
        SqlStatement q(QStringLiteral("INSERT INTO Pomiary (Adres, Data, EnCzynna, EnBiernaCalk) VALUES ("));
        q.value(s.adres) << ", ";
        q.date(s.when) << ", ";
        q.value(s.active.isValid() ? s.active : QVariant()) << ", ";
        q.value(s.reactive.isValid() ? s.reactive : QVariant()) << ")";
        db.exec(q);
    }
    TestDatabases::rollUpAgain(db);
}

ZDate at(QDate day, int hour, int minute, int second = 0)
{
    return ZDate::fromParts(day.year(), day.month(), day.day(), hour, minute, second);
}

// "label=v1;v2" per row, "-" for a gap, values to 4 places.
QStringList drawn(const ChartGrid &c)
{
    QStringList rows;
    for (int r = 1; r <= c.rowCount(); ++r) {
        QStringList cells;
        for (int col = 1; col <= c.columnCount(); ++col) {
            const std::optional<double> v = c.value(r, col);
            cells << (v ? QString::number(*v, 'f', 4) : QStringLiteral("-"));
        }
        rows << c.rowLabel(r) + QLatin1Char('=') + cells.join(QLatin1Char(';'));
    }
    return rows;
}

}

// What the daily and the period chart draw from the archive, on both engines.
class ChartsTest : public QObject {
    Q_OBJECT
private slots:
    void dailyChartDrawsEverySampleOfTheDayAndGapsWhereNoValue_data() { TestDatabases::addEngineRows(); }
    void dailyChartDrawsEverySampleOfTheDayAndGapsWhereNoValue()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        Database db(config);
        add(db, {{5, at(Day, 0, 0), 2.0, 1.0},
                  {5, at(Day, 0, 15), 0.0, 0.5},   // no tg fi, but its place and label
                  {5, at(Day, 0, 30), 3.0, {}},     // no value at all
                  {5, at(Day, 23, 59, 59), 4.0, 1.0},
                  {5, at(Day.addDays(1), 0, 0), 9.0, 9.0}, // the next day's
                  {5, at(Day.addDays(-1), 23, 59, 59), 9.0, 9.0},
                  {6, at(Day, 12, 0), 9.0, 9.0}});
        RowSet rows(db);
        ChartGrid chart;
        QVERIFY(DailyChart::draw(rows, chart, 5, QStringLiteral("T1"), Day, ChartQuantity::Energy));
        QCOMPARE(drawn(chart), (QStringList{"00:00=2.0000;1.0000", "00:15=0.0000;0.5000", "00:30=-;-", "23:59=4.0000;1.0000"}));
        QCOMPARE(chart.titleText(), QStringLiteral("Zużycie energi dla 'T1' z dnia 24/11/2026"));
        QCOMPARE(chart.axisTitle(0), QStringLiteral("czas"));
        QCOMPARE(chart.axisTitle(1), QStringLiteral("Energia [kWh]"));
        QCOMPARE(errorOf([&] { chart.value(1, 3); }), int(RunTimeError::SubscriptOutOfRange)); // two series only
        QCOMPARE(chart.columnLabel(2), QStringLiteral("Energia bierna"));
        QVERIFY(chart.repaint());

        QVERIFY(DailyChart::draw(rows, chart, 5, QStringLiteral("T1"), Day, ChartQuantity::TgFi));
        QCOMPARE(drawn(chart), (QStringList{"00:00=0.5000", "00:15=-", "00:30=-", "23:59=0.2500"}));
        QCOMPARE(chart.titleText(), QStringLiteral("Wykres tg fi dla 'T1' z dnia 24/11/2026"));

        // a day without samples keeps the titles drawn last, and does not repaint
        QVERIFY(!DailyChart::draw(rows, chart, 5, QStringLiteral("T1"), Day.addDays(5), ChartQuantity::Energy));
        QCOMPARE(chart.titleText(), QStringLiteral("Wykres tg fi dla 'T1' z dnia 24/11/2026"));
        QVERIFY(!chart.repaint() && chart.rowCount() == 0);
    }

    void periodChartSumsDaysInTheOrderOfTheirDayFirstText_data() { TestDatabases::addEngineRows(); }
    void periodChartSumsDaysInTheOrderOfTheirDayFirstText()
    {
        TestEnv env;
        ZORBEL_FETCH_EMPTY_DATABASE(config);
        Database db(config);
        const QDate first(2026, 11, 30), last(2026, 12, 2);
        add(db, {{5, at(first, 8, 0), 2.0, 1.0},
                  {5, at(first, 9, 0), 2.0, 0.0},       // the day's tg fi is 1/4, not the mean of 1/2 and 0
                  {5, at(last.addDays(-1), 10, 0), 0.0, 1.0},
                  {5, at(last, 23, 59, 59), 3.0, 1.5}, // the last day is whole
                  {5, at(last.addDays(1), 0, 0), 9.0, 9.0},
                  {5, at(first.addDays(-1), 12, 0), 9.0, 9.0}});
        RowSet rows(db);
        ChartGrid chart;
        QVERIFY(PeriodChart::draw(rows, chart, 5, QStringLiteral("T1"), first, last, ChartQuantity::Energy));
        // kept order: by the text, so December's days stand before 30 November
        QCOMPARE(drawn(chart), (QStringList{"01/12/26=0.0000;1.0000", "02/12/26=3.0000;1.5000", "30/11/26=4.0000;1.0000"}));
        QCOMPARE(chart.titleText(), QStringLiteral("Zużycie energi dla 'T1' za okres od 30/11/2026 do 02/12/2026"));
        QVERIFY(PeriodChart::draw(rows, chart, 5, QStringLiteral("T1"), first, last, ChartQuantity::TgFi));
        QCOMPARE(drawn(chart), (QStringList{"01/12/26=-", "02/12/26=0.5000", "30/11/26=0.2500"}));
        QCOMPARE(chart.titleText(), QStringLiteral("Wykres tg fi dla 'T1' z dnia 30/11/2026"));

        QVERIFY(!PeriodChart::draw(rows, chart, 5, QStringLiteral("T1"), last, first, ChartQuantity::Energy));
        // a day of NULL samples: its sums are NULL, which only the tg fi mode tests
        add(db, {{7, at(first, 8, 0), {}, {}}});
        QVERIFY(PeriodChart::draw(rows, chart, 7, QStringLiteral("T3"), first, first, ChartQuantity::TgFi));
        QCOMPARE(drawn(chart), QStringList{"30/11/26=-"});
        QCOMPARE(errorOf([&] { PeriodChart::draw(rows, chart, 7, QStringLiteral("T3"), first, first, ChartQuantity::Energy); }),
                 int(RunTimeError::InvalidUseOfNull));
    }
};

ZORBEL_TEST_MAIN(ChartsTest)
#include "tst_charts.moc"
