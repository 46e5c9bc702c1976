#pragma once

#include "base/Clock.h"
#include "link/DeviceKeeper.h"
#include "link/LinePort.h"
#include "link/SerialLine.h"
#include "link/TcpLine.h"

class SettingsStore;

// The station's port: opened by port number, it reaches the device that
// the number names (see portDevice), on a serial port or over TCP. Once
// open, it stays so for its owner until close(): a device that goes away
// is opened again by later sends, at most once a second (see DeviceKeeper).
class StationLine final : public LinePort {
public:
    explicit StationLine(const SettingsStore &store) : StationLine(store, m_systemClock) {}
    // `clock` paces the tries to open a lost device.
    StationLine(const SettingsStore &store, const Clock &clock) : m_store(store), m_keeper(clock) {}

    // Port numbers run from 1; 0 raises a run-time error, for an illegal
    // port number is not a failure to open.
    bool open(std::uint8_t number) override;
    void close() override { m_keeper.close(); }
    // True from a successful open to close(), also while the device is
    // away: the port is the station's, its readings simply fail meanwhile.
    bool isOpen() const override { return m_keeper.isKept(); }
    // Also the description of the last failed try to reopen a lost device.
    QString errorString() const override { return m_active->errorString(); }
    int bytesWaiting() const override { return m_active->bytesWaiting(); }
    int readByte() override { return m_active->readByte(); }
    void send(const QByteArray &bytes) override;
    void discardInput() override { m_active->discardInput(); }

    // The device that the last open went to.
    QString device() const { return m_device; }

private:
    SystemClock m_systemClock; // when no clock is given
    const SettingsStore &m_store;
    DeviceKeeper m_keeper;
    SerialLine m_serial;
    TcpLine m_tcp;
    IoDeviceLine *m_active = &m_serial;
    QString m_device;
};
