#pragma once

// A station with controllers loaded from its database, and the means to play them on the scripted line.

#include "ErrorOf.h"
#include "StationFixture.h"
#include "TestEnv.h"
#include "TestMain.h"
#include "db/SqlStatement.h"

#include <QRegularExpression>
#include <QSqlQuery>
#include <QTest>
#include <array>

namespace rig {

// A request frame as the station puts it on the line (no stuffing), with its parameter byte if it has one.
inline QByteArray frame(std::uint8_t adres, std::uint8_t reg, std::uint8_t fn, int parameter = -1)
{
    const QByteArray head = QByteArray("\x02", 1) + char(adres) + char(reg) + char(fn);
    return parameter < 0 ? head : head + char(parameter);
}

// Reply bytes as a controller sends them: every 2 travels twice.
inline QByteArray stuffed(const QByteArray &data)
{
    QByteArray out;
    for (char c : data)
        out += std::uint8_t(c) == 2 ? QByteArray(2, c) : QByteArray(1, c);
    return out;
}
inline QByteArray byte(std::uint8_t b) { return stuffed(QByteArray(1, char(b))); }

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
    Block &voltage(std::int16_t raw) { return put(15, std::uint16_t(raw), 2); }
    Block &reactiveCurrent(std::int16_t raw) { return put(17, std::uint16_t(raw), 2); }
    Block &period(std::int16_t raw) { return put(23, std::uint16_t(raw), 2); }
};

// An ordinary reading of the default controller (380 V range, Przekladnia
// 100): 380 V, a reactive current of 50 A, 100 A in all, 50 Hz, tg fi about 0.354.
inline Block normalBlock()
{
    Block k;
    k.apparent(9000000).capacitive(-1000).reactive(3000000).put(12, 1000, 3).voltage(380);
    return k.reactiveCurrent(100).put(19, 200, 2).put(21, 10, 2).period(2303); // total current, phase
}

constexpr std::uint8_t Lamps1 = 0x90, Lamps2 = 0xA0, Lamps3 = 0xB0, DataBlock = 0x4F;

// One whole reading answered by the controller at `adres`, once; only `blockBytes`
// of the block reply come (33 with the lead byte: all).
inline void answerReading(ScriptedLine &line, std::uint8_t adres, const Block &block,
                          std::array<std::uint8_t, 3> lamps = {0xFF, 0xFF, 0xFF}, int blockBytes = 33)
{
    const std::uint8_t regs[] = {Lamps1, Lamps2, Lamps3};
    for (int i = 0; i < 3; ++i)
        line.answer(frame(adres, regs[i], 0x04), byte(lamps[std::size_t(i)]), 1);
    const QByteArray reply = QByteArray(1, char(0x55)) + QByteArray(reinterpret_cast<const char *>(block.b.data()), 32);
    line.answer(frame(adres, DataBlock, 0x06), stuffed(reply.left(blockBytes)), 1);
}

inline QString num(float v) { return QString::number(v, 'g', 9); } // a single, all of its digits

// A station on a fresh database with the given controllers (addresses 5, 6, ...), started.
struct Rig {
    explicit Rig(const QList<std::pair<QString, QVariantMap>> &controllers = {{QStringLiteral("R1"), {}}})
    {
        f.createDatabase();
        int adres = 5;
        for (const auto &[kod, overrides] : controllers)
            f.addController(kod, adres++, overrides);
        f.station().StartUp();
    }

    Station &s() { return f.station(); }
    clRegulator &reg(int id = 1) { return f.station().Regulatory.Item(std::int16_t(id)); }
    ActiveAlarmList &alarms() { return f.station().fmAlarmyN; }

    // A whole reading of controller `id` (at address 4 + id).
    bool read(const Block &k, int id = 1)
    {
        answerReading(line, std::uint8_t(4 + id), k);
        return reg(id).WczytajStanRegul(s().now());
    }
    // Rows of a query as "a|b|c" lines: NULL empty, reals as singles, dates to the second.
    QStringList lines(const QString &sql)
    {
        static const QRegularExpression date(QStringLiteral("^\\d{4}-\\d\\d-\\d\\d[T ]\\d\\d:\\d\\d:\\d\\d"));
        QSqlQuery q = f.station().connection().exec(SqlStatement(sql));
        QStringList out;
        while (q.next()) {
            QStringList cells;
            for (int i = 0; i < q.record().count(); ++i) {
                const QVariant v = q.isNull(i) ? QVariant(QString()) : q.value(i);
                QString text = v.typeId() == QMetaType::Double ? num(v.toFloat()) : v.toString();
                cells << (date.match(text).hasMatch() ? text.left(19).replace('T', ' ') : text);
            }
            out << cells.join('|');
        }
        return out;
    }
    // The log as "Operacja|Status|Typ|Kod_Regul" lines, in order of writing.
    QStringList log() { return lines("SELECT Operacja, Status, Typ, Kod_Regul FROM Log ORDER BY Id_wpisu"); }
    int count(const QString &table) { return lines("SELECT COUNT(*) FROM " + table).value(0).toInt(); }
    // The hub calls of these names, in order, as "name(args)".
    QStringList hub(const QStringList &names)
    {
        QStringList out;
        for (const RecordingWizual::Call &c : f.wizual.calls) {
            QStringList args;
            for (const QVariant &a : c.args)
                args << a.toString();
            if (names.contains(c.name))
                out << c.name + '(' + args.join(',') + ')';
        }
        return out;
    }
    // Controller Id, kind and activity of each alarm row, as " 1/ 201/A".
    QStringList kindsAndStates()
    {
        QStringList out;
        for (int i = 1; i <= alarms().rowCount(); ++i)
            out << alarms().subItem(i, 3) + '/' + alarms().subItem(i, 4) + '/' + alarms().subItem(i, 6);
        return out;
    }

    TestEnv env;
    StationFixture f{QStringLiteral("zorbel.db")};
    ScriptedLine &line = f.line;
};

}
