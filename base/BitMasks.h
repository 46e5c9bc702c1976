#pragma once

#include <array>
#include <cstdint>

// Element i holds 2 to the power i: picks the bit of a capacitor stage.
using BitMasks = std::array<std::uint8_t, 8>;

inline void fillBitMasks(BitMasks &masks)
{
    for (std::size_t i = 0; i < masks.size(); ++i)
        masks[i] = std::uint8_t(1u << i);
}
