#include "db/clsBD.h"

#include "base/Conversions.h"
#include "base/RunTimeError.h"
#include "db/Database.h"

#include <QStringList>

namespace {

// An INSERT of the given columns, leaving out those whose text is empty.
class InsertBuilder {
public:
    explicit InsertBuilder(const QString &table) : m_table(table) {}
    InsertBuilder &date(const QString &column, ZDate d)
    {
        m_columns << column;
        m_values.push_back([d](SqlStatement &s) { s.date(d); });
        return *this;
    }
    InsertBuilder &text(const QString &column, const QString &value, bool keepEmpty = true)
    {
        if (value.isEmpty() && !keepEmpty)
            return *this;
        m_columns << column;
        m_values.push_back([value](SqlStatement &s) { s.value(value); });
        return *this;
    }
    SqlStatement statement() const
    {
        SqlStatement s(QStringLiteral("INSERT INTO %1 (%2) VALUES (").arg(m_table, m_columns.join(QStringLiteral(", "))));
        for (std::size_t i = 0; i < m_values.size(); ++i) {
            if (i > 0)
                s << ", ";
            m_values[i](s);
        }
        s << ")";
        return s;
    }

private:
    QString m_table;
    QStringList m_columns;
    std::vector<std::function<void(SqlStatement &)>> m_values;
};

ZDate dateOf(const QVariant &v)
{
    bool ok = false;
    const ZDate d = ZDate::fromVariant(v, &ok);
    if (!ok)
        throw RunTimeError::typeMismatch();
    return d;
}

}

std::int32_t clsBD::ZapiszAlarm(ZDate Data, const QString &Typ, const QString &Tresc, const QString &Kod_Regul,
                                const QString &Operator)
{
    InsertBuilder row(QStringLiteral("Alarmy"));
    row.date(QStringLiteral("Data"), Data)
        .text(QStringLiteral("Tresc"), Tresc)
        .text(QStringLiteral("Typ"), Typ)
        .text(QStringLiteral("Kod_Regul"), Kod_Regul, false)
        .text(QStringLiteral("Operator"), Operator, false);
    return conv::narrow32(m_connection().insert(row.statement(), QStringLiteral("Id_alarmu")));
}

std::int16_t clsBD::ModyfikujAlarm(std::int32_t Id_alarmu, const QVariant &Data_potw, const QVariant &data_dezakt,
                                   const QString &Operator)
{
    Database &db = m_connection();
    SqlStatement find(QStringLiteral("SELECT Id_alarmu FROM Alarmy WHERE Id_alarmu = "));
    find.value(Id_alarmu);
    if (!db.exec(find).next())
        throw RunTimeError::noCurrentRecord();

    SqlStatement update(QStringLiteral("UPDATE Alarmy SET Id_alarmu = Id_alarmu"));
    auto set = [&update](const char *column) -> SqlStatement & { return update << ", " << column << " = "; };
    if (!Data_potw.isNull())
        set("Data_potw").date(dateOf(Data_potw));
    if (!data_dezakt.isNull())
        set("data_dezakt").date(dateOf(data_dezakt));
    if (!Operator.isEmpty())
        set("Operator").value(Operator);
    update << " WHERE Id_alarmu = ";
    update.value(Id_alarmu);
    db.exec(update);
    return 0;
}

std::int16_t clsBD::ZapiszDoLoga(const QString &Operacja, const QString &Status, const QString &Typ,
                                 const QString &Kod_Regul)
{
    InsertBuilder row(QStringLiteral("Log"));
    row.text(QStringLiteral("Operacja"), Operacja)
        .text(QStringLiteral("Status"), Status)
        .text(QStringLiteral("Typ"), Typ)
        .text(QStringLiteral("Kod_Regul"), Kod_Regul, false);
    m_connection().exec(row.statement());
    return 0;
}
