#pragma once

#include "base/ZDate.h"

// The station's only source of time, so that tests can drive the reading
// grid and the link's timeouts on a fake clock.
class Clock {
public:
    virtual ~Clock() = default;
    // Local wall-clock time, to the millisecond.
    virtual ZDate now() const = 0;
};

class SystemClock final : public Clock {
public:
    ZDate now() const override { return ZDate::fromDateTime(QDateTime::currentDateTime()); }
};
