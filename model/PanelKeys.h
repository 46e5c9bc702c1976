#pragma once

#include <array>

// The four settable keys of the front panel window (indices 4 to 7): the
// window shows and toggles them, the key command reads and releases them.
class PanelKeys {
public:
    static constexpr int First = 4;
    static constexpr int Last = 7;

    bool value(int index) const { return m_down.at(std::size_t(index - First)); }
    void setValue(int index, bool down) { m_down.at(std::size_t(index - First)) = down; }
    void releaseAll() { m_down.fill(false); }

private:
    std::array<bool, 4> m_down{};
};
