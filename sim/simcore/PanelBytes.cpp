#include "simcore/PanelBytes.h"

#include <cmath>

namespace sim::PanelBytes {

std::array<quint8, 4> display(double tg)
{
    const long shown = std::lround(std::fabs(tg) * 1000);
    std::array<quint8, 4> bytes{0xF0, 0xF0, 0xF0, 0xF0};
    if (shown < 10000) {
        long rest = shown;
        for (int i = 3; i >= 0; --i, rest /= 10)
            bytes[i] = quint8((rest % 10) << 4);
    }
    if (tg < 0)
        bytes[0] |= 0x01;
    return bytes;
}

quint8 lampByte3(double tg, const TgBand &band)
{
    quint8 byte = 0xFF;
    if (tg > band.max)
        byte &= quint8(~0x80);
    if (tg < band.min)
        byte &= quint8(~0x40);
    return byte;
}

quint8 keyState1(bool blocked, bool manual)
{
    quint8 byte = 0;
    if (!blocked && !manual)
        byte |= 0x80;
    if (blocked)
        byte |= 0x40;
    if (manual)
        byte |= 0x20;
    return byte;
}

} // namespace sim::PanelBytes
