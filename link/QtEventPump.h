#pragma once

#include "link/EventPump.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

// The pump of the running station, on the thread's Qt event loop. When no
// event is pending it blocks in the event loop until the next one: bytes
// from the port (its read notification is an event), an interface event,
// or its own short timer. So an idle wait costs no CPU, and a byte is seen
// as soon as the port reports it.
class QtEventPump final : public QObject, public EventPump {
public:
    QtEventPump();
    std::int64_t processEvents(std::int64_t maxIdleMs) override;

    // Longest single idle wait, so that a pass never blocks for long.
    static constexpr std::int64_t MaxIdleMs = 100;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // A pass that waits; passes nest when a handler inside one waits again.
    struct Pass {
        QElapsedTimer since;
        std::int64_t idleMs = -1; // -1 until the pass's first event
    };

    std::int64_t waitThenProcess(std::int64_t idleMs);

    QTimer m_wake;
    Pass *m_pass = nullptr; // the innermost pass that waits
};
