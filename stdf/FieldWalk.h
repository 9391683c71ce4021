#pragma once

#include "RecordTypes.h"

#include <QtCore/QByteArrayView>
#include <QtCore/QtEndian>

#include <array>
#include <bit>
#include <cstring>

namespace ZYN::Stdf {

/// Takes values from a record's body. After the first value that does not fit nothing more is taken.
class Cursor {
public:
    Cursor(QByteArrayView body, bool bigEndian)
        : at(body.data())
        , end(body.data() + body.size())
        , big(bigEndian)
    {
    }

    bool AtEnd() const { return at == end; }
    bool Failed() const { return failed; }
    qsizetype Left() const { return end - at; }

    template <class Number>
    Number Take()
    {
        const char* const data = Bytes(sizeof(Number));
        if (!data)
            return {};
        return big ? qFromBigEndian<Number>(data) : qFromLittleEndian<Number>(data);
    }

    /// Null where so many are not there.
    const char* Bytes(qsizetype count)
    {
        if (failed || count > Left()) {
            failed = true;
            return nullptr;
        }
        at += count;
        return at - count;
    }

    /// Bytes with their number in front.
    QByteArrayView Counted()
    {
        const qsizetype count = Take<quint8>();
        const char* const data = Bytes(count);
        return data ? QByteArrayView(data, count) : QByteArrayView();
    }

private:
    const char* at;
    const char* end;
    bool big;
    bool failed = false;
};

/// What is wrong with a record's length.
struct LengthFault {
    enum Kind { None, EndsBefore, EndsInside, BytesFollow };
    Kind kind = None;
    const FieldType* field = nullptr; ///< that is missing or torn
    qsizetype bytes = 0;              ///< behind the last field
};

/// Tells a sink the values of a record straight from its bytes, without making anything of them. A sink has
///   Begin(field)                    a field comes,
///   Drop()                          the record ends inside it: nothing that came since Begin counts,
///   BeginArray(), EndArray()        around the elements of an array,
///   Unsigned(uint), Signed(int), Real(float), Real(double), Text(view), Bytes(view), Nothing(),
///   Bits(data, count)               a value; bits from the first one on, the low bit of a byte first.
template <class Sink>
class FieldWalk {
public:
    FieldWalk(QByteArrayView body, bool bigEndian, Sink& sink)
        : m_cursor(body, bigEndian)
        , m_sink(sink)
    {
    }

    LengthFault Through(const RecordType& type)
    {
        std::array<quint16, mostFields> numbers{}; // those that say how long an array is
        const std::span<const FieldType> fields = type.fields;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            const FieldType& field = fields[i];
            if (m_cursor.AtEnd())
                return {qsizetype(i) < type.required ? LengthFault::EndsBefore : LengthFault::None, &field};
            m_sink.Begin(field);
            if (field.count)
                Array(field.kind, numbers[IndexOf(fields, field.count)]);
            else if (field.kind == FieldKind::U2)
                m_sink.Unsigned(numbers[i] = m_cursor.Take<quint16>());
            else if (field.kind == FieldKind::U1)
                m_sink.Unsigned(numbers[i] = m_cursor.Take<quint8>());
            else
                Value(field.kind);
            if (m_cursor.Failed()) {
                m_sink.Drop();
                return {LengthFault::EndsInside, &field};
            }
        }
        if (m_cursor.AtEnd())
            return {};
        return {LengthFault::BytesFollow, nullptr, m_cursor.Left()};
    }

private:
    static constexpr std::size_t mostFields = 40;

    static std::size_t IndexOf(std::span<const FieldType> fields, const char* name)
    {
        std::size_t index = 0;
        while (std::strcmp(fields[index].name, name) != 0)
            ++index;
        return index;
    }

    void Array(FieldKind kind, uint count)
    {
        m_sink.BeginArray();
        if (kind == FieldKind::N1) {
            const char* const data = m_cursor.Bytes((count + 1) / 2);
            for (uint i = 0; data && i < count; ++i)
                m_sink.Unsigned(uint(static_cast<quint8>(data[i / 2]) >> (i % 2 * 4) & 0x0f));
        } else {
            for (uint i = 0; i < count && !m_cursor.Failed(); ++i)
                Value(kind);
        }
        m_sink.EndArray();
    }

    void Bits()
    {
        const int count = m_cursor.Take<quint16>();
        if (const char* const data = m_cursor.Bytes((count + 7) / 8))
            m_sink.Bits(data, count);
    }

    void Value(FieldKind kind)
    {
        switch (kind) {
        case FieldKind::U1:
        case FieldKind::B1:
            return m_sink.Unsigned(m_cursor.Take<quint8>());
        case FieldKind::U2:
            return m_sink.Unsigned(m_cursor.Take<quint16>());
        case FieldKind::U4:
            return m_sink.Unsigned(m_cursor.Take<quint32>());
        case FieldKind::I1:
            return m_sink.Signed(m_cursor.Take<qint8>());
        case FieldKind::I2:
            return m_sink.Signed(m_cursor.Take<qint16>());
        case FieldKind::I4:
            return m_sink.Signed(m_cursor.Take<qint32>());
        case FieldKind::R4:
            return m_sink.Real(std::bit_cast<float>(m_cursor.Take<quint32>()));
        case FieldKind::C1:
            return m_sink.Text({m_cursor.Bytes(1), m_cursor.Failed() ? 0 : 1});
        case FieldKind::Cn:
            return m_sink.Text(m_cursor.Counted());
        case FieldKind::Bn:
            return m_sink.Bytes(m_cursor.Counted());
        case FieldKind::Dn:
            return Bits();
        case FieldKind::Vn:
            return Generic();
        case FieldKind::N1: // halves of bytes are taken by the array
            break;
        }
    }

    /// A value of a generic record: a type code, then the value.
    void Generic()
    {
        switch (m_cursor.Take<quint8>()) {
        case 0: // padding without a value
            return m_sink.Nothing();
        case 1:
            return Value(FieldKind::U1);
        case 2:
            return Value(FieldKind::U2);
        case 3:
            return Value(FieldKind::U4);
        case 4:
            return Value(FieldKind::I1);
        case 5:
            return Value(FieldKind::I2);
        case 6:
            return Value(FieldKind::I4);
        case 7:
            return Value(FieldKind::R4);
        case 8:
            return m_sink.Real(std::bit_cast<double>(m_cursor.Take<quint64>()));
        case 10:
            return Value(FieldKind::Cn);
        case 11:
            return Value(FieldKind::Bn);
        case 12:
            return Bits();
        case 13:
            return m_sink.Unsigned(uint(m_cursor.Take<quint8>() & 0x0f));
        default:
            m_cursor.Bytes(m_cursor.Left() + 1); // the length of an unknown type is unknown
        }
    }

    Cursor m_cursor;
    Sink& m_sink;
};

/// \return what is wrong with the record's length
template <class Sink>
LengthFault WalkFields(const RecordType& type, QByteArrayView body, bool bigEndian, Sink& sink)
{
    return FieldWalk<Sink>(body, bigEndian, sink).Through(type);
}

} // namespace ZYN::Stdf
