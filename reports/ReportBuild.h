#pragma once

#include "reports/ReportTable.h"

#include <QDate>
#include <QString>
#include <cstdint>
#include <optional>

class Database;

// The computed tables of the four reports: the query for the controller or
// for the object's controllers, its rows read by the layout's fields, and
// the header texts the layout prints after its own ("Raport dobowy dla  ").
namespace ReportBuild {

// Tytul " regulatora 'KOD'", Podtytul " z dnia dd/mm/yyyy".
ReportTable dailyOfController(Database &db, QDate day, std::int16_t adres, const QString &kod);
// Tytul " obiektu 'NAME'"; `controllerList` is the structure tree's list of
// the object's controllers ("'A','B'"). No report (nullopt) when it is
// empty; an empty place in it makes the engine refuse the query
// (RunTimeError).
std::optional<ReportTable> dailyOfObject(Database &db, QDate day, const QString &name, const QString &controllerList);
// Podtytul " za okres od dd/mm/yy do dd/mm/yy", the last day as chosen.
ReportTable periodOfController(Database &db, QDate first, QDate last, std::int16_t adres, const QString &kod);
std::optional<ReportTable> periodOfObject(Database &db, QDate first, QDate last, const QString &name,
                                          const QString &controllerList);

}
