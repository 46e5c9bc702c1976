#pragma once

#include "simcore/SimBus.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <deque>
#include <functional>

namespace sim {

// Puts transmissions on the line at the pace of the real line, one byte
// every kByteMs after the reply's delay, or at once when unpaced. A single
// timer wakes it for the next due byte; between replies it sleeps.
class PacedWriter final : public QObject {
    Q_OBJECT
public:
    using Sink = std::function<void(const QByteArray &)>;

    PacedWriter(Sink sink, bool paced, QObject *parent = nullptr);
    void send(const Transmission &transmission);

private:
    struct DueByte {
        qint64 dueNs;
        char byte;
    };
    void flushDue();
    void scheduleNext();

    Sink m_sink;
    bool m_paced;
    QElapsedTimer m_clock;
    QTimer m_timer;
    std::deque<DueByte> m_queue;
};

} // namespace sim
