#pragma once

#include "ByteSource.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string_view>
#include <vector>

namespace ZYN {

/// A record of an STDF file; its body is borrowed until the next one is read.
struct StdfRecord {
    std::int64_t offset = 0; ///< of its header; of compressed files in the decompressed bytes
    int kind = 0;            ///< as in `StdfKinds`
    std::string_view body;
};

/// Splits an STDF file into records without copying them. Memory does not grow with the file.
/// Source: the STDF V4 standard.
class StdfRecords {
public:
    /// \param bytes borrowed
    explicit StdfRecords(ByteSource& bytes);

    enum class Answer {
        Record,
        End,
        NoStdf, ///< the first record is no FAR
        Torn    ///< the file ends inside a record; `Offset` is where it begins
    };
    Answer Next(StdfRecord* record);
    bool IsBigEndian() const { return m_isBigEndian; }
    /// Offset behind the last record.
    std::int64_t Offset() const { return m_offset; }

private:
    /// \return whether so many bytes are there
    bool Have(std::size_t count);

    ByteSource& m_bytes;
    std::vector<char> m_buffer;
    std::size_t m_begin = 0, m_end = 0;
    std::int64_t m_offset = 0;
    bool m_isBigEndian = false;
};

/// Takes the fields of a record one after the other. What the record is too short for is "missing": the
/// fallback, and everything behind it too.
class StdfFields {
public:
    StdfFields(std::string_view body, bool isBigEndian)
        : m_at(body.data())
        , m_end(body.data() + body.size())
        , m_swap(isBigEndian != (std::endian::native == std::endian::big))
    {
    }

    bool AtEnd() const { return m_at == m_end; }
    /// Whether the record ends inside a field.
    bool IsTorn() const { return m_isTorn; }

    int U1(int fallback = 0) { return Has(1) ? static_cast<unsigned char>(*m_at++) : fallback; }
    int I1(int fallback = 0) { return Has(1) ? static_cast<signed char>(*m_at++) : fallback; }
    int U2(int fallback = 0) { return Has(2) ? Take<std::uint16_t>() : fallback; }
    int I2(int fallback = 0) { return Has(2) ? static_cast<std::int16_t>(Take<std::uint16_t>()) : fallback; }
    std::uint32_t U4(std::uint32_t fallback = 0) { return Has(4) ? Take<std::uint32_t>() : fallback; }
    float R4(float fallback = 0) { return Has(4) ? std::bit_cast<float>(Take<std::uint32_t>()) : fallback; }
    /// Text in Latin-1.
    std::string_view Cn()
    {
        if (!Has(1))
            return {};
        const auto size = static_cast<unsigned char>(*m_at++);
        m_isTorn = m_isTorn || std::size_t(m_end - m_at) < size;
        return Bytes(size);
    }
    std::string_view Bytes(std::size_t size)
    {
        if (!Has(size))
            return {};
        m_at += size;
        return {m_at - size, size};
    }

private:
    bool Has(std::size_t count)
    {
        if (std::size_t(m_end - m_at) >= count)
            return true;
        m_isTorn = m_isTorn || m_at != m_end;
        m_at = m_end;
        return false;
    }

    template <class Number>
    Number Take()
    {
        Number number = 0;
        std::memcpy(&number, m_at, sizeof number);
        m_at += sizeof number;
        if (!m_swap)
            return number;
        if constexpr (sizeof(Number) == 2)
            return Number(number << 8 | number >> 8);
        else
            return __builtin_bswap32(number);
    }

    const char* m_at;
    const char* m_end;
    bool m_swap;
    bool m_isTorn = false;
};

} // namespace ZYN
