#pragma once

#include <array>

// The four settable keys of the front panel (indices 4 to 7) as the key
// command reads and releases them. While the front panel window is loaded
// the keys are its own widgets, attached here; otherwise they are held here.
class PanelKeys {
public:
    static constexpr int First = 4;
    static constexpr int Last = 7;

    // The window's keys: setting a value is the owner's assignment, which
    // also forgets the operator's change of the key.
    class Keys {
    public:
        virtual ~Keys() = default;
        virtual bool keyValue(int index) const = 0;
        virtual void setKeyValue(int index, bool down) = 0;
    };
    void attach(Keys *keys) { m_keys = keys; }

    bool value(int index) const { return m_keys ? m_keys->keyValue(index) : m_down.at(slot(index)); }
    void setValue(int index, bool down)
    {
        if (m_keys)
            m_keys->setKeyValue(index, down);
        else
            m_down.at(slot(index)) = down;
    }
    void releaseAll()
    {
        for (int i = First; i <= Last; ++i)
            setValue(i, false);
    }

private:
    static std::size_t slot(int index) { return std::size_t(index - First); }

    Keys *m_keys = nullptr;
    std::array<bool, 4> m_down{};
};
