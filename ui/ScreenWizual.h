#pragma once

#include "base/clsWizual.h"

#include <functional>

class Station;
class StatusPanels;
class fmGlowny;
class fmRegulatory;

// The event hub of the screen: what each event of the logic changes in the
// status bar, the menus, the toolbar, the controller tree and the windows
// that are loaded. It holds no state of its own.
class ScreenWizual final : public clsWizual {
public:
    explicit ScreenWizual(StatusPanels &panels) : m_panels(panels) {}

    // The station is built on the hub, so it is bound afterwards, before
    // any event; the windows come later still, and until they exist the
    // events change only what does.
    void bind(Station &station);
    void attach(fmGlowny *frame, fmRegulatory *tree);
    // How a wave file is played; nothing plays without it.
    void setPlayer(std::function<void(const QString &file)> play) { m_play = std::move(play); }

    void eZmianaTrybuSterowania(bool tryb) override;
    void eAlarm(std::int16_t, std::int16_t, const QString &, bool) override {} // a hook, empty on purpose
    void eKomunikacja(std::int16_t Stan) override;
    void eMonitoring(std::int16_t Id, bool Stan) override;
    void eOkresowyOdczyt(std::int16_t Id, bool Stan) override;
    void eZalaczanieBaterii(std::int16_t Id, bool Stan) override;
    void eWylaczanieBaterii(std::int16_t Id, bool Stan) override;
    void eZapisDB(bool) override {} // a hook, empty on purpose
    void eNoweDane(std::int16_t Id, const QString &Typ) override;
    void eZmianaBaterii(std::int16_t Id, std::int16_t Nr) override;
    void eZmianaAlarmow() override;
    void eZmianaRegulatora(std::int16_t Id) override;
    void eBlokowanieRegul(std::int16_t Id, bool Blokada, bool Stan) override;
    void eBlokadaRegul(std::int16_t Id, bool Blokada, bool Dzwiek) override;
    void GrajDzwiek(const QString &Plik) override;

private:
    // Panel 1: "<what> '<Kod>' ..." while the work runs, empty after.
    void showWork(const char *what, std::int16_t Id, bool Stan);
    void setCaption(const char *entry, const QString &caption);
    void setEnabled(const char *entry, bool enabled);
    // The tree's image of a node, set only when it differs.
    void setNodeImageIfDiffers(const QString &key, int image, bool colourToo);

    Station &station() const;

    StatusPanels &m_panels;
    Station *m_station = nullptr;
    fmGlowny *m_frame = nullptr;
    fmRegulatory *m_tree = nullptr;
    std::function<void(const QString &)> m_play;
};
