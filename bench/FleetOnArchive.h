#pragma once

#include "base/ZDate.h"

#include <QStringList>
#include <vector>

class Database;
class SimFleet;

// A fleet of N controllers started on a large archive (see LargeArchive.h),
// which holds bare controller rows and no bases of next samples: what the
// start needs added to it, through the fleet's open database.
namespace FleetOnArchive {

// The archive's last moment; the bases of the next samples stand there.
ZDate lastSample(Database &db);
// The columns of an archive's controller row given the station's defaults.
struct Completed {
    int adres = 0;
    QStringList columns;
};
// The station's defaults in the empty columns of the rows of Regulatory
// (an archive's bare rows), all or none; what was filled.
std::vector<Completed> completeControllers(Database &db);
// Those columns emptied again.
void emptyAgain(Database &db, const std::vector<Completed> &rows);
// Complete rows of Regulatory for the addresses of 1..n the database lacks,
// all or none; their addresses.
std::vector<int> addControllers(SimFleet &fleet, Database &db, int n);
// The base of the next sample of controllers 1..n, at `at`, all or none.
// Refused when OstPomiar holds any row: the starts would move it.
void addBases(SimFleet &fleet, Database &db, int n, ZDate at);
// The highest key of a table, 0 when it is empty.
qint64 lastKey(Database &db, const QString &table, const QString &key);

}
