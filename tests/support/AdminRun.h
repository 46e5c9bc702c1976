#pragma once

#include "AdminTool.h"

#include <QString>
#include <QStringList>
#include <QTextStream>

// What zorbel-admin, run inside the test on the SQLite database of the
// test's directory, answered: its exit code and its two streams.
struct AdminRun {
    int code;
    QString out, err;
};

inline AdminRun runAdmin(const QStringList &args)
{
    QString out, err;
    QTextStream o(&out), e(&err);
    const QStringList db{QStringLiteral("--db"), QStringLiteral("sqlite:zorbel.db")};
    const int code = AdminTool(o, e).run(QStringList{QStringLiteral("zorbel-admin")} + args + db);
    o.flush();
    e.flush();
    return {code, out, err};
}
