#include "lotfile/LotContents.h"

#include "stdf/Reader.h"

#include <QtCore/QBuffer>
#include <QtCore/QCryptographicHash>

namespace ZYN {

namespace {

constexpr auto algorithm = QCryptographicHash::Blake2b_256;
constexpr int partType = 5;
constexpr int startSubType = 10;
constexpr int resultSubType = 20;

} // namespace

bool LooksLikeLot(const QByteArray& head)
{
    QBuffer buffer;
    buffer.setData(head);
    buffer.open(QIODevice::ReadOnly);
    Stdf::RawRecord first;
    return Stdf::Reader(&buffer).Next(first) && first.type == 0 && first.subType == 10 &&
           first.body.size() == 2;
}

void LotContents::Read(QIODevice* file)
{
    m_parts.clear();
    file->seek(0);
    Stdf::Reader reader(file);
    QCryptographicHash sum(algorithm);
    for (Stdf::RawRecord raw; reader.Next(raw);) {
        if (raw.type == partType && raw.subType == startSubType)
            sum.reset();
        const char header[] = {char(raw.body.size() & 0xff), char(raw.body.size() >> 8), char(raw.type),
                               char(raw.subType)};
        sum.addData(QByteArrayView(header, sizeof header));
        sum.addData(raw.body);
        if (raw.type == partType && raw.subType == resultSubType)
            m_parts.insert(sum.result());
    }
}

void LotContents::Add(const QByteArray& part)
{
    m_parts.insert(QCryptographicHash::hash(part, algorithm));
}

bool LotContents::Hold(const QByteArray& part) const
{
    return m_parts.contains(QCryptographicHash::hash(part, algorithm));
}

} // namespace ZYN
