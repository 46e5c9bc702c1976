#pragma once

#include "station/clsPozKolejki.h"
#include "model/KeyedCollection.h"

class colRegulatory;

// First in, first out: windows append operator requests, and the polling
// tick carries out the oldest one per call of Wykonaj, so that every use of
// the line stays inside that one handler.
class clsKolejka {
public:
    explicit clsKolejka(colRegulatory &regulatory) : m_regulatory(regulatory) {}

    clsPozKolejki &Add(std::int16_t NrRegul, const QString &Polecenie, const QVariant &Parametry, std::uint8_t Status,
                       const QString &sKey);
    clsPozKolejki &Item(int position) const { return m_items.Item(position); }
    clsPozKolejki &Item(const QString &key) const { return m_items.Item(key); }
    std::int32_t Count() const { return m_items.Count(); }
    void Remove(int position) { m_items.Remove(position); }
    void Remove(const QString &key) { m_items.Remove(key); }
    auto begin() const { return m_items.begin(); }
    auto end() const { return m_items.end(); }

    // Carries out and removes the oldest entry; an unknown word is passed
    // over. Always false.
    bool Wykonaj();

private:
    colRegulatory &m_regulatory;
    KeyedCollection<clsPozKolejki> m_items;
};
