#include "base/QuitOnSignal.h"
#include "SimOptions.h"
#include "SimServer.h"

#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("zorbel-sim"));
    QTextStream out(stdout);
    QTextStream err(stderr);
    sim::SimCommandLine command;
    command.parse(QCoreApplication::arguments());
    if (const std::optional<int> answered = command.line().answer(out, err))
        return *answered;
    QuitOnSignal quitOnSignal;
    sim::SimServer server(command.options());
    if (const QString error = server.start(); !error.isEmpty()) {
        err << "zorbel-sim: " << error << Qt::endl;
        return 1;
    }
    // The first line is for scripts and tests: where the station connects.
    out << server.where() << Qt::endl;
    err << "zorbel-sim: symulowane regulatory: " << server.controllerCount() << ", linia: " << server.where()
        << Qt::endl;
    return app.exec();
}
