#include "db/FindCriterion.h"

#include "base/RunTimeError.h"

FindCriterion::FindCriterion(const QString &criterion)
{
    const int eq = criterion.indexOf(QLatin1Char('='));
    if (eq <= 0)
        throw RunTimeError::database(QStringLiteral("Niepoprawne kryterium wyszukiwania \"%1\"").arg(criterion));
    m_column = criterion.left(eq).trimmed();
    m_wanted = criterion.mid(eq + 1).trimmed();
}

bool FindCriterion::matches(const QVariant &value) const
{
    if (value.isNull())
        return false;
    bool wantedIsNumber = false;
    const double w = m_wanted.toDouble(&wantedIsNumber);
    bool valueIsNumber = false;
    const double v = value.toDouble(&valueIsNumber);
    if (wantedIsNumber && valueIsNumber)
        return v == w;
    QString text = m_wanted;
    if (text.size() >= 2 && text.startsWith(QLatin1Char('\'')) && text.endsWith(QLatin1Char('\'')))
        text = text.mid(1, text.size() - 2);
    return value.toString() == text;
}
