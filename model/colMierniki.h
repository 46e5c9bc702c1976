#pragma once

#include "model/KeyedCollection.h"
#include "model/clMiernik.h"

// The collection of meters, an extension point beside colRegulatory.
class colMierniki {
public:
    clMiernik &Add(const QString &Kod, const QString &sKey)
    {
        auto m = std::make_unique<clMiernik>();
        m->Kod = Kod;
        return m_items.append(std::move(m), sKey);
    }
    clMiernik &Item(int position) const { return m_items.Item(position); }
    clMiernik &Item(const QString &key) const { return m_items.Item(key); }
    int Count() const { return m_items.Count(); }
    void Remove(int position) { m_items.Remove(position); }
    void Remove(const QString &key) { m_items.Remove(key); }
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

private:
    KeyedCollection<clMiernik> m_items;
};
