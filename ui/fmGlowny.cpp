#include "fmGlowny.h"

#include "FormControls.h"
#include "MainStatusBar.h"
#include "MonthToDateWatch.h"
#include "MainToolbar.h"
#include "Raporty.h"
#include "StationImages.h"
#include "frmOptions.h"

#include "base/Dialogs.h"
#include "station/Station.h"
#include "model/StatusPanels.h"

#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>

fmGlowny::fmGlowny(Station &station, LoginPrompt &login, QWidget *parent)
    : QMainWindow(parent), m_station(station), m_panels(station.services.panels), m_login(login),
      m_area(new QMdiArea(this))
{
    setObjectName(QStringLiteral("fmGlowny"));
    setWindowTitle(QStringLiteral("Zorbel"));
    setWindowIcon(StationImages::controllerTreeImages().image(StationImages::TreeImage::Plant));
    m_area->setObjectName(QStringLiteral("MDIArea"));
    m_area->setBackground(QColor(128, 128, 128));
    setCentralWidget(m_area);
    buildMenus();
    m_toolbar = new MainToolbar(StationImages::mainImages(), this);
    m_toolbar->setClickHandler([this](const QString &key, bool value) { guarded([&] { ToolbarAction(key, value); }); });
    addToolBar(m_toolbar);
    // the texts of the panels as designed
    m_panels.setText(StatusPanels::Work, QStringLiteral("Stan"));
    m_panels.setText(StatusPanels::Mode, QStringLiteral("normalny"));
    m_statusBar = new MainStatusBar(m_panels, StationImages::mainImages(), StationImages::modeImages(), this);
    setStatusBar(m_statusBar);
    MonthToDateWatch::attach(m_station);
    m_reports = std::make_unique<Raporty>(m_station, [this](const QString &name) { return controllerList(name); });
    resize(1000, 720);
}

fmGlowny::~fmGlowny() = default;

void fmGlowny::load()
{
    m_station.openLine([this] { askForPort(); });
    prepareBars();
}

void fmGlowny::askForPort()
{
    frmOptions options(m_station.oApp, m_station.services.settings);
    options.exec();
}

void fmGlowny::prepareBars()
{
    const char *tips[] = {"Aktualny stan Zorbela", "Monitoring", "Alarmy", "Komunikacja", "Tryb pracy", "Aktualny czas"};
    for (int n = 1; n <= StatusPanels::Count; ++n)
        m_panels.setToolTip(n, QString::fromUtf8(tips[n - 1]));
    m_panels.setText(StatusPanels::MonitoringLamp, QStringLiteral("Monitoring"));
    m_panels.setPicture(StatusPanels::MonitoringLamp, StatusPanels::Picture::DarkLamp);
    m_panels.setPicture(StatusPanels::AlarmSign, StatusPanels::Picture::None);
    m_panels.setPicture(StatusPanels::LinkLamp, StatusPanels::Picture::DarkLamp);

    MainToolbar &bar = *m_toolbar;
    bar.setToolTip(QStringLiteral("Komun"), QStringLiteral("Włączanie/wyłaczanie komunikacji"));
    bar.setToolTip(QStringLiteral("Panel"), QStringLiteral("Pokaż/ukryj panel"));
    bar.setToolTip(QStringLiteral("Alarm"), QStringLiteral("Pokaż/ukryj alarmy"));
    bar.setToolTip(QStringLiteral("Dane"), QStringLiteral("Pokaż/ukryj dane z regulatora"));
    bar.setToolTip(QStringLiteral("Monit"), QStringLiteral("Włącz/wyłącz monitoring"));
    // by position, as it always was: 6 and 8 are separators, 7 is "Alarm"
    bar.setToolTipAt(6, QStringLiteral("Twórz wykresy"));
    bar.setToolTipAt(7, QStringLiteral("Pokaż okno alarmów"));
    bar.setToolTipAt(8, QStringLiteral("Czarodziej ustawień"));
}

QWidget *fmGlowny::showChild(QWidget *window)
{
    auto *sub = qobject_cast<QMdiSubWindow *>(window->parentWidget());
    const QRect wanted = window->geometry();
    const bool added = !sub;
    if (added) {
        sub = m_area->addSubWindow(window, window->windowFlags() & ~Qt::Window);
        sub->setAttribute(Qt::WA_DeleteOnClose, window->testAttribute(Qt::WA_DeleteOnClose));
        sub->move(wanted.topLeft());
    }
    window->show();
    sub->show();
    // the window keeps the size it gave itself, its frame around it (known once shown)
    if (added)
        sub->resize(wanted.size() + sub->size() - window->size());
    m_area->setActiveSubWindow(sub);
    return window;
}

void fmGlowny::closeChild(QWidget *window)
{
    form::unload(window);
}

void fmGlowny::guarded(const std::function<void()> &command)
{
    form::guarded(m_station.services.dialogs, command);
}

void fmGlowny::closeEvent(QCloseEvent *event)
{
    if (!m_closing) {
        const int answer = m_station.services.dialogs.MsgBox(QStringLiteral("Czy zakończyć działanie programu Zorbel?"),
                                                             Dialogs::OkCancel | Dialogs::Question,
                                                             QStringLiteral("Koniec programu"));
        if (answer != Dialogs::Ok) {
            event->ignore();
            return;
        }
        m_closing = true;
        unload();
    }
    event->accept();
}

void fmGlowny::unloadWithoutAsking()
{
    if (m_closing)
        return;
    m_closing = true;
    unload();
}

void fmGlowny::unload()
{
    m_station.end(0);
}
