#include "link/clComm.h"

#include "base/Clock.h"
#include "base/Dialogs.h"
#include "base/RunTimeError.h"
#include "link/EventPump.h"
#include "link/Frames.h"
#include "link/LinePort.h"

#include <iterator>

using namespace frames;

namespace {

// What a command reads after its frames.
enum class Reply { None, Byte, Block, Lamps };

using FrameList = QList<QByteArray>;
using MakeFrames = FrameList (*)(std::uint8_t adres, std::uint8_t pp);

struct Command {
    const char *word;
    MakeFrames frames;
    Reply reply;
};

FrameList nothingSent(std::uint8_t, std::uint8_t)
{
    return {};
}

// In the order in which a word is matched.
const Command commands[] = {
    {"DAJ_DANE", [](std::uint8_t a, std::uint8_t) { return FrameList{frame(a, DataBlock, PrepareBlock)}; },
     Reply::None},
    {"CZYTAJ", nothingSent, Reply::Byte},
    {"CZYTAJ32", nothingSent, Reply::Block},
    {"CZYTAJ_DIODY", nothingSent, Reply::Lamps},
    {"USTAW_SR", [](std::uint8_t a, std::uint8_t p) { return FrameList{frame(a, Keys, WriteAlt, p)}; },
     Reply::None},
    {"TESTUJ", [](std::uint8_t a, std::uint8_t) { return FrameList{frame(a, Lamps3, ReadLamps)}; }, Reply::Byte},
    {"CZYTAJ_KOND1", [](std::uint8_t a, std::uint8_t) { return FrameList{frame(a, Lamps1, ReadLamps)}; },
     Reply::Byte},
    {"CZYTAJ_KOND2", [](std::uint8_t a, std::uint8_t) { return FrameList{frame(a, Lamps2, ReadLamps)}; },
     Reply::Byte},
    {"USTAW_KOND",
     [](std::uint8_t a, std::uint8_t p) { return FrameList{frame(a, stageTimer(p), WriteAlt, DischargeSeconds)}; },
     Reply::None},
    {"BADAJ_KOND", [](std::uint8_t a, std::uint8_t p) { return FrameList{frame(a, stageTimer(p), ReadValue)}; },
     Reply::Byte},
    {"WLACZ_KOND", [](std::uint8_t a, std::uint8_t p) { return FrameList{frame(a, Lamps1, Write, p)}; },
     Reply::None},
    {"WLACZ_KOND2", [](std::uint8_t a, std::uint8_t p) { return FrameList{frame(a, Lamps2, Write, p)}; },
     Reply::None},
    {"CZYTAJ_BLOK", [](std::uint8_t a, std::uint8_t) { return FrameList{frame(a, Blocking, ReadValue)}; },
     Reply::Byte},
    // the new state is read back at once
    {"USTAW_BLOK",
     [](std::uint8_t a, std::uint8_t p) {
         return FrameList{frame(a, Blocking, WriteAlt, p), frame(a, Blocking, ReadValue)};
     },
     Reply::Byte},
};

const Command *findCommand(const QString &word)
{
    for (const Command &c : commands)
        if (word == QLatin1String(c.word))
            return &c;
    return nullptr;
}

constexpr int BlockSize = 32;
constexpr std::uint8_t Stuffed = 2; // a 2 in a reply travels twice

}

clComm::clComm(LinePort &line, const Clock &clock, EventPump &pump, Dialogs &dialogs)
    : m_line(line), m_clock(clock), m_pump(pump), m_dialogs(dialogs)
{
}

bool clComm::JestWBuforze()
{
    // on standard time: the end of summer time must not stretch a wait by an hour
    ZDate start = m_clock.standardNow();
    for (;;) {
        if (ZDate::secondsBetween(start, m_clock.standardNow()) > 2)
            return false;
        // with input already waiting the pass must not sit idle
        const std::int64_t maxIdle = m_line.bytesWaiting() > 0 ? 0 : IdleSliceMs;
        const ZDate przed = m_clock.standardNow();
        const std::int64_t idle = m_pump.processEvents(maxIdle);
        // only the interface's part of the pass is given back to the wait
        start = start.addSecs(ZDate::secondsBetween(przed.addMsecs(idle), m_clock.standardNow()));
        if (m_line.bytesWaiting() >= 1)
            return true;
    }
}

std::int16_t clComm::CzytajBajt()
{
    if (!JestWBuforze())
        return -1;
    const int b = m_line.readByte();
    if (b == Stuffed) {
        // the twin is dropped unseen, whatever it is
        if (!JestWBuforze())
            return -1;
        m_line.readByte();
    }
    return std::int16_t(b);
}

bool clComm::CzytajDaneN(const ReplyBuffer &Bufor)
{
    const std::int16_t b = CzytajBajt();
    if (b < 0)
        return false;
    Bufor.set(b);
    return true;
}

bool clComm::WyslijStr(const QByteArray &Dane)
{
    m_line.discardInput();
    m_line.send(Dane);
    return true;
}

bool clComm::CzytajBlok32(const ReplyBuffer &Bufor)
{
    for (int i = 0; i < BlockSize; ++i)
        if (!CzytajDaneN(Bufor.at(i)))
            return false;
    return true;
}

void clComm::passEntryGuard()
{
    // Deliberately weak: a busy link is passed straight on; the loop runs
    // only if the flag drops between the two looks.
    if (Zajety)
        while (!Zajety)
            m_pump.processEvents(IdleSliceMs);
}

std::uint8_t clComm::frameAddress(std::int16_t adres)
{
    // a frame byte can't carry it
    if (adres < 0 || adres > 255)
        throw RunTimeError::invalidCall();
    return std::uint8_t(adres);
}

bool clComm::Rozkaz(std::int16_t adres, QString &Polecenie, const ReplyBuffer &Bufor, std::uint8_t &Parametr)
{
    passEntryGuard();
    Zajety = true;
    bool Wynik = false;
    for (int Proba = 1; !Wynik && Proba <= 2; ++Proba) {
        Polecenie = Polecenie.toUpper();
        // kept: an address no frame carries throws with Zajety left true
        const Outcome outcome = carryOut(Polecenie, frameAddress(adres), Bufor, Parametr);
        if (outcome == Outcome::Abandoned)
            break;
        Wynik = outcome == Outcome::Done;
    }
    Zajety = false;
    return Wynik;
}

clComm::Outcome clComm::carryOut(const QString &word, std::uint8_t adres, const ReplyBuffer &Bufor,
                                 std::uint8_t Parametr)
{
    const Command *command = findCommand(word);
    if (!command) {
        m_dialogs.MsgBox(QStringLiteral("Nieznany rozkaz: '") + word + QLatin1Char('\''), Dialogs::Critical,
                         QStringLiteral("Błąd - moduł oCOmm"));
        return Outcome::Failed;
    }
    for (const QByteArray &f : command->frames(adres, Parametr))
        WyslijStr(f);
    switch (command->reply) {
    case Reply::None:
        return Outcome::Done;
    case Reply::Byte:
        return CzytajDaneN(Bufor) ? Outcome::Done : Outcome::Failed;
    case Reply::Block:
        return CzytajBlok32(Bufor) ? Outcome::Done : Outcome::Failed;
    case Reply::Lamps:
        return readLamps(adres, Bufor);
    }
    return Outcome::Failed;
}

clComm::Outcome clComm::readLamps(std::uint8_t adres, const ReplyBuffer &Bufor)
{
    const std::uint8_t registers[] = {Lamps1, Lamps2, Lamps3};
    const int last = int(std::size(registers));
    for (int i = 1; i <= last; ++i) {
        WyslijStr(frame(adres, registers[i - 1], ReadLamps));
        // only the last read is worth a second try
        if (!CzytajDaneN(Bufor.at(i)))
            return i < last ? Outcome::Abandoned : Outcome::Failed;
    }
    return Outcome::Done;
}
