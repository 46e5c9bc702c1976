#include "simcore/DataBlock.h"

namespace sim {

namespace {

void putBigEndian(QByteArray &out, quint32 value, int width)
{
    for (int shift = 8 * (width - 1); shift >= 0; shift -= 8)
        out.append(char((value >> shift) & 0xFF));
}

} // namespace

QByteArray DataBlock::encode() const
{
    QByteArray out;
    out.reserve(kSize);
    putBigEndian(out, apparentCounter, 4);
    putBigEndian(out, quint32(capacitiveCounter), 4);
    putBigEndian(out, quint32(reactiveCounter), 4);
    putBigEndian(out, timer & 0xFFFFFF, 3);
    for (qint16 v : {voltage, reactiveCurrent, totalCurrent, phase, periodLessOne})
        putBigEndian(out, quint16(v), 2);
    out.append(char(keyState1));
    out.append(char(keyState2));
    for (quint8 d : display)
        out.append(char(d));
    out.append(char(0));
    return out;
}

} // namespace sim
