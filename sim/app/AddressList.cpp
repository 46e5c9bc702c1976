#include "AddressList.h"

#include "simcore/ControllerConfig.h"

#include <QStringList>
#include <algorithm>
#include <set>

namespace sim {

namespace {

bool addRange(const QString &item, std::set<int> &into)
{
    const QStringList ends = item.split(u'-');
    if (ends.size() > 2)
        return false;
    bool okFirst = false, okLast = false;
    const int first = ends.front().trimmed().toInt(&okFirst);
    const int last = ends.back().trimmed().toInt(&okLast);
    if (!okFirst || !okLast || first > last || first < kLowestAddress || last > kHighestAddress)
        return false;
    for (int a = first; a <= last; ++a)
        into.insert(a);
    return true;
}

} // namespace

std::optional<QList<int>> parseAddressList(const QString &text)
{
    std::set<int> addresses;
    if (text.trimmed() == QLatin1String("all"))
        return parseAddressList(QStringLiteral("%1-%2").arg(kLowestAddress).arg(kHighestAddress));
    for (const QString &item : text.split(u',', Qt::SkipEmptyParts))
        if (!addRange(item, addresses))
            return std::nullopt;
    if (addresses.empty())
        return std::nullopt;
    return QList<int>(addresses.begin(), addresses.end());
}

} // namespace sim
