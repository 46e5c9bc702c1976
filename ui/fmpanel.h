#pragma once

#include "ControllerViews.h"

#include "model/PanelKeys.h"

#include <QWidget>
#include <array>

class QLineEdit;
class QPushButton;
class Station;
class ctlDioda3d;
class ctlPrzel;
class clRegulator;
class fmGlowny;

// The front of the selected controller: nine stage lamps, the "zał." and
// "wył." lamps, the four-digit display and twelve rocker keys, all decoded
// from the controller's panel bytes. In control mode, with the controller
// blocked, keys 4 to 7 may be changed and sent with "Ustaw". Its keys are
// the ones the key command reads while it is loaded.
class fmpanel final : public QWidget, public PanelView, private PanelKeys::Keys {
    Q_OBJECT

public:
    fmpanel(Station &station, fmGlowny &frame, QWidget *parent = nullptr);
    ~fmpanel() override;

    // The load: the station learns that the panel is there, then it is drawn.
    void load();
    // Closed by its close box or by the program; after that it only waits to go.
    bool unloaded() const { return m_unloaded; }

    void OdswiezPanel() override;
    void setUstawVisible(bool visible) override;
    void showBlocked() override;

    ctlPrzel *key(int index) const { return m_keys.at(std::size_t(index)); }
    ctlDioda3d *stageLamp(int index) const { return m_stageLamps.at(std::size_t(index)); }
    ctlDioda3d *lampZal() const { return m_zal; }
    ctlDioda3d *lampWyl() const { return m_wyl; }
    QLineEdit *display() const { return m_display; }
    QPushButton *cmdUstaw() const { return m_ustaw; }
    QPushButton *cmdBlokuj() const { return m_blokuj; }
    QPushButton *cmdZalacz() const { return m_zalacz; }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void placeLabels();
    void placeLamps();
    void placeKeys();
    void placeButtons();
    void showLamps(const clRegulator &r);
    void showKeys(const clRegulator &r);
    void showDisplay(const clRegulator &r);
    void showBlockState(bool blocked);
    void unload();

    bool keyValue(int index) const override;
    void setKeyValue(int index, bool down) override;

    Station &m_station;
    fmGlowny &m_frame;
    std::array<ctlDioda3d *, 9> m_stageLamps{};
    ctlDioda3d *m_zal = nullptr;
    ctlDioda3d *m_wyl = nullptr;
    std::array<ctlPrzel *, 12> m_keys{};
    QLineEdit *m_display = nullptr;
    QPushButton *m_zalacz = nullptr;
    QPushButton *m_blokuj = nullptr;
    QPushButton *m_ustaw = nullptr;
    std::array<QString, 4> m_digits; // kept between refreshes
    bool m_unloaded = false;
};
