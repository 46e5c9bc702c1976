#pragma once

#include <QVariant>
#include <array>
#include <cstdint>
#include <span>
#include <variant>

// Where a command's reply goes, given by reference: one value (a byte, an
// int16 or a variant) or an array of bytes. A byte array takes a reply by
// element; one value takes it whole. Using the one form where the other is
// held is the type mismatch of the run-time, and an index beyond the array
// is out of range.
class ReplyBuffer {
public:
    ReplyBuffer(std::uint8_t &value) : m_target(&value) {}
    ReplyBuffer(std::int16_t &value) : m_target(&value) {}
    ReplyBuffer(QVariant &value) : m_target(&value) {}
    ReplyBuffer(std::span<std::uint8_t> bytes) : m_target(bytes) {}
    template <std::size_t N>
    ReplyBuffer(std::array<std::uint8_t, N> &bytes) : m_target(std::span<std::uint8_t>(bytes)) {}

    // Stores a received byte, 0 to 255, as an integer.
    void set(int value) const;
    // The element at index of an array, as a buffer of its own.
    ReplyBuffer at(int index) const;

private:
    std::variant<std::uint8_t *, std::int16_t *, QVariant *, std::span<std::uint8_t>> m_target;
};
