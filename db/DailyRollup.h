#pragma once

#include "base/SampleArchive.h"
#include "db/Schema.h"
#include "db/SqlStatement.h"

#include <QDate>

// The roll-up of one controller's samples of one day, table PomiaryDzien:
// the sample count and, per measure, the sum and count of its non-NULL
// values (and for some their least and greatest). A period's report reads
// a row a day from here instead of every sample. Each measure is one SQL
// expression over a sample, so the engine computes it the same way for a
// sample being stored and for an archive being rolled up.
namespace DailyRollup {

inline constexpr const char *TableName = "PomiaryDzien";

// Adres, Dzien (the day's midnight), Ile and the columns of the measures.
std::vector<Schema::Column> columns();

// Adds one sample to the row of its own day, creating the row.
SqlStatement addSample(const StoredSample &sample);
// Writes the rows of every day whose samples lie in [from, to); the
// table holds no row of those days yet.
SqlStatement rollUp(ZDate from, ZDate to);

}
