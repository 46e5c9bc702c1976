#pragma once

#include "ControllerViews.h"

#include <QWidget>
#include <array>

class QLabel;
class QLineEdit;
class QPushButton;
class Station;
class fmGlowny;

// The eight measurements of the selected controller as the last reading of
// its state left them, and a button that asks for a fresh reading while the
// controller is not monitored.
class frmDane final : public QWidget, public DataView {
    Q_OBJECT

public:
    frmDane(Station &station, fmGlowny &frame, QWidget *parent = nullptr);
    ~frmDane() override;

    // The load: the station learns that the window is there, then it is filled.
    void load();
    bool unloaded() const { return m_unloaded; }

    void Odswiez() override;
    void setOdswiezEnabled(bool enabled) override;

    QLineEdit *txtDane(int index) const { return m_values.at(std::size_t(index)); }
    QPushButton *cmdOdswiez() const { return m_refresh; }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void placeRow(int index);
    void unload();

    Station &m_station;
    fmGlowny &m_frame;
    std::array<QLineEdit *, 8> m_values{};
    QPushButton *m_refresh = nullptr;
    bool m_unloaded = false;
};
