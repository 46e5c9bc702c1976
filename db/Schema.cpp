#include "db/Schema.h"

#include "db/DailyRollup.h"
#include "db/Database.h"
#include "db/SchemaVersion.h"

#include <algorithm>
#include <stdexcept>

namespace Schema {

namespace {

using T = SqlDialect::ColumnType;

std::vector<Column> regulatoryColumns()
{
    std::vector<Column> c = {
        {"Kod", T::Text, {}}, {"Adres", T::Int16, {}}, {"Typ", T::Text, {}}, {"aktywny", T::Text, {}},
        {"NrFabryczny", T::Text, {}}, {"Opis", T::Text, {}}, {"NapieciePomiar", T::Int16, {}},
        {"Przekladnia", T::Single, {}}, {"PrzekladniaNap", T::Int16, {}}, {"CzestOdczytu", T::Int16, {}},
        {"CzestTrans", T::Number, {}}, {"awarCzest", T::Int16, {}}, {"ProgNapiecie", T::Single, {}},
        {"ProgPrad", T::Single, {}}, {"ProgTgFi", T::Single, {}}, {"ProgTgFiMin", T::Single, {}},
    };
    for (const char *bound : {"EnCzynna", "EnBiernaCalk", "EnBiernaPoj", "Napiecie", "PradCzynny", "PradBierny",
                              "PradCalk", "Czestotliwosc"}) {
        c.push_back({QString::fromLatin1(bound) + QLatin1String("Min"), T::Single, {}});
        c.push_back({QString::fromLatin1(bound) + QLatin1String("Max"), T::Single, {}});
    }
    for (int i = 1; i <= 9; ++i)
        c.push_back({QStringLiteral("BKSt%1").arg(i), T::Number, {}});
    return c;
}

std::vector<Table> buildTables()
{
    return {
        {"Regulatory", regulatoryColumns(), {{"ix_Regulatory_Kod", "Kod"}, {"ix_Regulatory_Adres", "Adres"}}},
        {"Pomiary",
         {{"Adres", T::Int16, {}}, {"Data", T::Date, {}}, {"EnCzynna", T::Single, {}}, {"EnBiernaCalk", T::Single, {}},
          {"EnBiernaPoj", T::Single, {}}, {"Napiecie", T::Single, {}}, {"PradBierny", T::Single, {}},
          {"PradCalk", T::Single, {}}, {"Czestotliwosc", T::Single, {}}},
         // a controller's energies over a range come from the index alone: its
         // samples lie among all the others' in the table, a page per row
         {{"ix_Pomiary_Adres_Data_En", "Adres, Data, EnCzynna, EnBiernaCalk"}, {"ix_Pomiary_Data", "Data"}}},
        {"OstPomiar",
         {{"Adres", T::Int16, {}}, {"PopPradCzynny", T::Single, {}}, {"PopPradBiernSr", T::Single, {}},
          {"PopPradBiernPojSr", T::Single, {}}, {"PopTimerU", T::Int32, {}}, {"Czas", T::Date, {}}},
         // one counter row per address: a torn restart can never leave two
         {{"ux_OstPomiar_Adres", "Adres", true}}},
        {"Alarmy",
         {{"Id_alarmu", T::AutoId, {}}, {"Data", T::Date, {}}, {"Tresc", T::Text, {}}, {"Typ", T::Text, {}},
          {"Kod_Regul", T::Text, {}}, {"Operator", T::Text, {}}, {"Data_potw", T::Date, {}},
          {"Data_dezakt", T::Date, {}}},
         {{"ix_Alarmy_Data", "Data"}}},
        // Id_wpisu and Czas are the database's own: an audit trail needs order and time.
        {"Log",
         {{"Id_wpisu", T::AutoId, {}}, {"Operacja", T::Text, {}}, {"Status", T::Text, {}}, {"Typ", T::Text, {}},
          {"Kod_Regul", T::Text, {}}, {"Czas", T::Date, "now"}},
         {}},
        {"Hierarchia",
         {{"kod_obiektu", T::Text, {}}, {"kod_obiektu_nad", T::Text, {}}, {"typ", T::Text, {}}},
         {{"ix_Hierarchia_kod_obiektu", "kod_obiektu"}}},
        {DailyRollup::TableName, DailyRollup::columns(),
         // an object's days: its controllers' rows of those days only
         {{"ux_PomiaryDzien_Adres_Dzien", "Adres, Dzien", true}, {"ix_PomiaryDzien_Dzien", "Dzien"}}, 3},
    };
}

QString columnDefinition(const Column &c, const SqlDialect &dialect)
{
    QString def = c.name + QLatin1Char(' ') + dialect.columnType(c.type);
    if (c.defaultExpression == QLatin1String("now"))
        def += QStringLiteral(" DEFAULT ") + dialect.localNowDefault();
    return def;
}

}

const std::vector<Table> &tables()
{
    static const std::vector<Table> all = buildTables();
    return all;
}

const Table &table(const QString &name)
{
    for (const Table &t : tables())
        if (t.name == name)
            return t;
    throw std::out_of_range("no such table");
}

QStringList createStatements(const Table &t, const SqlDialect &dialect)
{
    QStringList cols;
    for (const Column &c : t.columns)
        cols << columnDefinition(c, dialect);
    QStringList out{QStringLiteral("CREATE TABLE %1 (%2)").arg(t.name, cols.join(QStringLiteral(", ")))};
    for (const Index &i : t.indexes)
        out << QStringLiteral("CREATE %1INDEX %2 ON %3 (%4)")
                   .arg(i.unique ? QStringLiteral("UNIQUE ") : QString(), i.name, t.name, i.columns);
    return out;
}

QStringList createStatements(const SqlDialect &dialect)
{
    QStringList out = dialect.schemaPreamble();
    for (const Table &t : tables())
        out << createStatements(t, dialect);
    return out;
}

void create(Database &db)
{
    db.transaction();
    try {
        for (const QString &sql : createStatements(db.dialect()))
            db.execText(sql);
        SchemaVersion::stamp(db);
        db.commit();
    } catch (...) {
        db.rollback();
        throw;
    }
}

void dropAll(Database &db)
{
    QStringList names{QString::fromLatin1(SchemaVersion::TableName)};
    for (const Table &t : tables())
        names << t.name;
    for (const QString &name : names)
        if (db.tableExists(name))
            db.execText(QStringLiteral("DROP TABLE ") + name);
}

bool hasAnyTable(Database &db)
{
    return std::any_of(tables().begin(), tables().end(), [&](const Table &t) { return db.tableExists(t.name); });
}

QStringList missingTables(Database &db)
{
    QStringList missing;
    for (const Table &t : tables())
        if (t.since == 0 && !db.tableExists(t.name))
            missing << t.name;
    return missing;
}

}
