#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QStringView>

namespace ZYN {

/// One STDF V4 record under construction. Numbers are little-endian, reals IEEE 754 single precision;
/// the header (REC_LEN, REC_TYP, REC_SUB) stands in front and its length is filled in by `Bytes`.
/// Format: "Standard Test Data Format (STDF) Specification", version 4.
///
/// The object keeps its memory over `Begin`, so that a run of many records allocates once.
class StdfRecord {
public:
    /// Starts a record and forgets the one before.
    StdfRecord& Begin(quint8 type, quint8 subType);

    StdfRecord& U1(quint8 value);
    StdfRecord& U2(quint16 value);
    StdfRecord& U4(quint32 value);
    StdfRecord& I1(qint8 value);
    StdfRecord& I2(qint16 value);
    StdfRecord& R4(float value);
    StdfRecord& C1(char value);
    /// A text with its length in front: the first 255 UTF-16 units, each as one Latin-1 byte; what
    /// Latin-1 cannot hold becomes '?'.
    StdfRecord& Cn(QStringView text);

    /// The whole record; valid until the next `Begin`.
    const QByteArray& Bytes();

private:
    template <class Number>
    StdfRecord& Append(Number value);

    QByteArray bytes;
};

} // namespace ZYN
