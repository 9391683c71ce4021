#pragma once

#include <QtCore/QtGlobal>

/// What reader and writer of lot files agree on: kinds of records, lengths and offsets of fields. All numbers
/// are little-endian. Source: the STDF V4 standard.
///
/// A record is a header (two bytes for the length of its body, type, subtype) and its body. A lot with one
/// part that passed one test, as bytes in hexadecimal:
///
///     02 00 00 0a  02 04                            FAR: little-endian, version 4
///     .. .. 01 0a  SETUP_T(4) START_T(4) 01 ...     MIR: the lot's names begin 15 bytes behind the header
///     02 00 05 0a  01 01                            PIR: head 1, site 1
///     .. .. 0f 0a  01 00 00 00 ...                  PTR: test number 1, one for each measurement
///     .. .. 05 14  01 01 00 01 00 ...               PRR: one test
///     16 00 01 1e  01 01  01 00 00 00  ff ff ff ff  ff ff ff ff  01 00 00 00  ff ff ff ff
///                                                   PCR: one part, one of them good; the rest is unknown
///     04 00 01 14  FINISH_T(4)                      MRR
///
/// The next part is written over PCR and MRR, from PIR to a new PCR and MRR.
namespace ZYN::StdfFormat {

constexpr qint64 headerSize = 4;

struct RecordKind {
    quint8 type = 0;
    quint8 subType = 0;
    bool operator==(const RecordKind&) const = default;
};
constexpr RecordKind far{0, 10};  ///< how the file is written
constexpr RecordKind mir{1, 10};  ///< the lot
constexpr RecordKind mrr{1, 20};  ///< the end of the lot
constexpr RecordKind pcr{1, 30};  ///< counts of parts
constexpr RecordKind pir{5, 10};  ///< a part begins
constexpr RecordKind prr{5, 20};  ///< a part ends
constexpr RecordKind ptr{15, 10}; ///< one measurement of a part

constexpr quint8 littleEndian = 2;
constexpr quint8 version = 4;
/// What this library writes for everything.
constexpr quint8 head = 1;
constexpr quint8 site = 1;

constexpr quint32 unknownCount = 4294967295U;
constexpr quint16 noSoftBin = 65535;
constexpr quint16 noBurnInTime = 65535;
constexpr qint16 noCoordinate = -32768;

/// Where the body of a MIR has LOT_ID, PART_TYP and NODE_NAM, texts with their length in a byte: behind two
/// times, STAT_NUM, three codes, BURN_TIM and one more code.
constexpr qsizetype mirNames = 4 + 4 + 1 + 3 + 2 + 1;

/// Offsets in the body of a PCR. A count is 4 bytes; those behind PART_CNT may be missing.
namespace Pcr {
constexpr qsizetype headNumber = 0;
constexpr qsizetype siteNumber = 1;
constexpr qsizetype partCount = 2;
constexpr qsizetype retestCount = 6;
constexpr qsizetype abortCount = 10;
constexpr qsizetype goodCount = 14;
constexpr qsizetype functionalCount = 18;
constexpr qsizetype length = 22;
} // namespace Pcr

/// The body of an MRR that holds its time only.
constexpr qsizetype mrrLength = 4;

} // namespace ZYN::StdfFormat
