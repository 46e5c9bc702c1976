#include "model/colRegulatory.h"

clRegulator &colRegulatory::Add(std::int16_t adres, const QString &Kod, const QString &sKey)
{
    auto r = std::make_unique<clRegulator>(m_context);
    r->Kod = Kod;
    r->adres = adres;
    return m_items.append(std::move(r), sKey);
}
