#pragma once

#include <QString>
#include <functional>

class Database;

// Builds the daily roll-ups (PomiaryDzien) of an archive kept without them,
// a month of days at a time, each month in a transaction of its own: a
// long archive is not held in one transaction, and a build that is
// interrupted continues after the last month it completed. A table left
// by an older version, without the columns of a newer measure, is dropped
// and built anew.
namespace RollupUpgrade {

// Called after each month with the share of months done and the month ("yyyy-MM").
using Progress = std::function<void(int percent, const QString &month)>;

void build(Database &db, const Progress &progress);

}
