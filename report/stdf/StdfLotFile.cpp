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
    : m_device(lotDevice)
    , m_size(lotDevice->size())
    , m_zerosFrom(m_size)
{
}

std::optional<StdfLotFile::Header> StdfLotFile::HeaderAt(qint64 position)
{
    if (position + headerSize > m_size)
        return std::nullopt;
    if (position < m_windowStart || position + headerSize > m_windowStart + m_window.size()) {
        const bool follows = position - (m_windowStart + m_window.size()) < smallWindow;
        m_window.resize(follows ? largeWindow : smallWindow);
        m_windowStart = position;
        const qint64 count = m_device->seek(position) ? m_device->read(m_window.data(), m_window.size()) : 0;
        m_window.resize(qMax<qint64>(count, 0));
        if (m_window.size() < headerSize)
            return std::nullopt;
    }
    const Header header = Header::Of(position, m_window.constData() + (position - m_windowStart));
    if (header.length == 0 && header.kind == RecordKind() && position >= ZeroTail()) {
        m_size = position;
        return std::nullopt;
    }
    return header.End() <= m_size ? std::optional(header) : std::nullopt;
}

qint64 StdfLotFile::ZeroTail()
{
    while (!m_zeroTail) {
        const qint64 start = qMax<qint64>(0, m_zerosFrom - largeWindow);
        const QByteArray bytes = m_device->seek(start) ? m_device->read(m_zerosFrom - start) : QByteArray();
        const auto last = std::find_if(bytes.crbegin(), bytes.crend(), [](char c) { return c != 0; });
        if (last != bytes.crend() || start == 0)
            m_zeroTail = start + (bytes.crend() - last);
        m_zerosFrom = start;
    }
    return *m_zeroTail;
}

QByteArray StdfLotFile::BodyOf(const Header& header)
{
    return m_device->seek(header.Body()) ? m_device->read(header.length) : QByteArray();
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
    return position == m_size;
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
    const qint64 start = m_size - tailSize;
    if (start < 0 || !m_device->seek(start))
        return std::nullopt;
    const QByteArray tail = m_device->read(tailSize);
    if (tail.size() != tailSize)
        return std::nullopt;
    const Header counts = Header::Of(start, tail.constData());
    const Header end = Header::Of(m_size - mrrSize, tail.constData() + tailSize - mrrSize);
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
