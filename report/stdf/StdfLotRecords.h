#pragma once

#include "StdfLotNames.h"

#include <QtCore/QByteArray>
#include <QtCore/QDateTime>

#include <optional>

namespace ZYN {

class TestProgram;
class UUTTest;

/// The records of a lot file around the test records, complete and ready to be written.
namespace StdfLotRecords {

/// Seconds since 1970 as records hold them; 0 for no time and for one that does not fit.
quint32 Seconds(const QDateTime& time);
/// What the lot file of a test is known by; empty texts without a test.
StdfLotNames Names(const UUTTest* test);
QString UnitIdent(const UUTTest* test);

/// FAR and, when there is a test, MIR.
QByteArray FileHeader(const UUTTest* test, const TestProgram* program);
/// PIR.
/// \param memory room for `StdfRecord::longest` bytes, where the record is made
QByteArrayView PartStart(char* memory);
/// PRR of a unit or a panel item.
/// \param memory as for `PartStart`
/// \param topTest the test of the whole unit; gives the product type where the item has none
/// \param tests number of test records of the part
QByteArrayView PartResult(char* memory, const UUTTest* test, const UUTTest* topTest, quint32 tests);
/// PCR and, with a time, MRR.
QByteArray Closing(quint32 partCount, quint32 goodCount, std::optional<quint32> finishTime);

} // namespace StdfLotRecords

} // namespace ZYN
