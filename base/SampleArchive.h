#pragma once

#include "base/ZDate.h"

#include <QVariant>
#include <cstdint>

// One sample of a controller as archived: the energies of the period (the
// differences of two counter readings), the values of the reading, and the
// counters themselves as the base of the next period.
struct StoredSample {
    std::int16_t adres = 0;
    QVariant EnCzynna;
    QVariant EnBiernaPoj;
    QVariant EnBiernaCalk;
    float Napiecie = 0;
    float PradBierny = 0;
    float PradCalk = 0;
    float Czestotliwosc = 0;
    ZDate Data;

    float PopPradCzynny = 0;
    float PopPradBiernSr = 0;
    float PopPradBiernPojSr = 0;
    std::int32_t PopTimerU = 0;
};

// The archive of samples. A sample and the base of the next one are stored
// together or not at all; a failure is a run-time error for the caller.
class SampleArchive {
public:
    virtual ~SampleArchive() = default;
    virtual void ZapiszPomiar(const StoredSample &sample) = 0;
};
