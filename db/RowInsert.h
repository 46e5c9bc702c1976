#pragma once

#include "db/SqlStatement.h"

#include <QVariantMap>

// INSERT INTO table (columns of the map) VALUES (its values).
inline SqlStatement rowInsert(const QString &table, const QVariantMap &columns)
{
    SqlStatement s(QStringLiteral("INSERT INTO ") + table + QStringLiteral(" (") +
                   columns.keys().join(QStringLiteral(", ")) + QStringLiteral(") VALUES ("));
    bool first = true;
    for (const QVariant &v : columns) {
        if (!first)
            s << ", ";
        s.value(v);
        first = false;
    }
    s << ")";
    return s;
}
