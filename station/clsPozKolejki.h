#pragma once

#include "base/ZDate.h"

#include <QString>
#include <QVariant>
#include <cstdint>

// The argument of a queued operation: nothing, a plain integer, a
// boolean, a date, or a pair of a stage number and a boolean.
struct StageSwitch {
    std::uint8_t stage = 0; // from 0
    bool on = false;
};
Q_DECLARE_METATYPE(StageSwitch)

// The operations an operator can queue for a controller.
namespace QueueOp {
inline const QString SetKeys = QStringLiteral("Ustaw_przel");
inline const QString Block = QStringLiteral("Blokuj");
inline const QString SetStage = QStringLiteral("UstawKondensator");
inline const QString ReadState = QStringLiteral("WczytajStanRegul");
}

// One operator request waiting for the polling tick.
class clsPozKolejki {
public:
    QString Polecenie;
    QVariant Parametry;
    std::uint8_t Status = 0; // given at Add, read by nothing
    std::int16_t NrRegul = 0;

    bool flag() const { return Parametry.toBool(); }
    ZDate date() const { return ZDate::fromVariant(Parametry); }
    StageSwitch stageSwitch() const { return Parametry.value<StageSwitch>(); }
};
