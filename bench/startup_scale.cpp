// The start of a large installation: 255 controllers on an archive of
// 35 million samples (100 controllers x 10 years, see LargeArchive.h),
// from StartUp to the first tick of the polling, cold (the file's pages
// out of the page cache) and warm; then the first tick itself (every
// controller read on the simulated line and its sample stored).
//
//   startup_scale [--archive FILE] [--controllers N] [--repeat K]
//   startup_scale --pg URL [--controllers N] [--repeat K]
//
// The shared archive FILE is never written: the bench copies it into a
// temporary folder beside it (it needs that much free space), gives the
// copy N complete controller rows and the base of each one's next sample,
// runs there and deletes the copy at its end.
//
// With --pg the same starts run on an archive in a PostgreSQL database
// (filled by report_speed or chart_speed), with no copy: the bench gives the
// archive's bare controller rows the station's defaults, adds the
// controllers it lacks among 1..N and the bases, and takes all that back at
// its end with all the starts wrote (see ArchiveLoan.h). An N below the
// archive's 100 starts them all. Figures are prefixed "pg_".
// No cold start there: the server's cache is not the bench's to drop.

#include "ArchiveLoan.h"
#include "FleetOnArchive.h"
#include "SimFleet.h"

#include "base/RunTimeError.h"
#include "db/StatementObserver.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <QTextStream>
#include <fcntl.h>
#include <algorithm>
#include <optional>
#include <vector>
#include <unistd.h>

namespace {

struct Options {
    QString archive = QStringLiteral("/tmp/zorbel-large.db");
    QString pgUrl;
    int controllers = 255;
    int repeat = 3;
};

std::optional<Options> parse(QStringList args)
{
    Options o;
    args.removeFirst();
    while (args.size() >= 2) {
        const QString name = args.takeFirst(), value = args.takeFirst();
        if (name == QLatin1String("--archive"))
            o.archive = value;
        else if (name == QLatin1String("--pg"))
            o.pgUrl = value;
        else if (name == QLatin1String("--controllers"))
            o.controllers = std::clamp(value.toInt(), 1, 255);
        else if (name == QLatin1String("--repeat"))
            o.repeat = std::max(1, value.toInt());
        else
            return std::nullopt;
    }
    return args.isEmpty() ? std::optional(o) : std::nullopt;
}

void copyArchive(const QString &from, const QString &to)
{
    if (QFileInfo(from + QStringLiteral("-wal")).size() > 0)
        throw RunTimeError::database(from + QStringLiteral(" has uncheckpointed writes; the copy would miss them"));
    const qint64 need = QFileInfo(from).size() + (qint64(2) << 30);
    if (QStorageInfo(QFileInfo(to).absolutePath()).bytesAvailable() < need)
        throw RunTimeError::database(QStringLiteral("not enough free space for a copy of ") + from);
    if (!QFile::copy(from, to))
        throw RunTimeError::database(QStringLiteral("cannot copy ") + from);
}

DatabaseConfig onFile(const QString &file)
{
    return DatabaseConfig::fromUrl(QStringLiteral("sqlite:") + file);
}

// N complete controllers in place of the archive's bare rows, each with the
// base of its next sample at the archive's last moment, which it returns.
ZDate prepare(const QString &file, int controllers)
{
    SimFleet fleet(onFile(file));
    Database &db = fleet.station.openDatabase();
    db.execText(QStringLiteral("DELETE FROM Regulatory"));
    db.execText(QStringLiteral("DELETE FROM OstPomiar"));
    FleetOnArchive::addControllers(fleet, db, controllers);
    const ZDate last = FleetOnArchive::lastSample(db);
    FleetOnArchive::addBases(fleet, db, controllers, last);
    return last;
}

// The copy's pages written out and dropped from the page cache: the next start reads them from disk.
void dropFromCache(const QString &file)
{
    for (const QString &f : {file, file + QStringLiteral("-wal")}) {
        const int fd = ::open(QFile::encodeName(f).constData(), O_RDONLY);
        if (fd < 0)
            continue;
        ::fdatasync(fd);
        ::posix_fadvise(fd, 0, 0, POSIX_FADV_DONTNEED);
        ::close(fd);
    }
}

struct Start {
    double toFirstTickMs = 0;
    double firstTickMs = 0;
    int statements = 0;
    int onArchive = 0;
    int rowsRead = 0;
    int samplesStored = 0;
};

int samplesAfter(HeadlessStation &st, ZDate last)
{
    SqlStatement q(QStringLiteral("SELECT COUNT(*) FROM Pomiary WHERE Data > "));
    q.date(last);
    QSqlQuery r = st.station().connection().exec(q);
    return r.next() ? r.value(0).toInt() : 0;
}

// One start as the program makes it: options, database and controllers, the port, the polling; then its first tick.
Start startOnce(const DatabaseConfig &db, int controllers, ZDate last)
{
    SimFleet fleet(db);
    HeadlessStation &st = fleet.station;
    st.clock.set(last.addMinutes(20)); // before the controllers, whose model starts at their creation
    fleet.addSimulated(controllers);
    Start out;
    static const QRegularExpression pomiary(QStringLiteral("\\bPomiary\\b"), QRegularExpression::CaseInsensitiveOption);
    QElapsedTimer t;
    {
        StatementObserver::Scope watch([&](const QString &sql) {
            ++out.statements;
            out.onArchive += pomiary.match(sql).hasMatch() ? 1 : 0;
        });
        t.start();
        st.station().oApp.WczytajOpcje(st.settings);
        st.start();
        st.station().startPolling();
        out.toFirstTickMs = double(t.nsecsElapsed()) / 1e6;
    }
    out.rowsRead = st.station().rsRegulatory->rowCount() + st.station().rsOstPomiar->rowCount();
    const int before = samplesAfter(st, last);
    t.restart();
    st.timers().Timer1Tick();
    out.firstTickMs = double(t.nsecsElapsed()) / 1e6;
    out.samplesStored = samplesAfter(st, last) - before;
    st.station().stop();
    return out;
}

double median(std::vector<Start> starts, double Start::*figure)
{
    std::sort(starts.begin(), starts.end(), [&](const Start &a, const Start &b) { return a.*figure < b.*figure; });
    return starts[starts.size() / 2].*figure;
}

void print(QTextStream &out, const QString &name, double value, const char *unit)
{
    out << name << ": " << QString::number(value, 'f', 1) << ' ' << unit << '\n';
}

std::vector<Start> warmStarts(const DatabaseConfig &db, int controllers, int repeat, ZDate last)
{
    std::vector<Start> warm;
    for (int i = 0; i < repeat; ++i)
        warm.push_back(startOnce(db, controllers, last));
    return warm;
}

// The figures of the starts, each name after `prefix`; the cold lines only with a cold start.
void report(QTextStream &out, const QString &prefix, int controllers, const std::vector<Start> &warm, const Start *cold)
{
    const Start &last = warm.back();
    out << prefix << "startup_controllers: " << controllers << " count\n";
    if (cold)
        print(out, prefix + QStringLiteral("startup_to_first_tick_cold"), cold->toFirstTickMs, "ms");
    print(out, prefix + QStringLiteral("startup_to_first_tick"), median(warm, &Start::toFirstTickMs), "ms");
    out << prefix << "startup_statements: " << last.statements << " count\n";
    out << prefix << "startup_statements_on_pomiary: " << last.onArchive << " count\n";
    out << prefix << "startup_rows_read: " << last.rowsRead << " rows\n";
    if (cold)
        print(out, prefix + QStringLiteral("first_tick_cold"), cold->firstTickMs, "ms");
    print(out, prefix + QStringLiteral("first_tick"), median(warm, &Start::firstTickMs), "ms");
    out << prefix << "first_tick_samples: " << last.samplesStored << " count\n";
}

void runOnCopy(QTextStream &out, const Options &o)
{
    QTemporaryDir dir(QFileInfo(o.archive).absolutePath() + QStringLiteral("/zorbel-startup-XXXXXX"));
    QDir::setCurrent(dir.path());
    const QString copy = dir.filePath(QStringLiteral("zorbel.db"));
    QElapsedTimer t;
    t.start();
    copyArchive(o.archive, copy);
    print(out, QStringLiteral("archive_copy"), double(t.elapsed()) / 1000.0, "s");
    const ZDate last = prepare(copy, o.controllers);
    dropFromCache(copy);
    const Start cold = startOnce(onFile(copy), o.controllers, last);
    report(out, {}, o.controllers, warmStarts(onFile(copy), o.controllers, o.repeat, last), &cold);
}

void runOnServer(QTextStream &out, const Options &o)
{
    const DatabaseConfig db = DatabaseConfig::fromUrl(o.pgUrl);
    if (db.engine != SqlDialect::Engine::PostgreSQL)
        throw RunTimeError::database(QStringLiteral("--pg przyjmuje tylko adres postgresql://"));
    QTemporaryDir dir; // whatever the station writes beside itself
    QDir::setCurrent(dir.path());
    const ArchiveLoan loan(db, o.controllers);
    out << "pg_controllers_added: " << loan.controllersAdded() << " count\n";
    report(out, QStringLiteral("pg_"), loan.controllers(), warmStarts(db, loan.controllers(), o.repeat, loan.lastSample()),
           nullptr);
}

}

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    const std::optional<Options> o = parse(app.arguments());
    if (!o) {
        out << "usage: startup_scale [--archive FILE | --pg URL] [--controllers N] [--repeat K]\n";
        return 2;
    }
    try {
        if (o->pgUrl.isEmpty())
            runOnCopy(out, *o);
        else
            runOnServer(out, *o);
    } catch (const RunTimeError &e) {
        out << "startup_scale: " << e.message() << Qt::endl;
        return 1;
    }
    return 0;
}
