#pragma once

#include "Reader.h"
#include "RecordTypes.h"

#include <QtCore/QList>
#include <QtCore/QVariant>

namespace ZYN::Stdf {

/// A record with its fields.
///
/// Values stand in the order of the type's fields; fields that the file leaves out at the end are missing
/// at the end. Integers and flags are `int` or `uint`, R4 is `float`, texts are `QString` (from Latin-1), Bn
/// is `QByteArray`, Dn a `QString` of '0' and '1' from the first bit on, arrays are `QVariantList`.
struct Record {
    /// Null for a type that the standard does not have: nothing is decoded then.
    const RecordType* type = nullptr;
    qint64 offset = 0;
    QList<QVariant> values;
    /// What is wrong with the record's length; empty when nothing is.
    QString problem;

    /// What is wrong, with the record's name in front; nothing when nothing is.
    std::optional<Fault> Damage() const;
    bool Is(const char* name) const;
    /// The field's value; invalid when the record ends before it or has no such field.
    QVariant Value(const char* field) const;
    uint Number(const char* field) const { return Value(field).toUInt(); }
    QString Text(const char* field) const { return Value(field).toString(); }
    /// The first field whose text has characters beyond ASCII; null when there is none.
    const FieldType* BeyondAscii() const;
    /// Whether it is the result of a part or of a test that did not pass.
    bool HasFailed() const;
};

struct LengthFault;

/// The fault for people; empty for none.
QString Text(const LengthFault& fault);
/// A problem with the record's name in front.
Fault DamageOf(qint64 offset, const RecordType& type, const QString& problem);

/// Decodes the fields of a record. Who does not keep them walks through them (`WalkFields`), which is faster.
Record Decode(const RawRecord& raw, bool bigEndian);

} // namespace ZYN::Stdf
