#include "Reader.h"

#include "GzipDevice.h"
#include "RecordTypes.h"
#include "Texts.h"

#include <QtCore/QIODevice>
#include <QtCore/QtEndian>

#include <cstring>

namespace ZYN::Stdf {

namespace {

constexpr qsizetype headerSize = 4;
/// Several of the largest records.
constexpr qsizetype bufferSize = 256 * 1024;

QString NameOf(const RawRecord& record)
{
    const RecordType* const type = FindRecordType(record.type, record.subType);
    return type ? QString::fromLatin1(type->name)
                : Texts::tr("type %1, subtype %2")
                      .arg(QString::number(record.type), QString::number(record.subType));
}

} // namespace

Reader::Reader(QIODevice* device)
    : source(device)
    , buffer(bufferSize, Qt::Uninitialized)
{
    if (GzipDevice::IsGzip(device->peek(GzipDevice::MarkSize))) {
        gzip = std::make_unique<GzipDevice>(device);
        source = gzip.get();
    }
}

Reader::~Reader() = default;

// The next bytes, fewer at the end of the file.
QByteArrayView Reader::Look(qsizetype count)
{
    if (end - begin < count) {
        std::memmove(buffer.data(), buffer.data() + begin, size_t(end - begin));
        end -= begin;
        begin = 0;
        while (end < count) {
            const qint64 more = source->read(buffer.data() + end, buffer.size() - end);
            if (more <= 0)
                break;
            end += more;
        }
    }
    return {buffer.constData() + begin, qMin(count, end - begin)};
}

bool Reader::Fail(const QString& text)
{
    const bool broken = gzip && gzip->HasFailed();
    fault = Fault{offset, broken ? gzip->errorString() : text};
    return false;
}

bool Reader::Next(RawRecord& record)
{
    if (fault)
        return false;
    const QByteArrayView header = Look(headerSize);
    if (header.isEmpty())
        return gzip && gzip->HasFailed() ? Fail({}) : false;
    if (header.size() < headerSize && afterZeros && header.count('\0') == header.size())
        return false; // the rest of zero bytes up to the end
    if (header.size() < headerSize)
        return Fail(Texts::tr("the file ends inside a record header"));
    // A FAR has two bytes of data: its length tells the order.
    if (offset == 0)
        bigEndian = header == QByteArrayView("\x00\x02\x00\x0a", headerSize);

    const quint16 length =
        bigEndian ? qFromBigEndian<quint16>(header.data()) : qFromLittleEndian<quint16>(header.data());
    record.offset = offset;
    record.type = static_cast<quint8>(header[2]);
    record.subType = static_cast<quint8>(header[3]);
    afterZeros = length == 0 && record.type == 0 && record.subType == 0;
    const QByteArrayView body = Look(headerSize + length).sliced(headerSize);
    record.body.resize(body.size());
    std::memcpy(record.body.data(), body.data(), size_t(body.size()));
    if (body.size() < length)
        return Fail(Texts::tr("the file ends inside a record: %1, %2 of %3 bytes")
                        .arg(NameOf(record), QString::number(body.size()), QString::number(length)));
    begin += headerSize + length;
    offset += headerSize + length;
    return true;
}

} // namespace ZYN::Stdf
