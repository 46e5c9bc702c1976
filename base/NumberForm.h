#pragma once

#include <QString>
#include <cstdint>

// A number as the system writes it into alarm and log texts, hidden list
// fields and search criteria: a leading blank unless negative, a point as
// decimal mark, no grouping, and the shortest digits that give the value back
// (up to 7 significant for a single, 15 for a double). Small and large
// magnitudes switch to the exponent form " 1E+10", " 1.5E-06".
// The leading zero of a fraction is kept (" 0.5").
QString numberForm(float value);
QString numberForm(double value);
QString numberForm(std::int64_t value);
inline QString numberForm(int value) { return numberForm(std::int64_t(value)); }
inline QString numberForm(short value) { return numberForm(std::int64_t(value)); }
