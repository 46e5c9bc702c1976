#include "TestMain.h"
#include "ErrorOf.h"
#include "base/Clock.h"
#include "base/RunTimeError.h"
#include "base/SettingsStore.h"
#include "link/Komunikator.h"
#include "link/PortNames.h"
#include "link/QtEventPump.h"
#include "link/StationLine.h"
#include "link/clComm.h"
#include "model/colRegulatory.h"

#include "RecordingDialogs.h"
#include "RecordingWizual.h"

#include <QElapsedTimer>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <ctime>
#include <fcntl.h>
#include <memory>
#include <unistd.h>

namespace {
QByteArray allByteValues()
{
    QByteArray b;
    for (int i = 0; i < 256; ++i)
        b.append(char(i));
    return b;
}

// The far end of a TCP line: one accepted connection.
struct Peer {
    Peer()
    {
        server.listen(QHostAddress::LocalHost);
        store.setValue(QStringLiteral("porty"), QStringLiteral("2"),
                       QStringLiteral("tcp://127.0.0.1:%1").arg(server.serverPort()));
    }
    QTcpSocket &accept()
    {
        if (!socket && server.waitForNewConnection(3000))
            socket = server.nextPendingConnection();
        return *socket;
    }
    QByteArray receive(int count)
    {
        QByteArray got;
        while (got.size() < count && accept().waitForReadyRead(3000))
            got += socket->readAll();
        return got;
    }

    MemorySettingsStore store;
    QTcpServer server;
    QTcpSocket *socket = nullptr;
};

// A pseudo-terminal standing in for a serial device.
struct Pty {
    Pty()
    {
        master = posix_openpt(O_RDWR | O_NOCTTY);
        if (master >= 0 && grantpt(master) == 0 && unlockpt(master) == 0)
            device = QString::fromLocal8Bit(ptsname(master));
    }
    ~Pty()
    {
        if (master >= 0)
            ::close(master);
    }
    int master = -1;
    QString device;
};
}

// The ports: device names, serial and TCP lines, failures to open, and the
// link working over a real port with the real pump.
class LinePortsTest : public QObject {
    Q_OBJECT
private slots:
    void portNumberNamesADevice()
    {
        MemorySettingsStore store;
        QCOMPARE(portDevice(store, 1), QStringLiteral("/dev/ttyS0"));
        QCOMPARE(portDevice(store, 4), QStringLiteral("/dev/ttyS3"));
        store.setValue(QStringLiteral("porty"), QStringLiteral("1"), QStringLiteral("/dev/ttyUSB0"));
        QCOMPARE(portDevice(store, 1), QStringLiteral("/dev/ttyUSB0"));
        QVERIFY(isTcpDevice(QStringLiteral("tcp://10.0.0.7:4001")));
        QVERIFY(!isTcpDevice(QStringLiteral("/dev/ttyUSB0")));
    }

    void portZeroIsARunTimeError()
    {
        MemorySettingsStore store;
        StationLine line(store);
        QCOMPARE(errorOf([&] { line.open(0); }), 8002);
    }

    void missingSerialDeviceFailsWithTheSystemsDescription()
    {
        MemorySettingsStore store;
        store.setValue(QStringLiteral("porty"), QStringLiteral("1"), QStringLiteral("/dev/zorbel-no-such-tty"));
        StationLine line(store);
        QVERIFY(!line.open(1));
        QVERIFY(!line.isOpen());
        QVERIFY(!line.errorString().isEmpty());
        QCOMPARE(line.readByte(), -1);
        line.send("x"); // harmless on a closed port
    }

    void serialLineMovesRawBytesAndATakenPortFails()
    {
        Pty pty;
        if (pty.device.isEmpty())
            QSKIP("no pseudo-terminal");
        MemorySettingsStore store;
        store.setValue(QStringLiteral("porty"), QStringLiteral("1"), pty.device);
        StationLine line(store);
        QVERIFY2(line.open(1), qPrintable(line.errorString()));
        StationLine other(store);
        QVERIFY(!other.open(1));
        QVERIFY(!other.errorString().isEmpty());

        const QByteArray frame("\x02\x05\x90\x04", 4);
        line.send(frame);
        QByteArray got(4, 0);
        QCOMPARE(::read(pty.master, got.data(), 4), ssize_t(4));
        QCOMPARE(got, frame);
        const QByteArray reply("\x02\x02\xFF\x00", 4);
        QCOMPARE(::write(pty.master, reply.constData(), 4), ssize_t(4));
        QTRY_COMPARE(line.bytesWaiting(), 4);
        for (char c : reply)
            QCOMPARE(line.readByte(), int(static_cast<unsigned char>(c)));
    }

    void tcpLineMovesEveryByteValueBothWays()
    {
        Peer peer;
        StationLine line(peer.store);
        QVERIFY2(line.open(2), qPrintable(line.errorString()));
        line.send(allByteValues());
        QCOMPARE(peer.receive(256), allByteValues());
        peer.socket->write(allByteValues());
        QTRY_COMPARE(line.bytesWaiting(), 256);
        QByteArray got;
        while (line.bytesWaiting() > 0)
            got.append(char(line.readByte()));
        QCOMPARE(got, allByteValues());
    }

    void tcpDiscardDropsWhatWaits()
    {
        Peer peer;
        StationLine line(peer.store);
        QVERIFY(line.open(2));
        peer.accept().write("abc");
        peer.socket->flush();
        QTRY_COMPARE(line.bytesWaiting(), 3);
        line.discardInput();
        QCOMPARE(line.bytesWaiting(), 0);
        QCOMPARE(line.readByte(), -1);
    }

    void refusedTcpConnectionFailsWithADescription()
    {
        Peer peer;
        peer.server.close();
        StationLine line(peer.store);
        QVERIFY(!line.open(2));
        QVERIFY(!line.errorString().isEmpty());
    }

    void commandOverTcpWithTheRealPump()
    {
        Peer peer;
        StationLine line(peer.store);
        QVERIFY(line.open(2));
        SystemClock clock;
        QtEventPump pump;
        RecordingDialogs dialogs;
        clComm comm(line, clock, pump, dialogs);
        RecordingWizual wizual;
        Komunikator komunikator(comm, wizual);
        connect(&peer.server, &QTcpServer::newConnection, this, [&] {
            QTcpSocket *s = peer.server.nextPendingConnection();
            connect(s, &QTcpSocket::readyRead, s, [s] {
                if (s->readAll() == QByteArray("\x02\x05\x90\x04", 4))
                    s->write("\x02\x02\x7E", 3); // a stuffed 2, then one byte too many
            });
        });

        QString word = QStringLiteral("Czytaj_Kond1");
        QVariant reply;
        std::uint8_t p = 0;
        QElapsedTimer wall;
        wall.start();
        QVERIFY(komunikator.WykonajRozkaz(5, word, reply, p));
        QCOMPARE(reply.toInt(), 2);
        QVERIFY(wall.elapsed() < 1000);
    }

};

ZORBEL_TEST_MAIN(LinePortsTest)
#include "tst_line_ports.moc"
