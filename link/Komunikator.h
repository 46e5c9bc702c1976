#pragma once

#include "link/ReplyBuffer.h"

#include <QString>
#include <cstdint>

class clComm;
class clsWizual;

// The facade through which every command reaches the line, so that the
// interface can show the link's activity.
class Komunikator {
public:
    Komunikator(clComm &comm, clsWizual &wizual) : m_comm(comm), m_wizual(wizual) {}

    // Kept, read by nothing: whether the line runs over TCP is decided by
    // the port's device name.
    bool TCP = false;

    // Carries out command word Polecenie on the controller at address adres (see
    // clComm::Rozkaz), announcing the transfer: 1 before it, 0 after
    // success, 2 after failure.
    bool WykonajRozkaz(std::int16_t adres, QString &Polecenie, const ReplyBuffer &Bufor, std::uint8_t &Parametr);

private:
    clComm &m_comm;
    clsWizual &m_wizual;
};
