#include "station/clsKolejka.h"

#include "model/colRegulatory.h"

clsPozKolejki &clsKolejka::Add(std::int16_t NrRegul, const QString &Polecenie, const QVariant &Parametry,
                               std::uint8_t Status, const QString &sKey)
{
    auto entry = std::make_unique<clsPozKolejki>();
    entry->NrRegul = NrRegul;
    entry->Polecenie = Polecenie;
    entry->Parametry = Parametry;
    entry->Status = Status;
    return m_items.append(std::move(entry), sKey);
}

bool clsKolejka::Wykonaj()
{
    if (Count() == 0)
        return false;
    const clsPozKolejki &entry = Item(1);
    clRegulator &r = m_regulatory.Item(entry.NrRegul);
    // exact words, case included
    if (entry.Polecenie == QueueOp::SetKeys)
        r.UstawRegulator();
    else if (entry.Polecenie == QueueOp::Block)
        r.BlokujRegul(entry.flag());
    else if (entry.Polecenie == QueueOp::SetStage)
        r.UstawKondensator(entry.stageSwitch().stage, entry.stageSwitch().on);
    else if (entry.Polecenie == QueueOp::ReadState)
        r.WczytajStanRegul(entry.date());
    Remove(1);
    return false;
}
