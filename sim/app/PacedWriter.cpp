#include "PacedWriter.h"

#include "simcore/LineTiming.h"

#include <algorithm>
#include <cmath>

namespace sim {

namespace {

constexpr qint64 kByteNs = qint64(kByteMs * 1e6);
constexpr qint64 kNsPerMs = 1000000;

} // namespace

PacedWriter::PacedWriter(Sink sink, bool paced, QObject *parent)
    : QObject(parent), m_sink(std::move(sink)), m_paced(paced)
{
    m_clock.start();
    m_timer.setSingleShot(true);
    m_timer.setTimerType(Qt::PreciseTimer);
    connect(&m_timer, &QTimer::timeout, this, &PacedWriter::flushDue);
}

void PacedWriter::send(const Transmission &t)
{
    qint64 due = m_clock.nsecsElapsed() + t.delayMs * kNsPerMs;
    if (m_paced && !m_queue.empty())
        due = std::max(due, m_queue.back().dueNs + kByteNs);  // the line is still busy
    for (char byte : t.bytes) {
        m_queue.push_back({due, byte});
        if (m_paced)
            due += kByteNs;
    }
    flushDue();
}

void PacedWriter::flushDue()
{
    const qint64 now = m_clock.nsecsElapsed();
    QByteArray out;
    while (!m_queue.empty() && m_queue.front().dueNs <= now) {
        out.append(m_queue.front().byte);
        m_queue.pop_front();
    }
    if (!out.isEmpty())
        m_sink(out);
    scheduleNext();
}

void PacedWriter::scheduleNext()
{
    if (m_queue.empty())
        return;
    const qint64 waitNs = m_queue.front().dueNs - m_clock.nsecsElapsed();
    m_timer.start(int(std::max<qint64>(0, (waitNs + kNsPerMs - 1) / kNsPerMs)));
}

} // namespace sim
