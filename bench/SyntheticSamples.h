#pragma once

#include <QVariant>
#include <array>
#include <cstdint>
#include <random>

// Plausible 15-minute samples of a controller, the same on every run: a
// daily load shape, less on Sundays, a tg fi of the controller's own that
// wanders, and now and then a lost reading whose values are all NULL.
// Draws come from mt19937 alone (its sequence is fixed by the standard,
// unlike the library's distributions), so every machine writes the same file.
class SyntheticSamples {
public:
    // EnCzynna, EnBiernaCalk, EnBiernaPoj, Napiecie, PradBierny, PradCalk,
    // Czestotliwosc: the order of Pomiary.
    static constexpr int Values = 7;
    using Row = std::array<QVariant, Values>;

    explicit SyntheticSamples(std::uint32_t seed) : m_random(seed) {}

    // The sample of controller `adres` ending quarter `quarter` (0..95) of a
    // day of the week `weekday` (1 Monday .. 7 Sunday).
    Row next(int adres, int quarter, int weekday);

private:
    double uniform() { return double(m_random()) / 4294967296.0; } // [0, 1)

    std::mt19937 m_random;
};
