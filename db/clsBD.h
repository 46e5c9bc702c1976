#pragma once

#include "base/AlarmLog.h"

#include <QString>
#include <QVariant>
#include <cstdint>
#include <functional>

class Database;

// The one writer of the alarm table and the log. It keeps nothing: every
// call is one short statement on the station's connection, durable when it
// returns. Failures go up to the caller as run-time errors.
class clsBD final : public AlarmLog {
public:
    // The connection is looked up at each call: it is opened after this
    // object is created.
    explicit clsBD(std::function<Database &()> connection) : m_connection(std::move(connection)) {}

    std::int32_t ZapiszAlarm(ZDate Data, const QString &Typ, const QString &Tresc, const QString &Kod_Regul,
                             const QString &Operator) override;
    std::int16_t ModyfikujAlarm(std::int32_t Id_alarmu, const QVariant &Data_potw, const QVariant &data_dezakt,
                                const QString &Operator) override;
    // the database stamps the entry's time
    std::int16_t ZapiszDoLoga(const QString &Operacja, const QString &Status, const QString &Typ,
                              const QString &Kod_Regul) override;

private:
    std::function<Database &()> m_connection;
};
