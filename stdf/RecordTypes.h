#pragma once

#include <QtCore/QtGlobal>

#include <span>

namespace ZYN::Stdf {

/// Data types of the fields. Those with a length of their own carry it in the file.
enum class FieldKind {
    U1,
    U2,
    U4,
    I1,
    I2,
    I4,
    R4,
    B1, ///< eight flags
    C1,
    Cn, ///< text, length in one byte
    Bn, ///< bytes, length in one byte
    Dn, ///< bits, number of bits in two bytes
    N1, ///< half bytes, two in a byte, the low half first; only as an array
    Vn  ///< values with a type code in front of each
};

struct FieldType {
    const char* name;
    FieldKind kind;
    /// Name of the field with the number of elements; null for a field that is no array.
    const char* count = nullptr;
};

struct RecordType {
    const char* name;
    quint8 type;
    quint8 subType;
    std::span<const FieldType> fields;
    /// How many fields a record has at least. The standard lets those out at the end that have a value for
    /// "missing"; of a MIR's texts only the first is asked for, as an empty one says no more.
    qsizetype required;
};

/// The record types of STDF V4 with their fields in file order.
/// Source: the STDF V4 standard.
std::span<const RecordType> RecordTypes();

/// Null for a type that the standard does not have.
const RecordType* FindRecordType(quint8 type, quint8 subType);

} // namespace ZYN::Stdf
