#include "StdfRecord.h"

#include <QtCore/QtEndian>

#include <bit>

namespace ZYN {

namespace {

constexpr qsizetype headerSize = 4;
constexpr qsizetype longestText = 255;

} // namespace

template <class Number>
StdfRecord& StdfRecord::Append(Number value)
{
    const Number raw = qToLittleEndian(value);
    bytes.append(reinterpret_cast<const char*>(&raw), sizeof raw);
    return *this;
}

StdfRecord& StdfRecord::Begin(quint8 type, quint8 subType)
{
    bytes.resize(0);
    return U2(0).U1(type).U1(subType);
}

StdfRecord& StdfRecord::U1(quint8 value)
{
    return Append(value);
}

StdfRecord& StdfRecord::U2(quint16 value)
{
    return Append(value);
}

StdfRecord& StdfRecord::U4(quint32 value)
{
    return Append(value);
}

StdfRecord& StdfRecord::I1(qint8 value)
{
    return Append(value);
}

StdfRecord& StdfRecord::I2(qint16 value)
{
    return Append(value);
}

StdfRecord& StdfRecord::R4(float value)
{
    return Append(std::bit_cast<quint32>(value));
}

StdfRecord& StdfRecord::C1(char value)
{
    bytes.append(value);
    return *this;
}

StdfRecord& StdfRecord::Cn(QStringView text)
{
    const QStringView kept = text.first(qMin(text.size(), longestText));
    U1(static_cast<quint8>(kept.size()));
    const qsizetype start = bytes.size();
    bytes.resize(start + kept.size());
    char* out = bytes.data() + start;
    for (const QChar character : kept)
        *out++ = character.unicode() > 0xff ? '?' : static_cast<char>(character.unicode());
    return *this;
}

const QByteArray& StdfRecord::Bytes()
{
    // No record of the lot file comes near 64 KiB: the longest holds eight texts of 255 bytes.
    const auto length = qToLittleEndian(static_cast<quint16>(bytes.size() - headerSize));
    std::copy_n(reinterpret_cast<const char*>(&length), sizeof length, bytes.data());
    return bytes;
}

} // namespace ZYN
