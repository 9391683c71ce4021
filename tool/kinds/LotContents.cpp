#include "kinds/LotContents.h"

#include "stdf/Reader.h"

#include <QtCore/QCryptographicHash>
#include <QtCore/QIODevice>

namespace ZYN::Tool {

namespace {

constexpr auto algorithm = QCryptographicHash::Blake2b_256;
constexpr int partType = 5;
constexpr int startSubType = 10;
constexpr int resultSubType = 20;

} // namespace

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

} // namespace ZYN::Tool
