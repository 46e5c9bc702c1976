#pragma once

// A station with controllers loaded from its database, and the means to
// play the controllers on the scripted line.

#include "StationFixture.h"
#include "TestEnv.h"

#include "db/SqlStatement.h"

#include <QByteArray>
#include <QSqlQuery>
#include <QStringList>
#include <QVariantList>
#include <array>
#include <cstdint>

namespace rig {

// A request frame as the station puts it on the line (no stuffing).
inline QByteArray frame(std::uint8_t adres, std::uint8_t reg, std::uint8_t fn)
{
    return QByteArray("\x02", 1) + char(adres) + char(reg) + char(fn);
}
inline QByteArray frame(std::uint8_t adres, std::uint8_t reg, std::uint8_t fn, std::uint8_t parameter)
{
    return frame(adres, reg, fn) + char(parameter);
}

// Reply bytes as a controller sends them: every 2 travels twice.
inline QByteArray stuffed(const QByteArray &data)
{
    QByteArray out;
    for (char c : data) {
        out += c;
        if (std::uint8_t(c) == 2)
            out += c;
    }
    return out;
}
inline QByteArray byte(std::uint8_t b)
{
    return stuffed(QByteArray(1, char(b)));
}

// The 32-byte data block, fields big-endian.
struct Block {
    std::array<std::uint8_t, 32> b{};

    Block &put(int offset, std::uint64_t value, int width)
    {
        for (int i = width - 1; i >= 0; --i, value >>= 8)
            b[std::size_t(offset + i)] = std::uint8_t(value & 0xFF);
        return *this;
    }
    Block &apparent(std::uint32_t raw) { return put(0, raw, 4); }
    Block &capacitive(std::int32_t raw) { return put(4, std::uint32_t(raw), 4); }
    Block &reactive(std::int32_t raw) { return put(8, std::uint32_t(raw), 4); }
    Block &timer(std::uint32_t raw) { return put(12, raw, 3); }
    Block &voltage(std::int16_t raw) { return put(15, std::uint16_t(raw), 2); }
    Block &reactiveCurrent(std::int16_t raw) { return put(17, std::uint16_t(raw), 2); }
    Block &totalCurrent(std::int16_t raw) { return put(19, std::uint16_t(raw), 2); }
    Block &phase(std::int16_t raw) { return put(21, std::uint16_t(raw), 2); }
    Block &period(std::int16_t raw) { return put(23, std::uint16_t(raw), 2); }

    QByteArray bytes() const { return QByteArray(reinterpret_cast<const char *>(b.data()), int(b.size())); }
};

// A block of an ordinary reading of the default controller: 380 V, a
// reactive current of 50 A, 100 A in all, 50 Hz, tg fi about 0.354.
inline Block normalBlock()
{
    Block k;
    k.apparent(9000000).capacitive(-1000).reactive(3000000).timer(1000).voltage(380);
    k.reactiveCurrent(100).totalCurrent(200).phase(10).period(2303);
    return k;
}

constexpr std::uint8_t Lamps1 = 0x90, Lamps2 = 0xA0, Lamps3 = 0xB0, DataBlock = 0x4F;

// One whole reading answered by the controller at `adres`, once. Lamps
// and the block may be cut short to play a failure: `lampBytes` how many
// lamp replies come, `blockBytes` how many bytes of the block reply come
// (33 with the lead byte: all).
inline void answerReading(ScriptedLine &line, std::uint8_t adres, const Block &block,
                          std::array<std::uint8_t, 3> lamps = {0xFF, 0xFF, 0xFF}, int lampBytes = 3,
                          int blockBytes = 33)
{
    const std::uint8_t regs[] = {Lamps1, Lamps2, Lamps3};
    for (int i = 0; i < 3; ++i)
        line.answer(frame(adres, regs[i], 0x04), i < lampBytes ? byte(lamps[std::size_t(i)]) : QByteArray(), 1);
    if (lampBytes < 3)
        return;
    const QByteArray reply = (QByteArray(1, char(0x55)) + block.bytes()).left(blockBytes);
    line.answer(frame(adres, DataBlock, 0x06), stuffed(reply), 1);
}

// A station on a fresh database with the given controllers, started.
struct Rig {
    explicit Rig(const QList<std::pair<QString, QVariantMap>> &controllers = {{QStringLiteral("R1"), {}}})
    {
        f.createDatabase();
        int adres = 5;
        for (const auto &[kod, overrides] : controllers)
            f.addController(kod, overrides.value(QStringLiteral("Adres"), adres++).toInt(), overrides);
        f.station().StartUp();
    }

    Station &s() { return f.station(); }
    clRegulator &reg(int id = 1) { return f.station().Regulatory.Item(std::int16_t(id)); }
    ActiveAlarmList &alarms() { return f.station().fmAlarmyN; }

    // Rows of a query, each as a list of its columns (NULL as an invalid variant).
    QList<QVariantList> rows(const QString &sql)
    {
        QSqlQuery q = f.station().connection().exec(SqlStatement(sql));
        QList<QVariantList> out;
        while (q.next()) {
            QVariantList row;
            for (int i = 0; i < q.record().count(); ++i)
                row << (q.isNull(i) ? QVariant() : q.value(i));
            out << row;
        }
        return out;
    }
    // The log as "Operacja|Status|Typ|Kod_Regul" lines, in order of writing.
    QStringList log()
    {
        QStringList out;
        for (const QVariantList &r : rows(QStringLiteral("SELECT Operacja, Status, Typ, Kod_Regul FROM Log ORDER BY Id_wpisu")))
            out << r[0].toString() + '|' + r[1].toString() + '|' + r[2].toString() + '|' + r[3].toString();
        return out;
    }
    int count(const QString &table)
    {
        return rows(QStringLiteral("SELECT COUNT(*) FROM ") + table).value(0).value(0).toInt();
    }

    TestEnv env;
    StationFixture f{QStringLiteral("zorbel.db")};
};

}
