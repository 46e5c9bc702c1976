#include "SimServer.h"

#include "ControllerSources.h"
#include "PtyLine.h"
#include "TcpLine.h"

#include <stdexcept>

namespace sim {

SimServer::SimServer(const SimOptions &options, QObject *parent)
    : QObject(parent),
      m_options(options),
      m_modelClock(options.speed, m_lineClock.nowMs()),
      m_bus(m_lineClock, m_modelClock, options.seed)
{
    m_bus.setFaults(options.faults);
}

QString SimServer::start()
{
    QString error = openLog();
    if (error.isEmpty())
        error = loadControllers();
    if (error.isEmpty())
        error = openLine();
    return error;
}

QString SimServer::loadControllers()
{
    std::vector<ControllerConfig> configs;
    try {
        if (!m_options.databaseUrl.isEmpty())
            configs = ControllerSources::fromDatabase(m_options.databaseUrl);
        else if (!m_options.configFile.isEmpty())
            configs = ControllerSources::fromConfigFile(m_options.configFile);
        else
            configs = ControllerSources::fromAddresses(*m_options.addresses);
    } catch (const std::runtime_error &e) {
        return QString::fromStdString(e.what());
    }
    if (m_options.addresses)
        configs = ControllerSources::restrictTo(configs, *m_options.addresses);
    if (configs.empty())
        return QStringLiteral("brak regulatorów do symulowania");
    for (const ControllerConfig &c : configs)
        m_bus.addController(c);
    return {};
}

QString SimServer::openLine()
{
    QString error;
    if (m_options.tcpPort) {
        auto *tcp = new TcpLine(this);
        error = tcp->listen(*m_options.tcpPort);
        m_line = tcp;
    } else {
        auto *pty = new PtyLine(this);
        error = pty->open(m_options.linkPath);
        m_line = pty;
    }
    m_writer = new PacedWriter([line = m_line](const QByteArray &b) { line->write(b); },
                               !m_options.unpaced, this);
    connect(m_line, &SimLine::received, this, &SimServer::onReceived);
    return error;
}

QString SimServer::openLog()
{
    if (!m_options.logFile.isEmpty()) {
        m_log.setFileName(m_options.logFile);
        if (!m_log.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text))
            return QStringLiteral("nie można zapisać %1: %2").arg(m_options.logFile, m_log.errorString());
    }
    if (m_log.isOpen() || m_options.verbose)
        m_bus.setLogSink([this](const FrameLogEntry &e) { writeLog(e); });
    return {};
}

void SimServer::writeLog(const FrameLogEntry &entry)
{
    const QByteArray line = entry.toText().toUtf8() + '\n';
    if (m_log.isOpen()) {
        m_log.write(line);
        m_log.flush();
    }
    if (m_options.verbose)
        fputs(line.constData(), stderr);
}

void SimServer::onReceived(const QByteArray &bytes)
{
    for (const Transmission &t : m_bus.receive(bytes))
        m_writer->send(t);
}

} // namespace sim
