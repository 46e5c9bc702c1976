#include "link/QtEventPump.h"

#include <QCoreApplication>
#include <algorithm>

QtEventPump::QtEventPump()
{
    m_wake.setSingleShot(true);
    m_wake.setTimerType(Qt::PreciseTimer);
}

std::int64_t QtEventPump::processEvents(std::int64_t maxIdleMs)
{
    const std::int64_t idle = std::min(maxIdleMs, MaxIdleMs);
    if (idle <= 0) {
        QCoreApplication::processEvents(QEventLoop::AllEvents);
        return 0;
    }
    return waitThenProcess(idle);
}

std::int64_t QtEventPump::waitThenProcess(std::int64_t idleMs)
{
    // the first event delivered ends the idle part of the pass; whatever
    // runs after it (a handler, a dialog) is the interface's time
    Pass pass;
    Pass *const outer = m_pass;
    m_pass = &pass;
    if (!outer)
        QCoreApplication::instance()->installEventFilter(this);
    pass.since.start();
    m_wake.start(int(idleMs));
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    m_wake.stop();
    if (!outer)
        QCoreApplication::instance()->removeEventFilter(this);
    m_pass = outer;
    return pass.idleMs >= 0 ? pass.idleMs : pass.since.elapsed();
}

bool QtEventPump::eventFilter(QObject *, QEvent *)
{
    if (m_pass && m_pass->idleMs < 0)
        m_pass->idleMs = m_pass->since.elapsed();
    return false;
}
