#include "frmDane.h"

#include "FormControls.h"
#include "MainToolbar.h"
#include "StationImages.h"
#include "Twips.h"
#include "fmGlowny.h"

#include "base/PictureFormat.h"
#include "station/Station.h"
#include "station/clsPozKolejki.h"

#include <QCloseEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

const QString Energy = QStringLiteral("##########0.000");
const QString Current = QStringLiteral("###0.00");

struct Row {
    int top;
    const char *caption;
    int unitIndex; // of Label1; 0 for none
    const char *unit;
    QString picture;
    float (*value)(const clRegulator &);
};

const Row Rows[8] = {
    {60, "Energia czynna:", 12, "kWh", Energy, [](const clRegulator &r) { return r.PradCzynny; }},
    // single-precision subtraction, as the counters are kept
    {540, "Energia bierna indukcyjna:", 13, "kVarh", Energy,
     [](const clRegulator &r) { return r.PradBiernSr - r.PradBiernPojSr; }},
    {1020, "Energia bierna pojemnościowa:", 14, "kVarh", Energy, [](const clRegulator &r) { return r.PradBiernPojSr; }},
    {1500, "tg fi:", 0, nullptr, QStringLiteral("0.000"), [](const clRegulator &r) { return r.TgFi; }},
    {1980, "Napięcie międzyfazowe:", 8, "V", QStringLiteral("#######0"), [](const clRegulator &r) { return r.Napiecie; }},
    {2340, "Prąd całkowity:", 9, "A", Current, [](const clRegulator &r) { return r.PradCalk; }},
    {2700, "Prąd bierny:", 10, "A", Current, [](const clRegulator &r) { return r.PradBierny; }},
    {3060, "Częstotliwość:", 15, "Hz", Current, [](const clRegulator &r) { return r.Okres; }},
};

// the order in which the boxes are filled
constexpr int FillOrder[8] = {0, 1, 3, 4, 5, 6, 7, 2};

constexpr int DataButton = 4; // the toolbar's fourth button, by index

}

frmDane::frmDane(Station &station, fmGlowny &frame, QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                          Qt::MSWindowsFixedSizeDialogHint),
      m_station(station), m_frame(frame)
{
    setObjectName(QStringLiteral("frmDane"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Dane regulatora"));
    QFont small = font();
    small.setPointSizeF(7.5);
    setFont(small);
    setFixedSize(twips::toPixels(2910), twips::toPixels(3840));
    move(twips::toPixels(7620), 0); // beside the controller tree and the front panel
    for (int i = 0; i < 8; ++i)
        placeRow(i);
    m_refresh = form::button(this, "cmdOdswiez", QStringLiteral("&Odśwież"));
    m_refresh->setGeometry(twips::rect(2100, 3480, 795, 315));
    connect(m_refresh, &QPushButton::clicked, this, [this] {
        m_refresh->setEnabled(false);
        m_station.Kolejka.Add(m_station.oApp.NrAktRegulatora, QueueOp::ReadState, m_station.now().toVariant(), 0, QString());
        m_refresh->setEnabled(true); // the reading comes back later, through Odswiez
    });
}

frmDane::~frmDane()
{
    unload();
}

void frmDane::placeRow(int index)
{
    const Row &row = Rows[index];
    auto *caption = form::label(this, "Label1", QString::fromUtf8(row.caption));
    caption->setObjectName(QStringLiteral("Label1_%1").arg(index));
    // a long caption takes two lines where the rows leave room
    caption->setGeometry(twips::rect(30, row.top + 30, 1155, index < 4 ? 450 : 330));
    QFont narrow = caption->font();
    narrow.setStretch(QFont::SemiCondensed);
    caption->setFont(narrow);
    caption->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    caption->setWordWrap(true);
    auto *box = new QLineEdit(this);
    box->setObjectName(QStringLiteral("txtDane_%1").arg(index));
    box->setGeometry(twips::rect(1200, row.top, 1095, 285));
    box->setFrame(false);
    box->setReadOnly(true);
    box->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QPalette p = box->palette();
    p.setColor(QPalette::Base, p.color(QPalette::Button));
    p.setColor(QPalette::Text, Qt::black);
    box->setPalette(p);
    m_values.at(std::size_t(index)) = box;
    if (row.unit) {
        auto *unit = form::label(this, "Label1", QString::fromUtf8(row.unit));
        unit->setObjectName(QStringLiteral("Label1_%1").arg(row.unitIndex));
        unit->setGeometry(twips::rect(2340, row.top + 30, 540, 255));
    }
}

void frmDane::load()
{
    setWindowIcon(StationImages::mainImages().image(QStringLiteral("Dane")));
    m_station.oApp.Loaded_Dane = true;
    m_frame.setDataWindow(this);
    m_frame.toolbar().setValue(m_frame.toolbar().key(DataButton), 1);
    Odswiez();
}

void frmDane::closeEvent(QCloseEvent *event)
{
    unload();
    event->accept();
}

void frmDane::unload()
{
    if (m_unloaded)
        return;
    m_unloaded = true;
    m_station.oApp.Loaded_Dane = false;
    m_frame.setDataWindow(nullptr);
    // the menu's check mark stays: only the button is released
    m_frame.toolbar().setValue(m_frame.toolbar().key(DataButton), 0);
}

void frmDane::Odswiez()
{
    const clRegulator &r = m_station.Regulatory.Item(m_station.oApp.NrAktRegulatora);
    setWindowTitle(QStringLiteral("Dane regulatora '") + r.Kod + QStringLiteral("'"));
    for (int i : FillOrder)
        txtDane(i)->setText(pictureFormat(Rows[i].value(r), Rows[i].picture));
    m_refresh->setEnabled(!r.Monitoring);
}

void frmDane::setOdswiezEnabled(bool enabled)
{
    m_refresh->setEnabled(enabled);
}
