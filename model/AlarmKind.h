#pragma once

#include <cstdint>

// The kinds of a controller's alarm, as the alarm list and the event hub
// carry them.
namespace AlarmKind {
constexpr std::int16_t NoLink = 100;
constexpr std::int16_t Current = 201; // reactive current above its threshold
constexpr std::int16_t Voltage = 202;
constexpr std::int16_t TgFi = 203;    // tg fi outside its band
}
