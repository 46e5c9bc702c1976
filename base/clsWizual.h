#pragma once

#include <QString>
#include <cstdint>

// The events with which the logic tells the interface what has happened;
// the screen alone decides what they change. This is all the logic knows
// of the screen. Operations in their declared order. `Id` is a controller's position in colRegulatory. `Stan` means
// that the named work begins (true) or has ended (false), but for
// eKomunikacja, where it is a number: 1 a transfer starts, 0 it succeeded,
// 2 it failed, 3 lights the lamp.
class clsWizual {
public:
    virtual ~clsWizual() = default;

    virtual void eZmianaTrybuSterowania(bool tryb) = 0;
    // A hook: called after an alarm was added (flag always true); stays empty.
    virtual void eAlarm(std::int16_t Id, std::int16_t Typ, const QString &Opis, bool flag) = 0;
    virtual void eKomunikacja(std::int16_t Stan) = 0;
    virtual void eMonitoring(std::int16_t Id, bool Stan) = 0;
    virtual void eOkresowyOdczyt(std::int16_t Id, bool Stan) = 0;
    virtual void eZalaczanieBaterii(std::int16_t Id, bool Stan) = 0;
    virtual void eWylaczanieBaterii(std::int16_t Id, bool Stan) = 0;
    // A hook: called when a sample could not be written; stays empty.
    virtual void eZapisDB(bool Stan) = 0;
    // `Typ` is "O" from every caller.
    virtual void eNoweDane(std::int16_t Id, const QString &Typ) = 0;
    // `Nr`: stage number from 1.
    virtual void eZmianaBaterii(std::int16_t Id, std::int16_t Nr) = 0;
    virtual void eZmianaAlarmow() = 0;
    virtual void eZmianaRegulatora(std::int16_t Id) = 0;
    virtual void eBlokowanieRegul(std::int16_t Id, bool Blokada, bool Stan) = 0;
    virtual void eBlokadaRegul(std::int16_t Id, bool Blokada, bool Dzwiek) = 0;
    virtual void GrajDzwiek(const QString &Plik) = 0;
};
