#include "link/TimedInputLine.h"

#include "base/Clock.h"
#include "base/RunTimeError.h"

#include <algorithm>

void TimedInputLine::arrive(ZDate when, std::uint8_t byte)
{
    m_input.push_back({m_input.empty() ? when : std::max(when, m_input.back().when), byte});
}

std::deque<TimedInputLine::Arrival>::const_iterator TimedInputLine::firstInTransit() const
{
    const ZDate now = m_clock.standardNow();
    return std::partition_point(m_input.begin(), m_input.end(), [now](const Arrival &a) { return a.when <= now; });
}

std::optional<ZDate> TimedInputLine::nextArrival() const
{
    const auto it = firstInTransit();
    if (it == m_input.end())
        return std::nullopt;
    return it->when;
}

bool TimedInputLine::open(std::uint8_t number)
{
    if (number == 0) // as on a real port: no such number, which is not a failure to open
        throw RunTimeError::invalidPortNumber();
    m_number = number;
    m_error = m_openFailure;
    m_open = m_openFailure.isEmpty();
    return m_open;
}

int TimedInputLine::bytesWaiting() const
{
    return int(firstInTransit() - m_input.begin());
}

int TimedInputLine::readByte()
{
    if (m_input.empty() || m_input.front().when > m_clock.standardNow())
        return -1;
    const int b = m_input.front().byte;
    m_input.pop_front();
    return b;
}

void TimedInputLine::discardInput()
{
    m_input.erase(m_input.begin(), firstInTransit());
}
