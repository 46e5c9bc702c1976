#pragma once

#include "base/ZDate.h"
#include "model/clsStan.h"

#include <QString>
#include <array>
#include <cstdint>

class ReplyBuffer;
struct ControllerContext;

// The in-memory image of one compensation controller on the line: its
// configuration from Regulatory, the values of its last reading, the counters
// of its last stored sample, its front-panel state and its polling dates.
// Fields are in their declared order; the operations arrive with reading,
// alarms, storage and control.
class clRegulator {
public:
    explicit clRegulator(ControllerContext *context = nullptr) : m_context(context) {}

    // configuration and identity
    QString Kod;
    std::int16_t adres = 0;
    QString typ;
    std::int16_t CzestOdczytu = 0;   // minutes
    std::int16_t CzestZapisu = 0;    // kept, used by nothing
    ZDate OstatniOdczyt;             // zero: no reading known
    ZDate NastepnyOdczyt;            // in standard time; zero at start: due on the first tick
    ZDate OstatniZapis;              // kept, used by nothing
    ZDate NastepnyZapis;             // kept, used by nothing
    bool ZakloceniaHarm = false;
    std::int16_t Id = 0;             // 1-based position in colRegulatory
    std::int16_t AktywneAlarmy = 0;  // only ever counted up, to 32767
    float Przekladnia = 0;
    std::int16_t PrzekladniaNap = 0;
    std::int16_t NapieciePomiar = 0; // V

    // values of the last reading
    float PradCalkSr = 0;
    float PradBiernPojSr = 0;
    float PradBiernSr = 0;
    float Napiecie = 0;
    float PradBierny = 0;
    float PradCalk = 0;
    float PradCzynny = 0;

    // counters of the last stored sample
    float PopPradCzynny = 0;
    float PopPradBiernSr = 0;
    float PopPradBiernPojSr = 0;

    // further values and thresholds
    float Faza = 0;
    float Okres = 0;                 // a frequency, in Hz
    float TgFi = 0;
    float TgFiOkres = 0;
    float SkalaNapiecia = 0;
    float ProgNapiecie = 0;
    float ProgPrad = 0;
    float ProgTgFiMax = 0;
    float ProgTgFiMin = 0;
    bool Podlaczony = false;         // kept, used by nothing
    bool Zablokowany = false;
    bool Wlaczony = false;           // kept, used by nothing
    std::int16_t BajtKorekcji = 0;   // kept, used by nothing
    ::clsStan clsStan;               // front-panel state, created with the object
    QString Key;                     // kept, used by nothing
    bool Monitoring = false;
    std::int32_t TimerU = 0;
    std::int32_t popTimerU = 0;

    // filter bounds: loaded and kept, applied by nothing
    float EnCzynnaMin = 0, EnCzynnaMax = 0;
    float EnBiernaCalkMin = 0, EnBiernaCalkMax = 0;
    float EnBiernaPojMin = 0, EnBiernaPojMax = 0;
    float NapiecieMin = 0, NapiecieMax = 0;
    float PradCzynnyMin = 0, PradCzynnyMax = 0;
    float PradBiernyMin = 0, PradBiernyMax = 0;
    float PradCalkMin = 0, PradCalkMax = 0;
    float CzestotliwoscMin = 0, CzestotliwoscMax = 0;

    // remaining fields
    std::uint8_t NrAktBaterii = 0;   // selected stage from 1; 0 none
    bool ZmianaPrzel = false;        // kept, used by nothing

    // Held in its text form, as the boolean is kept.
    bool aktywny() const { return m_aktywny == QLatin1String("True"); }
    void setAktywny(bool on) { m_aktywny = on ? QStringLiteral("True") : QStringLiteral("False"); }

    std::int16_t awarCzest = 0;      // minutes

    ControllerContext *context() const { return m_context; }

    // tg fi where there is no active energy to divide by
    static constexpr float NoActiveEnergy = 9.999f;

    // reading (the lamps and the data block, scaled and checked)
    bool WczytajStanRegul(ZDate Czas);
    bool SprawdzStanDiody(std::uint8_t Nr) const;

    // alarms: raise kind Typ, clear kind Typ
    void DodajAlarm(ZDate Data, std::int16_t Typ, const QString &Opis);
    void SprawdzAlarm(std::int16_t Typ);

    // schedule: Czas is the wall-clock moment of the tick, which the sample
    // carries; CzasStandard the same moment in standard time, on which the
    // grid runs so that summer time neither skips nor repeats a point. The
    // one-argument form takes the clock's present summer-time shift.
    bool OkresowyOdczyt(ZDate Czas, ZDate CzasStandard);
    bool OkresowyOdczyt(ZDate Czas);
    // Czas in standard time, as NastepnyOdczyt.
    void ObliczNastepnyOdczyt(ZDate Czas);

    // storage of one sample
    void ZapiszDaneDB();

    // control
    bool BlokujRegul(bool Zablokuj);
    bool UstawRegulator();
    bool UstawKondensator(std::uint8_t Nr, bool Zalacz);
    static bool KodBlokady(std::uint8_t Kod) { return (Kod & 0x20) != 0; }

protected:
    // reading buffers
    std::uint8_t BajtPotw = 0;
    std::array<std::uint8_t, 4> BuforDiod{};
    double MnoznikEnergii = 0;
    double MnoznikPradu = 0;
    std::array<std::uint8_t, 32> BuforDanych{};
    std::int16_t OkresSurowy = 0;

private:
    // Sends command word `word` through the station's facade.
    bool command(const char *word, const ReplyBuffer &buffer, std::uint8_t parameter = 0);
    void decodeBlock();
    bool readStageBytes(std::uint8_t &K1, std::uint8_t &K2);
    void checkLimits();
    ControllerContext &ctx() const;

    ControllerContext *m_context;
    QString m_aktywny = QStringLiteral("False");
};
