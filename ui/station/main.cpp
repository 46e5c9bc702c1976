#include "ControllerListWindow.h"
#include "MessageBoxDialogs.h"
#include "frmSplash.h"

#include "core/Clock.h"
#include "core/RunTimeError.h"
#include "core/SettingsStore.h"
#include "core/StartUp.h"
#include "core/Station.h"

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
    QTimer::singleShot(1500, qApp, [file] {
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
    Station station(StationServices{clock, settings, dialogs, splash});

    std::unique_ptr<ControllerListWindow> window;
    try {
        station.oApp.WczytajOpcje(settings);
        StartUp(station);
        window = std::make_unique<ControllerListWindow>(station);
        dialogs.setParent(window.get());
        window->show();
        splash.closeSplash();
    } catch (const RunTimeError &e) {
        splash.closeSplash();
        return endWith(e, dialogs);
    }
    scheduleScreenshot(app.arguments());
    return app.exec();
}
