#include "link/ScriptedLine.h"

#include "base/Clock.h"

void ScriptedLine::arriveAt(ZDate when, const QByteArray &bytes, std::int64_t spacingMs)
{
    for (char c : bytes) {
        arrive(when, static_cast<std::uint8_t>(c));
        when = when.addMsecs(spacingMs);
    }
}

void ScriptedLine::arriveAfterMs(std::int64_t ms, const QByteArray &bytes, std::int64_t spacingMs)
{
    arriveAt(clock().standardNow().addMsecs(ms), bytes, spacingMs);
}

void ScriptedLine::answer(const QByteArray &request, const QByteArray &reply, int times)
{
    m_rules.append({request, reply, times});
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
