#include "link/TcpLine.h"

#include <QUrl>

TcpLine::TcpLine() : IoDeviceLine(m_socket)
{
    m_socket.setReadBufferSize(InBufferSize);
}

bool TcpLine::openDevice(const QString &name)
{
    close();
    const QUrl url(name);
    m_socket.connectToHost(url.host(), quint16(url.port(0)));
    if (!m_socket.waitForConnected(ConnectTimeoutMs)) {
        fail();
        m_socket.abort();
        return false;
    }
    // frames are a few bytes each: no coalescing delay
    m_socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    return true;
}

void TcpLine::close()
{
    if (m_socket.state() != QAbstractSocket::UnconnectedState)
        m_socket.abort();
}

void TcpLine::send(const QByteArray &bytes)
{
    IoDeviceLine::send(bytes);
    if (m_socket.isOpen())
        m_socket.flush();
}

void TcpLine::discardInput()
{
    // what the system has received but the socket not yet taken waits too;
    // bounded, so that a peer that never stops cannot hold the station here
    int rounds = 0;
    do
        dropBuffered();
    while (m_socket.isOpen() && ++rounds < MaxDrainRounds && m_socket.waitForReadyRead(0));
}

bool TcpLine::lost() const
{
    return m_socket.isOpen() && m_socket.state() != QAbstractSocket::ConnectedState;
}
