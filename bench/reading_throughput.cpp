// Full readings of one controller of a real zorbel-sim, paced at 4800
// baud on a pseudo-terminal, through the station's own serial port, pump
// and clock: how close the link comes to the line's limit.
//
//   reading_throughput [readings]      (40 when not given)

#include "BenchSupport.h"
#include "RecordingWizual.h"
#include "StationFixture.h"

#include "base/Clock.h"
#include "link/QtEventPump.h"
#include "link/StationLine.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>

namespace {

constexpr double BitsPerByte = 11;
constexpr double Baud = 4800;

// The station's port, counting the bytes that cross it.
class CountingLine final : public LinePort {
public:
    explicit CountingLine(LinePort &inner) : m_inner(inner) {}
    bool open(std::uint8_t number) override { return m_inner.open(number); }
    void close() override { m_inner.close(); }
    bool isOpen() const override { return m_inner.isOpen(); }
    QString errorString() const override { return m_inner.errorString(); }
    int bytesWaiting() const override { return m_inner.bytesWaiting(); }
    int readByte() override
    {
        const int b = m_inner.readByte();
        if (b >= 0)
            ++received;
        return b;
    }
    void send(const QByteArray &bytes) override
    {
        sent += bytes.size();
        m_inner.send(bytes);
    }
    void discardInput() override { m_inner.discardInput(); }

    qint64 sent = 0;
    qint64 received = 0;

private:
    LinePort &m_inner;
};

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const int readings = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 40;
    QTextStream out(stdout);

    QTemporaryDir dir;
    QDir::setCurrent(dir.path());
    QProcess sim;
    sim.start(QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("zorbel-sim")),
              {QStringLiteral("--addresses"), QStringLiteral("1")});
    if (!sim.waitForStarted() || !sim.waitForReadyRead(10000)) {
        out << "reading_throughput: zorbel-sim did not start" << Qt::endl;
        return 1;
    }
    while (!sim.canReadLine() && sim.waitForReadyRead(5000)) {
    }
    const QString pty = QString::fromLocal8Bit(sim.readLine()).trimmed();

    StationFixture f(dir.filePath(QStringLiteral("zorbel.db")));
    f.createDatabase();
    f.addController(QStringLiteral("R1"), 1);
    f.settings.setValue(QStringLiteral("porty"), QStringLiteral("1"), pty);

    SystemClock clock;
    StationLine serial(f.settings);
    CountingLine line(serial);
    QtEventPump pump;
    Station station(StationServices{clock, f.settings, f.dialogs, f.splash, line, pump, f.wizual, f.panels});
    int failures = 0;
    double wallMs = 0, cpu = 0;
    try {
        station.oApp.WczytajOpcje(f.settings);
        station.StartUp();
        if (!line.open(station.oApp.nr_portu)) {
            out << "reading_throughput: " << pty << ": " << line.errorString() << Qt::endl;
            return 1;
        }
        clRegulator &r = station.Regulatory.Item(1);
        r.WczytajStanRegul(clock.now()); // the first one settles the line
        line.sent = line.received = 0;
        const double cpuBefore = cpuMs();
        QElapsedTimer wall;
        wall.start();
        for (int i = 0; i < readings; ++i) {
            f.wizual.calls.clear();
            if (!r.WczytajStanRegul(clock.now()))
                ++failures;
        }
        wallMs = double(wall.nsecsElapsed()) / 1e6;
        cpu = cpuMs() - cpuBefore;
    } catch (const RunTimeError &e) {
        out << "reading_throughput: " << e.message() << Qt::endl;
        return 1;
    }
    line.close();
    sim.terminate();
    sim.waitForFinished(3000);

    const double perReading = wallMs / readings;
    const double bytesPerReading = double(line.sent + line.received) / readings;
    const double wirePerReading = bytesPerReading * BitsPerByte * 1000.0 / Baud;
    const double replyWire = double(line.received) / readings * BitsPerByte * 1000.0 / Baud;
    out << "reading_throughput_readings: " << readings << " count\n";
    out << "reading_throughput_failures: " << failures << " count\n";
    out << "reading_throughput_time_per_reading: " << QString::number(perReading, 'f', 2) << " ms\n";
    out << "reading_throughput_bytes_per_reading: " << QString::number(bytesPerReading, 'f', 1) << " bytes\n";
    out << "reading_throughput_wire_time_per_reading: " << QString::number(wirePerReading, 'f', 2) << " ms\n";
    out << "reading_throughput_reply_wire_time_per_reading: " << QString::number(replyWire, 'f', 2) << " ms\n";
    out << "reading_throughput_line_use: " << QString::number(100.0 * wirePerReading / perReading, 'f', 1) << " %\n";
    // zorbel-sim starts each reply's first byte at once and paces the rest,
    // and a pty carries the requests in no time: this is the least time a
    // reading can take on it (four replies per reading)
    const double simFloor = (double(line.received) / readings - 4) * BitsPerByte * 1000.0 / Baud;
    out << "reading_throughput_sim_floor_per_reading: " << QString::number(simFloor, 'f', 2) << " ms\n";
    out << "reading_throughput_sim_floor_share: " << QString::number(100.0 * simFloor / perReading, 'f', 1) << " %\n";
    out << "reading_throughput_cpu_per_reading: " << QString::number(cpu / readings, 'f', 3) << " ms\n";
    return failures == 0 ? 0 : 2;
}
