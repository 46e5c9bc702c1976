#pragma once

#include "reports/BillingRule.h"

#include <QDate>
#include <QString>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

class Database;

// The daily roll-ups a bill is computed from, read in one query: for each
// controller of the scope (with no row of the period too) its reading
// period and its days' sample counts and energies.
namespace BillingQuery {

// A controller (by address) or the controllers an object's condition on
// their codes names (ReportQueries::condition).
struct Scope {
    std::optional<std::int16_t> adres;
    QString condition;
    bool everyController = false; // each controller of Regulatory, condition unused
};

struct Controller {
    QString kod;
    int minutes = 15;                 // CzestOdczytu; 15 where not set
    std::map<QDate, EnergySums> days; // expected and covered left 0
};

std::vector<Controller> read(Database &db, const Scope &scope, QDate first, QDate last);

}
