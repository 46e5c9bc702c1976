#include "reports/DailyChart.h"

#include "base/ZDate.h"
#include "db/RowSet.h"
#include "db/SqlStatement.h"

namespace {

ChartDrawing::Titles titlesOf(ChartQuantity quantity, const QString &kod, QDate day)
{
    const QString date = day.toString(QStringLiteral("dd/MM/yyyy"));
    if (quantity == ChartQuantity::TgFi)
        return {QStringLiteral("Wykres tg fi dla '") + kod + QStringLiteral("' z dnia ") + date, QStringLiteral("tg fi"),
                {QStringLiteral("tg fi")}};
    // kept: "energi" as it always read
    return {QStringLiteral("Zużycie energi dla '") + kod + QStringLiteral("' z dnia ") + date,
            QStringLiteral("Energia [kWh]"), {QStringLiteral("Energia czynna"), QStringLiteral("Energia bierna")}};
}

}

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
    return ChartDrawing::draw(rows, query(adres, day), chart, titlesOf(quantity, kod, day), QStringLiteral("Data"), label,
                              values);
}
