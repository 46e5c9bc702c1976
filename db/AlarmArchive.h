#pragma once

#include "db/SqlStatement.h"

#include <QString>

// The archived alarms of one controller that arose in [from, toExcluded),
// in the order the store gives them.
namespace AlarmArchive {

SqlStatement query(const QString &kod, ZDate from, ZDate toExcluded);

}
