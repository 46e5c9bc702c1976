#include "reports/ChartDrawing.h"

#include "base/Conversions.h"
#include "db/RowSet.h"

bool ChartDrawing::draw(RowSet &rows, const SqlStatement &query, ChartGrid &chart, const Titles &titles,
                        const QString &labelColumn, const std::function<QString(const QVariant &)> &label,
                        const RowValues &values)
{
    rows.open(query);
    chart.setRepaint(false);
    chart.setRowCount(0);
    std::int16_t counter = 0; // a day holds at most 1440 samples
    if (rows.EOF_()) {
        rows.close();
        return false;
    }
    chart.setAxisTitle(0, QStringLiteral("czas"));
    chart.setAxisTitle(1, titles.yAxis);
    chart.setColumnCount(int(titles.columns.size()));
    for (int c = 1; c <= chart.columnCount(); ++c)
        chart.setColumnLabel(c, titles.columns.at(c - 1));
    chart.setTitleText(titles.chart);
    for (; !rows.EOF_(); rows.MoveNext()) {
        counter = conv::add16(counter, 1);
        chart.setRowCount(counter);
        values(chart, counter, rows);
        chart.setRowLabel(counter, label(rows.field(labelColumn)));
    }
    for (int series = chart.columnCount(); series >= 1; --series)
        chart.setPenWidth(series, 1.0);
    chart.setRepaint(true);
    rows.close();
    return true;
}

void ChartDrawing::setTgFi(ChartGrid &chart, int row, const QVariant &active, const QVariant &reactive)
{
    if (!active.isNull() && !reactive.isNull() && active.toDouble() != 0)
        chart.SetData(row, 1, reactive.toDouble() / active.toDouble(), 0);
}

ChartDrawing::Titles ChartDrawing::titlesFor(ChartQuantity quantity, const QString &kod, const QString &energyWhen,
                                             QDate tgFiDay)
{
    if (quantity == ChartQuantity::TgFi)
        return {QStringLiteral("Wykres tg fi dla '") + kod + QStringLiteral("' z dnia ") +
                    tgFiDay.toString(QStringLiteral("dd/MM/yyyy")),
                QStringLiteral("tg fi"), {QStringLiteral("tg fi")}};
    // kept: "energi" as it always read
    return {QStringLiteral("Zużycie energi dla '") + kod + QLatin1Char('\'') + energyWhen, QStringLiteral("Energia [kWh]"),
            {QStringLiteral("Energia czynna"), QStringLiteral("Energia bierna")}};
}
