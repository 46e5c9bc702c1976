// Reads from a controller whose line has gone away under the station, and
// prints what the failing reads cost the process in CPU time. The line is a
// pseudo-terminal whose other side is closed: its device reports the loss at
// every pass, and the station tries it again at most once a second.
//
//   line_lost_wait [seconds]      (10 when not given)

#include "BenchSupport.h"

#include "base/Clock.h"
#include "base/Dialogs.h"
#include "base/SettingsStore.h"
#include "link/QtEventPump.h"
#include "link/StationLine.h"
#include "link/clComm.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTextStream>
#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

namespace {
class NoDialogs final : public Dialogs {
public:
    int MsgBox(const QString &, int, const QString &) override { return Ok; }
};
}

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const double seconds = argc > 1 ? QString::fromLocal8Bit(argv[1]).toDouble() : 10.0;
    QTextStream out(stdout);

    const int master = posix_openpt(O_RDWR | O_NOCTTY);
    if (master < 0 || grantpt(master) != 0 || unlockpt(master) != 0) {
        out << "line_lost_wait: no pseudo-terminal" << Qt::endl;
        return 1;
    }
    MemorySettingsStore store;
    store.setValue(QStringLiteral("porty"), QStringLiteral("1"), QString::fromLocal8Bit(ptsname(master)));
    SystemClock clock;
    StationLine line(store, clock);
    if (!line.open(1)) {
        out << "line_lost_wait: " << line.errorString() << Qt::endl;
        return 1;
    }
    ::close(master); // the line goes away
    QtEventPump pump;
    NoDialogs dialogs;
    clComm comm(line, clock, pump, dialogs);

    const double cpuBefore = cpuMs();
    QElapsedTimer wall;
    wall.start();
    int reads = 0;
    while (wall.elapsed() < qint64(seconds * 1000.0)) {
        comm.WyslijStr(QByteArray(1, char(0x55)));
        comm.CzytajBajt();
        ++reads;
    }
    const double cpu = cpuMs() - cpuBefore;
    const double wallMs = double(wall.elapsed());

    out << "line_lost_wait_wall: " << wallMs << " ms\n";
    out << "line_lost_wait_cpu: " << cpu << " ms\n";
    out << "line_lost_wait_cpu_share: " << QString::number(100.0 * cpu / wallMs, 'f', 3) << " %\n";
    out << "line_lost_wait_reads: " << reads << " count\n";
    return 0;
}
