#pragma once

#include "reports/ChartDrawing.h"

#include <QDate>
#include <cstdint>

// One point a day for one controller over a range of days, both included:
// the day's sums of energy, or the tg fi of those sums. The days stand in
// the order of their day-first text "dd/mm/yy", so across a month's end the
// first days of every month come first.
namespace PeriodChart {

SqlStatement query(std::int16_t adres, QDate first, QDate last);
// False when the range has no samples: the chart keeps its picture. In the
// energy mode a day whose sums are NULL is a run-time error.
bool draw(RowSet &rows, ChartGrid &chart, std::int16_t adres, const QString &kod, QDate first, QDate last,
          ChartQuantity quantity);

}
