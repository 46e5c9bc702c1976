#pragma once

#include "base/ZDate.h"

#include <QString>
#include <QVariant>
#include <cstdint>

// The letters of a log entry's Status and Typ, and of an alarm's Typ.
namespace LogStatus {
inline const QString Done = QStringLiteral("N");
inline const QString Failed = QStringLiteral("B");
}
namespace LogType {
inline const QString Application = QStringLiteral("L"); // start and stop
inline const QString Link = QStringLiteral("K");        // a controller that does not answer
inline const QString Block = QStringLiteral("B");
inline const QString Setting = QStringLiteral("U");     // the panel keys sent
inline const QString Stage = QStringLiteral("S");
inline const QString Monitoring = QStringLiteral("M");
}
namespace AlarmSource {
inline const QString Controller = QStringLiteral("R");
}

// Where alarms and the operation log are written. Every call is durable when
// it returns; a failure is a run-time error for the caller.
class AlarmLog {
public:
    virtual ~AlarmLog() = default;

    // Adds an alarm row and returns its key. An empty Kod_Regul or Operator
    // leaves that column NULL.
    virtual std::int32_t ZapiszAlarm(ZDate Data, const QString &Typ, const QString &Tresc, const QString &Kod_Regul,
                                     const QString &Operator) = 0;
    // Stores a confirmation and/or a deactivation date (each: a date, or
    // NULL to leave the column alone) and the operator when not empty. An
    // unknown key is a run-time error and writes nothing.
    virtual std::int16_t ModyfikujAlarm(std::int32_t Id_alarmu, const QVariant &Data_potw,
                                        const QVariant &data_dezakt, const QString &Operator) = 0;
    // Adds a log entry; the store stamps its time.
    virtual std::int16_t ZapiszDoLoga(const QString &Operacja, const QString &Status, const QString &Typ,
                                      const QString &Kod_Regul) = 0;
};
