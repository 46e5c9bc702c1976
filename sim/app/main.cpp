#include "base/QuitOnSignal.h"
#include "SimOptions.h"
#include "SimServer.h"

#include <QCoreApplication>
#include <cstdio>

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("zorbel-sim"));
    const sim::ParsedCommandLine command = sim::parseCommandLine(QCoreApplication::arguments());
    if (command.helpWanted) {
        fputs(qPrintable(sim::helpText()), stdout);
        return 0;
    }
    if (!command.error.isEmpty()) {
        fprintf(stderr, "zorbel-sim: %s\nTry zorbel-sim --help.\n", qPrintable(command.error));
        return 2;
    }
    QuitOnSignal quitOnSignal;
    sim::SimServer server(command.options);
    if (const QString error = server.start(); !error.isEmpty()) {
        fprintf(stderr, "zorbel-sim: %s\n", qPrintable(error));
        return 1;
    }
    // The first line is for scripts and tests: where the station connects.
    printf("%s\n", qPrintable(server.where()));
    fflush(stdout);
    fprintf(stderr, "zorbel-sim: %d controllers on %s\n", server.controllerCount(), qPrintable(server.where()));
    return app.exec();
}
