#include "TestMain.h"
#include "ErrorOf.h"
#include "base/SettingsStore.h"
#include "link/PortNames.h"
#include "link/StationLine.h"

#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>

// The ports: device names, serial and TCP lines, failures to open. A serial
// line at work is in tst_line_reopen.
class LinePortsTest : public QObject {
    Q_OBJECT
private slots:
    void portNumberNamesADeviceThatMayBeMissing()
    {
        MemorySettingsStore store;
        QCOMPARE(portDevice(store, 1), QStringLiteral("/dev/ttyS0"));
        QCOMPARE(portDevice(store, 4), QStringLiteral("/dev/ttyS3"));
        store.setValue(QStringLiteral("porty"), QStringLiteral("1"), QStringLiteral("/dev/ttyUSB0"));
        QCOMPARE(portDevice(store, 1), QStringLiteral("/dev/ttyUSB0"));
        QVERIFY(isTcpDevice(QStringLiteral("tcp://10.0.0.7:4001")));
        QVERIFY(!isTcpDevice(QStringLiteral("/dev/ttyUSB0")));
        StationLine line(store);
        QCOMPARE(errorOf([&] { line.open(0); }), int(RunTimeError::InvalidPortNumber));
        store.setValue(QStringLiteral("porty"), QStringLiteral("1"), QStringLiteral("/dev/zorbel-no-such-tty"));
        QVERIFY(!line.open(1));
        QVERIFY(!line.errorString().isEmpty());
        QCOMPARE(line.readByte(), -1);
        line.send("x"); // harmless on a closed port
    }

    void tcpLineMovesEveryByteValueBothWaysAndARefusalFails()
    {
        QTcpServer server;
        QVERIFY(server.listen(QHostAddress::LocalHost));
        MemorySettingsStore store;
        store.setValue(QStringLiteral("porty"), QStringLiteral("2"),
                       QStringLiteral("tcp://127.0.0.1:%1").arg(server.serverPort()));
        StationLine line(store);
        QVERIFY2(line.open(2), qPrintable(line.errorString()));
        QVERIFY(server.waitForNewConnection(3000));
        QTcpSocket *peer = server.nextPendingConnection();
        QByteArray allByteValues;
        for (int i = 0; i < 256; ++i)
            allByteValues.append(char(i));
        line.send(allByteValues);
        QByteArray received;
        while (received.size() < 256 && peer->waitForReadyRead(3000))
            received += peer->readAll();
        QCOMPARE(received, allByteValues);

        peer->write(allByteValues);
        QTRY_COMPARE(line.bytesWaiting(), 256);
        QByteArray got;
        while (got.size() < 200)
            got.append(char(line.readByte()));
        QCOMPARE(got, allByteValues.left(200));
        line.discardInput();
        QCOMPARE(line.bytesWaiting(), 0);
        QCOMPARE(line.readByte(), -1);

        line.close();
        server.close();
        QVERIFY(!line.open(2));
        QVERIFY(!line.errorString().isEmpty());
    }
};

ZORBEL_TEST_MAIN(LinePortsTest)
#include "tst_line_ports.moc"
