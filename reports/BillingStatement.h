#pragma once

#include "base/ReactiveTariff.h"
#include "base/ZDate.h"
#include "reports/BillingQuery.h"
#include "reports/BillingRule.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

class Database;

// The bill of reactive energy of a controller or an object for a period:
// computed first, then shown by a window or written as CSV or PDF.
struct BillingStatement {
    // A stretch of the period under one set of the tariff's values.
    struct Part {
        QDate first, last;
        TariffValues values;
        EnergySums sums;
        Charge charge;
    };
    // A controller, or the object as the sum of its controllers.
    struct Line {
        QString kod; // empty for the object's sum
        EnergySums sums;
        std::optional<double> tgFi;
        std::vector<Part> parts;
        double excess = 0;
        std::optional<double> fee; // the parts' fees; none while a part has no price
        double coverage() const { return sums.expected ? double(sums.covered) / sums.expected : 1; }
    };
    // A day of the scope (its controllers' sums), charged on its own sums.
    struct Day {
        QDate day;
        EnergySums sums;
        Charge charge;
    };
    // A controller's day with fewer samples than its reading period asks for.
    struct Gap {
        QString kod;
        QDate day;
        int present, expected;
        double missingHours;
    };
    // The running period's fee so far and at this pace over the whole period.
    struct Pace {
        double elapsedDays;
        int periodDays;
        std::optional<double> feeAtPace;
    };

    QString scope; // "regulator 'A'", "obiekt 'Zakład'"
    QDate first, last;
    ZDate computedAt;
    ReactiveTariff tariff;
    std::vector<Line> controllers;
    Line total;
    std::vector<Day> days;                      // each day of the period up to the computation's
    std::optional<Day> worst, best;             // by tg φ, among days with active energy
    std::vector<Day> worstByExcess, worstByFee; // ten at most
    std::vector<Gap> gaps;
    std::optional<Pace> pace;
    QStringList notes; // what the reader must know, in Polish

    static constexpr int WorstDays = 10;

    // One query over the roll-ups; `now` bounds the days expected to have
    // samples and tells whether the period is running.
    static BillingStatement compute(Database &db, const BillingQuery::Scope &scope, const QString &title, QDate first,
                                    QDate last, ZDate now, const ReactiveTariff &tariff);
};
