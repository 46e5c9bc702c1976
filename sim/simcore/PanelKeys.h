#pragma once

#include <QtGlobal>

namespace sim {

// The four keys the station may press (register 0x6A), bits 0 to 3 of the
// key byte: R (manual mode, held), + and - (one stage step each time they
// arrive, then released) and T (held, shown only).
class PanelKeys {
public:
    static constexpr quint8 kManual = 0x01;
    static constexpr quint8 kPlus = 0x02;
    static constexpr quint8 kMinus = 0x04;
    static constexpr quint8 kTest = 0x08;

    // Takes a key byte and tells which momentary keys it pressed.
    quint8 press(quint8 keys);
    bool manual() const { return m_held & kManual; }
    // Key state 2 of the data block: the held keys.
    quint8 keyState2() const { return m_held; }

private:
    quint8 m_held = 0;
};

} // namespace sim
