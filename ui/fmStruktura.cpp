#include "fmStruktura.h"

#include "KeyedTree.h"
#include "StationImages.h"
#include "Twips.h"

#include "base/Dialogs.h"
#include "base/RunTimeError.h"
#include "base/clsWizual.h"
#include "db/HierarchyStore.h"
#include "station/Station.h"

#include <QVBoxLayout>

namespace {

const QString RootKey = QStringLiteral("Korzen");
const QString RootText = QStringLiteral("System Zorbel");
const QString ObjectTag = QStringLiteral("S");
const QString ControllerTag = QStringLiteral("R");
enum Image { Plant = 1, Object = 2, ControllerElement = 3 };

}

fmStruktura::fmStruktura(Station &station, QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint),
      m_station(station), m_tree(new KeyedTree(StationImages::structureTreeImages(), this))
{
    setObjectName(QStringLiteral("fmStruktura"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral("Struktura"));
    m_tree->setClickHandler([this](QTreeWidgetItem *item, bool right, const QPoint &at) { nodeClick(item, right, at); });
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_tree);
    setGeometry(twips::toPixels(3060), 0, twips::toPixels(3000), twips::toPixels(5400)); // beside the controllers
}

void fmStruktura::LadujObiekty()
{
    m_tree->clearNodes();
    m_tree->addNode(nullptr, RootKey, RootText, Plant, ObjectTag);
    const std::vector<HierarchyStore::Row> rows =
        HierarchyStore([this]() -> Database & { return m_station.connection(); }).inTreeOrder();
    firstPass(rows);
    secondPass(rows);
    m_tree->topLevelItem(0)->setExpanded(true);
}

// Every row an element under the root; "System Zorbel" as an element is none.
void fmStruktura::firstPass(const std::vector<HierarchyStore::Row> &rows)
{
    QTreeWidgetItem *root = m_tree->node(RootKey);
    for (const HierarchyStore::Row &r : rows) {
        const bool controller = r.typ == ControllerTag;
        if (r.kod_obiektu != RootText)
            m_tree->addNode(root, r.kod_obiektu, r.kod_obiektu, controller ? ControllerElement : Object,
                            controller ? ControllerTag : ObjectTag);
    }
}

// Each element under its parent, a parent named only by rows made an object.
void fmStruktura::secondPass(const std::vector<HierarchyStore::Row> &rows)
{
    for (const HierarchyStore::Row &r : rows) {
        const QString &nad = r.kod_obiektu_nad;
        QTreeWidgetItem *parent = nullptr;
        if (m_tree->hasNode(nad))
            parent = m_tree->node(nad);
        else if (nad != RootText)
            parent = m_tree->addNode(m_tree->node(RootKey), nad, nad, Object, ObjectTag);
        else
            parent = m_tree->node(RootKey);
        // kept: a row named "System Zorbel" has no node, and fails here
        m_tree->moveNode(m_tree->node(r.kod_obiektu), parent);
    }
}

void fmStruktura::ToolbarAction(const QString &Key, bool)
{
    if (Key == QLatin1String("Raport") && m_dailyReport)
        m_dailyReport();
}

QString fmStruktura::WezListeRegulAkt() const
{
    const QTreeWidgetItem *selected = m_tree->currentItem();
    if (!selected)
        throw RunTimeError::objectNotSet();
    return WezListeRegul(KeyedTree::keyOf(selected));
}

QString fmStruktura::WezListeRegul(const QString &klucz) const
{
    const QTreeWidgetItem *node = m_tree->node(klucz);
    if (KeyedTree::tagOf(node) != ObjectTag)
        return node->text(0);
    QString list;
    for (int i = 0; i < node->childCount(); ++i) {
        const QTreeWidgetItem *child = node->child(i);
        if (!list.isEmpty())
            list += QLatin1Char(',');
        // kept: an object without controllers adds nothing after its comma
        list += KeyedTree::tagOf(child) == ControllerTag ? QLatin1Char('\'') + child->text(0) + QLatin1Char('\'')
                                                         : WezListeRegul(child->text(0));
    }
    return list;
}

void fmStruktura::nodeClick(QTreeWidgetItem *item, bool rightButton, const QPoint &globalPos)
{
    try {
        clickNode(item);
        if (rightButton && m_popup)
            m_popup(QStringLiteral("mnuStr"), globalPos);
    } catch (const RunTimeError &e) {
        m_station.services.dialogs.MsgBox(e.message(), Dialogs::Critical, QStringLiteral("Zorbel"));
    }
}

void fmStruktura::clickNode(QTreeWidgetItem *item)
{
    clsoApp &app = m_station.oApp;
    if (KeyedTree::tagOf(item) == ControllerTag) {
        const clRegulator &r = m_station.Regulatory.Item(KeyedTree::keyOf(item)); // a Kod no controller has fails here
        app.NrAktRegulatora = r.Id;
        app.AktElStruktury = item->text(0);
        app.AktTypEl = ControllerTag;
        m_station.oWizual.eZmianaRegulatora(r.Id);
    } else if (KeyedTree::tagOf(item) == ObjectTag) {
        app.AktElStruktury = item->text(0);
        app.AktTypEl = ObjectTag;
    }
}

void fmStruktura::UsunElement()
{
    const QString kod = m_station.oApp.AktElStruktury;
    Dialogs &dialogs = m_station.services.dialogs;
    if (kod.isEmpty() || !m_tree->hasNode(kod)) {
        dialogs.MsgBox(QStringLiteral("Wybierz w strukturze element do usunięcia."), Dialogs::Exclamation, QStringLiteral("Struktura"));
        return;
    }
    if (m_tree->node(kod)->childCount() > 0) {
        dialogs.MsgBox(QStringLiteral("Element '%1' zawiera inne elementy: najpierw usuń je.").arg(kod), Dialogs::Exclamation,
                       QStringLiteral("Struktura"));
        return;
    }
    if (dialogs.MsgBox(QStringLiteral("Czy usunąć element '%1' ze struktury?").arg(kod), Dialogs::OkCancel | Dialogs::Question,
                       QStringLiteral("UWAGA")) != Dialogs::Ok)
        return;
    HierarchyStore([this]() -> Database & { return m_station.connection(); }).remove(kod);
    m_station.oApp.AktElStruktury.clear();
    LadujObiekty();
}
