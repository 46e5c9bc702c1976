// Writes samples of one controller as fast as it can, each counter one unit
// above the last, continuing from what the database holds. The kill test
// ends it at random moments; it never ends by itself. A sample every quarter
// hour, so that the kills fall on many days' roll-ups.
#include "StationFixture.h"

#include <QCoreApplication>
#include <cstdio>

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    StationFixture f(QStringLiteral("zorbel.db"));
    f.station().StartUp();
    clRegulator &r = f.station().Regulatory.Item(1);
    std::printf("ready\n");
    std::fflush(stdout);
    for (;;) {
        const float next = r.PopPradCzynny + 1;
        r.PradCzynny = r.PradBiernSr = next;
        r.PradBiernPojSr = -next;
        r.OstatniOdczyt = r.OstatniOdczyt.isZero() ? ZDate::fromParts(2026, 1, 1) : r.OstatniOdczyt.addMinutes(15);
        r.ZapiszDaneDB();
        if (!f.dialogs.calls.isEmpty()) {
            std::fprintf(stderr, "%s\n", qPrintable(f.dialogs.calls.first().prompt));
            return 1;
        }
    }
}
