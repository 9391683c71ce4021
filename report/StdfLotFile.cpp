#include "StdfLotFile.h"

#include "StdfLotRecords.h"

#include <QtCore/QIODevice>
#include <QtCore/QtEndian>

#include <algorithm>

namespace ZYN {

namespace {

constexpr qint64 headerSize = 4;
// Records that follow closely are read many at once, as much as stays in the processor's cache; a header
// far away is read with little around it.
constexpr qint64 largeWindow = 64 * 1024;
constexpr qint64 smallWindow = 1024;

constexpr quint16 Kind(int type, int subType)
{
    return static_cast<quint16>(type | subType << 8);
}
constexpr quint16 far = Kind(0, 10);
constexpr quint16 mir = Kind(1, 10);
constexpr quint16 mrr = Kind(1, 20);
constexpr quint16 pcr = Kind(1, 30);

/// The fields of a record's body, in order. Texts after the end of the body are empty.
class Fields {
public:
    explicit Fields(const QByteArray& body)
        : bytes(body)
    {
    }

    void Skip(qsizetype count) { at = qMin(at + count, bytes.size()); }

    quint32 U4(quint32 missing)
    {
        if (bytes.size() - at < 4) {
            at = bytes.size();
            return missing;
        }
        at += 4;
        return qFromLittleEndian<quint32>(bytes.constData() + at - 4);
    }

    QString Text()
    {
        if (at >= bytes.size())
            return {};
        const auto count = static_cast<quint8>(bytes.at(at++));
        const qsizetype start = at;
        Skip(count);
        return QString::fromUtf8(bytes.constData() + start, at - start);
    }

private:
    const QByteArray& bytes;
    qsizetype at = 0;
};

} // namespace

qint64 StdfLotFile::Header::End() const
{
    return position + headerSize + length;
}

StdfLotFile::StdfLotFile(QIODevice* lotDevice)
    : device(lotDevice)
    , size(lotDevice->size())
    , zerosFrom(size)
{
}

std::optional<StdfLotFile::Header> StdfLotFile::HeaderAt(qint64 position)
{
    if (position + headerSize > size)
        return std::nullopt;
    if (position < windowStart || position + headerSize > windowStart + window.size()) {
        const bool follows = position - (windowStart + window.size()) < smallWindow;
        window.resize(follows ? largeWindow : smallWindow);
        windowStart = position;
        const qint64 count = device->seek(position) ? device->read(window.data(), window.size()) : 0;
        window.resize(qMax<qint64>(count, 0));
        if (window.size() < headerSize)
            return std::nullopt;
    }
    const char* const bytes = window.constData() + (position - windowStart);
    const Header header{position, qFromLittleEndian<quint16>(bytes), qFromLittleEndian<quint16>(bytes + 2)};
    if (header.length == 0 && header.kind == 0 && position >= ZeroTail()) {
        size = position;
        return std::nullopt;
    }
    return header.End() <= size ? std::optional(header) : std::nullopt;
}

qint64 StdfLotFile::ZeroTail()
{
    while (!zeroTail) {
        const qint64 start = qMax<qint64>(0, zerosFrom - largeWindow);
        const QByteArray bytes = device->seek(start) ? device->read(zerosFrom - start) : QByteArray();
        const auto last = std::find_if(bytes.crbegin(), bytes.crend(), [](char c) { return c != 0; });
        if (last != bytes.crend() || start == 0)
            zeroTail = start + (bytes.crend() - last);
        zerosFrom = start;
    }
    return *zeroTail;
}

QByteArray StdfLotFile::Body(const Header& header)
{
    return device->seek(header.position + headerSize) ? device->read(header.length) : QByteArray();
}

std::optional<StdfPlace> StdfLotFile::PlaceAtPcr(const Header& header)
{
    const QByteArray body = Body(header);
    Fields fields(body);
    fields.Skip(2); // HEAD_NUM, SITE_NUM
    StdfPlace place{header.position, true, fields.U4(0)};
    fields.Skip(8);                                            // RTST_CNT, ABRT_CNT
    place.goodCount = fields.U4(StdfLotRecords::unknownCount); // optional
    return place.partCount > 0 ? std::optional(place) : std::nullopt;
}

bool StdfLotFile::HoldsNothing()
{
    qint64 position = 0;
    while (const auto header = HeaderAt(position)) {
        if (header->kind != mrr && (header->kind != pcr || PlaceAtPcr(*header)))
            return false;
        position = header->End();
    }
    return position == size;
}

std::optional<StdfLotNames> StdfLotFile::ReadNames()
{
    qint64 position = 0;
    while (const auto header = HeaderAt(position)) {
        if (header->kind == mir) {
            const QByteArray body = Body(*header);
            Fields fields(body);
            fields.Skip(8 + 7); // SETUP_T, START_T; STAT_NUM up to CMOD_COD
            StdfLotNames names;
            names.lotId = fields.Text();
            names.partType = fields.Text();
            names.nodeName = fields.Text();
            return names;
        }
        position = header->End();
    }
    return std::nullopt;
}

std::optional<StdfPlace> StdfLotFile::PlaceFromEnd()
{
    // The PCR of head 1 and site 1 with the counts that are never known, then an MRR with its time only.
    // Bytes that look so by chance would have to agree in 22 places at exactly the end of the file.
    constexpr qint64 pcrSize = headerSize + 22;
    constexpr qint64 tailSize = pcrSize + headerSize + 4;
    static const QByteArray pcrStart = QByteArrayLiteral("\x16\x00\x01\x1e\x01\x01");
    static const QByteArray mrrStart = QByteArrayLiteral("\x04\x00\x01\x14");
    static const QByteArray unknown(4, '\xff');

    if (size < tailSize || !device->seek(size - tailSize))
        return std::nullopt;
    const QByteArray tail = device->read(tailSize);
    const bool known = tail.size() == tailSize && tail.startsWith(pcrStart) &&
                       tail.sliced(10, 4) == unknown && // RTST_CNT
                       tail.sliced(14, 4) == unknown && // ABRT_CNT
                       tail.sliced(22, 4) == unknown && // FUNC_CNT
                       tail.sliced(pcrSize, 4) == mrrStart;
    return known ? PlaceAtPcr({size - tailSize, 22, pcr}) : std::nullopt;
}

StdfPlace StdfLotFile::FindPlace()
{
    if (const auto place = PlaceFromEnd())
        return *place;

    std::optional<StdfPlace> closing;
    std::optional<qint64> afterEmptyPcr;
    qint64 position = 0;
    while (const auto header = HeaderAt(position)) {
        position = header->End();
        if (header->kind == pcr) {
            closing = PlaceAtPcr(*header);
            if (!closing && !afterEmptyPcr)
                afterEmptyPcr = position;
        } else if (header->kind != mrr) {
            closing.reset();
            if (header->kind != far && header->kind != mir)
                afterEmptyPcr.reset(); // results without counts: to be kept
        }
    }
    return closing.value_or(StdfPlace{afterEmptyPcr.value_or(position)});
}

} // namespace ZYN
