#include "fmRegulatory.h"

#include "StationImages.h"

using namespace StationImages;
#include "Twips.h"

#include "base/Dialogs.h"
#include "base/RunTimeError.h"
#include "station/Station.h"
#include "base/clsWizual.h"

#include <QCloseEvent>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

const QString RootKey = QStringLiteral("Korzen");
const QString GroupKey = QStringLiteral("Reg");
constexpr int StageCount = 9;
constexpr std::uint32_t AlarmColour = 255;
constexpr std::uint32_t ForeColor = 0; // the window's text colour, black

QColor toQColor(std::uint32_t colour)
{
    return QColor(int(colour & 0xFF), int((colour >> 8) & 0xFF), int((colour >> 16) & 0xFF));
}

std::uint32_t fromQColor(const QColor &c)
{
    return std::uint32_t(c.red()) | std::uint32_t(c.green()) << 8 | std::uint32_t(c.blue()) << 16;
}

// A stage's number is the last character of its key: enough for stages 1 to 9.
std::uint8_t stageNumber(const QString &key)
{
    return std::uint8_t(key.right(1).toInt());
}

}

fmRegulatory::fmRegulatory(Station &station, QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint), m_station(station),
      m_tree(new KeyedTree(StationImages::controllerTreeImages(), this))
{
    setObjectName(QStringLiteral("fmRegulatory"));
    setWindowTitle(QStringLiteral("Regulatory"));
    m_tree->setClickHandler([this](QTreeWidgetItem *item, bool right, const QPoint &at) { nodeClick(item, right, at); });
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tree);
    resize(twips::toPixels(3000), twips::toPixels(5400));
    LadujObiekty();
}

void fmRegulatory::LadujObiekty()
{
    m_tree->clearNodes();
    QTreeWidgetItem *root = m_tree->addNode(nullptr, RootKey, QStringLiteral("System Zorbel"), TreeImage::Plant, QString());
    QTreeWidgetItem *group = m_tree->addNode(root, GroupKey, QStringLiteral("Regulatory"), TreeImage::ControllerGroup, QStringLiteral("RR"));
    for (const auto &r : m_station.Regulatory) {
        QTreeWidgetItem *controller = m_tree->addNode(group, r->Kod, r->Kod, TreeImage::Controller, QStringLiteral("R"));
        for (int n = 1; n <= StageCount; ++n)
            m_tree->addNode(controller, r->Kod + QStringLiteral("_b") + QString::number(n),
                    QStringLiteral("stopień ") + QString::number(n), TreeImage::StageOff, QStringLiteral("B"));
    }
    root->setExpanded(true);
    group->setExpanded(true);
}

std::uint32_t fmRegulatory::nodeForeColor(const QString &key) const
{
    const QBrush brush = m_tree->node(key)->foreground(0);
    return brush.style() == Qt::NoBrush ? ForeColor : fromQColor(brush.color());
}

void fmRegulatory::setNodeForeColor(const QString &key, std::uint32_t colour)
{
    m_tree->node(key)->setForeground(0, toQColor(colour));
}

void fmRegulatory::paintAlarm(const QString &kod, bool alarm)
{
    setNodeForeColor(kod, alarm ? AlarmColour : ForeColor);
}

// The event hub finds the nodes by key at every reading and nothing reopens
// this window, so the operator cannot close it.
void fmRegulatory::closeEvent(QCloseEvent *event)
{
    event->ignore();
}

void fmRegulatory::nodeClick(QTreeWidgetItem *item, bool rightButton, const QPoint &globalPos)
{
    try {
        const QString menu = clickNode(item);
        if (rightButton && !menu.isEmpty() && m_popup)
            m_popup(menu, globalPos);
    } catch (const RunTimeError &e) {
        m_station.services.dialogs.MsgBox(e.message(), Dialogs::Critical, QStringLiteral("Zorbel"));
    }
}

// Makes the node current; gives the pop-up menu of its kind.
QString fmRegulatory::clickNode(QTreeWidgetItem *item)
{
    const QString tag = KeyedTree::tagOf(item);
    if (tag == QLatin1String("R")) {
        selectController(KeyedTree::keyOf(item));
        return QStringLiteral("popmnuRegul");
    }
    if (tag == QLatin1String("RR"))
        return QStringLiteral("mnuBaza");
    if (tag == QLatin1String("B")) {
        selectStage(item);
        return QStringLiteral("mnuRegulBat");
    }
    return {};
}

void fmRegulatory::selectController(const QString &kod)
{
    const clRegulator &r = m_station.Regulatory.Item(kod);
    m_station.oApp.NrAktRegulatora = r.Id;
    m_station.oApp.AktElStruktury.clear();
    m_station.oApp.AktTypEl = QStringLiteral("R");
    m_station.oWizual.eZmianaRegulatora(r.Id);
}

// The stage's controller need not be the current one, and does not become it.
void fmRegulatory::selectStage(const QTreeWidgetItem *stage)
{
    clRegulator &r = m_station.Regulatory.Item(KeyedTree::keyOf(stage->parent()));
    const std::uint8_t nr = stageNumber(KeyedTree::keyOf(stage));
    r.NrAktBaterii = nr;
    m_station.oWizual.eZmianaBaterii(m_station.oApp.NrAktRegulatora, nr);
}
