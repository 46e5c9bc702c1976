// The commands of the main window: its menu, its toolbar and the routines
// that show or hide the controller windows.
#include "fmGlowny.h"

#include "MainToolbar.h"
#include "frmOptions.h"
#include "fmpanel.h"
#include "frmDane.h"
#include "frmRegulatory.h"
#include "fmAlarmyArch.h"
#include "fmStruktura.h"
#include "fmWykresy1.h"
#include "fmWykresy2.h"
#include "fmRapDob.h"
#include "fmRapDobS.h"
#include "fmRapOkres.h"
#include "fmRapOkresS.h"
#include "fmRozliczenie.h"
#include "Raporty.h"
#include "frmElStrukt.h"
#include "frmSplash.h"

#include "base/Dialogs.h"
#include "base/RunTimeError.h"
#include "base/NumberForm.h"
#include "station/Station.h"
#include "station/clsPozKolejki.h"

#include <QComboBox>
#include <QDateTimeEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>

QMenu *fmGlowny::addMenu(QWidget *parent, const char *name, const char *caption)
{
    auto *menu = new QMenu(QString::fromUtf8(caption), parent);
    menu->setObjectName(QString::fromLatin1(name));
    menu->menuAction()->setObjectName(QString::fromLatin1(name));
    if (auto *bar = qobject_cast<QMenuBar *>(parent))
        bar->addMenu(menu);
    else
        static_cast<QMenu *>(parent)->addMenu(menu);
    m_menus.insert(menu->objectName(), menu);
    m_entries.insert(menu->objectName(), menu->menuAction());
    return menu;
}

void fmGlowny::addEntry(QMenu *menu, const char *name, const char *caption, std::function<void()> onClick)
{
    QAction *a = QString::fromLatin1(caption) == QLatin1String("-") ? menu->addSeparator()
                                                                     : menu->addAction(QString::fromUtf8(caption));
    a->setObjectName(QString::fromLatin1(name));
    if (onClick)
        connect(a, &QAction::triggered, this, [this, onClick = std::move(onClick)] { guarded(onClick); });
    m_entries.insert(a->objectName(), a);
}

void fmGlowny::buildMenus()
{
    QMenuBar *bar = menuBar();
    QMenu *plik = addMenu(bar, "mnuPlik", "&Plik");
    addEntry(plik, "mnuStruktura", "&Struktura", [this] { openStructure(); });
    addEntry(plik, "mnuKoniec", "&Koniec", [this] { close(); });

    QMenu *baza = addMenu(bar, "mnuBaza", "&Baza danych");
    baza->menuAction()->setVisible(false); // the pop-up of the controller tree's root
    addEntry(baza, "mnuBDNowyRegul", "&Nowy regulator", [this] { openEditor()->NowyRekord(); });

    QMenu *regul = addMenu(bar, "popmnuRegul", "&Regulator");
    addEntry(regul, "mnuRegulPanel", "wyświetl panel", [this] { PokazPanel(entry(QStringLiteral("mnuRegulPanel"))->isChecked()); });
    addEntry(regul, "mnureguldane", "wyświetl dane", [this] { PokazDane(entry(QStringLiteral("mnureguldane"))->isChecked()); });
    addEntry(regul, "mnuregulmonit", "&Monitoring", [this] { UstawMonitoring(entry(QStringLiteral("mnuregulmonit"))->isChecked()); });
    // checkable: a click turns the mark over first, so the handlers above pass its negation
    for (const char *name : {"mnuRegulPanel", "mnureguldane", "mnuregulmonit"})
        entry(QString::fromLatin1(name))->setCheckable(true);
    entry(QStringLiteral("mnuRegulPanel"))->setVisible(false);
    entry(QStringLiteral("mnureguldane"))->setVisible(false);
    QMenu *stopien = addMenu(regul, "mnuRegulBat", "&Stopień");
    addEntry(stopien, "mnuRegulBatZal", "&Załącz stopień", [this] { m_station.switchSelectedStage(); });
    addEntry(stopien, "mnuRegulBatTestuj", "&Testuj stopień", {}); // enabled in control mode, does nothing
    addEntry(regul, "mnunic2", "-", {});
    addEntry(regul, "mnuRegRapDob", "&Raport z akt. doby",
             [this] { m_reports->RaportDobowyRegulatora(m_station.now().date(), m_station.oApp.NrAktRegulatora); });
    addEntry(regul, "mnyRegWykrDob", "&Wykres z akt. doby", [this] { openLoaded(m_dailyChart)->btnWykreslClick(); });
    addEntry(regul, "mnuRegulAlarmy", "&Alarmy z doby", [this] { openLoaded(m_archive)->WczytajAlarmy(); });
    addEntry(regul, "mnunic4", "-", {});
    addEntry(regul, "mnuRegulZablok", "&Zablokuj regulator", [this] {
        // always a request to block: unblocking is the front panel's button
        m_station.Kolejka.Add(m_station.oApp.NrAktRegulatora, QueueOp::Block, true, 0, QString());
    });
    addEntry(regul, "mnunic", "-", {});
    addEntry(regul, "mnuRegulEdytuj", "edytuj", [this] {
        frmRegulatory *editor = openEditor();
        editor->EdytujRekord(m_station.Regulatory.Item(m_station.oApp.NrAktRegulatora).adres);
    });
    addEntry(regul, "mnuRegulUsun", "usuń", [this] { m_station.deleteSelectedController(); });
    for (const char *name : {"mnuRegulBatZal", "mnuRegulBatTestuj", "mnuRegulZablok"})
        entry(QString::fromLatin1(name))->setEnabled(false);

    QMenu *raporty = addMenu(bar, "mnuRaporty", "&Raporty");
    addEntry(raporty, "mnuRaportyDobowy", "Raport &dobowy", [this] { WyswRaportDobowy(); });
    addEntry(raporty, "mnuRapOkresowy", "Raport &okresowy", [this] { WyswRaportOkresowy(); });
    addEntry(raporty, "mnuRozliczenie", "Rozliczenie energii &biernej", [this] { openBilling(); });

    QMenu *wykresy = addMenu(bar, "mnuWykresy", "&Wykresy");
    addEntry(wykresy, "mnuWykresDob", "Wykres &dobowy", [this] { openLoaded(m_dailyChart); });
    addEntry(wykresy, "mnuWykresMies", "Wykres &okresowy", [this] { openLoaded(m_periodChart); });

    QMenu *ster = addMenu(bar, "mnuSter", "&Sterowanie");
    addEntry(ster, "mnuSterWlacz", "Włącz tryb &sterowania",
             [this] { m_station.oApp.PrzelaczTrybSterowania(m_login, m_station.oWizual); });

    QMenu *narz = addMenu(bar, "mnuNarzedzia", "&Narzędzia");
    addEntry(narz, "mnuNarzOpcje", "&Opcje", [this] {
        // the window already open comes to the front; one closing and not yet deleted does not count
        for (frmOptions *open : findChildren<frmOptions *>(QString(), Qt::FindDirectChildrenOnly))
            if (open->isVisible()) {
                open->setWindowState(open->windowState() & ~Qt::WindowMinimized);
                open->raise();
                open->activateWindow();
                return;
            }
        auto *options = new frmOptions(m_station.oApp, m_station.services.settings, this);
        options->setAttribute(Qt::WA_DeleteOnClose);
        options->show();
    });
    addEntry(narz, "mnuNarzAlarmy", "Archiwum &alarmów", [this] { openLoaded(m_archive); });

    QMenu *pomoc = addMenu(bar, "mnuPomoc", "&Pomoc");
    addEntry(pomoc, "mnuPomocOProgramie", "&O programie", [this] {
        frmSplash about(this);
        about.exec();
    });

    QMenu *str = addMenu(bar, "mnuStr", "Struktura");
    str->menuAction()->setVisible(false); // the pop-up of the object tree
    addEntry(str, "mnuStrRapDob", "raport dobowy", [this] { WyswRaportDobowy(); });
    addEntry(str, "mnuStrRapOkr", "raport okresowy", [this] { WyswRaportOkresowy(); });
    addEntry(str, "mnuStrRozl", "rozliczenie energii biernej", [this] { openBilling(); });
    // a plant's tree is built here too, not only from outside
    addEntry(str, "mnuStrSep", "-", {});
    addEntry(str, "mnuStrDodaj", "Dodaj element…", [this] { openElementDialog(); });
    addEntry(str, "mnuStrUsun", "Usuń element", [this] {
        if (m_structure)
            m_structure->UsunElement();
    });
}

QAction *fmGlowny::entry(const QString &name) const
{
    QAction *a = m_entries.value(name);
    if (!a)
        throw RunTimeError::subscriptOutOfRange();
    return a;
}

QMenu *fmGlowny::menu(const QString &name) const
{
    QMenu *m = m_menus.value(name);
    if (!m)
        throw RunTimeError::subscriptOutOfRange();
    return m;
}

void fmGlowny::ToolbarAction(const QString &Key, bool Value)
{
    if (Key == QLatin1String("Panel"))
        PokazPanel(Value);
    else if (Key == QLatin1String("Dane"))
        PokazDane(Value);
    else if (Key == QLatin1String("Monit"))
        UstawMonitoring(Value);
    else if (Key == QLatin1String("Alarm") && m_alarmWindow)
        m_area->setActiveSubWindow(qobject_cast<QMdiSubWindow *>(m_alarmWindow->parentWidget()));
    else if (Key == QLatin1String("RapDob"))
        WyswRaportDobowy();
    else if (Key == QLatin1String("Wykresy"))
        openLoaded(m_dailyChart);
}

void fmGlowny::WyswRaportDobowy()
{
    if (m_station.oApp.AktTypEl == QLatin1String("R"))
        openLoaded(m_dailyReport, *m_reports);
    else
        openLoaded(m_objectDailyReport, *m_reports);
}

void fmGlowny::WyswRaportOkresowy()
{
    if (m_station.oApp.AktTypEl == QLatin1String("R"))
        openLoaded(m_periodReport, *m_reports);
    else
        openLoaded(m_objectPeriodReport, *m_reports);
}

void fmGlowny::PokazPanel(bool pokaz)
{
    entry(QStringLiteral("mnuRegulPanel"))->setChecked(pokaz);
    m_toolbar->setValue(QStringLiteral("Panel"), pokaz ? 1 : 0);
    if (pokaz)
        openPanel();
    else
        closePanel();
}

void fmGlowny::openPanel()
{
    if (m_panel) {
        showChild(m_panel);
        return;
    }
    m_panel = new fmpanel(m_station, *this);
    m_panel->load(); // which comes back here through PokazPanel(true) and is shown
}

void fmGlowny::closePanel()
{
    if (m_panel && !m_panel->unloaded())
        closeChild(m_panel);
}

void fmGlowny::PokazDane(bool pokaz)
{
    entry(QStringLiteral("mnureguldane"))->setChecked(pokaz);
    m_toolbar->setValue(QStringLiteral("Dane"), pokaz ? 1 : 0);
    if (pokaz)
        openData();
    else if (m_data && !m_data->unloaded())
        closeChild(m_data);
}

void fmGlowny::openData()
{
    if (!m_data) {
        m_data = new frmDane(m_station, *this);
        m_data->load();
    }
    showChild(m_data);
}

frmRegulatory *fmGlowny::openEditor()
{
    if (!m_editor || m_editor->unloaded())
        m_editor = new frmRegulatory(m_station);
    showChild(m_editor);
    return m_editor;
}

template <class Window, class... Extra>
Window *fmGlowny::openLoaded(QPointer<Window> &window, Extra &...extra)
{
    if (!window) {
        auto created = std::make_unique<Window>(m_station, extra...); // a load that fails leaves no window
        created->load();
        window = created.release();
    }
    showChild(window);
    return window;
}

void fmGlowny::openDailyChart(std::int16_t adres, QDate day)
{
    fmWykresy1 *chart = openLoaded(m_dailyChart);
    chart->cmbRegul()->setCurrentIndex(chart->cmbRegul()->findData(int(adres)));
    chart->dtData()->setDate(day);
    chart->btnWykreslClick();
}

void fmGlowny::openBilling()
{
    if (!m_billing) {
        m_billing = new fmRozliczenie(
            m_station, [this](const QString &name) { return controllerList(name); },
            [this](std::int16_t adres, QDate day) { openDailyChart(adres, day); });
        m_billing->load();
    } else {
        m_billing->chooseCurrent();
    }
    showChild(m_billing);
    m_billing->btnObliczClick(); // asked for from the element: its bill of this month at once
}

bool fmGlowny::createStructure()
{
    if (m_structure)
        return false;
    m_structure = new fmStruktura(m_station, this);
    m_structure->setPopupHandler([this](const QString &name, const QPoint &at) { menu(name)->popup(at); });
    m_structure->setDailyReportOpener([this] { openLoaded(m_objectDailyReport, *m_reports); });
    return true;
}

void fmGlowny::openStructure()
{
    const bool created = createStructure();
    showChild(m_structure);
    if (created)
        m_structure->LadujObiekty(); // a tree that fails to build shows what it has, with the error
}

QString fmGlowny::controllerList(const QString &name)
{
    if (createStructure())
        m_structure->LadujObiekty();
    return m_structure->WezListeRegul(name);
}

void fmGlowny::openElementDialog()
{
    if (!m_structure)
        return;
    auto *dialog = new frmElStrukt(m_station, *m_structure, this);
    dialog->show();
}

void fmGlowny::UstawMonitoring(bool wlacz)
{
    entry(QStringLiteral("mnuregulmonit"))->setChecked(wlacz);
    m_toolbar->setValue(QStringLiteral("Monit"), wlacz ? 1 : 0);
    m_station.setMonitoring(wlacz);
}

