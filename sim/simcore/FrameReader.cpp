#include "simcore/FrameReader.h"

#include "simcore/Registers.h"

namespace sim {

namespace {

constexpr int kHeaderLength = 4;

quint8 byteAt(const QByteArray &bytes, int i)
{
    return quint8(bytes.at(i));
}

} // namespace

FrameReader::Output FrameReader::feed(const QByteArray &bytes, qint64 lineMs)
{
    Output out;
    if (!m_pending.isEmpty() && lineMs - m_lastByteMs > kGapMs) {
        out.discarded += m_pending;
        m_pending.clear();
    }
    if (!bytes.isEmpty())
        m_lastByteMs = lineMs;
    m_pending += bytes;
    takeFrames(out);
    return out;
}

void FrameReader::takeFrames(Output &out)
{
    while (!m_pending.isEmpty()) {
        const int length = frameLengthAtFront();
        if (length == 0)
            return;
        if (length < 0) {
            out.discarded.append(m_pending.front());
            m_pending.remove(0, 1);
            continue;
        }
        Request r;
        r.address = byteAt(m_pending, 1);
        r.reg = byteAt(m_pending, 2);
        r.function = byteAt(m_pending, 3);
        r.hasValue = length > kHeaderLength;
        r.value = r.hasValue ? byteAt(m_pending, 4) : 0;
        out.requests.push_back(r);
        m_pending.remove(0, length);
    }
}

int FrameReader::frameLengthAtFront() const
{
    if (byteAt(m_pending, 0) != Registers::kFrameStart)
        return -1;
    if (m_pending.size() < kHeaderLength)
        return 0;
    const quint8 reg = byteAt(m_pending, 2);
    const quint8 function = byteAt(m_pending, 3);
    if (!Registers::isKnown(reg) || !Functions::isKnown(function))
        return -1;
    const int length = kHeaderLength + (Functions::hasParameter(function) ? 1 : 0);
    return m_pending.size() < length ? 0 : length;
}

} // namespace sim
