#include "KeyedTree.h"

#include "base/RunTimeError.h"

#include <QMouseEvent>

KeyedTree::KeyedTree(ImageList images, QWidget *parent) : QTreeWidget(parent), m_images(std::move(images))
{
    setObjectName(QStringLiteral("Tree"));
    setHeaderHidden(true);
}

void KeyedTree::clearNodes()
{
    clear();
    m_nodes.clear();
    m_pressedKey.clear();
}

QTreeWidgetItem *KeyedTree::addNode(QTreeWidgetItem *parent, const QString &key, const QString &text, int image,
                                    const QString &tag)
{
    if (m_nodes.contains(key))
        throw RunTimeError::duplicateKey();
    auto *item = parent ? new QTreeWidgetItem(parent, {text}) : new QTreeWidgetItem(this, {text});
    item->setData(0, KeyRole, key);
    item->setData(0, TagRole, tag);
    m_nodes.insert(key, item);
    setNodeImage(key, image);
    return item;
}

QTreeWidgetItem *KeyedTree::node(const QString &key) const
{
    QTreeWidgetItem *item = m_nodes.value(key);
    if (!item)
        throw RunTimeError::elementNotFound();
    return item;
}

void KeyedTree::moveNode(QTreeWidgetItem *node, QTreeWidgetItem *parent)
{
    for (const QTreeWidgetItem *p = parent; p; p = p->parent())
        if (p == node)
            throw RunTimeError::cycle();
    QTreeWidgetItem *from = node->parent();
    if (from)
        from->removeChild(node);
    else
        takeTopLevelItem(indexOfTopLevelItem(node));
    parent->addChild(node);
}

int KeyedTree::nodeImage(const QString &key) const
{
    return node(key)->data(0, ImageRole).toInt();
}

void KeyedTree::setNodeImage(const QString &key, int image)
{
    QTreeWidgetItem *item = node(key);
    item->setData(0, ImageRole, image);
    item->setIcon(0, m_images.image(image));
}

// A node is hit on its picture or text, not on the branch beside it.
QTreeWidgetItem *KeyedTree::nodeAt(const QPoint &pos) const
{
    QTreeWidgetItem *item = itemAt(pos);
    return item && visualItemRect(item).contains(pos) ? item : nullptr;
}

void KeyedTree::mousePressEvent(QMouseEvent *event)
{
    m_rightButton = event->button() == Qt::RightButton;
    const QTreeWidgetItem *item = nodeAt(event->position().toPoint());
    m_pressedKey = item ? keyOf(item) : QString();
    QTreeWidget::mousePressEvent(event);
}

// A double click counts once: its second press is not a press here.
void KeyedTree::mouseReleaseEvent(QMouseEvent *event)
{
    QTreeWidget::mouseReleaseEvent(event);
    QTreeWidgetItem *item = nodeAt(event->position().toPoint());
    const bool same = item && !m_pressedKey.isEmpty() && keyOf(item) == m_pressedKey;
    m_pressedKey.clear();
    if (same) {
        setCurrentItem(item);
        if (m_click)
            m_click(item, m_rightButton, event->globalPosition().toPoint());
    }
}
