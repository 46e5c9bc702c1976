#pragma once

#include <QList>
#include <QString>
#include <optional>

namespace sim {

// "1,2,5-9" or "all" (0 to 255) as a sorted list without repeats; nothing
// when the text is not such a list.
std::optional<QList<int>> parseAddressList(const QString &text);

} // namespace sim
