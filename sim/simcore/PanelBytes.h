#pragma once

#include "simcore/AutoRegulation.h"

#include <QtGlobal>
#include <array>

namespace sim {

// The front panel as the data block and lamp byte 3 carry it. Lamps are
// lit by a clear bit; keys and display digits are plain.
namespace PanelBytes {

// Four display positions showing |tg fi| as d.ddd, one digit in the high
// half of each byte (0xF blanks it); the low half of the first byte flags
// a capacitive (negative) tg fi.
std::array<quint8, 4> display(double tg);

// Lamp byte 3: "zał." (bit 7) lit while tg fi is above the band, asking for
// more compensation, "wył." (bit 6) lit while it is below; the rest dark.
quint8 lampByte3(double tg, const TgBand &band);

// Key state 1, the keys that only show the device's state: bit 7 automatic
// regulation running, bit 6 blocked from the station, bit 5 manual mode.
quint8 keyState1(bool blocked, bool manual);

} // namespace PanelBytes
} // namespace sim
