#pragma once

#include <QString>
#include <algorithm>

// The PostgreSQL side of the large-archive benches, --pg URL [--pg-years Y]:
// the same cases on an archive in a database of its own (see
// LargeArchive::ensure), filled on the first run with Y years (default 1:
// all a year's report or chart touches). An archive of another size found
// there is filled anew: give the years it was filled with.
struct PgArchiveOptions {
    QString url;
    int years = 1;

    // Takes one option of the command line; false when it is none of these.
    bool take(const QString &name, const QString &value)
    {
        if (name == QLatin1String("--pg"))
            url = value;
        else if (name == QLatin1String("--pg-years"))
            years = std::clamp(value.toInt(), 1, 10);
        else
            return false;
        return true;
    }
};
