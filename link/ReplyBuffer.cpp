#include "link/ReplyBuffer.h"

#include "base/Conversions.h"
#include "base/RunTimeError.h"

namespace {
struct Store {
    int value;
    void operator()(std::uint8_t *b) const { *b = conv::narrowByte(value); }
    void operator()(std::int16_t *v) const { *v = conv::narrow16(value); }
    void operator()(QVariant *v) const { *v = QVariant::fromValue(conv::narrow16(value)); }
    void operator()(std::span<std::uint8_t>) const { throw RunTimeError::typeMismatch(); }
};
}

void ReplyBuffer::set(int value) const
{
    std::visit(Store{value}, m_target);
}

ReplyBuffer ReplyBuffer::at(int index) const
{
    const auto *bytes = std::get_if<std::span<std::uint8_t>>(&m_target);
    if (!bytes)
        throw RunTimeError::typeMismatch();
    if (index < 0 || std::size_t(index) >= bytes->size())
        throw RunTimeError::subscriptOutOfRange();
    return ReplyBuffer((*bytes)[std::size_t(index)]);
}
