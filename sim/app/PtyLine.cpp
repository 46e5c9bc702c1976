#include "PtyLine.h"

#include <QFile>
#include <QFileInfo>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

namespace sim {

namespace {

// What failed, the system call in brackets, and the system's reason.
QString lastError(const QString &what, const char *call)
{
    return QStringLiteral("%1 (%2): %3").arg(what, QLatin1String(call), QString::fromLocal8Bit(std::strerror(errno)));
}

void makeRaw(int fd)
{
    termios tio{};
    if (tcgetattr(fd, &tio) != 0)
        return;
    cfmakeraw(&tio);
    cfsetispeed(&tio, B4800);
    cfsetospeed(&tio, B4800);
    tio.c_cflag |= PARENB | CLOCAL | CREAD;
    tcsetattr(fd, TCSANOW, &tio);
}

} // namespace

PtyLine::PtyLine(QObject *parent) : SimLine(parent) {}

PtyLine::~PtyLine()
{
    m_notifier.reset();
    if (!m_linkPath.isEmpty() && QFile::symLinkTarget(m_linkPath) == m_slavePath)
        QFile::remove(m_linkPath);
    if (m_slave >= 0)
        ::close(m_slave);
    if (m_master >= 0)
        ::close(m_master);
}

QString PtyLine::open(const QString &linkPath)
{
    m_master = posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK);
    if (m_master < 0)
        return lastError(QStringLiteral("nie można otworzyć pseudoterminala"), "posix_openpt");
    if (grantpt(m_master) != 0 || unlockpt(m_master) != 0)
        return lastError(QStringLiteral("nie można udostępnić pseudoterminala"), "grantpt/unlockpt");
    m_slavePath = QString::fromLocal8Bit(ptsname(m_master));
    m_slave = ::open(ptsname(m_master), O_RDWR | O_NOCTTY);
    if (m_slave < 0)
        return lastError(QStringLiteral("nie można otworzyć strony podrzędnej pseudoterminala"), "open");
    makeRaw(m_slave);
    m_notifier = std::make_unique<QSocketNotifier>(m_master, QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &PtyLine::readAvailable);
    return linkPath.isEmpty() ? QString() : makeLink(linkPath);
}

QString PtyLine::makeLink(const QString &linkPath)
{
    const QFileInfo info(linkPath);
    if (info.exists() && !info.isSymLink())
        return QStringLiteral("%1 istnieje i nie jest dowiązaniem symbolicznym").arg(linkPath);
    if (info.isSymLink())
        QFile::remove(linkPath);
    if (::symlink(m_slavePath.toLocal8Bit().constData(), linkPath.toLocal8Bit().constData()) != 0)
        return lastError(QStringLiteral("nie można utworzyć dowiązania %1").arg(linkPath), "symlink");
    m_linkPath = linkPath;
    return {};
}

void PtyLine::readAvailable()
{
    char buffer[512];
    const ssize_t n = ::read(m_master, buffer, sizeof buffer);
    if (n > 0)
        emit received(QByteArray(buffer, int(n)));
}

void PtyLine::write(const QByteArray &bytes)
{
    // A station that does not read lets the buffer fill: the rest is lost,
    // as it would be on a real line.
    if (::write(m_master, bytes.constData(), size_t(bytes.size())) < 0 && errno != EAGAIN)
        qWarning("zorbel-sim: zapis do pseudoterminala nie powiódł się: %s", std::strerror(errno));
}

} // namespace sim
