#pragma once

#include "model/KeyedCollection.h"
#include "model/clRegulator.h"

struct ControllerContext;

// All controllers, in load order: reached by 1-based position (the Id) and by
// Kod. Filled once at start and never changed while the station runs.
class colRegulatory {
public:
    explicit colRegulatory(ControllerContext *context = nullptr) : m_context(context) {}

    // Creates the controller with its Kod and address, appended under sKey
    // (without a key when sKey is empty). A taken key is refused.
    clRegulator &Add(std::int16_t adres, const QString &Kod, const QString &sKey);
    clRegulator &Item(int position) const { return m_items.Item(position); }
    clRegulator &Item(const QString &key) const { return m_items.Item(key); }
    std::int32_t Count() const { return m_items.Count(); }
    void Remove(int position) { m_items.Remove(position); }
    void Remove(const QString &key) { m_items.Remove(key); }
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

private:
    ControllerContext *m_context;
    KeyedCollection<clRegulator> m_items;
};
