#pragma once

#include "link/LinePort.h"
#include "link/SerialLine.h"
#include "link/TcpLine.h"

class SettingsStore;

// The station's port: opened by port number, it reaches the device that
// the number names (see portDevice), on a serial port or over TCP.
class StationLine final : public LinePort {
public:
    explicit StationLine(const SettingsStore &store) : m_store(store) {}

    // Port numbers run from 1; 0 raises a run-time error, for an illegal
    // port number is not a failure to open.
    bool open(std::uint8_t number) override;
    void close() override { m_active->close(); }
    bool isOpen() const override { return m_active->isOpen(); }
    QString errorString() const override { return m_active->errorString(); }
    int bytesWaiting() const override { return m_active->bytesWaiting(); }
    int readByte() override { return m_active->readByte(); }
    void send(const QByteArray &bytes) override { m_active->send(bytes); }
    void discardInput() override { m_active->discardInput(); }

    // The device that the last open went to.
    QString device() const { return m_device; }

private:
    const SettingsStore &m_store;
    SerialLine m_serial;
    TcpLine m_tcp;
    IoDeviceLine *m_active = &m_serial;
    QString m_device;
};
