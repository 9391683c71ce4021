#include "StdfRecords.h"

#include "StdfKinds.h"

namespace ZYN {

namespace {

constexpr std::size_t headerSize = 4;
/// Several of the largest records.
constexpr std::size_t bufferSize = 256 * 1024;

} // namespace

StdfRecords::StdfRecords(ByteSource& bytes)
    : m_bytes(bytes)
    , m_buffer(bufferSize)
{
}

bool StdfRecords::Have(std::size_t count)
{
    if (m_end - m_begin >= count)
        return true;
    if (m_begin > 0)
        std::memmove(m_buffer.data(), m_buffer.data() + m_begin, m_end - m_begin);
    m_end -= m_begin;
    m_begin = 0;
    while (m_end < count) {
        const std::size_t more = m_bytes.Read(m_buffer.data() + m_end, m_buffer.size() - m_end);
        if (more == 0)
            return false;
        m_end += more;
    }
    return true;
}

StdfRecords::Answer StdfRecords::Next(StdfRecord* record)
{
    if (!Have(headerSize)) {
        if (m_offset == 0)
            return Answer::NoStdf;
        // A power loss leaves zero bytes, of any number.
        const std::string_view rest(m_buffer.data() + m_begin, m_end - m_begin);
        const bool isZeros = rest.find_first_not_of('\0') == std::string_view::npos;
        return rest.empty() || isZeros ? Answer::End : Answer::Torn;
    }
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(m_buffer[m_begin + at]); };
    if (m_offset == 0) {
        // A FAR has two bytes of data: its length tells the order.
        m_isBigEndian = byte(0) == 0 && byte(1) == 2;
        const bool isFar = byte(m_isBigEndian ? 1 : 0) == 2 && byte(m_isBigEndian ? 0 : 1) == 0;
        if (!isFar || byte(2) != 0 || byte(3) != 10)
            return Answer::NoStdf;
    }
    const std::size_t length =
        m_isBigEndian ? std::size_t(byte(0) << 8 | byte(1)) : std::size_t(byte(1) << 8 | byte(0));
    record->offset = m_offset;
    record->kind = StdfKinds::Of(byte(2), byte(3));
    if (!Have(headerSize + length))
        return Answer::Torn;
    record->body = std::string_view(m_buffer.data() + m_begin + headerSize, length);
    m_begin += headerSize + length;
    m_offset += std::int64_t(headerSize + length);
    return Answer::Record;
}

} // namespace ZYN
