#include "fmRegulatory.h"

#include "StationImages.h"

using namespace StationImages;
#include "Twips.h"

#include "base/Dialogs.h"
#include "base/RunTimeError.h"
#include "station/Station.h"
#include "base/clsWizual.h"

#include <QCloseEvent>
#include <QMouseEvent>
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
      m_images(StationImages::controllerTreeImages()), m_tree(new QTreeWidget(this))
{
    setObjectName(QStringLiteral("fmRegulatory"));
    setWindowTitle(QStringLiteral("Regulatory"));
    m_tree->setObjectName(QStringLiteral("Tree"));
    m_tree->setHeaderHidden(true);
    m_tree->viewport()->installEventFilter(this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tree);
    resize(twips::toPixels(3000), twips::toPixels(5400));
    LadujObiekty();
}

void fmRegulatory::LadujObiekty()
{
    m_tree->clear();
    m_nodes.clear();
    m_pressedKey.clear();
    QTreeWidgetItem *root = addNode(nullptr, RootKey, QStringLiteral("System Zorbel"), TreeImage::Plant, QString());
    QTreeWidgetItem *group = addNode(root, GroupKey, QStringLiteral("Regulatory"), TreeImage::ControllerGroup, QStringLiteral("RR"));
    for (const auto &r : m_station.Regulatory) {
        QTreeWidgetItem *controller = addNode(group, r->Kod, r->Kod, TreeImage::Controller, QStringLiteral("R"));
        for (int n = 1; n <= StageCount; ++n)
            addNode(controller, r->Kod + QStringLiteral("_b") + QString::number(n),
                    QStringLiteral("stopień ") + QString::number(n), TreeImage::StageOff, QStringLiteral("B"));
    }
    root->setExpanded(true);
    group->setExpanded(true);
}

QTreeWidgetItem *fmRegulatory::addNode(QTreeWidgetItem *parent, const QString &key, const QString &text, int image,
                                       const QString &tag)
{
    if (m_nodes.contains(key))
        throw RunTimeError::duplicateKey();
    auto *item = parent ? new QTreeWidgetItem(parent, {text}) : new QTreeWidgetItem(m_tree, {text});
    item->setData(0, KeyRole, key);
    item->setData(0, TagRole, tag);
    m_nodes.insert(key, item);
    setNodeImage(key, image);
    return item;
}

QTreeWidgetItem *fmRegulatory::node(const QString &key) const
{
    QTreeWidgetItem *item = m_nodes.value(key);
    if (!item)
        throw RunTimeError::elementNotFound();
    return item;
}

bool fmRegulatory::hasNode(const QString &key) const
{
    return m_nodes.contains(key);
}

int fmRegulatory::nodeImage(const QString &key) const
{
    return node(key)->data(0, ImageRole).toInt();
}

void fmRegulatory::setNodeImage(const QString &key, int image)
{
    QTreeWidgetItem *item = node(key);
    item->setData(0, ImageRole, image);
    item->setIcon(0, m_images.image(image));
}

std::uint32_t fmRegulatory::nodeForeColor(const QString &key) const
{
    const QBrush brush = node(key)->foreground(0);
    return brush.style() == Qt::NoBrush ? ForeColor : fromQColor(brush.color());
}

void fmRegulatory::setNodeForeColor(const QString &key, std::uint32_t colour)
{
    node(key)->setForeground(0, toQColor(colour));
}

void fmRegulatory::paintAlarm(const QString &kod, bool alarm)
{
    setNodeForeColor(kod, alarm ? AlarmColour : ForeColor);
}

bool fmRegulatory::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_tree->viewport()) {
        if (event->type() == QEvent::MouseButtonPress)
            mouseDown(static_cast<const QMouseEvent &>(*event));
        else if (event->type() == QEvent::MouseButtonRelease)
            mouseUp(static_cast<const QMouseEvent &>(*event));
    }
    return QWidget::eventFilter(watched, event);
}

// The event hub finds the nodes by key at every reading and nothing reopens
// this window, so the operator cannot close it.
void fmRegulatory::closeEvent(QCloseEvent *event)
{
    event->ignore();
}

// A node is hit on its picture or text, not on the branch beside it.
QTreeWidgetItem *fmRegulatory::nodeAt(const QPoint &pos) const
{
    QTreeWidgetItem *item = m_tree->itemAt(pos);
    return item && m_tree->visualItemRect(item).contains(pos) ? item : nullptr;
}

void fmRegulatory::mouseDown(const QMouseEvent &event)
{
    m_rightButton = event.button() == Qt::RightButton;
    const QTreeWidgetItem *item = nodeAt(event.position().toPoint());
    m_pressedKey = item ? item->data(0, KeyRole).toString() : QString();
}

// A click is a press and a release on the same node; a double click counts once.
void fmRegulatory::mouseUp(const QMouseEvent &event)
{
    QTreeWidgetItem *item = nodeAt(event.position().toPoint());
    const bool same = item && !m_pressedKey.isEmpty() && item->data(0, KeyRole).toString() == m_pressedKey;
    m_pressedKey.clear();
    if (same)
        nodeClick(item, event.globalPosition().toPoint());
}

void fmRegulatory::nodeClick(QTreeWidgetItem *item, const QPoint &globalPos)
{
    m_tree->setCurrentItem(item);
    try {
        const QString menu = clickNode(item);
        if (m_rightButton && !menu.isEmpty() && m_popup)
            m_popup(menu, globalPos);
    } catch (const RunTimeError &e) {
        m_station.services.dialogs.MsgBox(e.message(), Dialogs::Critical, QStringLiteral("Zorbel"));
    }
}

// Makes the node current; gives the pop-up menu of its kind.
QString fmRegulatory::clickNode(QTreeWidgetItem *item)
{
    const QString tag = item->data(0, TagRole).toString();
    if (tag == QLatin1String("R")) {
        selectController(item->data(0, KeyRole).toString());
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
    clRegulator &r = m_station.Regulatory.Item(stage->parent()->data(0, KeyRole).toString());
    const std::uint8_t nr = stageNumber(stage->data(0, KeyRole).toString());
    r.NrAktBaterii = nr;
    m_station.oWizual.eZmianaBaterii(m_station.oApp.NrAktRegulatora, nr);
}
