#pragma once

#include "link/ReplyBuffer.h"

#include <QByteArray>
#include <QString>
#include <cstdint>

class Clock;
class Dialogs;
class EventPump;
class LinePort;

// The single gate to the controller line. It waits for replies by looking
// at the input, letting the interface run and looking again, so the screen
// stays live during a wait and other code may run inside it. The port is
// opened and closed by its owner, not here.
class clComm {
public:
    clComm(LinePort &line, const Clock &clock, EventPump &pump, Dialogs &dialogs);

    std::uint8_t Port = 0; // kept, read by nothing: the port in force is clsoApp::nr_portu
    QString Stan;          // kept, read by nothing
    bool Zajety = false;   // a command is being carried out

    // True as soon as a byte waits; false after about 2 to 3 seconds of the
    // link's own waiting.
    bool JestWBuforze();
    // The next data byte, 0 to 255; -1 when none came.
    std::int16_t CzytajBajt();
    // One byte into Bufor; false, Bufor untouched, when none came.
    bool CzytajDaneN(const ReplyBuffer &Bufor);
    // Discards waiting input, then sends the frame as it is. Always true.
    bool WyslijStr(const QByteArray &Dane);
    static bool logic(std::int16_t value) { return value != 0; }

    // Longest idle wait of one pass of the interface.
    static constexpr std::int64_t IdleSliceMs = 50;

private:
    friend class Komunikator; // the only way to the controllers

    enum class Outcome { Done, Failed, Abandoned };

    // Carries out a command word on the controller at bus address adres, with a second try
    // when the first fails. The word comes back in upper case.
    bool Rozkaz(std::int16_t adres, QString &Polecenie, const ReplyBuffer &Bufor, std::uint8_t &Parametr);
    bool CzytajBlok32(const ReplyBuffer &Bufor);

    void passEntryGuard();
    static std::uint8_t frameAddress(std::int16_t adres);
    Outcome carryOut(const QString &word, std::uint8_t adres, const ReplyBuffer &Bufor, std::uint8_t Parametr);
    Outcome readLamps(std::uint8_t adres, const ReplyBuffer &Bufor);

    LinePort &m_line;
    const Clock &m_clock;
    EventPump &m_pump;
    Dialogs &m_dialogs;
};
