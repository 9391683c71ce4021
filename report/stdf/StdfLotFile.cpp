#include "StdfLotFile.h"

#include <QtCore/QIODevice>
#include <QtCore/QtEndian>

#include <algorithm>

namespace ZYN {

using namespace StdfFormat;

namespace {

// Records that follow closely are read many at once, as much as stays in the processor's cache; a header
// far away is read with little around it.
constexpr qint64 largeWindow = 64 * 1024;
constexpr qint64 smallWindow = 1024;

/// The number at a place of a record's body; unknown where the body ends before.
quint32 CountAt(QByteArrayView body, qsizetype offset)
{
    return body.size() - offset < 4 ? unknownCount : qFromLittleEndian<quint32>(body.data() + offset);
}

/// Takes the text at the start of the rest of a record's body. Behind its end all texts are empty.
QString TakeText(QByteArrayView& rest)
{
    if (rest.isEmpty())
        return {};
    const qsizetype length = qMin<qsizetype>(static_cast<quint8>(rest.front()), rest.size() - 1);
    const QString text = QString::fromUtf8(rest.sliced(1, length));
    rest = rest.sliced(1 + length);
    return text;
}

} // namespace

StdfLotFile::Header StdfLotFile::Header::Of(qint64 position, const char* bytes)
{
    return {position,
            qFromLittleEndian<quint16>(bytes),
            {static_cast<quint8>(bytes[2]), static_cast<quint8>(bytes[3])}};
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
    const Header header = Header::Of(position, window.constData() + (position - windowStart));
    if (header.length == 0 && header.kind == RecordKind() && position >= ZeroTail()) {
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

QByteArray StdfLotFile::BodyOf(const Header& header)
{
    return device->seek(header.Body()) ? device->read(header.length) : QByteArray();
}

std::optional<StdfPlace> StdfLotFile::PlaceAtPcr(const Header& header)
{
    const QByteArray body = BodyOf(header);
    const bool counts = body.size() >= Pcr::partCount + 4;
    const StdfPlace place{header.position, true, counts ? CountAt(body, Pcr::partCount) : 0,
                          CountAt(body, Pcr::goodCount)};
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
            const QByteArray body = BodyOf(*header);
            QByteArrayView rest = QByteArrayView(body).sliced(qMin(mirNames, body.size()));
            StdfLotNames names;
            names.lotId = TakeText(rest);
            names.partType = TakeText(rest);
            names.nodeName = TakeText(rest);
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
    constexpr qint64 mrrSize = headerSize + mrrLength;
    constexpr qint64 tailSize = headerSize + Pcr::length + mrrSize;
    const qint64 start = size - tailSize;
    if (start < 0 || !device->seek(start))
        return std::nullopt;
    const QByteArray tail = device->read(tailSize);
    if (tail.size() != tailSize)
        return std::nullopt;
    const Header counts = Header::Of(start, tail.constData());
    const Header end = Header::Of(size - mrrSize, tail.constData() + tailSize - mrrSize);
    const QByteArrayView body = QByteArrayView(tail).sliced(headerSize, Pcr::length);
    const bool known = counts.kind == pcr && counts.length == Pcr::length && body[Pcr::headNumber] == head &&
                       body[Pcr::siteNumber] == site && CountAt(body, Pcr::retestCount) == unknownCount &&
                       CountAt(body, Pcr::abortCount) == unknownCount &&
                       CountAt(body, Pcr::functionalCount) == unknownCount && end.kind == mrr &&
                       end.length == mrrLength;
    return known ? PlaceAtPcr(counts) : std::nullopt;
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
