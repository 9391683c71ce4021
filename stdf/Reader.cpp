#include "Reader.h"

#include "GzipDevice.h"
#include "RecordTypes.h"
#include "Texts.h"

#include <QtCore/QIODevice>
#include <QtCore/QtEndian>

namespace ZYN::Stdf {

namespace {

constexpr qint64 headerSize = 4;

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
{
    if (GzipDevice::IsGzip(device->peek(GzipDevice::MarkSize))) {
        gzip = std::make_unique<GzipDevice>(device);
        source = gzip.get();
    }
}

Reader::~Reader() = default;

void Reader::RecogniseByteOrder(const QByteArray& header)
{
    // A FAR has two bytes of data: its length tells the order.
    bigEndian = header == QByteArrayLiteral("\x00\x02\x00\x0a");
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
    const QByteArray header = source->read(headerSize);
    if (header.isEmpty())
        return gzip && gzip->HasFailed() ? Fail({}) : false;
    if (header.size() < headerSize && afterZeros && header.count('\0') == header.size())
        return false; // the rest of zero bytes up to the end
    if (header.size() < headerSize)
        return Fail(Texts::tr("the file ends inside a record header"));
    if (offset == 0)
        RecogniseByteOrder(header);

    const quint16 length =
        bigEndian ? qFromBigEndian<quint16>(header.data()) : qFromLittleEndian<quint16>(header.data());
    record.offset = offset;
    record.type = static_cast<quint8>(header.at(2));
    record.subType = static_cast<quint8>(header.at(3));
    afterZeros = header.count('\0') == headerSize;
    record.body = source->read(length);
    if (record.body.size() < length)
        return Fail(Texts::tr("the file ends inside a record: %1, %2 of %3 bytes")
                        .arg(NameOf(record), QString::number(record.body.size()), QString::number(length)));
    offset += headerSize + length;
    return true;
}

} // namespace ZYN::Stdf
