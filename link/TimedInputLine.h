#pragma once

#include "base/ZDate.h"
#include "link/LinePort.h"

#include <QList>
#include <deque>
#include <optional>

class Clock;

// A line in memory whose input bytes arrive at given moments of a clock's
// standard time and count as received once the clock has reached them; every send is
// recorded. Nothing here waits, so such a line works with a fake clock. The
// kinds differ in what answers a send.
class TimedInputLine : public LinePort {
public:
    explicit TimedInputLine(const Clock &clock) : m_clock(clock) {}

    // The moment of the next byte still in transit, if any.
    std::optional<ZDate> nextArrival() const;
    // Bytes received or in transit.
    int pending() const { return int(m_input.size()); }
    // Each send, in order.
    QList<QByteArray> sent;
    QByteArray sentBytes() const { return sent.join(); }
    // Makes every following open fail with this description (empty: succeed).
    void failOpenWith(const QString &description) { m_openFailure = description; }
    std::uint8_t openedNumber() const { return m_number; }

    bool open(std::uint8_t number) override;
    void close() override { m_open = false; }
    bool isOpen() const override { return m_open; }
    QString errorString() const override { return m_error; }
    int bytesWaiting() const override;
    int readByte() override;
    void discardInput() override;

protected:
    // A byte arriving at `when`, never before one scheduled earlier.
    void arrive(ZDate when, std::uint8_t byte);
    const Clock &clock() const { return m_clock; }

private:
    struct Arrival {
        ZDate when;
        std::uint8_t byte;
    };

    std::deque<Arrival>::const_iterator firstInTransit() const;

    const Clock &m_clock;
    std::deque<Arrival> m_input; // in order of arrival
    QString m_openFailure;
    QString m_error;
    std::uint8_t m_number = 0;
    bool m_open = false;
};
