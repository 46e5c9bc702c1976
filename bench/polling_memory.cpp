// Resident memory of a station polling a large installation: the headless
// station on the simulated line (fake clock, in-process controllers) reads
// 255 controllers every 15 minutes for a number of hours of fake time;
// VmRSS after the start and after each hour, and the growth.
//
//   polling_memory [--db ADDRESS] [hours] [controllers] [drop]   (24, 255 and 0 when not given)
//
// drop: the probability that a reply byte is lost, so that readings fail
// and their alarms come and go.
//
// The station runs on a new database of its own: by default an SQLite file
// in a temporary folder; with --db (sqlite:FILE, a file that does not exist
// yet, or postgresql://..., an empty database made beforehand) there. Its
// tables are made by the station's schema code and taken away at the end.
//
// The harness keeps records of its own (every frame sent, every interface
// event); they are dropped each hour, so what remains is the station's.
// Memory freed is handed back to the system before each reading.

#include "ScratchDatabase.h"
#include "SimFleet.h"
#include "TestEnv.h"

#include "base/RunTimeError.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>
#include <algorithm>
#include <malloc.h>

namespace {

double residentMb()
{
    ::malloc_trim(0);
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : status.readAll().split('\n'))
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').value(0).toDouble() / 1024.0;
    return 0;
}

void dropHarnessRecords(SimFleet &fleet)
{
    fleet.line.sent.clear();
    fleet.station.wizual.calls.clear();
}

void print(QTextStream &out, const QString &name, double value, const char *unit)
{
    out << name << ": " << QString::number(value, 'f', 1) << ' ' << unit << Qt::endl;
}

struct Options {
    DatabaseConfig database; // zorbel.db in the temporary folder
    int hours = 24;
    int controllers = 255;
    double drop = 0.0;
};

Options parse(QStringList args)
{
    Options o;
    args.removeFirst();
    if (args.size() >= 2 && args.first() == QLatin1String("--db")) {
        o.database = DatabaseConfig::fromUrl(args[1]);
        o.database.file = QFileInfo(o.database.file).absoluteFilePath(); // before the move to the temporary folder
        args = args.mid(2);
    }
    o.hours = std::max(1, args.value(0, QStringLiteral("24")).toInt());
    o.controllers = std::clamp(args.value(1, QStringLiteral("255")).toInt(), 1, 255);
    o.drop = args.value(2, QStringLiteral("0")).toDouble();
    return o;
}

}

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    try {
        const Options o = parse(app.arguments());
        const int hours = o.hours, controllers = o.controllers;
        sim::FaultPlan faults;
        faults.dropProbability = o.drop;
        TestEnv env;
        const ScratchDatabase database(o.database);
        SimFleet fleet(database.config());
        fleet.station.openDatabase();
        fleet.addRows(controllers);
        fleet.addSimulated(controllers);
        fleet.line.bus().setFaults(faults);
        HeadlessStation &st = fleet.station;
        st.start();
        const double atStart = residentMb();
        print(out, QStringLiteral("rss_start"), atStart, "MB");
        double afterFirst = atStart, last = atStart, peak = atStart;
        QElapsedTimer wall;
        wall.start();
        for (int h = 1; h <= hours; ++h) {
            st.runUntil(st.clock.now().addMinutes(60));
            dropHarnessRecords(fleet);
            last = residentMb();
            peak = std::max(peak, last);
            afterFirst = h == 1 ? last : afterFirst;
            print(out, QStringLiteral("rss_hour_%1").arg(h), last, "MB");
        }
        print(out, QStringLiteral("rss_growth"), last - atStart, "MB");
        print(out, QStringLiteral("rss_growth_after_first_hour"), last - afterFirst, "MB");
        print(out, QStringLiteral("rss_peak"), peak, "MB");
        out << "samples_stored: " << st.count(QStringLiteral("Pomiary")) << " count\n";
        out << "alarm_rows: " << st.station().fmAlarmyN.rowCount() << " count\n";
        print(out, QStringLiteral("wall_per_simulated_hour"), double(wall.elapsed()) / 1000.0 / hours, "s");
    } catch (const RunTimeError &e) {
        out << "polling_memory: " << e.message() << Qt::endl;
        return 1;
    }
    return 0;
}
