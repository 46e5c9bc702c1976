#pragma once

#include "PacedWriter.h"
#include "SimLine.h"
#include "SimOptions.h"

#include "simcore/ScaledWallClock.h"
#include "simcore/SimBus.h"

#include <QFile>
#include <memory>

namespace sim {

// zorbel-sim at run time: the line, the bus on real and model time, the
// paced writer and the frame log.
class SimServer final : public QObject {
    Q_OBJECT
public:
    explicit SimServer(const SimOptions &options, QObject *parent = nullptr);

    // Loads the controllers and opens the line; an error message, or empty.
    QString start();
    QString where() const { return m_line ? m_line->where() : QString(); }
    int controllerCount() const { return m_bus.controllerCount(); }

private:
    QString loadControllers();
    QString openLine();
    QString openLog();
    void writeLog(const FrameLogEntry &entry);
    void onReceived(const QByteArray &bytes);

    SimOptions m_options;
    ScaledWallClock m_lineClock;
    ScaledWallClock m_modelClock;
    SimBus m_bus;
    SimLine *m_line = nullptr;
    PacedWriter *m_writer = nullptr;
    QFile m_log;
};

} // namespace sim
