#pragma once

#include <QDate>
#include <QString>
#include <cstdint>
#include <functional>

class ReportTable;
class Station;

// The four reports: each makes its table from the archive and shows it in
// the report window, modally. An object's controllers come from the
// structure tree. A failure is a run-time error for the caller's boundary.
class Raporty {
public:
    // Shows a finished report; `maximised` as the window's state.
    using Presenter = std::function<void(const ReportTable &table, bool maximised)>;
    // The object's controllers as the structure tree lists them ("'A','B'").
    using ControllerList = std::function<QString(const QString &name)>;

    Raporty(Station &station, ControllerList controllers);

    void RaportDobowyRegulatora(QDate data, std::int16_t Id);
    void RaportDobowyObiektu(QDate data, const QString &nazwa);
    void RaportOkresowyRegulatora(QDate od, QDate do_, std::int16_t Id);
    void RaportOkresowyObiektu(QDate od, QDate do_, const QString &nazwa);

    // Tests see the reports here instead of on the screen.
    void setPresenter(Presenter presenter) { m_present = std::move(presenter); }

private:
    void showModal(const ReportTable &table, bool maximised) const;

    Station &m_station;
    ControllerList m_controllers;
    Presenter m_present;
};
