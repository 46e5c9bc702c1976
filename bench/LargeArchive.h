#pragma once

#include <QDate>
#include <QString>

class Database;

// A station database with a long archive of many controllers, shared by the
// report benches: controllers at addresses 1..N, each with a sample every
// 15 minutes for Y years from 1 January 2015, written in time order (all
// controllers of one moment together) as the station writes them, and their
// daily roll-ups. A file once filled is reused by the next run, upgraded
// first when its schema is older than the program's.
namespace LargeArchive {

struct Size {
    int controllers = 100;
    int years = 10;
    bool operator==(const Size &) const = default;
};

// Whether Pomiary's indexes exist while the samples go in (as on a station,
// and faster here: the samples of a moment only touch each index's end and
// the ends of 100 address ranges) or are built after them.
enum class Indexes { BeforeFill, AfterFill };

struct Outcome {
    bool reused = false;
    qint64 rows = 0;
    double insertSeconds = 0; // samples written
    double indexSeconds = 0;  // Pomiary's indexes built after them
    double rollupSeconds = 0; // the daily roll-ups built from them
    double upgradeSeconds = 0; // a reused archive of an older schema upgraded
};

// The controller's code in Regulatory: "R001" for address 1.
QString kodOf(int adres);
QDate firstDay();
// The day after the last one.
QDate endDay(const Size &size);
qint64 expectedRows(const Size &size);

// Fills an empty database just opened: the station's schema, the
// controllers, the samples, the indexes and the mark of a complete archive.
// The fill runs unjournalled and unsynchronised (a torn fill is thrown
// away, never used); the station's own settings return at its end.
Outcome fill(Database &db, const Size &size, Indexes indexes = Indexes::BeforeFill);

// The archive in `file`: reused when it holds a complete one of this size,
// otherwise built in "<file>.filling" and moved in place only once complete.
// A file that is not such an archive is refused, never overwritten.
Outcome ensure(const QString &file, const Size &size, Indexes indexes = Indexes::BeforeFill);
// The archive in a server's database (PostgreSQL), open: reused when it
// holds a complete one of this size, otherwise filled in place (an archive
// of another size, or a torn fill, is replaced). A database with the
// station's tables but no archive is refused, never overwritten.
Outcome ensure(Database &server, const Size &size, Indexes indexes = Indexes::BeforeFill);

}
