#pragma once

namespace sim {

// 4800 baud with a start bit, 8 data bits, even parity and a stop bit:
// 11 bits a byte.
constexpr double kBitsPerByte = 11;
constexpr double kBaud = 4800;
constexpr double kByteMs = kBitsPerByte * 1000 / kBaud;  // about 2.29 ms

} // namespace sim
