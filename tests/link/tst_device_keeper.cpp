// Keeping the station's device open: a device that goes away is tried
// again at most once a second of the station's clock, and not at all after
// its owner has closed it.
#include "TestMain.h"
#include "FakeClock.h"

#include "link/DeviceKeeper.h"
#include "link/IoDeviceLine.h"

#include <QBuffer>
#include <QTest>

namespace {

const QString Usb = QStringLiteral("/dev/ttyUSB0");

// A device that the test plugs in and pulls out; it counts the tries to
// open it and keeps what was sent while it was there.
class PluggableDevice final : public IoDeviceLine {
public:
    PluggableDevice() : IoDeviceLine(m_buffer) {}

    bool openDevice(const QString &) override
    {
        ++opens;
        close();
        if (!m_plugged)
            return fail();
        m_buffer.setData(QByteArray());
        return m_buffer.open(QIODevice::ReadWrite);
    }
    void close() override
    {
        m_buffer.close();
        m_gone = false;
    }
    void discardInput() override {}
    bool lost() const override { return m_gone; }

    // Gone under an open line, as a pulled adapter or a dropped connection.
    void pull()
    {
        m_plugged = false;
        m_gone = isOpen();
    }
    void plugIn() { m_plugged = true; }
    QByteArray received() const { return m_buffer.data(); }

    int opens = 0;

private:
    QBuffer m_buffer;
    bool m_plugged = true;
    bool m_gone = false;
};

class DeviceKeeperTest : public QObject {
    Q_OBJECT

    FakeClock m_clock;
    PluggableDevice m_device;
    DeviceKeeper m_keeper{m_clock};

    // Uses the line every 100 ms for `ms` of the clock.
    void useFor(std::int64_t ms)
    {
        for (std::int64_t t = 0; t < ms; t += 100) {
            m_keeper.keepUp();
            m_clock.advanceMs(100);
        }
    }

    void openAndLose()
    {
        QVERIFY(m_keeper.open(m_device, Usb));
        m_device.pull();
        QTest::ignoreMessage(QtWarningMsg, "zorbel: port /dev/ttyUSB0 lost");
        m_keeper.keepUp();
    }

private slots:
    void init()
    {
        m_keeper.close();
        m_device.plugIn();
        m_device.opens = 0;
    }

    void presentDeviceIsOpenedOnce()
    {
        QVERIFY(m_keeper.open(m_device, Usb));
        useFor(5000);
        QCOMPARE(m_device.opens, 1);
        QVERIFY(m_keeper.isKept());
        QVERIFY(!m_keeper.isAway());
    }

    void lostDeviceIsTriedAtOnceThenAtMostOnceASecond()
    {
        openAndLose();
        QCOMPARE(m_device.opens, 2); // the loss is noticed and tried at once
        QVERIFY(m_keeper.isKept());
        QVERIFY(m_keeper.isAway());
        QVERIFY(!m_device.isOpen());
        m_clock.advanceMs(999);
        m_keeper.keepUp();
        QCOMPARE(m_device.opens, 2);
        m_clock.advanceMs(1);
        m_keeper.keepUp();
        QCOMPARE(m_device.opens, 3);
        // a hundred uses in ten seconds from that try: one more at each of
        // its following whole seconds
        useFor(10000);
        QCOMPARE(m_device.opens, 12);
    }

    void returningDeviceIsUsedAgain()
    {
        openAndLose();
        m_device.plugIn();
        m_clock.advanceMs(DeviceKeeper::RetryMs);
        QTest::ignoreMessage(QtInfoMsg, "zorbel: port /dev/ttyUSB0 back");
        m_keeper.keepUp();
        QVERIFY(!m_keeper.isAway());
        QVERIFY(m_device.isOpen());
        m_device.send("\x02\x05");
        QCOMPARE(m_device.received(), QByteArray("\x02\x05"));
        const int opens = m_device.opens;
        useFor(3000);
        QCOMPARE(m_device.opens, opens);
    }

    void ownerCloseEndsTheTries()
    {
        openAndLose();
        const int opens = m_device.opens;
        m_keeper.close();
        QVERIFY(!m_keeper.isKept());
        m_device.plugIn();
        useFor(5000);
        QCOMPARE(m_device.opens, opens);
        QVERIFY(!m_device.isOpen());
    }

    void ownerCloseClosesAPresentDevice()
    {
        QVERIFY(m_keeper.open(m_device, Usb));
        m_keeper.close();
        QVERIFY(!m_device.isOpen());
        useFor(2000);
        QCOMPARE(m_device.opens, 1);
    }

    void failedOpenIsNotKept()
    {
        m_device.pull();
        QVERIFY(!m_keeper.open(m_device, Usb));
        QVERIFY(!m_device.errorString().isEmpty());
        QVERIFY(!m_keeper.isKept());
        useFor(5000);
        QCOMPARE(m_device.opens, 1);
    }

    void clockSetBackDoesNotHoldTheTriesOff()
    {
        openAndLose();
        m_clock.advanceMs(-3'600'000); // the end of summer time
        m_keeper.keepUp();
        QCOMPARE(m_device.opens, 3);
        m_keeper.keepUp();
        QCOMPARE(m_device.opens, 3);
    }
};

}

ZORBEL_TEST_MAIN(DeviceKeeperTest)
#include "tst_device_keeper.moc"
