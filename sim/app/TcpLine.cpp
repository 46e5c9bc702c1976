#include "TcpLine.h"

namespace sim {

TcpLine::TcpLine(QObject *parent) : SimLine(parent)
{
    connect(&m_server, &QTcpServer::newConnection, this, &TcpLine::accept);
}

QString TcpLine::listen(quint16 port)
{
    if (!m_server.listen(QHostAddress::LocalHost, port))
        return QStringLiteral("nie można nasłuchiwać na 127.0.0.1:%1: %2").arg(port).arg(m_server.errorString());
    return {};
}

QString TcpLine::where() const
{
    return QStringLiteral("127.0.0.1:%1").arg(m_server.serverPort());
}

void TcpLine::accept()
{
    while (QTcpSocket *socket = m_server.nextPendingConnection()) {
        if (m_client)
            m_client->deleteLater();
        m_client = socket;
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { emit received(socket->readAll()); });
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
    }
}

void TcpLine::write(const QByteArray &bytes)
{
    if (m_client)
        m_client->write(bytes);
}

} // namespace sim
