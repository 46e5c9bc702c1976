#pragma once

#include "db/HierarchyStore.h"

#include <QHash>
#include <QString>
#include <vector>

// The installation's tree of objects as the station's structure window
// builds it from Hierarchia, without a window: the controller lists of an
// object's reports made without a screen agree with the window's. Keys are
// the elements' names, but for the root "Korzen", whose text "System
// Zorbel" is no key.
class HierarchyTree {
public:
    // From the rows in the window's order (HierarchyStore::inTreeOrder): each
    // an element under the root, then each moved, in turn, last under its
    // parent. A tree that cannot be built fails as the window's does: a name
    // twice (duplicate key), an element under itself (cycle), "System Zorbel"
    // as an element (element not found).
    explicit HierarchyTree(const std::vector<HierarchyStore::Row> &rows);

    bool contains(const QString &key) const { return m_keys.contains(key); }
    // Whether the element is a controller; "element not found" for no element.
    bool isController(const QString &key) const;
    // The controllers under the element, as the reports take them: 'A','B'
    // for an object's controllers, with the lists of the objects under it in
    // their places (an object without controllers leaves an empty place:
    // 'A',,'B'); a controller's element gives its name bare.
    QString controllerList(const QString &key) const;

private:
    struct Node {
        QString text;
        bool controller;
        int parent; // -1 for the root
        std::vector<int> children;
    };

    int add(int parent, const QString &key, bool controller);
    int node(const QString &key) const;
    void move(int node, int parent);
    QString listOf(int node) const;

    std::vector<Node> m_nodes;
    QHash<QString, int> m_keys;
};
