#pragma once

#include "db/SqlStatement.h"

#include <QDate>
#include <QString>
#include <cstdint>

// The queries of the daily and the period reports, for a controller (by its
// address) or for an object of the structure (by a condition on the
// controllers' codes). The first day is included, the bound after the last
// is not; dates are bound as values. The period reports read the daily
// roll-ups (PomiaryDzien) rather than every sample.
namespace ReportQueries {

// "kod='A' OR kod='B'" from the tree's list "'A','B'"; empty for an empty
// list (an object without controllers: no report). An empty place of the
// list gives a bare "kod=", which the engine refuses.
QString condition(const QString &controllerList);

SqlStatement dailyOfController(QDate day, std::int16_t adres);
SqlStatement dailyOfObject(QDate day, const QString &condition);
SqlStatement periodOfController(QDate first, QDate last, std::int16_t adres);
SqlStatement periodOfObject(QDate first, QDate last, const QString &condition);

}
