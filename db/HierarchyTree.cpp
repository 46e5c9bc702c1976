#include "db/HierarchyTree.h"

#include "base/RunTimeError.h"

#include <algorithm>

namespace {

const QString RootKey = QStringLiteral("Korzen");
const QString RootText = QStringLiteral("System Zorbel");
const QString ControllerTag = QStringLiteral("R");

}

HierarchyTree::HierarchyTree(const std::vector<HierarchyStore::Row> &rows)
{
    const int root = add(-1, RootKey, false);
    m_nodes[std::size_t(root)].text = RootText;
    for (const HierarchyStore::Row &r : rows)
        if (r.kod_obiektu != RootText)
            add(root, r.kod_obiektu, r.typ == ControllerTag);
    for (const HierarchyStore::Row &r : rows) {
        const QString &nad = r.kod_obiektu_nad;
        const int parent = contains(nad) ? node(nad) : nad != RootText ? add(root, nad, false) : root;
        move(node(r.kod_obiektu), parent); // kept: a row named "System Zorbel" has no node, and fails here
    }
}

int HierarchyTree::add(int parent, const QString &key, bool controller)
{
    if (m_keys.contains(key))
        throw RunTimeError::duplicateKey();
    const int n = int(m_nodes.size());
    m_nodes.push_back({key, controller, parent, {}});
    m_keys.insert(key, n);
    if (parent >= 0)
        m_nodes[std::size_t(parent)].children.push_back(n);
    return n;
}

int HierarchyTree::node(const QString &key) const
{
    const auto it = m_keys.constFind(key);
    if (it == m_keys.cend())
        throw RunTimeError::elementNotFound();
    return *it;
}

void HierarchyTree::move(int node, int parent)
{
    for (int p = parent; p >= 0; p = m_nodes[std::size_t(p)].parent)
        if (p == node)
            throw RunTimeError::cycle();
    Node &n = m_nodes[std::size_t(node)];
    std::erase(m_nodes[std::size_t(n.parent)].children, node);
    n.parent = parent;
    m_nodes[std::size_t(parent)].children.push_back(node);
}

bool HierarchyTree::isController(const QString &key) const
{
    return m_nodes[std::size_t(node(key))].controller;
}

QString HierarchyTree::controllerList(const QString &key) const
{
    return listOf(node(key));
}

QString HierarchyTree::listOf(int node) const
{
    const Node &n = m_nodes[std::size_t(node)];
    if (n.controller)
        return n.text;
    QString list;
    for (int child : n.children) {
        if (!list.isEmpty())
            list += QLatin1Char(',');
        // kept: an object without controllers adds nothing after its comma
        const Node &c = m_nodes[std::size_t(child)];
        list += c.controller ? QLatin1Char('\'') + c.text + QLatin1Char('\'') : listOf(child);
    }
    return list;
}
