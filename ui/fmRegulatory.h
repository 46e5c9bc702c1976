#pragma once

#include "ImageList.h"

#include <QHash>
#include <QString>
#include <QWidget>
#include <cstdint>
#include <functional>

class QMouseEvent;
class QTreeWidget;
class QTreeWidgetItem;
class Station;

// The controller tree: "System Zorbel", the group "Regulatory", under it
// every controller of the collection with its nine stages. Clicking a node
// makes it the operator's current element and tells the event hub; with the
// right button the main window's pop-up menu for that kind of node follows.
//
// Nodes are found by key: a controller's Kod, a stage's Kod + "_b" + number,
// "Korzen" and "Reg". Keys compare exactly, case included (the controllers'
// collection is case-blind, so no two of its Kods differ by case alone and
// everybody asks for a node with the Kod it was built from). A key that is
// not in the tree is the run-time's "element not found".
class fmRegulatory final : public QWidget {
public:
    // What a node keeps besides its text.
    enum NodeRole { KeyRole = Qt::UserRole, TagRole, ImageRole };
    using PopupHandler = std::function<void(const QString &menuName, const QPoint &globalPos)>;

    explicit fmRegulatory(Station &station, QWidget *parent = nullptr);

    // Builds the tree anew from the controllers' collection.
    void LadujObiekty();

    bool hasNode(const QString &key) const;
    // The image's position in the tree's image list, 1 to 6.
    int nodeImage(const QString &key) const;
    void setNodeImage(const QString &key, int image);
    // Colours as 32-bit values, red in the low byte: 255 red, 0 black.
    std::uint32_t nodeForeColor(const QString &key) const;
    void setNodeForeColor(const QString &key, std::uint32_t colour);
    // A controller's node in the alarm colour, or back in the window's own;
    // what the alarm list wants as its node painter.
    void paintAlarm(const QString &kod, bool alarm);

    // The pop-up menus are the main window's: it opens the one named.
    void setPopupHandler(PopupHandler handler) { m_popup = std::move(handler); }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    QTreeWidgetItem *addNode(QTreeWidgetItem *parent, const QString &key, const QString &text, int image,
                             const QString &tag);
    QTreeWidgetItem *node(const QString &key) const;
    QTreeWidgetItem *nodeAt(const QPoint &pos) const;
    void mouseDown(const QMouseEvent &event);
    void mouseUp(const QMouseEvent &event);
    void nodeClick(QTreeWidgetItem *item, const QPoint &globalPos);
    QString clickNode(QTreeWidgetItem *item);
    void selectController(const QString &kod);
    void selectStage(const QTreeWidgetItem *stage);

    Station &m_station;
    ImageList m_images; // root, controller, group, blocked controller, stage on, stage off
    QTreeWidget *m_tree;
    QHash<QString, QTreeWidgetItem *> m_nodes;
    bool m_rightButton = false; // the last mouse-down was with the right button
    QString m_pressedKey;       // the node under the last mouse-down, until its click
    PopupHandler m_popup;
};
