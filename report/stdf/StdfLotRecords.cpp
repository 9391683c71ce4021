#include "StdfLotRecords.h"

#include "StdfFormat.h"
#include "StdfRecord.h"

#include "export/ModelAdapter.h"

#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ZYNSession.h>

#include <array>
#include <limits>

namespace ZYN::StdfLotRecords {

using namespace StdfFormat;

namespace {

const QStringView none;

using RecordMemory = std::array<char, StdfRecord::longest>;

QString ProductName(const UUTTest* test)
{
    const QSharedPointer<ProductType> type = test->GetProductType();
    return type ? type->GetName() : QString();
}

/// PART_FLG: failed (3), ended abnormally (2).
quint8 PartFlags(EN_ZYN_RESULT result)
{
    if (ModelAdapter::IsFailed(result))
        return 8;
    return ModelAdapter::EndedAbnormally(result) ? 4 : 0;
}

} // namespace

quint32 Seconds(const QDateTime& time)
{
    const qint64 seconds = time.isValid() ? time.toSecsSinceEpoch() : 0;
    return seconds >= 0 && seconds <= std::numeric_limits<quint32>::max() ? static_cast<quint32>(seconds) : 0;
}

StdfLotNames Names(const UUTTest* test)
{
    if (!test)
        return {};
    const QSharedPointer<ProductionLot> lot = test->GetProductionLot();
    const ZYNSession* const session = test->GetSession();
    return {lot ? lot->GetName() : QString(), ProductName(test),
            session ? session->GetMachineName() : QString()};
}

QString UnitIdent(const UUTTest* test)
{
    const QSharedPointer<UnitUnderTest> unit = test ? test->GetUnitUnderTest() : nullptr;
    return unit ? unit->GetIdentString() : QString();
}

QByteArray FileHeader(const UUTTest* test, const TestProgram* program)
{
    RecordMemory memory;
    StdfRecord record(memory.data());
    QByteArray header = record.Begin(far).U1(littleEndian).U1(version).Bytes().toByteArray();
    if (!test || !program)
        return header;

    const StdfLotNames names = Names(test);
    const ZYNSession* const session = test->GetSession();
    const quint32 startTime = Seconds(test->GetStartTime());
    record.Begin(mir)
        .U4(startTime) // SETUP_T
        .U4(startTime) // START_T
        .U1(1)         // STAT_NUM
        .C1('P')       // MODE_COD
        .C1(' ')       // RTST_COD
        .C1(' ')       // PROT_COD
        .U2(noBurnInTime)
        .C1(' ') // CMOD_COD
        .Cn(names.lotId)
        .Cn(names.partType)
        .Cn(names.nodeName)
        .Cn(none) // TSTR_TYP
        .Cn(program->GetName())
        .Cn(program->GetVersion())
        .Cn(none) // SBLOT_ID
        .Cn(session ? session->GetCurrentUserName() : QString());
    return header += record.Bytes();
}

QByteArrayView PartStart(char* memory)
{
    return StdfRecord(memory).Begin(pir).U1(head).U1(site).Bytes();
}

QByteArrayView PartResult(char* memory, const UUTTest* test, const UUTTest* topTest, quint32 tests)
{
    const QString ownProduct = ProductName(test);
    return StdfRecord(memory)
        .Begin(prr)
        .U1(head)
        .U1(site)
        .U1(PartFlags(test->GetResult()))
        .U2(static_cast<quint16>(tests)) // NUM_TEST
        .U2(0)                           // HARD_BIN
        .U2(noSoftBin)
        .I2(noCoordinate)
        .I2(noCoordinate)
        .U4(static_cast<quint32>(test->GetDuration_ms()))
        .Cn(UnitIdent(test))
        .Cn(ownProduct.isEmpty() ? ProductName(topTest) : ownProduct)
        .Bytes();
}

QByteArray Closing(quint32 partCount, quint32 goodCount, std::optional<quint32> finishTime)
{
    RecordMemory memory;
    StdfRecord record(memory.data());
    QByteArray closing = record.Begin(pcr)
                             .U1(head)
                             .U1(site)
                             .U4(partCount)
                             .U4(unknownCount) // RTST_CNT
                             .U4(unknownCount) // ABRT_CNT
                             .U4(goodCount)
                             .U4(unknownCount) // FUNC_CNT
                             .Bytes()
                             .toByteArray();
    if (finishTime)
        closing += record.Begin(mrr).U4(*finishTime).Bytes();
    return closing;
}

} // namespace ZYN::StdfLotRecords
