#include "SyntheticSamples.h"

#include <cmath>

namespace {

constexpr double Pi = 3.14159265358979323846;
constexpr int LostOneIn = 2000; // a reading lost now and then, never a whole day

// Share of the controller's peak load at this hour: a night base, a
// working day from 5 to 22, half of it on Sundays.
double loadShape(int quarter, int weekday)
{
    const double hour = quarter / 4.0;
    const double day = hour > 5 && hour < 22 ? std::sin(Pi * (hour - 5) / 17) : 0.0;
    return (0.3 + 0.7 * day) * (weekday == 7 ? 0.5 : 1.0);
}

// Readings carry a meter's resolution, not a double's: 1/perUnit.
QVariant reading(double value, double perUnit)
{
    return std::round(value * perUnit) / perUnit;
}

}

SyntheticSamples::Row SyntheticSamples::next(int adres, int quarter, int weekday)
{
    const double peakKw = 40.0 + (adres * 37 % 160);        // a controller's own size
    const double tgFi = 0.2 + (adres % 7) * 0.06 + 0.15 * uniform();
    const double shape = loadShape(quarter, weekday);
    const double kw = peakKw * shape * (0.9 + 0.2 * uniform());
    if (int(m_random() % LostOneIn) == 0)
        return {};
    const double active = kw / 4; // kWh in 15 minutes
    const double capacitive = shape < 0.35 ? active * 0.05 * uniform() : 0.0;
    const double volts = 231.0 + 4.0 * (uniform() - 0.5) - 3.0 * shape;
    const double sinFi = tgFi / std::sqrt(1 + tgFi * tgFi);
    const double amps = kw * 1000.0 / (std::sqrt(3.0) * 400.0) * std::sqrt(1 + tgFi * tgFi); // P / (sqrt3 U cos fi)
    return {reading(active, 100),
            reading(active * tgFi, 100),
            reading(capacitive, 100),
            reading(volts, 10),
            reading(amps * sinFi, 10),
            reading(amps, 10),
            reading(50.0 + 0.1 * (uniform() - 0.5), 100)};
}
