// Resident memory of a station polling a large installation: the headless
// station on the simulated line (fake clock, in-process controllers) reads
// 255 controllers every 15 minutes for a number of hours of fake time;
// VmRSS after the start and after each hour, and the growth.
//
//   polling_memory [hours] [controllers] [drop]   (24, 255 and 0 when not given)
//
// drop: the probability that a reply byte is lost, so that readings fail
// and their alarms come and go.
//
// The harness keeps records of its own (every frame sent, every interface
// event); they are dropped each hour, so what remains is the station's.
// Memory freed is handed back to the system before each reading.

#include "SimFleet.h"
#include "TestEnv.h"

#include "base/RunTimeError.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
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

}

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    const int hours = std::max(1, argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 24);
    const int controllers = std::clamp(argc > 2 ? QString::fromLocal8Bit(argv[2]).toInt() : 255, 1, 255);
    sim::FaultPlan faults;
    faults.dropProbability = argc > 3 ? QString::fromLocal8Bit(argv[3]).toDouble() : 0.0;
    TestEnv env;
    try {
        SimFleet fleet(QStringLiteral("zorbel.db"));
        fleet.station.createDatabase();
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
