#include "db/DailyRollup.h"

#include <QStringList>

namespace DailyRollup {

namespace {

using T = SqlDialect::ColumnType;

struct Measure {
    QString name;
    bool extremes;                  // its least and greatest are kept too
    void (*source)(SqlStatement &); // its value in one sample
};

// The inductive energy of a reading period without active energy, billed
// whole; NULL for any other sample, and for one whose active energy is
// NULL (unknown, not zero), so its count is the number of such periods.
void inductiveWithoutActive(SqlStatement &q)
{
    q << "(CASE WHEN EnCzynna=0 AND EnBiernaCalk-EnBiernaPoj>0 THEN EnBiernaCalk-EnBiernaPoj END)";
}

// A sample's tg fi as the period report takes it: 0 without active energy.
void guardedTgFi(SqlStatement &q)
{
    q << "(CASE WHEN EnCzynna<>0 THEN ";
    q.ratio(QStringLiteral("EnBiernaCalk"), QStringLiteral("EnCzynna")) << " ELSE 0 END)";
}

const std::vector<Measure> &measures()
{
    static const std::vector<Measure> all = {
        {"EnCzynna", false, [](SqlStatement &q) { q << "EnCzynna"; }},
        {"EnBiernaCalk", false, [](SqlStatement &q) { q << "EnBiernaCalk"; }},
        {"EnBiernaPoj", false, [](SqlStatement &q) { q << "EnBiernaPoj"; }},
        {"EnBierna", false, [](SqlStatement &q) { q << "(EnBiernaCalk-EnBiernaPoj)"; }},
        {"EnBiernaBezCzynnej", false, inductiveWithoutActive},
        {"TgFi", true, guardedTgFi},
        {"Napiecie", true, [](SqlStatement &q) { q << "Napiecie"; }},
        {"Czestotliwosc", true, [](SqlStatement &q) { q << "Czestotliwosc"; }},
        {"PradCalk", true, [](SqlStatement &q) { q << "PradCalk"; }},
    };
    return all;
}

enum class Kind { Sum, Count, Min, Max };

struct Aggregate {
    const char *suffix;
    Kind kind;
    bool extreme;
};
const Aggregate Aggregates[] = {
    {"Suma", Kind::Sum, false}, {"Ile", Kind::Count, false}, {"Min", Kind::Min, true}, {"Max", Kind::Max, true}};

// Calls f(column, measure, kind) for each column of the measures, in order.
template <typename F> void forEachColumn(F f)
{
    for (const Measure &m : measures())
        for (const Aggregate &a : Aggregates)
            if (m.extremes || !a.extreme)
                f(m.name + QLatin1String(a.suffix), m, a.kind);
}

QString columnList()
{
    QStringList names{QStringLiteral("Adres"), QStringLiteral("Dzien"), QStringLiteral("Ile")};
    forEachColumn([&](const QString &c, const Measure &, Kind) { names << c; });
    return QStringLiteral("INSERT INTO PomiaryDzien (") + names.join(QStringLiteral(", ")) + QStringLiteral(") SELECT ");
}

// One sample's share of a column.
void share(SqlStatement &q, const Measure &m, Kind kind)
{
    if (kind == Kind::Count) {
        q << "CASE WHEN ";
        m.source(q);
        q << " IS NULL THEN 0 ELSE 1 END";
        return;
    }
    m.source(q);
}

// A column over many samples; sums in double precision whatever the columns hold.
void aggregate(SqlStatement &q, const Measure &m, Kind kind)
{
    static const char *const Function[] = {"SUM(CAST(", "COUNT(", "MIN(", "MAX("};
    q << Function[int(kind)];
    m.source(q);
    if (kind == Kind::Sum) {
        q << " AS ";
        q.typeName(T::Number) << ")";
    }
    q << ")";
}

// A stored column merged with a sample's share: NULL stands for no value.
QString merged(const QString &c, Kind kind)
{
    const QString old = QStringLiteral("PomiaryDzien.") + c, add = QStringLiteral("excluded.") + c;
    switch (kind) {
    case Kind::Count: return old + QLatin1Char('+') + add;
    case Kind::Sum: return QStringLiteral("COALESCE(%1+%2, %1, %2)").arg(old, add);
    case Kind::Min: return QStringLiteral("CASE WHEN %1 IS NULL OR %2<%1 THEN %2 ELSE %1 END").arg(old, add);
    case Kind::Max: return QStringLiteral("CASE WHEN %1 IS NULL OR %2>%1 THEN %2 ELSE %1 END").arg(old, add);
    }
    return {};
}

void castValue(SqlStatement &q, const QVariant &v, T type, const char *as)
{
    q << "CAST(";
    q.value(v) << " AS ";
    q.typeName(type) << ") AS " << as;
}

// The sample as a row of one-sample columns, typed as in Pomiary.
void sampleRow(SqlStatement &q, const StoredSample &s)
{
    q << " FROM (SELECT ";
    castValue(q, s.EnCzynna, T::Single, "EnCzynna, ");
    castValue(q, s.EnBiernaCalk, T::Single, "EnBiernaCalk, ");
    castValue(q, s.EnBiernaPoj, T::Single, "EnBiernaPoj, ");
    castValue(q, s.Napiecie, T::Single, "Napiecie, ");
    castValue(q, s.Czestotliwosc, T::Single, "Czestotliwosc, ");
    castValue(q, s.PradCalk, T::Single, "PradCalk) s");
}

}

std::vector<Schema::Column> columns()
{
    std::vector<Schema::Column> out = {{"Adres", T::Int16, {}}, {"Dzien", T::Date, {}}, {"Ile", T::Int32, {}}};
    forEachColumn([&](const QString &c, const Measure &, Kind kind) {
        out.push_back({c, kind == Kind::Count ? T::Int32 : T::Number, {}});
    });
    return out;
}

SqlStatement addSample(const StoredSample &sample)
{
    SqlStatement q(columnList());
    q << "CAST(";
    q.value(sample.adres) << " AS ";
    q.typeName(T::Int16) << "), CAST(";
    q.date(ZDate::startOf(sample.Data.date())) << " AS ";
    q.typeName(T::Date) << "), 1";
    forEachColumn([&](const QString &, const Measure &m, Kind kind) {
        q << ", ";
        share(q, m, kind);
    });
    sampleRow(q, sample);
    // WHERE true: SQLite reads ON CONFLICT after a bare SELECT as a join's
    q << " WHERE true ON CONFLICT (Adres, Dzien) DO UPDATE SET Ile=PomiaryDzien.Ile+1";
    forEachColumn([&](const QString &c, const Measure &, Kind kind) { q << ", " << c << "=" << merged(c, kind); });
    return q;
}

SqlStatement rollUp(ZDate from, ZDate to)
{
    SqlStatement q(columnList());
    q << "Adres, ";
    q.dayStart(QStringLiteral("Data")) << ", COUNT(*)";
    forEachColumn([&](const QString &, const Measure &m, Kind kind) {
        q << ", ";
        aggregate(q, m, kind);
    });
    q << " FROM Pomiary WHERE Data >= ";
    q.date(from) << " AND Data < ";
    q.date(to) << " GROUP BY Adres, ";
    q.dayStart(QStringLiteral("Data"));
    return q;
}

}
