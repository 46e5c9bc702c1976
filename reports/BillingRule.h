#pragma once

#include "base/ReactiveTariff.h"

#include <optional>

// Energies of some samples as the archive keeps them: kWh and kvarh.
struct EnergySums {
    double active = 0;                 // A: EnCzynna
    double inductive = 0;              // EnBiernaCalk - EnBiernaPoj
    double capacitive = 0;             // -EnBiernaPoj, the counter running downward
    double inductiveWithoutActive = 0; // of reading periods with EnCzynna = 0
    int samples = 0;
    int expected = 0; // the samples a full archive would hold
    int covered = 0;  // the samples present, up to the expected ones per day

    EnergySums &operator+=(const EnergySums &o);
};

// What a rule makes of some energies under one set of values.
struct Charge {
    std::optional<double> tgFi; // inductive ÷ active; none without active energy
    double excess = 0;          // kvarh billed
    std::optional<double> fee;  // zł; none while the rule's price is not set
};

// The rules of the tariff. The Polish one (PL): with A in MWh and energies
// in Mvarh, the inductive energy above tg φ0 costs
// k · Crk · (√((1 + tg²φ) / (1 + tg²φ0)) − 1) · A, where tg φ is taken
// without the inductive energy of reading periods without active energy;
// that energy and the capacitive energy are billed whole at k · Crk. The
// threshold rule (prog): max(0, inductive − r · A) at CenaKvarh a kvarh;
// capacitive energy is not billed. Without active energy every kvarh of
// inductive energy is excess under both.
namespace BillingRule {

Charge charge(const EnergySums &sums, const TariffValues &values);

}
