// The start of a large installation: 255 controllers on an archive of
// 35 million samples (100 controllers x 10 years, see LargeArchive.h),
// from StartUp to the first tick of the polling, cold (the file's pages
// out of the page cache) and warm; then the first tick itself (every
// controller read on the simulated line and its sample stored).
//
//   startup_scale [--archive FILE] [--controllers N] [--repeat K]
//
// The shared archive is never written: the bench copies it into a
// temporary folder beside it (it needs that much free space), gives the
// copy N complete controller rows and the base of each one's next sample,
// runs there and deletes the copy at its end.

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
        else if (name == QLatin1String("--controllers"))
            o.controllers = std::clamp(value.toInt(), 1, 255);
        else if (name == QLatin1String("--repeat"))
            o.repeat = std::max(1, value.toInt());
        else
            return std::nullopt;
    }
    return args.isEmpty() ? std::optional(o) : std::nullopt;
}

// The archive's last moment; the bases of the next samples stand there.
const ZDate LastSample = ZDate::fromParts(2024, 12, 31, 23, 45, 0);

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

// N complete controllers in place of the archive's bare rows, each with the base of its next sample.
void prepare(const QString &file, int controllers)
{
    SimFleet fleet(file);
    Database &db = fleet.station.openDatabase();
    db.execText(QStringLiteral("DELETE FROM Regulatory"));
    db.execText(QStringLiteral("DELETE FROM OstPomiar"));
    fleet.addRows(controllers);
    for (int adres = 1; adres <= controllers; ++adres)
        fleet.station.addLastSample(adres, 1000.0f, 500.0f, 200.0f, 0, LastSample);
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

int samples(HeadlessStation &st)
{
    return st.count(QStringLiteral("Pomiary"), QStringLiteral("Data >= '2025-01-01'"));
}

// One start as the program makes it: options, database and controllers, the port, the polling; then its first tick.
Start startOnce(const QString &file, int controllers)
{
    SimFleet fleet(file);
    HeadlessStation &st = fleet.station;
    st.clock.set(LastSample.addMinutes(20)); // before the controllers, whose model starts at their creation
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
    const int before = samples(st);
    t.restart();
    st.timers().Timer1Tick();
    out.firstTickMs = double(t.nsecsElapsed()) / 1e6;
    out.samplesStored = samples(st) - before;
    st.station().stop();
    return out;
}

double median(std::vector<Start> starts, double Start::*figure)
{
    std::sort(starts.begin(), starts.end(), [&](const Start &a, const Start &b) { return a.*figure < b.*figure; });
    return starts[starts.size() / 2].*figure;
}

void print(QTextStream &out, const char *name, double value, const char *unit, int precision = 1)
{
    out << name << ": " << QString::number(value, 'f', precision) << ' ' << unit << '\n';
}

}

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    const std::optional<Options> o = parse(app.arguments());
    if (!o) {
        out << "usage: startup_scale [--archive FILE] [--controllers N] [--repeat K]\n";
        return 2;
    }
    QTemporaryDir dir(QFileInfo(o->archive).absolutePath() + QStringLiteral("/zorbel-startup-XXXXXX"));
    QDir::setCurrent(dir.path());
    const QString copy = dir.filePath(QStringLiteral("zorbel.db"));
    try {
        QElapsedTimer t;
        t.start();
        copyArchive(o->archive, copy);
        print(out, "archive_copy", double(t.elapsed()) / 1000.0, "s");
        prepare(copy, o->controllers);
        dropFromCache(copy);
        const Start cold = startOnce(copy, o->controllers);
        std::vector<Start> warm;
        for (int i = 0; i < o->repeat; ++i)
            warm.push_back(startOnce(copy, o->controllers));
        const Start &last = warm.back();
        out << "startup_controllers: " << o->controllers << " count\n";
        print(out, "startup_to_first_tick_cold", cold.toFirstTickMs, "ms");
        print(out, "startup_to_first_tick", median(warm, &Start::toFirstTickMs), "ms");
        out << "startup_statements: " << last.statements << " count\n";
        out << "startup_statements_on_pomiary: " << last.onArchive << " count\n";
        out << "startup_rows_read: " << last.rowsRead << " rows\n";
        print(out, "first_tick_cold", cold.firstTickMs, "ms");
        print(out, "first_tick", median(warm, &Start::firstTickMs), "ms");
        out << "first_tick_samples: " << last.samplesStored << " count\n";
    } catch (const RunTimeError &e) {
        out << "startup_scale: " << e.message() << Qt::endl;
        return 1;
    }
    return 0;
}
