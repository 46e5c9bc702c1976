#pragma once

#include <QDate>
#include <QHash>
#include <QMainWindow>
#include <QPointer>
#include <cstdint>
#include <functional>
#include <memory>

class DataView;
class LoginPrompt;
class MainStatusBar;
class MainToolbar;
class PanelView;
class QMdiArea;
class QMenu;
class Raporty;
class Station;
class fmpanel;
class frmDane;
class frmRegulatory;
class fmAlarmyArch;
class fmStruktura;
class fmWykresy1;
class fmWykresy2;
class fmRapDob;
class fmRapDobS;
class fmRapOkres;
class fmRapOkresS;
class fmRozliczenie;
class StatusPanels;

// The frame of the station: menu, toolbar, status bar and the area in which
// every other window opens. It dispatches: its commands open a window,
// change a flag or queue a request for the polling; none of them talks to
// a controller.
class fmGlowny final : public QMainWindow {
public:
    fmGlowny(Station &station, LoginPrompt &login, QWidget *parent = nullptr);
    ~fmGlowny() override;

    // The load: the station opens its port with the operator's help (this
    // window offers the options), then the bars are prepared.
    void load();
    // Closes the station without asking (a signal from the system, the
    // end of a screenshot run).
    void unloadWithoutAsking();

    // Menu entries and menus by name; an unknown name is a run-time error.
    QAction *entry(const QString &name) const;
    QMenu *menu(const QString &name) const;
    MainToolbar &toolbar() const { return *m_toolbar; }
    Raporty &reports() const { return *m_reports; }
    MainStatusBar &statusBarPanels() const { return *m_statusBar; }
    QMdiArea &area() const { return *m_area; }

    // Puts a window into the frame and shows it.
    QWidget *showChild(QWidget *window);
    void setAlarmWindow(QWidget *window) { m_alarmWindow = window; }

    // The front panel and data windows while they are loaded, else null.
    PanelView *panelWindow() const { return m_panelView; }
    DataView *dataWindow() const { return m_dataView; }
    // Those windows tell the frame that they are there (null when they go).
    void setPanelWindow(PanelView *view) { m_panelView = view; }
    void setDataWindow(DataView *view) { m_dataView = view; }

    void ToolbarAction(const QString &Key, bool Value);
    void WyswRaportDobowy();
    void WyswRaportOkresowy();
    void PokazPanel(bool pokaz);
    void PokazDane(bool pokaz);
    void UstawMonitoring(bool wlacz);
    // The daily chart of a controller (by address) on a day, drawn.
    void openDailyChart(std::int16_t adres, QDate day);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void buildMenus();
    void addEntry(QMenu *menu, const char *name, const char *caption, std::function<void()> onClick);
    QMenu *addMenu(QWidget *parent, const char *name, const char *caption);
    void prepareBars();
    void askForPort();
    // Runs an operator's command; a run-time error ends the command with its message.
    void guarded(const std::function<void()> &command);
    void openPanel();
    void closePanel();
    void openData();
    // The controller editor, shown; opened anew once the last one was closed.
    frmRegulatory *openEditor();
    // A window kept while it is open (alarm archive, charts, report
    // dialogs), shown; created and loaded the first time.
    template <class Window, class... Extra>
    Window *openLoaded(QPointer<Window> &window, Extra &...extra);
    // The object tree, built the first time it is shown.
    void openStructure();
    // Creates the object tree window when there is none; true when it did.
    bool createStructure();
    // The controllers under an object, from the tree (built unseen if need be).
    QString controllerList(const QString &name);
    // The bill of reactive energy of the structure's current element, computed.
    void openBilling();
    // Adds an element under the current one of the object tree.
    void openElementDialog();
    // Closes a child window with the frame around it.
    void closeChild(QWidget *window);
    void unload();

    Station &m_station;
    StatusPanels &m_panels;
    LoginPrompt &m_login;
    QMdiArea *m_area;
    MainToolbar *m_toolbar;
    MainStatusBar *m_statusBar;
    QHash<QString, QAction *> m_entries;
    QHash<QString, QMenu *> m_menus;
    QPointer<QWidget> m_alarmWindow;
    PanelView *m_panelView = nullptr;
    QPointer<fmpanel> m_panel;
    DataView *m_dataView = nullptr;
    QPointer<frmDane> m_data;
    QPointer<fmAlarmyArch> m_archive;
    QPointer<fmStruktura> m_structure;
    QPointer<fmWykresy1> m_dailyChart;
    QPointer<fmWykresy2> m_periodChart;
    QPointer<frmRegulatory> m_editor;
    std::unique_ptr<Raporty> m_reports;
    QPointer<fmRapDob> m_dailyReport;
    QPointer<fmRapDobS> m_objectDailyReport;
    QPointer<fmRapOkres> m_periodReport;
    QPointer<fmRapOkresS> m_objectPeriodReport;
    QPointer<fmRozliczenie> m_billing;
    bool m_closing = false;
};
