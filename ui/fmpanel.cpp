#include "fmpanel.h"

#include "FormControls.h"
#include "OleColor.h"
#include "PanelPictures.h"
#include "Twips.h"
#include "ctlDioda3d.h"
#include "ctlPrzel.h"
#include "fmGlowny.h"

#include "base/clsFunkcje.h"
#include "station/Station.h"
#include "station/clsPozKolejki.h"

#include <QCloseEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr std::uint32_t Background = 8421376;
constexpr std::uint32_t DisplayBack = 4210752;
constexpr std::uint32_t DisplayText = 8438015;
constexpr std::uint32_t White = 16777215;
constexpr std::uint32_t HighlightText = 0x8000000E;

constexpr int StageLeft[9] = {240, 600, 960, 1320, 1680, 2040, 2400, 2760, 3120};
constexpr int KeyLeft[12] = {120, 360, 600, 840, 1320, 1560, 1800, 2040, 2520, 2760, 3000, 3240};

void setTextColour(QWidget *w, std::uint32_t colour)
{
    QPalette p = w->palette();
    p.setColor(QPalette::WindowText, oleColor(colour));
    p.setColor(QPalette::Text, oleColor(colour));
    w->setPalette(p);
}

// A lamp as the window stores it: its pictures and its font.
ctlDioda3d *lamp(QWidget *form, const QString &name, PanelPictures::Lamp lit, int left, int top)
{
    auto *l = new ctlDioda3d(form);
    l->setObjectName(name);
    l->ReadProperties({{QStringLiteral("Picture1"), PanelPictures::lamp(PanelPictures::Lamp::Dark)},
                       {QStringLiteral("Picture2"), PanelPictures::lamp(lit)},
                       {QStringLiteral("Font"), form->font()}});
    l->setGeometry(twips::rect(left, top, 135, 135));
    return l;
}

bool bit(std::uint8_t byte, int n)
{
    return clsFunkcje::logic(byte & (1 << n));
}

}

fmpanel::fmpanel(Station &station, fmGlowny &frame, QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                          Qt::MSWindowsFixedSizeDialogHint),
      m_station(station), m_frame(frame)
{
    setObjectName(QStringLiteral("fmpanel"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Panel regulatora"));
    QFont small = font();
    small.setPointSizeF(7.5);
    QWidget::setFont(small);
    setAutoFillBackground(true);
    QPalette p = palette();
    p.setColor(QPalette::Window, oleColor(Background));
    setPalette(p);
    setFixedSize(twips::toPixels(3510), twips::toPixels(2805));
    move(twips::toPixels(4050), 0); // beside the controller tree
    placeLabels();
    placeLamps();
    placeButtons();
    placeKeys();
}

fmpanel::~fmpanel()
{
    if (!m_unloaded) { // gone with the main window
        m_station.panelKeys.attach(nullptr);
        m_station.oApp.Loaded_Panel = false;
    }
}

void fmpanel::placeLabels()
{
    const auto white = [this](const QString &name, const QString &caption, const QRect &at) {
        QLabel *l = form::label(this, "", caption);
        l->setObjectName(name);
        l->setGeometry(at);
        setTextColour(l, White);
    };
    for (int i = 0; i < 9; ++i)
        white(QStringLiteral("Label%1").arg(i + 3), QString::number(i + 1), twips::rect(StageLeft[i], 0, 150, 195));
    white(QStringLiteral("Label1"), QStringLiteral("zał."), twips::rect(1440, 1320, 255, 255));
    white(QStringLiteral("Label2"), QStringLiteral("wył."), twips::rect(1800, 1320, 375, 255));
    const struct {
        const char *name, *caption;
        int left;
        std::uint32_t colour;
    } frames[] = {{"Frame1", "nast. Q/N", 0, White},
                  {"Frame2", "R   +    -   T", 1200, HighlightText},
                  {"Frame4", "czas//TAN.", 2400, White}};
    for (const auto &f : frames) {
        auto *box = new QGroupBox(QString::fromUtf8(f.caption), this);
        box->setObjectName(QLatin1String(f.name));
        box->setGeometry(twips::rect(f.left, 2040, 1095, 735));
        // an etched frame through the middle of the caption, on the window's background
        box->setStyleSheet(QStringLiteral("QGroupBox { border: 2px groove #9ccccc; margin-top: 6px; color: %1; }"
                                          "QGroupBox::title { subcontrol-origin: margin; left: 5px; padding: 0 1px; }")
                               .arg(oleColor(f.colour).name()));
    }
}

void fmpanel::placeLamps()
{
    for (int i = 0; i < 9; ++i)
        m_stageLamps.at(std::size_t(i)) =
            lamp(this, QStringLiteral("ctlDioda1_%1").arg(i), PanelPictures::Lamp::Red, StageLeft[i], 240);
    m_zal = lamp(this, QStringLiteral("ctlDiodaZal"), PanelPictures::Lamp::Green, 1500, 1560);
    m_wyl = lamp(this, QStringLiteral("ctlDiodaWyl"), PanelPictures::Lamp::Red, 1875, 1560);
    m_display = new QLineEdit(this);
    m_display->setObjectName(QStringLiteral("txtDisplay"));
    m_display->setGeometry(twips::rect(1680, 720, 1575, 495));
    m_display->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_display->setReadOnly(true); // a display: what the device shows, not an input
    m_display->setFocusPolicy(Qt::NoFocus);
    QFont digits(QStringLiteral("Verdana"), 18, QFont::Bold);
    m_display->setFont(digits);
    QPalette p = m_display->palette();
    p.setColor(QPalette::Base, oleColor(DisplayBack));
    p.setColor(QPalette::Text, oleColor(DisplayText));
    m_display->setPalette(p);
}

void fmpanel::placeKeys()
{
    // one pair of pictures for all twelve; none is enabled by what it stores
    const QVariantMap stored{{QStringLiteral("Picture1"), PanelPictures::rockerUp()},
                             {QStringLiteral("Picture2"), PanelPictures::rockerDown()},
                             {QStringLiteral("Font"), font()}};
    for (int i = 0; i < 12; ++i) {
        auto *k = new ctlPrzel(this);
        k->setObjectName(QStringLiteral("ctlPrzel1_%1").arg(i));
        k->ReadProperties(stored);
        k->setGeometry(twips::rect(KeyLeft[i], 2280, 165, 255));
        k->raise(); // over the group boxes
        m_keys.at(std::size_t(i)) = k;
    }
}

void fmpanel::placeButtons()
{
    m_zalacz = form::button(this, "cmdZalacz", QStringLiteral("Załącz"));
    m_zalacz->setGeometry(twips::rect(1320, 420, 855, 255));
    m_blokuj = form::button(this, "cmdBlokuj", QStringLiteral("Zablokuj"));
    m_blokuj->setGeometry(twips::rect(60, 900, 855, 315));
    m_ustaw = form::button(this, "cmdUstaw", QStringLiteral("Ustaw"));
    m_ustaw->setGeometry(twips::rect(1320, 1800, 855, 255));
    for (QPushButton *b : {m_zalacz, m_blokuj, m_ustaw})
        b->hide();
    // cmdZalacz does nothing
    connect(m_ustaw, &QPushButton::clicked, this, [this] {
        m_station.Kolejka.Add(m_station.oApp.NrAktRegulatora, QueueOp::SetKeys, QVariant(), 0, QString());
    });
    connect(m_blokuj, &QPushButton::clicked, this, [this] {
        const std::int16_t nr = m_station.oApp.NrAktRegulatora;
        m_station.Kolejka.Add(nr, QueueOp::Block, !m_station.Regulatory.Item(nr).Zablokowany, 0, QString());
    });
}

void fmpanel::load()
{
    m_station.oApp.Loaded_Panel = true;
    m_frame.setPanelWindow(this);
    m_station.panelKeys.attach(this);
    m_frame.PokazPanel(true);
    setUstawVisible(m_station.oApp.TrybSterowania);
    OdswiezPanel();
}

void fmpanel::closeEvent(QCloseEvent *event)
{
    unload();
    event->accept();
}

void fmpanel::unload()
{
    if (m_unloaded)
        return;
    m_unloaded = true;
    m_station.oApp.Loaded_Panel = false;
    m_frame.setPanelWindow(nullptr);
    m_station.panelKeys.attach(nullptr);
    m_frame.PokazPanel(false);
}

void fmpanel::OdswiezPanel()
{
    const clRegulator &r = m_station.Regulatory.Item(m_station.oApp.NrAktRegulatora);
    setWindowTitle(QStringLiteral("Regulator '") + r.Kod + QStringLiteral("'"));
    showLamps(r);
    showKeys(r);
    showDisplay(r);
    showBlockState(r.Zablokowany);
}

void fmpanel::showLamps(const clRegulator &r)
{
    // a lamp is lit by a clear bit; every lamp is set, changed or not
    const clsStan &s = r.clsStan;
    for (int i = 0; i < 8; ++i)
        stageLamp(i)->setZapalona(!bit(s.StanDiod1, i));
    stageLamp(8)->setZapalona(!bit(s.StanDiod2, 7));
    m_wyl->setZapalona(!bit(s.StanDiod3, 6));
    m_zal->setZapalona(!bit(s.StanDiod3, 7));
}

void fmpanel::showKeys(const clRegulator &r)
{
    const clsStan &s = r.clsStan;
    // the device's own order: bit 0 on key 11 up to bit 3 on key 8, bits 4 to 7 on keys 3 to 0
    for (int b = 0; b < 8; ++b)
        key(b < 4 ? 11 - b : 7 - b)->setValue(bit(s.StanPrzel1, b));
    // a key the operator has changed and not yet sent keeps what was given
    for (int i = PanelKeys::First; i <= PanelKeys::Last; ++i)
        if (!key(i)->Zmieniony())
            key(i)->setValue(bit(s.StanPrzel2, i - PanelKeys::First));
}

void fmpanel::showDisplay(const clRegulator &r)
{
    const clsStan &s = r.clsStan;
    const std::uint8_t bytes[4] = {s.StanDisplay1, s.StanDisplay2, s.StanDisplay3, s.StanDisplay4};
    for (std::size_t i = 0; i < 4; ++i) {
        const int digit = bytes[i] >> 4;
        m_digits.at(i) = digit >= 10 ? QStringLiteral(" ") : QString::number(digit);
    }
    // the point after the first digit whatever the device shows, and a blank at the end
    m_display->setText(m_digits[0] + QStringLiteral(".") + m_digits[1] + m_digits[2] + m_digits[3] + QStringLiteral(" "));
}

void fmpanel::showBlockState(bool blocked)
{
    m_blokuj->setText(blocked ? QStringLiteral("Odblokuj") : QStringLiteral("Zablokuj"));
    m_ustaw->setEnabled(blocked);
    m_zalacz->setEnabled(blocked);
    for (int i = PanelKeys::First; i <= PanelKeys::Last; ++i)
        key(i)->setEnabled(blocked);
}

void fmpanel::showBlocked()
{
    // the keys wait for the next refresh
    m_blokuj->setText(QStringLiteral("Odblokuj"));
    m_ustaw->setEnabled(true);
    m_zalacz->setEnabled(true);
}

void fmpanel::setUstawVisible(bool visible)
{
    m_ustaw->setVisible(visible);
}

bool fmpanel::keyValue(int index) const
{
    return key(index)->Value();
}

void fmpanel::setKeyValue(int index, bool down)
{
    key(index)->setValue(down);
}
