// When a controller is read: on a grid of its reading period counted from
// the zero date, or awarCzest minutes after a failure. The schedule keeps
// standard time: on the wall clock the end of summer time would hold the
// controller off for the repeated hour, and its start would put two
// samples on the same moment.
#include "model/clRegulator.h"

#include "base/RunTimeError.h"
#include "model/ControllerContext.h"
#include "link/ReplyBuffer.h"
#include "base/clsWizual.h"

#include <cmath>

bool clRegulator::OkresowyOdczyt(ZDate Czas)
{
    const ControllerContext &s = ctx();
    return OkresowyOdczyt(Czas, Czas.addMsecs(s.standardNow().msecs() - s.now().msecs()));
}

bool clRegulator::OkresowyOdczyt(ZDate Czas, ZDate CzasStandard)
{
    const bool PierwszyOdczyt = OstatniOdczyt.isZero();
    clsWizual &hub = ctx().oWizual;
    if (CzasStandard >= NastepnyOdczyt) {
        OstatniOdczyt = Czas;
        hub.eOkresowyOdczyt(Id, true);
        if (!WczytajStanRegul(Czas)) {
            // a fresh clock reading: the retry counts from the end of the failed attempt
            NastepnyOdczyt = ctx().standardNow().addMinutes(awarCzest);
            hub.eOkresowyOdczyt(Id, false);
            return false;
        }
        ObliczNastepnyOdczyt(CzasStandard);
        ZapiszDaneDB();
        hub.eOkresowyOdczyt(Id, false);
    }
    if (PierwszyOdczyt) {
        // the block state is asked for once, on the first read of a controller with no last sample
        hub.eOkresowyOdczyt(Id, true);
        std::uint8_t kod = 0;
        if (command("Czytaj_blok", kod)) {
            Zablokowany = KodBlokady(kod);
            hub.eBlokadaRegul(Id, Zablokowany, false);
        }
        hub.eOkresowyOdczyt(Id, false);
    }
    return false;
}

void clRegulator::ObliczNastepnyOdczyt(ZDate Czas)
{
    // billions of seconds from the zero date: 64 bits
    const std::int64_t s = ZDate::secondsBetween(NastepnyOdczyt, Czas);
    if (CzestOdczytu == 0)
        throw RunTimeError::divisionByZero();
    const double n = double(s) / 60.0 / CzestOdczytu;
    // a whole n above 0 lands on Czas itself: due again on the next tick
    const double k = (n == 0 || n != std::floor(n)) ? std::floor(n) + 1 : n;
    NastepnyOdczyt = NastepnyOdczyt.addMinutes(std::int64_t(k) * CzestOdczytu);
}
