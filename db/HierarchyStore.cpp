#include "db/HierarchyStore.h"

#include "db/Database.h"

void HierarchyStore::add(const QString &kod_obiektu, const QString &kod_obiektu_nad, const QString &typ)
{
    SqlStatement s(QStringLiteral("INSERT INTO Hierarchia (kod_obiektu, kod_obiektu_nad, typ) VALUES ("));
    s.value(kod_obiektu) << ", ";
    s.value(kod_obiektu_nad) << ", ";
    s.value(typ) << ")";
    m_connection().exec(s);
}

int HierarchyStore::remove(const QString &kod_obiektu)
{
    SqlStatement s(QStringLiteral("DELETE FROM Hierarchia WHERE kod_obiektu = "));
    s.value(kod_obiektu);
    return m_connection().exec(s).numRowsAffected();
}

std::vector<HierarchyStore::Row> HierarchyStore::all()
{
    return rows(QStringLiteral("kod_obiektu_nad, kod_obiektu"));
}

std::vector<HierarchyStore::Row> HierarchyStore::inTreeOrder()
{
    return rows(QStringLiteral("kod_obiektu_nad"));
}

std::vector<HierarchyStore::Row> HierarchyStore::rows(const QString &order)
{
    QSqlQuery q = m_connection().exec(
        SqlStatement(QStringLiteral("SELECT kod_obiektu, kod_obiektu_nad, typ FROM Hierarchia ORDER BY ") + order));
    std::vector<Row> rows;
    while (q.next())
        rows.push_back({q.value(0).toString(), q.value(1).toString(), q.value(2).toString()});
    return rows;
}
