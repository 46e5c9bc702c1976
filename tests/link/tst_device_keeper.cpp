#include "TestMain.h"
#include "FakeClock.h"

#include "link/DeviceKeeper.h"
#include "link/IoDeviceLine.h"

#include <QBuffer>
#include <QTest>

namespace {

// A device that the test plugs in and pulls out, or whose connection drops
// and is back at once (gone); it counts the tries to open it.
class PluggableDevice final : public IoDeviceLine {
public:
    PluggableDevice() : IoDeviceLine(m_buffer) {}
    bool openDevice(const QString &) override
    {
        ++opens;
        close();
        gone = false;
        return plugged ? m_buffer.open(QIODevice::ReadWrite) : fail();
    }
    void close() override { m_buffer.close(); }
    void discardInput() override {}
    bool lost() const override { return isOpen() && (!plugged || gone); }

    int opens = 0;
    bool plugged = true;
    bool gone = false;

private:
    QBuffer m_buffer;
};

// Keeping the station's device open: a device that goes away is tried
// again at most once a second of the station's clock, and not at all after
// its owner has closed it.
class DeviceKeeperTest : public QObject {
    Q_OBJECT

    FakeClock m_clock;
    PluggableDevice m_device;
    DeviceKeeper m_keeper{m_clock};

    // Uses the line every 100 ms for `ms` of the clock; the tries to open it.
    int opensWhileUsedFor(std::int64_t ms)
    {
        const int before = m_device.opens;
        for (std::int64_t t = 0; t < ms; t += 100) {
            m_keeper.keepUp();
            m_clock.advanceMs(100);
        }
        return m_device.opens - before;
    }

    void openAndLose()
    {
        m_device.plugged = true;
        m_device.opens = 0;
        QVERIFY(m_keeper.open(m_device, QStringLiteral("/dev/ttyUSB0")));
        QCOMPARE(opensWhileUsedFor(3000), 0);
        m_device.plugged = false;
        QTest::ignoreMessage(QtWarningMsg, "zorbel: port /dev/ttyUSB0 lost");
        m_keeper.keepUp();
        QCOMPARE(m_device.opens, 2); // the loss is noticed and tried at once
        QVERIFY(m_keeper.isAway() && !m_device.isOpen());
    }

private slots:
    void cleanup() { m_keeper.close(); }

    void lostDeviceIsTriedAtMostOnceASecondUntilItIsBack()
    {
        openAndLose();
        m_clock.advanceMs(999);
        m_keeper.keepUp();
        QCOMPARE(m_device.opens, 2);
        m_clock.advanceMs(1);
        m_keeper.keepUp();
        QCOMPARE(m_device.opens, 3);
        QCOMPARE(opensWhileUsedFor(10'000), 9); // one at each of its following whole seconds
        m_device.plugged = true;
        QTest::ignoreMessage(QtInfoMsg, "zorbel: port /dev/ttyUSB0 back");
        QCOMPARE(opensWhileUsedFor(500), 1);
        QVERIFY(m_keeper.isKept() && !m_keeper.isAway() && m_device.isOpen());
        m_device.gone = true; // a gateway dropping the connection: tried again at once
        QTest::ignoreMessage(QtWarningMsg, "zorbel: port /dev/ttyUSB0 lost");
        QTest::ignoreMessage(QtInfoMsg, "zorbel: port /dev/ttyUSB0 back");
        QCOMPARE(opensWhileUsedFor(100), 1);
    }

    void clockSetBackDoesNotHoldTheTriesOffButOwnerCloseEndsThem()
    {
        openAndLose();
        m_clock.advanceMs(-3'600'000); // the end of summer time
        QCOMPARE(opensWhileUsedFor(200), 1);
        m_keeper.close();
        QVERIFY(!m_keeper.isKept());
        m_device.plugged = true;
        QCOMPARE(opensWhileUsedFor(5000), 0);
        QVERIFY(m_keeper.open(m_device, QStringLiteral("/dev/ttyUSB0")));
        m_keeper.close();
        QVERIFY(!m_device.isOpen());
        QVERIFY(m_keeper.open(m_device, QStringLiteral("/dev/ttyUSB0")));
        m_device.plugged = false; // a failed open, even over a kept device, is not kept
        QVERIFY(!m_keeper.open(m_device, QStringLiteral("/dev/ttyUSB0")));
        QVERIFY(!m_device.errorString().isEmpty());
        QVERIFY(!m_keeper.isKept());
        QCOMPARE(opensWhileUsedFor(5000), 0);
    }
};

}

ZORBEL_TEST_MAIN(DeviceKeeperTest)
#include "tst_device_keeper.moc"
