#pragma once

#include <cstdint>

// Front-panel state of one controller: key bytes, display positions and the
// three lamp bytes (a clear bit in a lamp byte of a stage means "on").
class clsStan {
public:
    std::uint8_t StanPrzel1 = 0;
    std::uint8_t StanPrzel2 = 0;
    std::uint8_t StanDisplay1 = 0;
    std::uint8_t StanDisplay2 = 0;
    std::uint8_t StanDisplay3 = 0;
    std::uint8_t StanDisplay4 = 0;
    std::uint8_t StanDiod1 = 0;
    std::uint8_t StanDiod2 = 0;
    std::uint8_t StanDiod3 = 0;
};
