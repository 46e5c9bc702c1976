#pragma once

#include "core/ZDate.h"
#include "link/LinePort.h"

#include <QList>
#include <deque>
#include <optional>

class Clock;

// A line in memory, for tests and tools. Bytes arrive at given moments of a
// clock and count as received once the clock has reached them; every send
// is recorded. The far end can play a controller: it answers a given
// request with given bytes, one byte per ByteMs after ReplyDelayMs.
class ScriptedLine final : public LinePort {
public:
    static constexpr std::int64_t ReplyDelayMs = 10;
    static constexpr std::int64_t ByteMs = 2; // about 4800 baud with parity

    explicit ScriptedLine(const Clock &clock) : m_clock(clock) {}

    // Bytes that arrive from `when` on, spaced by `spacingMs`, each after
    // anything scheduled earlier.
    void arriveAt(ZDate when, const QByteArray &bytes, std::int64_t spacingMs = 0);
    void arriveAfterMs(std::int64_t ms, const QByteArray &bytes, std::int64_t spacingMs = 0);
    // The moment of the next byte still in transit, if any.
    std::optional<ZDate> nextArrival() const;
    // Bytes received or in transit.
    int pending() const { return int(m_input.size()); }

    // Each later send of `request` is answered with `reply`, `times` times
    // (-1: always). Rules are tried in the order given; an empty reply is
    // silence. A request that no rule takes goes unanswered.
    void answer(const QByteArray &request, const QByteArray &reply, int times = -1);

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
    void send(const QByteArray &bytes) override;
    void discardInput() override;

private:
    struct Arrival {
        ZDate when;
        std::uint8_t byte;
    };
    struct Rule {
        QByteArray request;
        QByteArray reply;
        int times;
    };

    std::deque<Arrival>::const_iterator firstInTransit() const;

    const Clock &m_clock;
    std::deque<Arrival> m_input; // in order of arrival
    QList<Rule> m_rules;
    QString m_openFailure;
    QString m_error;
    std::uint8_t m_number = 0;
    bool m_open = false;
};
