#pragma once

#include "reports/ChartDrawing.h"

#include <QDate>
#include <cstdint>

class Database;

// The samples of one controller on one day, one point each, in time order:
// its energies or its tg fi. Nothing is averaged; a sample that cannot give
// a value keeps its place and its "hh:mm" label.
namespace DailyChart {

SqlStatement query(std::int16_t adres, QDate day);
// False when the day has no samples: the chart keeps its picture.
bool draw(RowSet &rows, ChartGrid &chart, std::int16_t adres, const QString &kod, QDate day, ChartQuantity quantity);

}
