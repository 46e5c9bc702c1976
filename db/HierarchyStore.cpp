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
