#pragma once

#include <QDateTime>
#include <QString>
#include <QVariant>
#include <compare>
#include <cstdint>

// A moment as a count of days from midnight of 30 December 1899 in local
// wall-clock time (or, for schedules and waits, local standard time: see
// Clock), the fraction being the time of day. The zero date means
// "never". Held as whole milliseconds so that arithmetic on seconds and
// minutes is exact; days() gives the day count with its fraction.
class ZDate {
public:
    static constexpr std::int64_t MsPerSecond = 1000;
    static constexpr std::int64_t MsPerMinute = 60 * MsPerSecond;
    static constexpr std::int64_t MsPerDay = 24 * 60 * MsPerMinute;

    constexpr ZDate() = default;
    static constexpr ZDate fromMsecs(std::int64_t ms) { ZDate d; d.m_ms = ms; return d; }
    static ZDate fromDays(double days);
    static ZDate fromParts(int year, int month, int day, int hour = 0, int minute = 0, int second = 0, int ms = 0);
    // Midnight at the start of a day.
    static ZDate startOf(QDate day) { return fromParts(day.year(), day.month(), day.day()); }
    // Local wall-clock reading of a QDateTime (its date and time of day as shown).
    static ZDate fromDateTime(const QDateTime &dt);
    // "yyyy-MM-dd HH:mm:ss" (also with 'T' or fractional seconds); invalid text gives nullopt-like zero + ok=false.
    static ZDate fromIsoText(const QString &text, bool *ok = nullptr);
    // A value read from a database column: a QDateTime, a QDate or ISO text;
    // or a variant that holds a ZDate.
    static ZDate fromVariant(const QVariant &value, bool *ok = nullptr);

    constexpr std::int64_t msecs() const { return m_ms; }
    double days() const { return double(m_ms) / double(MsPerDay); }
    constexpr bool isZero() const { return m_ms == 0; }
    // Whole seconds of the clock shown, as a clock read in seconds gives them.
    std::int64_t wholeSeconds() const;

    QDate date() const;
    QTime time() const;
    QDateTime toDateTime() const;
    QString toString(const QString &format) const;
    QString toIsoText() const { return toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")); }
    // A variant that holds the date itself.
    QVariant toVariant() const;

    constexpr ZDate addMsecs(std::int64_t ms) const { return fromMsecs(m_ms + ms); }
    constexpr ZDate addSecs(std::int64_t s) const { return addMsecs(s * MsPerSecond); }
    constexpr ZDate addMinutes(std::int64_t m) const { return addMsecs(m * MsPerMinute); }
    constexpr ZDate addDays(std::int64_t d) const { return addMsecs(d * MsPerDay); }

    // Whole-second boundaries crossed from a to b (negative when b is earlier).
    static std::int64_t secondsBetween(ZDate a, ZDate b);

    constexpr auto operator<=>(const ZDate &) const = default;

private:
    std::int64_t m_ms = 0;
};

Q_DECLARE_METATYPE(ZDate)
