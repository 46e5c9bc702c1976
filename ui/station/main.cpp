#include "ControllerListWindow.h"
#include "StationHub.h"
#include "fmAlarmyN.h"
#include "MessageBoxDialogs.h"
#include "frmSplash.h"

#include "core/Clock.h"
#include "core/PollingTimers.h"
#include "core/QuitOnSignal.h"
#include "core/RunTimeError.h"
#include "core/SettingsStore.h"
#include "core/StartUp.h"
#include "core/Station.h"
#include "link/QtEventPump.h"
#include "link/StationLine.h"
#include "model/StatusPanels.h"

#include <QApplication>
#include <QGuiApplication>
#include <QPainter>
#include <QTimer>
#include <algorithm>
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

// --screenshot FILE: once the station has settled, saves its windows, laid
// out as on the screen, as PNG and quits (for documentation and for
// looking at a run without a screen).
void scheduleScreenshot(const QStringList &args)
{
    const qsizetype i = args.indexOf(QStringLiteral("--screenshot"));
    if (i < 0 || i + 1 >= args.size())
        return;
    const QString file = args.at(i + 1);
    QTimer::singleShot(4000, qApp, [file] {
        QList<QWidget *> shown;
        QRect area;
        for (QWidget *w : QApplication::topLevelWidgets())
            if (w->isVisible()) {
                shown << w;
                area |= w->frameGeometry();
            }
        // the main window below, the windows it owns above it
        std::stable_sort(shown.begin(), shown.end(),
                         [](QWidget *a, QWidget *b) { return !a->parentWidget() && b->parentWidget(); });
        QPixmap shot(area.size().expandedTo(QSize(1, 1)));
        shot.fill(Qt::darkGray);
        QPainter p(&shot);
        for (QWidget *w : shown)
            p.drawPixmap(w->geometry().topLeft() - area.topLeft(), w->grab());
        p.end();
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
    StationLine line(settings, clock);
    QtEventPump pump;
    StationHub hub;
    Station station(StationServices{clock, settings, dialogs, splash, line, pump, hub});
    StatusPanels panels;
    PollingTimers timers(station, panels);

    std::unique_ptr<ControllerListWindow> window;
    fmAlarmyN *alarmWindow = nullptr; // owned by the main window
    try {
        station.oApp.WczytajOpcje(settings);
        StartUp(station);
        station.oApp.Znakdaty = QStringLiteral("#");
        station.oFunkcje.setZnakdaty(station.oApp.Znakdaty);
        if (!line.open(station.oApp.nr_portu))
            throw RunTimeError::portNotOpened(line.errorString());
        window = std::make_unique<ControllerListWindow>(station, panels);
        hub.attach(&station, window.get(), &timers);
        // the alarm window comes into being with the first alarm of the run
        station.fmAlarmyN.setChangeListener([&] {
            if (!alarmWindow) {
                alarmWindow = new fmAlarmyN(station.fmAlarmyN, dialogs, window.get());
                alarmWindow->show();
            }
            alarmWindow->refresh();
        });
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
    QuitOnSignal quitOnSignal; // a signal closes the station as its window does, without asking
    timers.start();
    scheduleScreenshot(app.arguments());
    return app.exec();
}
