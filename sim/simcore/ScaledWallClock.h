#pragma once

#include "simcore/SimClock.h"

#include <QElapsedTimer>

namespace sim {

// The wall clock, optionally running faster for demonstrations: the
// simulated time starts at startLocalMs and advances speed times as fast
// as real time.
class ScaledWallClock final : public SimClock {
public:
    explicit ScaledWallClock(double speed = 1.0, qint64 startLocalMs = currentLocalMs());
    qint64 nowMs() const override;

    static qint64 currentLocalMs();

private:
    double m_speed;
    qint64 m_startMs;
    QElapsedTimer m_elapsed;
};

} // namespace sim
