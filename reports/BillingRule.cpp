#include "reports/BillingRule.h"

#include <algorithm>
#include <cmath>

EnergySums &EnergySums::operator+=(const EnergySums &o)
{
    active += o.active;
    inductive += o.inductive;
    capacitive += o.capacitive;
    inductiveWithoutActive += o.inductiveWithoutActive;
    samples += o.samples;
    expected += o.expected;
    covered += o.covered;
    return *this;
}

namespace {

constexpr double KiloPerMega = 1000; // the archive's kWh and kvarh; the regulation's MWh and Mvarh

Charge polish(const EnergySums &s, const TariffValues &v)
{
    Charge c;
    const bool drawn = s.active > 0;
    if (drawn)
        c.tgFi = s.inductive / s.active;
    // billed whole: the capacitive energy, and inductive energy drawn without active energy
    const double whole = s.capacitive + (drawn ? s.inductiveWithoutActive : s.inductive);
    const double billedInductive = drawn ? std::max(0.0, s.inductive - s.inductiveWithoutActive) : 0;
    const double tg = drawn ? billedInductive / s.active : 0;
    c.excess = whole + std::max(0.0, billedInductive - v.tgFi0 * s.active);
    if (v.crk) {
        const double factor = tg > v.tgFi0 ? std::sqrt((1 + tg * tg) / (1 + v.tgFi0 * v.tgFi0)) - 1 : 0;
        c.fee = v.k * *v.crk * (factor * s.active + whole) / KiloPerMega;
    }
    return c;
}

Charge threshold(const EnergySums &s, const TariffValues &v)
{
    Charge c;
    if (s.active > 0)
        c.tgFi = s.inductive / s.active;
    c.excess = std::max(0.0, s.inductive - v.r * std::max(0.0, s.active));
    if (v.cenaKvarh)
        c.fee = c.excess * *v.cenaKvarh;
    return c;
}

}

Charge BillingRule::charge(const EnergySums &sums, const TariffValues &values)
{
    return values.rule == TariffValues::Rule::Poland ? polish(sums, values) : threshold(sums, values);
}
