#include "TestMain.h"
#include "ControllerSources.h"
#include "TestEnv.h"

#include "simcore/RawScale.h"

#include <QProcess>
#include <QTcpSocket>
#include <QtTest>
#include <cmath>
#include <fcntl.h>
#include <unistd.h>

namespace {

// The demo installation with one day of history, so OstPomiar has rows.
QString makeDemoDatabase(const TestEnv &env)
{
    const QString url = QStringLiteral("sqlite:") + env.file(QStringLiteral("demo.db"));
    QProcess admin;
    admin.start(TestEnv::program(QStringLiteral("zorbel-admin")),
                {QStringLiteral("demo"), QStringLiteral("--db"), url, QStringLiteral("--days"), QStringLiteral("1")});
    if (!admin.waitForFinished(60000) || admin.exitCode() != 0)
        qFatal("zorbel-admin demo failed: %s", admin.readAllStandardError().constData());
    return url;
}

// Starts zorbel-sim and returns the first line it prints: where to connect.
QString startSimulator(QProcess &sim, const QStringList &args)
{
    sim.start(TestEnv::program(QStringLiteral("zorbel-sim")), args);
    if (!sim.waitForStarted(10000))
        return {};
    QElapsedTimer waited;
    waited.start();
    while (!sim.canReadLine() && waited.elapsed() < 20000 && sim.state() == QProcess::Running)
        sim.waitForReadyRead(200);
    return QString::fromLocal8Bit(sim.readLine()).trimmed();
}

QByteArray frame(int address, int reg, int function)
{
    QByteArray f;
    for (int b : {2, address, reg, function})
        f.append(char(b));
    return f;
}

QByteArray unstuff(const QByteArray &line)
{
    QByteArray out;
    for (int i = 0; i < line.size(); ++i) {
        out.append(line[i]);
        if (line[i] == 2)
            ++i;
    }
    return out;
}

void stop(QProcess &sim)
{
    sim.terminate();
    QVERIFY(sim.waitForFinished(10000));
}

} // namespace

class TestSimProgram : public QObject {
    Q_OBJECT

private slots:

    void databaseGivesControllersAndCounters()
    {
        TestEnv env;
        const auto configs = sim::ControllerSources::fromDatabase(makeDemoDatabase(env));
        QCOMPARE(configs.size(), size_t(6));
        QList<int> addresses;
        int seeded = 0;
        for (const auto &c : configs) {
            addresses << c.address;
            seeded += c.seed ? 1 : 0;
        }
        QCOMPARE(addresses, (QList<int>{1, 2, 5, 6, 7, 9}));
        QCOMPARE(configs[2].currentRatio, 160.0);
        QVERIFY(seeded >= 1);
        QVERIFY(configs[2].seed && configs[2].seed->activeKWh > 0);  // the one fullReadingOverAPty reads
    }

    void fullReadingOverAPty()
    {
        TestEnv env;
        const QString url = makeDemoDatabase(env);
        const auto seeds = sim::ControllerSources::fromDatabase(url);
        const QString link = env.file(QStringLiteral("bus"));
        QProcess sim;
        const QString where = startSimulator(sim, {QStringLiteral("--db"), url, QStringLiteral("--link"), link,
                                                   QStringLiteral("--log"), env.file(QStringLiteral("frames.log"))});
        QVERIFY2(where.startsWith(QStringLiteral("/dev/")), qPrintable(where));
        QCOMPARE(QFile::symLinkTarget(link), where);

        const int fd = ::open(link.toLocal8Bit().constData(), O_RDWR | O_NOCTTY | O_NONBLOCK);
        QVERIFY(fd >= 0);
        QByteArray line;
        auto readSome = [&] {
            char buffer[256];
            const ssize_t n = ::read(fd, buffer, sizeof buffer);
            if (n > 0)
                line.append(buffer, int(n));
            return line.size();
        };
        for (int reg : {0x90, 0xA0, 0xB0}) {
            line.clear();
            QVERIFY(::write(fd, frame(5, reg, 4).constData(), 4) == 4);
            QTRY_VERIFY_WITH_TIMEOUT(readSome() >= 1, 10000);
        }
        line.clear();
        QVERIFY(::write(fd, frame(5, 0x4F, 6).constData(), 4) == 4);
        QTRY_VERIFY_WITH_TIMEOUT(unstuff(line).size() >= 33 || readSome() < 0, 10000);
        const QByteArray data = unstuff(line);
        QCOMPARE(data.size(), 33);
        // The counters continue the stored ones: active energy as the station derives it.
        const QByteArray b = data.mid(1);
        auto u32 = [&](int i) { return double(quint32(quint8(b[i]) << 24 | quint8(b[i + 1]) << 16 | quint8(b[i + 2]) << 8 | quint8(b[i + 3]))); };
        const double reactive = double(qint32(u32(8)));
        const double activeKWh = std::sqrt(u32(0) * u32(0) - reactive * reactive) * sim::RawScale::energyPerUnit(seeds[2]);
        QVERIFY2(std::fabs(activeKWh - seeds[2].seed->activeKWh) < 5.0, qPrintable(QString::number(activeKWh)));
        ::close(fd);
        stop(sim);
        QVERIFY(!QFileInfo::exists(link));
        QFile log(env.file(QStringLiteral("frames.log")));
        QVERIFY(log.open(QIODevice::ReadOnly));
        const QByteArray logged = log.readAll();
        QVERIFY(logged.contains("RX @5 02 05 4F 06"));
        QVERIFY(logged.contains("TX @5 06"));
    }

    void silentAddressOverTcp()
    {
        TestEnv env;
        QProcess sim;
        const QString where = startSimulator(sim, {QStringLiteral("--addresses"), QStringLiteral("5,6"),
                                                   QStringLiteral("--tcp"), QStringLiteral("0"),
                                                   QStringLiteral("--silent"), QStringLiteral("5"),
                                                   QStringLiteral("--unpaced")});
        QVERIFY2(where.startsWith(QStringLiteral("127.0.0.1:")), qPrintable(where));
        QTcpSocket socket;
        socket.connectToHost(QHostAddress::LocalHost, quint16(where.section(u':', 1).toInt()));
        QVERIFY(socket.waitForConnected(10000));
        socket.write(frame(5, 0x90, 4) + frame(6, 0x2F, 5));
        QByteArray got;
        QTRY_VERIFY_WITH_TIMEOUT((got += socket.readAll()).size() >= 1, 10000);
        QCOMPARE(got, QByteArray(1, char(0)));  // only 6 answers: its blocking byte, 0
        stop(sim);
    }
};

ZORBEL_TEST_MAIN(TestSimProgram)
#include "tst_sim_program.moc"
