#pragma once

class RowSet;
class clRegulator;
class colRegulatory;

#include <cstdint>

// Builds one controller from the current row of the controllers' set and the
// counters of its last sample, converting every column as the object holds
// it. A failure names the table, the column and the row (its Kod and Adres).
class ControllerLoader {
public:
    ControllerLoader(RowSet &regulatory, RowSet &lastSamples, colRegulatory &controllers)
        : m_rows(regulatory), m_last(lastSamples), m_controllers(controllers) {}

    // Loads the current row as controller number id.
    clRegulator &load(std::int16_t id);

private:
    void seedFromLastSample(clRegulator &r);
    void readConfiguration(clRegulator &r);

    RowSet &m_rows;
    RowSet &m_last;
    colRegulatory &m_controllers;
};
