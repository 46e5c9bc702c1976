#pragma once

#include "base/ZDate.h"

#include <QString>
#include <cstdint>
#include <optional>

class Clock;
class IoDeviceLine;

// Keeps a device open for as long as its owner wants it. A device that goes
// away (an adapter pulled, a gateway dropping the connection) is closed, and
// later uses try to open it again, at most once a second, until it is back:
// a missing device costs one failed open a second, not one a frame.
class DeviceKeeper {
public:
    explicit DeviceKeeper(const Clock &clock) : m_clock(clock) {}

    // Opens `name` on `line`; on success keeps it open from now on. The line
    // must outlive the keeping.
    bool open(IoDeviceLine &line, const QString &name);
    // The owner's close: the device is closed and no longer kept.
    void close();
    // From a successful open to close(), whether the device is there or away.
    bool isKept() const { return m_line != nullptr; }
    // The device is kept but away.
    bool isAway() const { return isKept() && !m_present; }
    // At each use of the line: notices a loss and, when one is due, tries to
    // open the device again.
    void keepUp();

    // The least time from the end of one try to open a lost device to the
    // start of the next.
    static constexpr std::int64_t RetryMs = 1000;

private:
    void noticeLoss();
    bool retryDue() const;
    void retry();

    const Clock &m_clock;
    IoDeviceLine *m_line = nullptr;
    QString m_name;
    bool m_present = false;
    std::optional<ZDate> m_lastTry; // none: the next use may try at once
};
