#include "reports/DailyChart.h"

#include "base/ZDate.h"
#include "db/RowSet.h"
#include "db/SqlStatement.h"

SqlStatement DailyChart::query(std::int16_t adres, QDate day)
{
    SqlStatement q(QStringLiteral("Select Data, EnCzynna, EnBiernaCalk from Pomiary where Adres = "));
    q.value(adres) << " and Data >= ";
    q.date(ZDate::startOf(day)) << " and Data < ";
    q.date(ZDate::startOf(day.addDays(1))) << " order by Data";
    return q;
}

bool DailyChart::draw(RowSet &rows, ChartGrid &chart, std::int16_t adres, const QString &kod, QDate day,
                      ChartQuantity quantity)
{
    const auto values = [quantity](ChartGrid &c, int row, const RowSet &r) {
        const QVariant active = r.field(QStringLiteral("EnCzynna"));
        const QVariant reactive = r.field(QStringLiteral("EnBiernaCalk"));
        if (quantity == ChartQuantity::TgFi) {
            ChartDrawing::setTgFi(c, row, active, reactive);
        } else if (!active.isNull() && !reactive.isNull()) {
            c.SetData(row, 1, active.toDouble(), 0);
            c.SetData(row, 2, reactive.toDouble(), 0);
        }
    };
    const auto label = [](const QVariant &data) { return ZDate::fromVariant(data).toString(QStringLiteral("HH:mm")); };
    const ChartDrawing::Titles titles =
        ChartDrawing::titlesFor(quantity, kod, QStringLiteral(" z dnia ") + day.toString(QStringLiteral("dd/MM/yyyy")), day);
    return ChartDrawing::draw(rows, query(adres, day), chart, titles, QStringLiteral("Data"), label,
                              values);
}
