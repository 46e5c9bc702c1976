#pragma once

#include "base/ZDate.h"

#include <QString>

class Database;
class ReactiveTariff;

// The status bar's notice of the running month: the controllers whose tg φ
// since the month's first day runs above the tariff's tg φ0, with the fee
// the month would bring at this pace. A notice, not an alarm: nothing is
// stored and nothing rings.
struct MonthToDateNotice {
    QString text; // empty while every controller keeps within tg φ0
    QString toolTip;

    // From the month's daily roll-ups, one query for every controller. A
    // failing query is told in the notice.
    static MonthToDateNotice check(Database &db, ZDate now, const ReactiveTariff &tariff);
};
