#include "ScreenWizual.h"

#include "ControllerViews.h"
#include "StationImages.h"
#include "MainToolbar.h"
#include "fmGlowny.h"
#include "fmRegulatory.h"

#include "base/Conversions.h"
#include "station/PollingTimers.h"
#include "base/RunTimeError.h"
#include "station/Station.h"
#include "model/StatusPanels.h"

namespace {

constexpr std::uint32_t Red = 255; // colours keep red in the low byte
constexpr std::uint32_t Black = 0;

}

void ScreenWizual::bind(Station &station)
{
    m_station = &station;
}

Station &ScreenWizual::station() const
{
    if (!m_station)
        throw RunTimeError::invalidCall();
    return *m_station;
}

void ScreenWizual::attach(fmGlowny *frame, fmRegulatory *tree)
{
    m_frame = frame;
    m_tree = tree;
}

void ScreenWizual::setCaption(const char *entry, const QString &caption)
{
    if (m_frame)
        m_frame->entry(QString::fromLatin1(entry))->setText(caption);
}

void ScreenWizual::setEnabled(const char *entry, bool enabled)
{
    if (m_frame)
        m_frame->entry(QString::fromLatin1(entry))->setEnabled(enabled);
}

void ScreenWizual::eZmianaTrybuSterowania(bool tryb)
{
    // no access key any more once the mode has changed: kept so
    setCaption("mnuSterWlacz", tryb ? QStringLiteral("Wyłącz tryb sterowania") : QStringLiteral("Włącz tryb sterowania"));
    setEnabled("mnuRegulZablok", tryb);
    m_panels.setPicture(StatusPanels::Mode, tryb ? StatusPanels::Picture::ControlMode : StatusPanels::Picture::None);
    m_panels.setText(StatusPanels::Mode, tryb ? QStringLiteral("sterowanie") : QStringLiteral("normalny"));
    setEnabled("mnuRegulBatZal", tryb);
    setEnabled("mnuRegulBatTestuj", tryb);
    if (station().oApp.Loaded_Panel && m_frame && m_frame->panelWindow())
        m_frame->panelWindow()->setUstawVisible(tryb);
}

void ScreenWizual::eKomunikacja(std::int16_t Stan)
{
    // the link sends 1, 0 and 2 only: the lamp stays dark, 3 is kept for lighting it
    if (Stan == 0) {
        m_panels.setText(StatusPanels::LinkLamp, QString());
        m_panels.setPicture(StatusPanels::LinkLamp, StatusPanels::Picture::DarkLamp);
    } else if (Stan == 3) {
        m_panels.setPicture(StatusPanels::LinkLamp, StatusPanels::Picture::LitLamp);
    }
}

void ScreenWizual::eMonitoring(std::int16_t, bool Stan)
{
    m_panels.setPicture(StatusPanels::MonitoringLamp, Stan ? StatusPanels::Picture::LitLamp : StatusPanels::Picture::DarkLamp);
}

void ScreenWizual::showWork(const char *what, std::int16_t Id, bool Stan)
{
    if (!Stan) {
        m_panels.setText(StatusPanels::Work, QString());
        return;
    }
    m_panels.setText(StatusPanels::Work, QString::fromUtf8(what) + station().Regulatory.Item(Id).Kod + QStringLiteral("' ..."));
}

void ScreenWizual::eOkresowyOdczyt(std::int16_t Id, bool Stan)
{
    showWork("Oczytuję okresowe dane z regulatora '", Id, Stan); // the message as it has always read
}

void ScreenWizual::eZalaczanieBaterii(std::int16_t Id, bool Stan)
{
    showWork("Załączam stopień regulatora '", Id, Stan);
}

void ScreenWizual::eWylaczanieBaterii(std::int16_t Id, bool Stan)
{
    showWork("Wyłączam stopień regulatora '", Id, Stan);
}

void ScreenWizual::eBlokowanieRegul(std::int16_t Id, bool Blokada, bool Stan)
{
    showWork(Blokada ? "Blokuję regulator '" : "Odblokowuję regulator '", Id, Stan);
}

void ScreenWizual::setNodeImageIfDiffers(const QString &key, int image, bool colourToo)
{
    if (m_tree->nodeImage(key) == image)
        return;
    m_tree->setNodeImage(key, image);
    if (colourToo)
        m_tree->setNodeForeColor(key, image == 5 ? Red : Black);
}

void ScreenWizual::eNoweDane(std::int16_t Id, const QString &Typ)
{
    if (Typ != QLatin1String("O"))
        return;
    const clsoApp &app = station().oApp;
    // the windows may open or close during a tick: asked right before each use
    if (Id == app.NrAktRegulatora && app.Loaded_Panel && m_frame && m_frame->panelWindow())
        m_frame->panelWindow()->OdswiezPanel();
    if (app.Loaded_Dane && m_frame && m_frame->dataWindow())
        m_frame->dataWindow()->Odswiez(); // whichever controller was read
    if (!m_tree)
        return;
    const clRegulator &r = station().Regulatory.Item(Id);
    // images and colours change only on a change, not at every monitored tick
    setNodeImageIfDiffers(r.Kod, r.Zablokowany ? StationImages::TreeImage::BlockedController : StationImages::TreeImage::Controller, false);
    for (int i = 1; i <= 9; ++i) // nine, whatever the controller has
        setNodeImageIfDiffers(r.Kod + QStringLiteral("_b") + QString::number(i),
                              r.SprawdzStanDiody(std::uint8_t(i - 1)) ? StationImages::TreeImage::StageOn : StationImages::TreeImage::StageOff, true);
}

void ScreenWizual::eZmianaBaterii(std::int16_t Id, std::int16_t Nr)
{
    const bool lit = station().Regulatory.Item(Id).SprawdzStanDiody(conv::toByte(double(Nr - 1)));
    setCaption("mnuRegulBatZal", lit ? QStringLiteral("&Wyłącz stopień") : QStringLiteral("&Załącz stopień"));
}

void ScreenWizual::eZmianaAlarmow()
{
    const clsoApp &app = station().oApp;
    station().timers.setAlarmTimers(app.IloscNiePotwAlarmow >= 1);
    const bool any = app.IloscNiePotwAlarmow > 0 || app.IloscAktywnychAlarmow > 0;
    m_panels.setPicture(StatusPanels::AlarmSign, any ? StatusPanels::Picture::AlarmFlash : StatusPanels::Picture::None);
}

void ScreenWizual::eZmianaRegulatora(std::int16_t Id)
{
    const bool monitored = station().Regulatory.Item(Id).Monitoring;
    if (!m_frame)
        return;
    m_frame->toolbar().setValue(QStringLiteral("Monit"), monitored ? 1 : 0);
    if (station().oApp.Loaded_Panel && m_frame->panelWindow())
        m_frame->panelWindow()->OdswiezPanel();
    if (station().oApp.Loaded_Dane && m_frame->dataWindow()) {
        m_frame->dataWindow()->Odswiez();
        m_frame->dataWindow()->setOdswiezEnabled(!monitored); // a manual reading is pointless while monitored
    }
}

void ScreenWizual::eBlokadaRegul(std::int16_t Id, bool Blokada, bool Dzwiek)
{
    if (m_tree)
        m_tree->setNodeImage(station().Regulatory.Item(Id).Kod, Blokada ? StationImages::TreeImage::BlockedController : StationImages::TreeImage::Controller);
    if (Dzwiek)
        GrajDzwiek(Blokada ? QStringLiteral("zablokregul.wav") : QStringLiteral("odblokregul.wav"));
    setCaption("mnuRegulZablok", Blokada ? QStringLiteral("&Odblokuj regulator") : QStringLiteral("&Zablokuj regulator"));
    if (Id != station().oApp.NrAktRegulatora || !station().oApp.Loaded_Panel || !m_frame || !m_frame->panelWindow())
        return;
    if (Blokada)
        m_frame->panelWindow()->showBlocked();
    else
        m_frame->panelWindow()->OdswiezPanel();
}

void ScreenWizual::GrajDzwiek(const QString &Plik)
{
    // the sound option is not asked: it is kept and shown, and plays no part here
    if (m_play)
        m_play(Plik);
}
