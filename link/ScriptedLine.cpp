#include "link/ScriptedLine.h"

#include "core/Clock.h"

#include <algorithm>

void ScriptedLine::arriveAt(ZDate when, const QByteArray &bytes, std::int64_t spacingMs)
{
    for (char c : bytes) {
        // a byte never overtakes one scheduled before it
        const ZDate at = m_input.empty() ? when : std::max(when, m_input.back().when);
        m_input.push_back({at, static_cast<std::uint8_t>(c)});
        when = when.addMsecs(spacingMs);
    }
}

void ScriptedLine::arriveAfterMs(std::int64_t ms, const QByteArray &bytes, std::int64_t spacingMs)
{
    arriveAt(m_clock.now().addMsecs(ms), bytes, spacingMs);
}

std::deque<ScriptedLine::Arrival>::const_iterator ScriptedLine::firstInTransit() const
{
    const ZDate now = m_clock.now();
    return std::partition_point(m_input.begin(), m_input.end(), [now](const Arrival &a) { return a.when <= now; });
}

std::optional<ZDate> ScriptedLine::nextArrival() const
{
    const auto it = firstInTransit();
    if (it == m_input.end())
        return std::nullopt;
    return it->when;
}

void ScriptedLine::answer(const QByteArray &request, const QByteArray &reply, int times)
{
    m_rules.append({request, reply, times});
}

bool ScriptedLine::open(std::uint8_t number)
{
    m_number = number;
    m_error = m_openFailure;
    m_open = m_openFailure.isEmpty();
    return m_open;
}

int ScriptedLine::bytesWaiting() const
{
    return int(firstInTransit() - m_input.begin());
}

int ScriptedLine::readByte()
{
    if (m_input.empty() || m_input.front().when > m_clock.now())
        return -1;
    const int b = m_input.front().byte;
    m_input.pop_front();
    return b;
}

void ScriptedLine::send(const QByteArray &bytes)
{
    sent.append(bytes);
    for (Rule &r : m_rules) {
        if (r.times == 0 || r.request != bytes)
            continue;
        if (r.times > 0)
            --r.times;
        arriveAfterMs(ReplyDelayMs, r.reply, ByteMs);
        return;
    }
}

void ScriptedLine::discardInput()
{
    m_input.erase(m_input.begin(), firstInTransit());
}
