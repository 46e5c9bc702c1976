#pragma once

#include "base/ZDate.h"
#include "reports/ChartGrid.h"

#include <QDate>

#include <QString>
#include <QVariant>
#include <functional>

class RowSet;
class SqlStatement;

// What a chart window draws: the archive's energies of a controller, or
// their tg fi.
enum class ChartQuantity {
    Energy = 0,
    TgFi = 1,
    // kept: mean power per hour was planned as a third quantity and has
    // never been offered
};

// The run shared by the daily and the period chart: the rows of a query
// become the chart's rows one by one, with repainting off meanwhile. A
// query without rows leaves the chart as it was drawn before (its rows
// gone, repainting off, titles untouched).
class ChartDrawing {
public:
    struct Titles {
        QString chart;
        QString yAxis;
        QStringList columns;
    };
    // Sets the values of one row (from 1) out of the query's current row.
    using RowValues = std::function<void(ChartGrid &chart, int row, const RowSet &rows)>;

    // True when rows came and were drawn.
    static bool draw(RowSet &rows, const SqlStatement &query, ChartGrid &chart, const Titles &titles,
                     const QString &labelColumn, const std::function<QString(const QVariant &)> &label,
                     const RowValues &values);
    // What a chart of `kod` is titled: the energy title ends with `energyWhen`;
    // the tg fi title names one day, whatever the chart covers.
    static Titles titlesFor(ChartQuantity quantity, const QString &kod, const QString &energyWhen, QDate tgFiDay);
    // tg fi of reactive over active energy; none when either is missing or the active one is 0.
    static void setTgFi(ChartGrid &chart, int row, const QVariant &active, const QVariant &reactive);
};
