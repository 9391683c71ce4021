#include "lotfile/LotParts.h"

#include "lotfile/LotTexts.h"

#include "stdf/Decoder.h"
#include "stdf/Reader.h"

#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ZYNSession.h>
#include <ZYNPersistence/CExportServiceReport.h>

#include <QtCore/QFile>
#include <QtCore/QtEndian>

#include <algorithm>

#include <sys/mman.h>

namespace ZYN {

namespace {

// Where the counts stand in a PCR: behind its header, HEAD_NUM and SITE_NUM; RTST_CNT and ABRT_CNT between
// them.
constexpr qsizetype partCountAt = 4 + 2;
constexpr qsizetype goodCountAt = partCountAt + 12;

bool HasProgram(const TestResultSet* set)
{
    return set->GetTestProgram() != nullptr;
}

// The unit that the first part is of, in the order of the file.
const UUTTest* FirstTested(const UUTTest* test)
{
    const QList<TestResultSet*> sets = test->GetResultSets();
    if (std::any_of(sets.begin(), sets.end(), HasProgram))
        return test;
    for (const auto& item : test->GetUUTTests())
        if (const UUTTest* const tested = FirstTested(item.get()))
            return tested;
    return nullptr;
}

QString IdentOf(const UUTTest* test)
{
    const auto unit = test ? test->GetUnitUnderTest() : nullptr;
    return unit ? unit->GetIdentString() : QString();
}

StdfLotNames NamesOf(const UUTTest* test)
{
    const auto lot = test->GetProductionLot();
    const auto product = test->GetProductType();
    const ZYNSession* const session = test->GetSession();
    return {lot ? lot->GetName() : QString(), product ? product->GetName() : QString(),
            session ? session->GetMachineName() : QString()};
}

QString WhyNoPart(const UUTTest* unit)
{
    const QList<TestResultSet*> sets = unit->GetResultSets();
    if (std::none_of(sets.begin(), sets.end(), HasProgram))
        return LotTexts::tr("no test program ran");
    const QList<TestResult*>& results = sets.constFirst()->GetResults();
    if (std::none_of(results.begin(), results.end(), [](const TestResult* result) {
            return qobject_cast<const TestMeasurement*>(result->GetComponent().get());
        }))
        return LotTexts::tr("no measurement has a result");
    return LotTexts::tr("no measurement is meant for reports (--all adds them)");
}

// A unit has a part of its ident, or none: what the file holds decides.
void CountUnitsWithout(const UUTTest* test, QStringList& partIds, QMap<QString, int>& without)
{
    const QList<QSharedPointer<UUTTest>> items = test->GetUUTTests();
    for (const auto& item : items)
        CountUnitsWithout(item.get(), partIds, without);
    const QString ident = QString::fromLatin1(IdentOf(test).left(255).toLatin1());
    if (!partIds.removeOne(ident) && items.isEmpty())
        ++without[WhyNoPart(test)];
}

void TakeTexts(const Stdf::Record& record, LotParts& parts)
{
    const Stdf::FieldType* const field = record.BeyondAscii();
    if (field && parts.beyondAscii.isEmpty())
        parts.beyondAscii =
            QStringLiteral("%1 '%2'").arg(QLatin1StringView(field->name), record.Text(field->name));
}

LotNames NamesOf(const Stdf::Record& mir)
{
    return {mir.Text("LOT_ID"), mir.Text("PART_TYP"), mir.Text("NODE_NAM")};
}

// Cuts the file of one report into its pieces.
LotParts Split(QFile& file, QStringList& partIds)
{
    LotParts parts;
    const QByteArray bytes = file.readAll();
    file.seek(0);
    Stdf::Reader reader(&file);
    qint64 start = 0;
    for (Stdf::RawRecord raw; reader.Next(raw);) {
        const Stdf::Record record = Stdf::Decode(raw, false);
        TakeTexts(record, parts);
        if (record.Is("MIR")) {
            parts.names = NamesOf(record);
            parts.header = bytes.first(reader.Offset());
        } else if (record.Is("PIR")) {
            start = raw.offset;
        } else if (record.Is("PRR")) {
            parts.parts.append(
                {bytes.sliced(start, reader.Offset() - start), record.Number("PART_FLG") == 0});
            partIds.append(record.Text("PART_ID"));
        } else if (record.Is("PCR")) {
            parts.good = record.Number("GOOD_CNT");
            parts.closing = bytes.sliced(raw.offset);
        }
    }
    return parts;
}

} // namespace

std::optional<LotNames> LotNames::Of(QIODevice* file)
{
    file->seek(0);
    Stdf::Reader reader(file);
    for (Stdf::RawRecord raw; reader.Next(raw);) {
        const Stdf::Record record = Stdf::Decode(raw, reader.IsBigEndian());
        if (record.Is("MIR"))
            return NamesOf(record);
    }
    return std::nullopt;
}

std::optional<LotParts> MakeLotParts(UUTTest* test, bool ignoreReportFlag)
{
    // A file in memory that the export opens by name.
    QFile file;
    const int descriptor = memfd_create("zyn parts", MFD_CLOEXEC);
    if (descriptor < 0 || !file.open(descriptor, QIODevice::ReadOnly, QFile::AutoCloseHandle))
        return std::nullopt;
    {
        CExportServiceReport service;
        service.SetFormat(QStringLiteral("STDF"));
        service.SetOutputFileName(QStringLiteral("/proc/self/fd/%1").arg(descriptor));
        service.SetIgnoreReportFlag(ignoreReportFlag);
        if (!service.Export(test) || !service.OutputComplete())
            return std::nullopt;
    }
    QStringList partIds;
    LotParts parts = Split(file, partIds);
    parts.modelNames = NamesOf(test);
    parts.ident = IdentOf(FirstTested(test));
    CountUnitsWithout(test, partIds, parts.without);
    return parts;
}

QByteArray ClosingWith(const LotParts& parts, quint32 partCount, quint32 goodCount)
{
    QByteArray closing = parts.closing;
    qToLittleEndian(partCount, closing.data() + partCountAt);
    qToLittleEndian(goodCount, closing.data() + goodCountAt);
    return closing;
}

} // namespace ZYN
