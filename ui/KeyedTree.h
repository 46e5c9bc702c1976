#pragma once

#include "ImageList.h"

#include <QHash>
#include <QTreeWidget>
#include <functional>

// A tree whose nodes are found by key, each with a tag and a picture of
// the tree's own image list, as the station's two trees need them. Keys
// compare exactly, case included; a key taken twice is the run-time's
// "duplicate key", a key that is no node its "element not found".
// A click is a press and a release on the same node's picture or text; the
// tree remembers whether the last press was with the right button.
class KeyedTree final : public QTreeWidget {
public:
    enum NodeRole { KeyRole = Qt::UserRole, TagRole, ImageRole };
    using ClickHandler = std::function<void(QTreeWidgetItem *node, bool rightButton, const QPoint &globalPos)>;

    KeyedTree(ImageList images, QWidget *parent = nullptr);

    void clearNodes();
    QTreeWidgetItem *addNode(QTreeWidgetItem *parent, const QString &key, const QString &text, int image,
                             const QString &tag);
    QTreeWidgetItem *node(const QString &key) const;
    bool hasNode(const QString &key) const { return m_nodes.contains(key); }
    // Makes `parent` the node's parent, the node going last among its children.
    // A parent inside the node itself is the run-time's "cycle" refusal.
    void moveNode(QTreeWidgetItem *node, QTreeWidgetItem *parent);
    int nodeImage(const QString &key) const;
    void setNodeImage(const QString &key, int image);

    static QString keyOf(const QTreeWidgetItem *node) { return node->data(0, KeyRole).toString(); }
    static QString tagOf(const QTreeWidgetItem *node) { return node->data(0, TagRole).toString(); }

    void setClickHandler(ClickHandler handler) { m_click = std::move(handler); }

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    QTreeWidgetItem *nodeAt(const QPoint &pos) const;

    ImageList m_images;
    QHash<QString, QTreeWidgetItem *> m_nodes;
    bool m_rightButton = false; // the last press was with the right button
    QString m_pressedKey;       // the node under the last press, until its click
    ClickHandler m_click;
};
