#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QByteArrayView>
#include <QtCore/QStringView>
#include <QtCore/QtEndian>

#include <array>
#include <bit>
#include <cstring>
#include <initializer_list>

namespace ZYN {

/// One STDF V4 record under construction. Numbers are little-endian, reals IEEE 754 single precision;
/// the header (REC_LEN, REC_TYP, REC_SUB) stands in front and its length is filled in by `Bytes`.
/// Format: the STDF V4 standard.
///
/// Needs no memory of its own, whatever it holds: a lot has millions of records.
class StdfRecord {
public:
    /// Starts a record and forgets the one before.
    StdfRecord& Begin(quint8 type, quint8 subType)
    {
        size = 0;
        return U2(0).U1(type).U1(subType);
    }

    StdfRecord& U1(quint8 value) { return Append(value); }
    StdfRecord& U2(quint16 value) { return Append(value); }
    StdfRecord& U4(quint32 value) { return Append(value); }
    StdfRecord& I1(qint8 value) { return Append(value); }
    StdfRecord& I2(qint16 value) { return Append(value); }
    StdfRecord& R4(float value) { return Append(std::bit_cast<quint32>(value)); }
    StdfRecord& C1(char value) { return Append(static_cast<quint8>(value)); }
    /// A text with its length in front: the first 255 UTF-16 units, each as one Latin-1 byte; what
    /// Latin-1 cannot hold becomes '?'.
    StdfRecord& Cn(QStringView text) { return Cn({text}); }
    /// The same for a text that consists of pieces.
    StdfRecord& Cn(std::initializer_list<QStringView> pieces);

    /// The whole record; valid until the next `Begin`.
    QByteArrayView Bytes();

private:
    template <class Number>
    StdfRecord& Append(Number value)
    {
        const Number raw = qToLittleEndian(value);
        Q_ASSERT(size + sizeof raw <= bytes.size());
        std::memcpy(bytes.data() + size, &raw, sizeof raw);
        size += sizeof raw;
        return *this;
    }

    /// The longest record of a lot file, the MIR, has eight texts of 256 bytes and few numbers.
    std::array<char, 4096> bytes;
    size_t size = 0;
};

} // namespace ZYN
