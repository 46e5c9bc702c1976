#include "ControllerListWindow.h"
#include "StationHub.h"
#include "MessageBoxDialogs.h"
#include "frmSplash.h"

#include "core/Clock.h"
#include "core/PollingTimers.h"
#include "core/RunTimeError.h"
#include "core/SettingsStore.h"
#include "core/StartUp.h"
#include "core/Station.h"
#include "link/QtEventPump.h"
#include "link/StationLine.h"
#include "model/StatusPanels.h"

#include <QApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <cstdio>
#include <memory>

namespace {

// A failure that ends the process: said on stderr, so that a run without a
// screen shows it too, and in a message box where there is a screen to show it on.
int endWith(const RunTimeError &e, Dialogs &dialogs)
{
    std::fprintf(stderr, "zorbel: %s\n", e.what());
    const QString platform = QGuiApplication::platformName();
    if (platform != QLatin1String("offscreen") && platform != QLatin1String("minimal"))
        dialogs.MsgBox(e.message(), Dialogs::Critical, QStringLiteral("Zorbel"));
    return 1;
}

// --screenshot FILE: once the station has settled, saves the screen as PNG
// and quits (for documentation and for looking at a run without a screen).
void scheduleScreenshot(const QStringList &args)
{
    const qsizetype i = args.indexOf(QStringLiteral("--screenshot"));
    if (i < 0 || i + 1 >= args.size())
        return;
    const QString file = args.at(i + 1);
    QTimer::singleShot(4000, qApp, [file] {
        QWidget *top = QApplication::activeWindow();
        const QPixmap shot = top ? top->grab() : QGuiApplication::primaryScreen()->grabWindow(0);
        if (!shot.save(file, "PNG"))
            std::fprintf(stderr, "zorbel: cannot write %s\n", qPrintable(file));
        QApplication::quit();
    });
}

}

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Zorbel"));
    QApplication::setApplicationName(QStringLiteral("Zorbel"));

    SystemClock clock;
    QtSettingsStore settings;
    MessageBoxDialogs dialogs;
    frmSplash splash;
    StationLine line(settings);
    QtEventPump pump;
    StationHub hub;
    Station station(StationServices{clock, settings, dialogs, splash, line, pump, hub});
    StatusPanels panels;
    PollingTimers timers(station, panels);

    std::unique_ptr<ControllerListWindow> window;
    try {
        station.oApp.WczytajOpcje(settings);
        StartUp(station);
        station.oApp.Znakdaty = QStringLiteral("#");
        station.oFunkcje.setZnakdaty(station.oApp.Znakdaty);
        if (!line.open(station.oApp.nr_portu))
            throw RunTimeError::portNotOpened(line.errorString());
        window = std::make_unique<ControllerListWindow>(station, panels);
        hub.attach(&station, window.get(), &timers);
        dialogs.setParent(window.get());
        station.oBD.ZapiszDoLoga(QStringLiteral("Start aplikacji"), QStringLiteral("N"), QStringLiteral("L"), QString());
        window->show();
        splash.closeSplash();
    } catch (const RunTimeError &e) {
        splash.closeSplash();
        return endWith(e, dialogs);
    }

    int exitCode = 0;
    timers.setFatalHandler([&](const RunTimeError &e) {
        exitCode = endWith(e, dialogs);
        QApplication::exit(exitCode);
    });
    QObject::connect(&app, &QCoreApplication::aboutToQuit, [&] {
        timers.stop();
        if (exitCode == 0)
            station.oBD.ZapiszDoLoga(QStringLiteral("Zatrzymanie aplikacji"), QStringLiteral("N"), QStringLiteral("L"),
                                     QString());
        line.close();
    });
    timers.start();
    scheduleScreenshot(app.arguments());
    return app.exec();
}
