#include "Decoder.h"

#include "Texts.h"

#include <QtCore/QtEndian>

#include <algorithm>
#include <bit>
#include <cstring>

namespace ZYN::Stdf {

namespace {

/// Takes values from a record's body. After the first value that does not fit nothing more is taken.
class Cursor {
public:
    Cursor(const QByteArray& body, bool bigEndian)
        : bytes(body)
        , big(bigEndian)
    {
    }

    bool AtEnd() const { return at >= bytes.size(); }
    bool Failed() const { return failed; }
    qsizetype Left() const { return bytes.size() - at; }

    template <class Number>
    Number Take()
    {
        const char* const data = Bytes(sizeof(Number));
        if (!data)
            return {};
        return big ? qFromBigEndian<Number>(data) : qFromLittleEndian<Number>(data);
    }

    const char* Bytes(qsizetype count)
    {
        if (failed || count > Left()) {
            failed = true;
            return nullptr;
        }
        at += count;
        return bytes.constData() + at - count;
    }

private:
    const QByteArray& bytes;
    bool big;
    bool failed = false;
    qsizetype at = 0;
};

QVariant TakeText(Cursor& cursor)
{
    const qsizetype count = cursor.Take<quint8>();
    const char* const data = cursor.Bytes(count);
    return data ? QString::fromLatin1(data, count) : QString();
}

QVariant TakeBytes(Cursor& cursor)
{
    const qsizetype count = cursor.Take<quint8>();
    const char* const data = cursor.Bytes(count);
    return data ? QByteArray(data, count) : QByteArray();
}

QVariant TakeBits(Cursor& cursor)
{
    const int count = cursor.Take<quint16>();
    const char* const data = cursor.Bytes((count + 7) / 8);
    QString bits;
    for (int bit = 0; data && bit < count; ++bit)
        bits += (data[bit / 8] >> (bit % 8) & 1) != 0 ? u'1' : u'0';
    return bits;
}

/// A value of a generic record: a type code, then the value.
QVariant TakeGeneric(Cursor& cursor)
{
    switch (cursor.Take<quint8>()) {
    case 0: // padding without a value
        return QVariant();
    case 1:
        return uint(cursor.Take<quint8>());
    case 2:
        return uint(cursor.Take<quint16>());
    case 3:
        return uint(cursor.Take<quint32>());
    case 4:
        return int(cursor.Take<qint8>());
    case 5:
        return int(cursor.Take<qint16>());
    case 6:
        return int(cursor.Take<qint32>());
    case 7:
        return std::bit_cast<float>(cursor.Take<quint32>());
    case 8:
        return std::bit_cast<double>(cursor.Take<quint64>());
    case 10:
        return TakeText(cursor);
    case 11:
        return TakeBytes(cursor);
    case 12:
        return TakeBits(cursor);
    case 13:
        return uint(cursor.Take<quint8>() & 0x0f);
    default:
        cursor.Bytes(cursor.Left() + 1); // the length of an unknown type is unknown
        return {};
    }
}

QVariant TakeValue(Cursor& cursor, FieldKind kind)
{
    switch (kind) {
    case FieldKind::U1:
    case FieldKind::B1:
        return uint(cursor.Take<quint8>());
    case FieldKind::U2:
        return uint(cursor.Take<quint16>());
    case FieldKind::U4:
        return uint(cursor.Take<quint32>());
    case FieldKind::I1:
        return int(cursor.Take<qint8>());
    case FieldKind::I2:
        return int(cursor.Take<qint16>());
    case FieldKind::I4:
        return int(cursor.Take<qint32>());
    case FieldKind::R4:
        return std::bit_cast<float>(cursor.Take<quint32>());
    case FieldKind::C1: {
        const char* const data = cursor.Bytes(1);
        return data ? QString::fromLatin1(data, 1) : QString();
    }
    case FieldKind::Cn:
        return TakeText(cursor);
    case FieldKind::Bn:
        return TakeBytes(cursor);
    case FieldKind::Dn:
        return TakeBits(cursor);
    case FieldKind::Vn:
        return TakeGeneric(cursor);
    case FieldKind::N1: // halves of bytes are taken by the array
        break;
    }
    return {};
}

QVariantList TakeHalves(Cursor& cursor, uint count)
{
    QVariantList halves;
    const char* const data = cursor.Bytes((count + 1) / 2);
    for (uint i = 0; data && i < count; ++i)
        halves.append(uint(static_cast<quint8>(data[i / 2]) >> (i % 2 * 4) & 0x0f));
    return halves;
}

QVariantList TakeArray(Cursor& cursor, FieldKind kind, uint count)
{
    if (kind == FieldKind::N1)
        return TakeHalves(cursor, count);
    QVariantList elements;
    for (uint i = 0; i < count && !cursor.Failed(); ++i)
        elements.append(TakeValue(cursor, kind));
    return elements;
}

} // namespace

std::optional<Fault> Record::Damage() const
{
    if (problem.isEmpty())
        return std::nullopt;
    return Fault{offset, QStringLiteral("%1: %2").arg(QLatin1StringView(type->name), problem)};
}

bool Record::Is(const char* name) const
{
    return type && std::strcmp(type->name, name) == 0;
}

QVariant Record::Value(const char* field) const
{
    for (qsizetype i = 0; i < values.size(); ++i) {
        if (std::strcmp(type->fields[static_cast<size_t>(i)].name, field) == 0)
            return values.at(i);
    }
    return {};
}

const FieldType* Record::BeyondAscii() const
{
    for (qsizetype i = 0; i < values.size(); ++i) {
        const FieldType& field = type->fields[static_cast<size_t>(i)];
        if (field.kind != FieldKind::Cn || values.at(i).typeId() != QMetaType::QString)
            continue;
        const QString& text = *static_cast<const QString*>(values.at(i).constData());
        if (std::any_of(text.begin(), text.end(), [](QChar c) { return c.unicode() > 0x7f; }))
            return &field;
    }
    return nullptr;
}

bool Record::HasFailed() const
{
    constexpr uint partFailed = 1U << 3 | 1U << 2;
    constexpr uint testFailed = 1U << 7;
    return (Is("PRR") && Number("PART_FLG") & partFailed) ||
           ((Is("PTR") || Is("MPR") || Is("FTR")) && Number("TEST_FLG") & testFailed);
}

Record Decode(const RawRecord& raw, bool bigEndian)
{
    Record record;
    record.type = FindRecordType(raw.type, raw.subType);
    record.offset = raw.offset;
    if (!record.type)
        return record;

    Cursor cursor(raw.body, bigEndian);
    record.values.reserve(static_cast<qsizetype>(record.type->fields.size()));
    for (const FieldType& field : record.type->fields) {
        if (cursor.AtEnd()) {
            if (record.values.size() < record.type->required)
                record.problem =
                    Texts::tr("the record ends before the field %1").arg(QLatin1StringView(field.name));
            return record;
        }
        QVariant value = field.count ? QVariant(TakeArray(cursor, field.kind, record.Number(field.count)))
                                     : TakeValue(cursor, field.kind);
        if (cursor.Failed()) {
            record.problem =
                Texts::tr("the record ends inside the field %1").arg(QLatin1StringView(field.name));
            return record;
        }
        record.values.append(std::move(value));
    }
    if (!cursor.AtEnd())
        record.problem = Texts::tr("%n bytes follow the last field", nullptr, int(cursor.Left()));
    return record;
}

} // namespace ZYN::Stdf
