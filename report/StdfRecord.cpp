#include "StdfRecord.h"

#include <algorithm>

namespace ZYN {

StdfRecord& StdfRecord::Cn(std::initializer_list<QStringView> pieces)
{
    constexpr qsizetype longestText = 255;
    Q_ASSERT(size + 1 + longestText <= bytes.size());
    char* const length = bytes.data() + size;
    char* out = length + 1;
    qsizetype room = longestText;
    for (const QStringView piece : pieces) {
        const QStringView kept = piece.first(std::min(piece.size(), room));
        room -= kept.size();
        out = std::transform(kept.begin(), kept.end(), out, [](QChar character) {
            return character.unicode() > 0xff ? '?' : static_cast<char>(character.unicode());
        });
    }
    *length = static_cast<char>(longestText - room);
    size = static_cast<size_t>(out - bytes.data());
    return *this;
}

QByteArrayView StdfRecord::Bytes()
{
    constexpr size_t headerSize = 4;
    const auto length = qToLittleEndian(static_cast<quint16>(size - headerSize));
    std::memcpy(bytes.data(), &length, sizeof length);
    return {bytes.data(), static_cast<qsizetype>(size)};
}

} // namespace ZYN
