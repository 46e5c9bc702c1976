#pragma once

#include "KeyedTree.h"

#include <QString>
#include <QWidget>
#include <cstdint>
#include <functional>

class Station;

// The controller tree: "System Zorbel", the group "Regulatory", under it
// every controller of the collection with its nine stages. Clicking a node
// makes it the operator's current element and tells the event hub; with the
// right button the main window's pop-up menu for that kind of node follows.
//
// Nodes are found by key: a controller's Kod, a stage's Kod + "_b" + number,
// "Korzen" and "Reg". Keys compare exactly, case included (the controllers'
// collection is case-blind, so no two of its Kods differ by case alone and
// everybody asks for a node with the Kod it was built from).
class fmRegulatory final : public QWidget {
public:
    using PopupHandler = std::function<void(const QString &menuName, const QPoint &globalPos)>;

    explicit fmRegulatory(Station &station, QWidget *parent = nullptr);

    // Builds the tree anew from the controllers' collection.
    void LadujObiekty();

    bool hasNode(const QString &key) const { return m_tree->hasNode(key); }
    // The image's position in the tree's image list, 1 to 6.
    int nodeImage(const QString &key) const { return m_tree->nodeImage(key); }
    void setNodeImage(const QString &key, int image) { m_tree->setNodeImage(key, image); }
    // Colours as 32-bit values, red in the low byte: 255 red, 0 black.
    std::uint32_t nodeForeColor(const QString &key) const;
    void setNodeForeColor(const QString &key, std::uint32_t colour);
    // A controller's node in the alarm colour, or back in the window's own;
    // what the alarm list wants as its node painter.
    void paintAlarm(const QString &kod, bool alarm);

    // The pop-up menus are the main window's: it opens the one named.
    void setPopupHandler(PopupHandler handler) { m_popup = std::move(handler); }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void nodeClick(QTreeWidgetItem *item, bool rightButton, const QPoint &globalPos);
    QString clickNode(QTreeWidgetItem *item);
    void selectController(const QString &kod);
    void selectStage(const QTreeWidgetItem *stage);

    Station &m_station;
    KeyedTree *m_tree; // images: root, controller, group, blocked controller, stage on, stage off
    PopupHandler m_popup;
};
