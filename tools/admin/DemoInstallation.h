#pragma once

#include "base/ZDate.h"

#include <QDate>
#include <QString>
#include <vector>

class Database;

// A demonstration installation: a small factory with a medium-voltage
// substation and production halls, their controllers, the object tree, and
// optionally days of plausible sample history ending at a given moment.
class DemoInstallation {
public:
    struct Controller {
        QString kod;
        int adres;
        int napieciePomiar;   // V at the controller's input
        float przekladnia;    // current transformer
        int przekladniaNap;   // voltage transformer
        int czestOdczytu;     // minutes
        int awarCzest;        // minutes
        QString aktywny;
        float progNapiecie, progPrad, progTgFiMin, progTgFi;
        float nominalKw;      // peak active power of the feed
        QString opis;
    };
    struct Element {
        QString kod, nad, typ;
    };

    static const std::vector<Controller> &controllers();
    static const std::vector<Element> &tree();

    // Writes controllers and tree; with days > 0 also the history up to
    // `until` (samples and alarms) and the matching last-sample counters.
    static void fill(Database &db, int days, ZDate until, unsigned seed = 1);

    struct Totals {
        int controllers = 0;
        int elements = 0;
        int samples = 0;
        int alarms = 0;
    };
    static Totals lastTotals();

private:
    static void writeControllers(Database &db);
    static void writeTree(Database &db);
    static double compensatedTgFi(const Controller &c, QDate day, QDate until);
    static int writeHistory(Database &db, const Controller &c, int days, ZDate until, unsigned seed);
    static int writeAlarms(Database &db, const Controller &c, int days, ZDate until, unsigned seed);
};
