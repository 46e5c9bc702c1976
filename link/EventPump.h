#pragma once

#include <cstdint>

// Lets the interface process its pending events while the link waits.
class EventPump {
public:
    virtual ~EventPump() = default;

    // One pass of event processing. With nothing pending the pump may first
    // wait idle for an event (input from the line is one), at most
    // maxIdleMs. Returns the milliseconds it waited idle: that time belongs
    // to the caller's own wait, whereas the rest of the pass is the
    // interface's.
    virtual std::int64_t processEvents(std::int64_t maxIdleMs) = 0;
};
