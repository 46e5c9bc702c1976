#include "reports/PeriodChart.h"

#include "base/Conversions.h"
#include "base/ZDate.h"
#include "db/RowSet.h"
#include "db/SqlStatement.h"

SqlStatement PeriodChart::query(std::int16_t adres, QDate first, QDate last)
{
    // a row a day from the controller's roll-ups
    SqlStatement q(QStringLiteral("Select  "));
    q.dayFirstText(QStringLiteral("Dzien")) << " as MData, ";
    q.sum(QStringLiteral("EnCzynnaSuma")) << " as SumEnCzynna, ";
    q.sum(QStringLiteral("EnBiernaCalkSuma")) << " as SumEnBiernaCalk from PomiaryDzien where Adres = ";
    q.value(adres) << " and Dzien >= ";
    q.date(ZDate::startOf(first)) << " and Dzien < ";
    q.date(ZDate::startOf(last.addDays(1))) << " " << " GROUP BY ";
    // kept: ordered by the day-first text, not by time
    q.dayFirstText(QStringLiteral("Dzien")) << " order by ";
    q.dayFirstText(QStringLiteral("Dzien"));
    return q;
}

bool PeriodChart::draw(RowSet &rows, ChartGrid &chart, std::int16_t adres, const QString &kod, QDate first, QDate last,
                       ChartQuantity quantity)
{
    const auto values = [quantity](ChartGrid &c, int row, const RowSet &r) {
        const QVariant active = r.field(QStringLiteral("SumEnCzynna"));
        const QVariant reactive = r.field(QStringLiteral("SumEnBiernaCalk"));
        if (quantity == ChartQuantity::TgFi) {
            ChartDrawing::setTgFi(c, row, active, reactive);
            return;
        }
        // no test here: a day of NULL samples only has NULL sums and fails
        c.SetData(row, 1, conv::toNumber(active), 0);
        c.SetData(row, 2, conv::toNumber(reactive), 0);
    };
    const auto label = [](const QVariant &day) { return day.toString(); };
    const auto day = [](QDate d) { return d.toString(QStringLiteral("dd/MM/yyyy")); };
    // kept: the tg fi title has the daily chart's words and names the first day only
    const ChartDrawing::Titles titles = ChartDrawing::titlesFor(
        quantity, kod, QStringLiteral(" za okres od ") + day(first) + QStringLiteral(" do ") + day(last), first);
    return ChartDrawing::draw(rows, query(adres, first, last), chart, titles,
                              QStringLiteral("MData"), label, values);
}
