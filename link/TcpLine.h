#pragma once

#include "link/IoDeviceLine.h"

#include <QTcpSocket>

// The controller line behind a serial-to-Ethernet gateway (or the
// simulator): raw bytes over a TCP connection to "tcp://host:port".
class TcpLine final : public IoDeviceLine {
public:
    TcpLine();
    bool openDevice(const QString &name) override;
    void close() override;
    void send(const QByteArray &bytes) override;
    void discardInput() override;
    // The socket stays open for reading after the far end has gone.
    bool lost() const override;

private:
    static constexpr int ConnectTimeoutMs = 3000;
    static constexpr int MaxDrainRounds = 8;
    QTcpSocket m_socket;
};
