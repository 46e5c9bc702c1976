#pragma once

#include "SimLine.h"

#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>

namespace sim {

// The line as a TCP port on 127.0.0.1, for a station that reaches its bus
// through a network converter. One station at a time: a new connection
// replaces the old one.
class TcpLine final : public SimLine {
    Q_OBJECT
public:
    explicit TcpLine(QObject *parent = nullptr);

    // Port 0 takes a free one. Returns an error message, empty on success.
    QString listen(quint16 port);
    void write(const QByteArray &bytes) override;
    QString where() const override;

private:
    void accept();

    QTcpServer m_server;
    QPointer<QTcpSocket> m_client;
};

} // namespace sim
