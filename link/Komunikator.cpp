#include "link/Komunikator.h"

#include "link/clComm.h"
#include "base/clsWizual.h"

bool Komunikator::WykonajRozkaz(std::int16_t adres, QString &Polecenie, const ReplyBuffer &Bufor,
                                std::uint8_t &Parametr)
{
    m_wizual.eKomunikacja(1);
    const bool ok = m_comm.Rozkaz(adres, Polecenie, Bufor, Parametr);
    m_wizual.eKomunikacja(ok ? 0 : 2);
    return ok;
}
