#pragma once

#include "base/RunTimeError.h"

#include <QHash>
#include <QString>
#include <memory>
#include <vector>

// An ordered collection reached by 1-based position or by text key (case-blind). An
// unknown position or key is a run-time error to the caller, and so is a key
// that is already taken. Items are owned and keep their address for life.
template <typename T>
class KeyedCollection {
public:
    T &append(std::unique_ptr<T> item, const QString &key)
    {
        if (!key.isEmpty()) {
            if (m_keys.contains(folded(key)))
                throw RunTimeError::duplicateKey();
            m_keys.insert(folded(key), int(m_items.size()));
        }
        m_items.push_back(std::move(item));
        return *m_items.back();
    }

    T &Item(int position) const
    {
        if (position < 1 || position > int(m_items.size()))
            throw RunTimeError::subscriptOutOfRange();
        return *m_items[std::size_t(position - 1)];
    }

    T &Item(const QString &key) const
    {
        const auto it = m_keys.constFind(folded(key));
        if (it == m_keys.constEnd())
            throw RunTimeError::invalidCall();
        return *m_items[std::size_t(*it)];
    }

    int Count() const { return int(m_items.size()); }

    void Remove(int position)
    {
        Item(position);
        m_items.erase(m_items.begin() + (position - 1));
        reindexFrom(position - 1);
    }

    void Remove(const QString &key)
    {
        Item(key);
        Remove(m_keys.value(folded(key)) + 1);
    }

    // Iteration in position order.
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

private:
    // Keys compare without regard to case.
    static QString folded(const QString &key) { return key.toCaseFolded(); }

    void reindexFrom(int removedIndex)
    {
        for (auto it = m_keys.begin(); it != m_keys.end();) {
            if (*it == removedIndex) {
                it = m_keys.erase(it);
                continue;
            }
            if (*it > removedIndex)
                --*it;
            ++it;
        }
    }

    std::vector<std::unique_ptr<T>> m_items;
    QHash<QString, int> m_keys;
};
