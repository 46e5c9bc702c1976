#pragma once

#include "link/IoDeviceLine.h"

#include <QSerialPort>

// The controller line on a serial port: 4800 baud, even parity, 8 data bits,
// 1 stop bit, no handshake.
class SerialLine final : public IoDeviceLine {
public:
    SerialLine();
    bool openDevice(const QString &name) override;
    void close() override;
    void send(const QByteArray &bytes) override;
    void discardInput() override;
    bool lost() const override { return m_lost; }

private:
    void closeIfGone();

    QSerialPort m_port;
    bool m_lost = false;
};
