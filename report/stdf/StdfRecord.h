#pragma once

#include "StdfFormat.h"

#include <QtCore/QByteArrayView>
#include <QtCore/QStringView>
#include <QtCore/QtEndian>

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstring>
#include <system_error>

namespace ZYN {

/// Writes each UTF-16 unit as one Latin-1 byte; what Latin-1 cannot hold becomes '?'.
inline void ToLatin1(QStringView text, char* bytes)
{
    const char16_t* const units = text.utf16();
    const qsizetype count = text.size();
    for (qsizetype index = 0; index < count; ++index)
        bytes[index] = units[index] > 0xff ? '?' : static_cast<char>(units[index]);
}

/// One STDF V4 record under construction. Numbers are little-endian, reals IEEE 754 single precision;
/// the header (REC_LEN, REC_TYP, REC_SUB) stands in front and its length is filled in by `Bytes`.
/// Format: the STDF V4 standard.
///
/// Needs no memory of its own, whatever it holds, and stays in the processor's registers while a record
/// is written: a lot has millions of them.
class StdfRecord {
public:
    /// The longest record of a lot file, the MIR, has eight texts of 256 bytes and few numbers.
    static constexpr size_t longest = 8 * 256 + 64;

    /// \param memory room for `longest` bytes; borrowed
    explicit StdfRecord(char* memory)
        : m_start(memory)
        , m_at(memory)
    {
    }

    /// Starts a record and forgets the one before.
    StdfRecord& Begin(StdfFormat::RecordKind kind)
    {
        m_at = m_start;
        return U2(0).U1(kind.type).U1(kind.subType);
    }

    StdfRecord& U1(quint8 value) { return Append(value); }
    StdfRecord& U2(quint16 value) { return Append(value); }
    StdfRecord& U4(quint32 value) { return Append(value); }
    StdfRecord& I1(qint8 value) { return Append(value); }
    StdfRecord& I2(qint16 value) { return Append(value); }
    StdfRecord& R4(float value) { return Append(std::bit_cast<quint32>(value)); }
    StdfRecord& C1(char value) { return Append(static_cast<quint8>(value)); }
    StdfRecord& Cn(QStringView text) { return BeginText().Text(text).EndText(); }

    /// A text with its length in front, in pieces: the first 255 UTF-16 units, each as one Latin-1 byte;
    /// what Latin-1 cannot hold becomes '?'.
    StdfRecord& BeginText()
    {
        m_textStart = m_at++;
        return *this;
    }
    StdfRecord& Text(QStringView piece)
    {
        const qsizetype count = std::min(piece.size(), Room());
        ToLatin1(piece.first(count), m_at);
        m_at += count;
        return *this;
    }
    StdfRecord& Text(QByteArrayView latin1)
    {
        m_at = std::copy_n(latin1.data(), std::min(latin1.size(), Room()), m_at);
        return *this;
    }
    /// A number in decimal; near the end of a text it is left out.
    StdfRecord& Text(long number)
    {
        if (const auto [end, error] = std::to_chars(m_at, m_at + Room(), number); error == std::errc())
            m_at = end;
        return *this;
    }
    StdfRecord& EndText()
    {
        *m_textStart = static_cast<char>(m_at - m_textStart - 1);
        return *this;
    }

    /// The whole record.
    QByteArrayView Bytes()
    {
        const auto length = qToLittleEndian(static_cast<quint16>(m_at - m_start - StdfFormat::headerSize));
        std::memcpy(m_start, &length, sizeof length);
        return {m_start, m_at - m_start};
    }

private:
    qsizetype Room() const { return 255 - (m_at - m_textStart - 1); }

    template <class Number>
    StdfRecord& Append(Number value)
    {
        const Number raw = qToLittleEndian(value);
        std::memcpy(m_at, &raw, sizeof raw);
        m_at += sizeof raw;
        return *this;
    }

    char* m_start;
    char* m_at;
    /// Where the current text begins, with its length.
    char* m_textStart = nullptr;
};

} // namespace ZYN
