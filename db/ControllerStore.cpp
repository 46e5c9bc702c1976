#include "db/ControllerStore.h"

#include "db/Database.h"
#include "db/RowInsert.h"

#include <QSqlRecord>

SqlStatement ControllerStore::allByKod()
{
    return SqlStatement(QStringLiteral("Select * from Regulatory order by kod"));
}

QStringList ControllerStore::rowKey()
{
    return {QStringLiteral("Kod"), QStringLiteral("Adres")};
}

void ControllerStore::add(const QVariantMap &columns)
{
    m_connection().exec(rowInsert(QStringLiteral("Regulatory"), columns));
}

QList<QVariantMap> ControllerStore::list(const QStringList &columns)
{
    QSqlQuery q = m_connection().exec(SqlStatement(QStringLiteral("SELECT ") + columns.join(QStringLiteral(", ")) +
                                                   QStringLiteral(" FROM Regulatory ORDER BY Adres")));
    QList<QVariantMap> rows;
    while (q.next()) {
        QVariantMap row;
        for (int i = 0; i < columns.size(); ++i)
            row.insert(columns.at(i), q.value(i));
        rows.append(row);
    }
    return rows;
}

bool ControllerStore::hasKod(const QString &kod)
{
    SqlStatement q(QStringLiteral("SELECT 1 FROM Regulatory WHERE Kod = "));
    q.value(kod);
    return m_connection().exec(q).next();
}

std::optional<ControllerStore::Identity> ControllerStore::find(const QString &kod)
{
    SqlStatement s(QStringLiteral("SELECT Kod, Adres FROM Regulatory WHERE Kod = "));
    s.value(kod);
    QSqlQuery q = m_connection().exec(s);
    if (!q.next())
        return std::nullopt;
    return Identity{q.value(0).toString(), std::int16_t(q.value(1).toInt())};
}
