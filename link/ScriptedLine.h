#pragma once

#include "link/TimedInputLine.h"

// A line in memory for tests and tools. Bytes are scheduled to arrive at
// given moments; the far end can play a controller: it answers a given
// request with given bytes, one byte per ByteMs after ReplyDelayMs.
class ScriptedLine final : public TimedInputLine {
public:
    static constexpr std::int64_t ReplyDelayMs = 10;
    static constexpr std::int64_t ByteMs = 2; // about 4800 baud with parity

    explicit ScriptedLine(const Clock &clock) : TimedInputLine(clock) {}

    // Bytes that arrive from `when` (standard time) on, spaced by `spacingMs`, each after
    // anything scheduled earlier.
    void arriveAt(ZDate when, const QByteArray &bytes, std::int64_t spacingMs = 0);
    void arriveAfterMs(std::int64_t ms, const QByteArray &bytes, std::int64_t spacingMs = 0);

    // Each later send of `request` is answered with `reply`, `times` times
    // (-1: always). Rules are tried in the order given; an empty reply is
    // silence. A request that no rule takes goes unanswered.
    void answer(const QByteArray &request, const QByteArray &reply, int times = -1);

    void send(const QByteArray &bytes) override;

private:
    struct Rule {
        QByteArray request;
        QByteArray reply;
        int times;
    };

    QList<Rule> m_rules;
};
