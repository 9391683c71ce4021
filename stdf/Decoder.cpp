#include "Decoder.h"

#include "FieldWalk.h"
#include "Texts.h"

#include <algorithm>
#include <cstring>

namespace ZYN::Stdf {

namespace {

/// Makes a `QVariant` of each value.
class VariantSink {
public:
    explicit VariantSink(QVariantList& list)
        : values(list)
    {
    }

    void Begin(const FieldType&) { before = values.size(); }
    void Drop()
    {
        inArray = false;
        values.resize(before);
    }
    void BeginArray()
    {
        inArray = true;
        array.clear();
    }
    void EndArray()
    {
        inArray = false;
        Add(array);
    }
    void Unsigned(uint number) { Add(number); }
    void Signed(int number) { Add(number); }
    void Real(float number) { Add(number); }
    void Real(double number) { Add(number); }
    void Text(QByteArrayView text) { Add(QString::fromLatin1(text)); }
    void Bytes(QByteArrayView bytes) { Add(bytes.toByteArray()); }
    void Bits(const char* data, int count)
    {
        QString bits(count, u'0');
        for (int bit = 0; bit < count; ++bit)
            if ((data[bit / 8] >> (bit % 8) & 1) != 0)
                bits[bit] = u'1';
        Add(bits);
    }
    void Nothing() { Add({}); }

private:
    void Add(QVariant value) { (inArray ? array : values).append(std::move(value)); }

    QVariantList& values;
    QVariantList array;
    qsizetype before = 0;
    bool inArray = false;
};

} // namespace

Fault DamageOf(qint64 offset, const RecordType& type, const QString& problem)
{
    return {offset, QStringLiteral("%1: %2").arg(QLatin1StringView(type.name), problem)};
}

std::optional<Fault> Record::Damage() const
{
    return problem.isEmpty() ? std::nullopt : std::optional(DamageOf(offset, *type, problem));
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

QString Text(const LengthFault& fault)
{
    switch (fault.kind) {
    case LengthFault::None:
        break;
    case LengthFault::EndsBefore:
        return Texts::tr("the record ends before the field %1").arg(QLatin1StringView(fault.field->name));
    case LengthFault::EndsInside:
        return Texts::tr("the record ends inside the field %1").arg(QLatin1StringView(fault.field->name));
    case LengthFault::BytesFollow:
        return Texts::tr("%n bytes follow the last field", nullptr, int(fault.bytes));
    }
    return {};
}

Record Decode(const RawRecord& raw, bool bigEndian)
{
    Record record;
    record.type = FindRecordType(raw.type, raw.subType);
    record.offset = raw.offset;
    if (!record.type)
        return record;

    record.values.reserve(static_cast<qsizetype>(record.type->fields.size()));
    VariantSink sink(record.values);
    record.problem = Text(WalkFields(*record.type, raw.body, bigEndian, sink));
    return record;
}

} // namespace ZYN::Stdf
