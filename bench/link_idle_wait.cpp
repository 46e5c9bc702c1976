// Waits on a silent controller line through the station's own link and
// pump, and prints what the wait cost the process in CPU time.
//
//   link_idle_wait [seconds]      (30 when not given)
//
// The line is a TCP connection to a local server that never answers, the
// way a gateway with no controller behind it behaves.

#include "base/Clock.h"
#include "base/Dialogs.h"
#include "base/SettingsStore.h"
#include "link/QtEventPump.h"
#include "link/StationLine.h"
#include "link/clComm.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTcpServer>
#include <QTextStream>
#include <sys/resource.h>

namespace {
class NoDialogs final : public Dialogs {
public:
    int MsgBox(const QString &, int, const QString &) override { return Ok; }
};

double cpuMs()
{
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    const auto ms = [](const timeval &t) { return double(t.tv_sec) * 1000.0 + double(t.tv_usec) / 1000.0; };
    return ms(u.ru_utime) + ms(u.ru_stime);
}
}

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const double seconds = argc > 1 ? QString::fromLocal8Bit(argv[1]).toDouble() : 30.0;
    QTextStream out(stdout);

    QTcpServer silent;
    if (!silent.listen(QHostAddress::LocalHost)) {
        out << "link_idle_wait: no local server: " << silent.errorString() << Qt::endl;
        return 1;
    }
    MemorySettingsStore store;
    store.setValue(QStringLiteral("porty"), QStringLiteral("1"),
                   QStringLiteral("tcp://127.0.0.1:%1").arg(silent.serverPort()));
    StationLine line(store);
    if (!line.open(1)) {
        out << "link_idle_wait: " << line.errorString() << Qt::endl;
        return 1;
    }
    SystemClock clock;
    QtEventPump pump;
    NoDialogs dialogs;
    clComm comm(line, clock, pump, dialogs);

    const double cpuBefore = cpuMs();
    QElapsedTimer wall;
    wall.start();
    int timeouts = 0;
    while (wall.elapsed() < qint64(seconds * 1000.0)) {
        if (comm.CzytajBajt() < 0)
            ++timeouts;
    }
    const double cpu = cpuMs() - cpuBefore;
    const double wallMs = double(wall.elapsed());

    out << "link_idle_wait_wall: " << wallMs << " ms\n";
    out << "link_idle_wait_cpu: " << cpu << " ms\n";
    out << "link_idle_wait_cpu_share: " << QString::number(100.0 * cpu / wallMs, 'f', 3) << " %\n";
    out << "link_idle_wait_timeouts: " << timeouts << " count\n";
    out << "link_idle_wait_timeout_mean: " << (timeouts ? wallMs / timeouts : 0.0) << " ms\n";
    return 0;
}
