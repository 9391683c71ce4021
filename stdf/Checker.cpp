#include "Checker.h"

#include "FieldWalk.h"
#include "Texts.h"

namespace ZYN::Stdf {

namespace {

constexpr uint wholeHead = 255; // HEAD_NUM of counts over all heads and sites
constexpr std::pair<uint, uint> everywhere{wholeHead, 0};
constexpr uint unknownCount = 4294967295U;
constexpr uint vaxProcessor = 0;
constexpr uint bigEndianProcessor = 1;
constexpr uint lastKnownProcessor = 2;
constexpr uint failed = 1U << 3;
constexpr uint noVerdict = 1U << 4;
constexpr uint abnormalEnd = 1U << 2;

QString Place(uint head, uint site)
{
    return Texts::tr("head %1, site %2").arg(QString::number(head), QString::number(site));
}

/// Tells whether a record's texts go beyond ASCII; all else is passed over.
struct AsciiSink {
    bool isBeyondAscii = false;

    void Begin(const FieldType&) {}
    void Drop() {}
    void BeginArray() {}
    void EndArray() {}
    void Unsigned(uint) {}
    void Signed(int) {}
    void Real(double) {}
    void Text(QByteArrayView text)
    {
        for (const char c : text)
            isBeyondAscii |= static_cast<signed char>(c) < 0;
    }
    void Bytes(QByteArrayView) {}
    void Bits(const char*, int) {}
    void Nothing() {}
};

} // namespace

void Checker::AddFault(qint64 offset, const QString& text)
{
    if (++faults <= MaximumFindings)
        findings.append({offset, true, text});
}

void Checker::AddRemark(qint64 offset, const QString& text)
{
    if (++remarks <= MaximumFindings)
        findings.append({offset, false, text});
}

// What a power loss leaves at the end of a file that was growing; anywhere else they are records of a type
// that nobody knows. \return whether this record may be of that kind
bool Checker::TakeZeros(const RawRecord& raw)
{
    if (raw.type == 0 && raw.subType == 0 && raw.body.isEmpty()) {
        zerosAt = zeroRecords++ == 0 ? raw.offset : zerosAt;
        return true;
    }
    if (zeroRecords > 0) {
        unknownTypes[{0, 0}] += zeroRecords;
        zeroRecords = 0;
        Record zero;
        zero.offset = zerosAt;
        TakeInOrder(zero);
    }
    return false;
}

void Checker::TakeTexts(const Record& record)
{
    const FieldType* const field = record.BeyondAscii();
    if (field && ++beyondAscii == 1)
        firstBeyondAscii = {record.offset, false,
                            QStringLiteral("%1 %2 '%3'")
                                .arg(QLatin1StringView(record.type->name), QLatin1StringView(field->name),
                                     record.Text(field->name))};
}

// Most records are tests with nothing odd about them. \return whether this is one; else nothing was taken
bool Checker::TakeGoodTest(const RawRecord& raw, bool isBigEndian)
{
    constexpr quint8 tests = 15;
    constexpr qsizetype headAt = 4, siteAt = 5;
    const RecordType* const type =
        raw.type == tests && expected == Expected::Anything ? FindRecordType(raw.type, raw.subType) : nullptr;
    if (!type)
        return false;
    AsciiSink sink;
    if (WalkFields(*type, raw.body, isBigEndian, sink).kind != LengthFault::None || sink.isBeyondAscii)
        return false;
    const auto part =
        openParts.find({static_cast<quint8>(raw.body[headAt]), static_cast<quint8>(raw.body[siteAt])});
    if (part == openParts.end())
        return false;
    ++part->tests;
    return true;
}

void Checker::Take(const RawRecord& raw, bool isBigEndian)
{
    if (TakeZeros(raw) || TakeGoodTest(raw, isBigEndian))
        return;
    const Record record = Decode(raw, isBigEndian);
    TakeTexts(record);
    if (record.Is("FAR")) {
        TakeFar(raw, record);
        return;
    }
    if (const auto damage = record.Damage())
        AddFault(damage->offset, damage->text);
    if (!record.type)
        ++unknownTypes[{raw.type, raw.subType}];
    TakeInOrder(record);
}

void Checker::TakeFar(const RawRecord& raw, const Record& record)
{
    if (raw.offset != 0) {
        const bool ended = expected == Expected::Far || expected == Expected::Nothing;
        AddRemark(raw.offset, ended ? Texts::tr("a further stream begins here")
                                    : Texts::tr("a further stream begins here; the one before has no MRR"));
        EndStream(raw.offset);
    }
    if (record.values.size() < 2 || !record.problem.isEmpty())
        AddFault(raw.offset, Texts::tr("FAR: it has two bytes of data, not %1").arg(raw.body.size()));
    else if (record.Number("STDF_VER") != 4)
        AddFault(raw.offset, Texts::tr("FAR: version %1 instead of 4").arg(record.Number("STDF_VER")));
    else if (record.Number("CPU_TYPE") == vaxProcessor)
        AddRemark(raw.offset, Texts::tr("FAR: real numbers are in the VAX format and are not understood"));
    else if (record.Number("CPU_TYPE") > lastKnownProcessor)
        AddFault(raw.offset, Texts::tr("FAR: unknown CPU_TYPE %1").arg(record.Number("CPU_TYPE")));
    else if (!processor)
        processor = record.Number("CPU_TYPE");
    expected = Expected::Mir;
}

void Checker::TakeInOrder(const Record& record)
{
    const QString name = record.type ? QLatin1StringView(record.type->name) : Texts::tr("a record");
    if (expected == Expected::Far) {
        AddFault(record.offset, record.offset == 0
                                    ? Texts::tr("the file begins with %1, not with a FAR").arg(name)
                                    : Texts::tr("%1 follows the MRR").arg(name));
        expected = record.offset == 0 ? Expected::Mir : Expected::Nothing;
    }
    if (record.Is("MIR")) {
        if (expected == Expected::Anything)
            AddFault(record.offset, Texts::tr("a second MIR"));
        expected = Expected::Anything;
    } else if (expected == Expected::Mir && !record.Is("ATR")) {
        AddFault(record.offset, Texts::tr("%1 where the MIR is expected").arg(name));
        expected = Expected::Anything;
    }

    if (record.Is("PIR"))
        BeginPart(record);
    else if (record.Is("PTR") || record.Is("MPR") || record.Is("FTR"))
        TakeTest(record, name);
    else if (record.Is("PRR"))
        EndPart(record);
    else if (record.Is("HBR"))
        TakeBin(record, hardBins, "HBIN_NUM", "HBIN_CNT");
    else if (record.Is("SBR"))
        TakeBin(record, softBins, "SBIN_NUM", "SBIN_CNT");
    else if (record.Is("PCR"))
        TakeCounts(record);
    else if (record.Is("MRR")) {
        if (!hasCounts)
            AddRemark(record.offset, Texts::tr("MRR: there is no PCR before it"));
        EndStream(record.offset);
        expected = Expected::Far;
    }
}

void Checker::BeginPart(const Record& record)
{
    const HeadAndSite place{record.Number("HEAD_NUM"), record.Number("SITE_NUM")};
    if (openParts.contains(place))
        AddFault(record.offset,
                 Texts::tr("PIR: the part at %1 from offset %2 has no PRR")
                     .arg(Place(place.first, place.second), QString::number(openParts.value(place).offset)));
    openParts.insert(place, {record.offset, 0});
}

void Checker::TakeTest(const Record& record, const QString& name)
{
    const auto part = openParts.find({record.Number("HEAD_NUM"), record.Number("SITE_NUM")});
    if (part == openParts.end())
        AddFault(record.offset, Texts::tr("%1: test %2 at %3 belongs to no part: there is no PIR before it")
                                    .arg(name, QString::number(record.Number("TEST_NUM")),
                                         Place(record.Number("HEAD_NUM"), record.Number("SITE_NUM"))));
    else
        ++part->tests;
}

void Checker::EndPart(const Record& record)
{
    const HeadAndSite place{record.Number("HEAD_NUM"), record.Number("SITE_NUM")};
    const auto part = openParts.constFind(place);
    if (part == openParts.constEnd()) {
        AddFault(record.offset,
                 Texts::tr("PRR: there is no PIR before it at %1").arg(Place(place.first, place.second)));
    } else {
        // The field holds 16 bits; a tester may leave tests out of the file, but not have more in it.
        const uint stated = record.Number("NUM_TEST");
        if (part->tests <= 0xffff && stated < part->tests)
            AddFault(record.offset,
                     Texts::tr("PRR: NUM_TEST is %1, the part has %n tests", nullptr, int(part->tests))
                         .arg(stated));
        openParts.erase(part);
    }
    CountBin(hardBins, place, record.Number("HARD_BIN"));
    CountBin(softBins, place, record.Number("SOFT_BIN"));
    const bool isGood = !(record.Number("PART_FLG") & (failed | noVerdict | abnormalEnd));
    const auto count = [&](Counts& counts) {
        ++counts.parts;
        counts.good += isGood;
    };
    count(counted[everywhere]);
    if (place != everywhere)
        count(counted[place]);
}

void Checker::CountBin(QMap<Bin, uint>& bins, const HeadAndSite& place, uint number)
{
    if (tooManyBins)
        return;
    ++bins[{everywhere, number}];
    if (place != everywhere)
        ++bins[{place, number}];
    tooManyBins = bins.size() > MaximumBins;
}

void Checker::TakeBin(const Record& record, const QMap<Bin, uint>& seen, const char* number,
                      const char* count)
{
    const HeadAndSite place{record.Number("HEAD_NUM"), record.Number("SITE_NUM")};
    const uint parts = seen.value({place.first == wholeHead ? everywhere : place, record.Number(number)});
    // A part that was tested again counts once, so that there may be more of them than the count says.
    if (record.Number(count) > parts && !tooManyBins)
        AddFault(record.offset,
                 Texts::tr("%1: the count of bin %2 is %3, only %n parts are in it", nullptr, int(parts))
                     .arg(QLatin1StringView(record.type->name), QString::number(record.Number(number)),
                          QString::number(record.Number(count))));
}

void Checker::TakeCounts(const Record& record)
{
    hasCounts = true;
    const HeadAndSite place{record.Number("HEAD_NUM"), record.Number("SITE_NUM")};
    const Counts seen = counted.value(place.first == wholeHead ? everywhere : place);
    if (record.Number("PART_CNT") != seen.parts)
        AddFault(record.offset, Texts::tr("PCR: PART_CNT is %1, there are %n parts", nullptr, int(seen.parts))
                                    .arg(record.Number("PART_CNT")));
    const QVariant good = record.Value("GOOD_CNT");
    if (good.isValid() && good.toUInt() != unknownCount && good.toUInt() > seen.good)
        AddFault(record.offset,
                 Texts::tr("PCR: GOOD_CNT is %1, only %n parts have passed", nullptr, int(seen.good))
                     .arg(good.toUInt()));
}

void Checker::EndStream(qint64 offset)
{
    for (auto part = openParts.constBegin(); part != openParts.constEnd(); ++part)
        AddFault(offset, Texts::tr("the part at %1 from offset %2 has no PRR")
                             .arg(Place(part.key().first, part.key().second), QString::number(part->offset)));
    openParts.clear();
    counted.clear();
    hardBins.clear();
    softBins.clear();
    if (tooManyBins)
        AddRemark(offset, Texts::tr("so many sites and bins that the counts of bins are not compared"));
    tooManyBins = false;
    hasCounts = false;
}

void Checker::Finish(const Reader& reader)
{
    const qint64 end = reader.Offset();
    if (processor && (*processor == bigEndianProcessor) != reader.IsBigEndian())
        AddFault(0,
                 (reader.IsBigEndian() ? Texts::tr("FAR: CPU_TYPE is %1, but the records are big-endian")
                                       : Texts::tr("FAR: CPU_TYPE is %1, but the records are little-endian"))
                     .arg(*processor));
    if (zeroRecords > 0 && !reader.GetFault())
        AddFault(zerosAt,
                 Texts::tr("the rest of the file is zero bytes, as a power loss leaves them; the next part "
                           "that is added goes over them"));
    else if (const auto& fault = reader.GetFault())
        AddFault(fault->offset, fault->text);
    else if (end == 0)
        AddFault(0, Texts::tr("the file is empty"));
    else if (expected == Expected::Mir || expected == Expected::Anything)
        AddFault(end, Texts::tr("the file ends without an MRR"));
    EndStream(end);
    if (beyondAscii > 0)
        AddRemark(
            firstBeyondAscii.offset,
            Texts::tr(
                "%n records have texts beyond ASCII, first %1: they are read as Latin-1, and some other "
                "readers give up on them",
                nullptr, beyondAscii)
                .arg(firstBeyondAscii.text));
    for (auto unknown = unknownTypes.constBegin(); unknown != unknownTypes.constEnd(); ++unknown)
        AddRemark(0, Texts::tr("%n records of the unknown type %1, subtype %2", nullptr, int(*unknown))
                         .arg(QString::number(unknown.key().first), QString::number(unknown.key().second)));
    if (faults > MaximumFindings)
        findings.append({end, true, Texts::tr("and more: %n faults in all", nullptr, int(faults))});
    if (remarks > MaximumFindings)
        findings.append({end, false, Texts::tr("and more: %n remarks in all", nullptr, int(remarks))});
}

} // namespace ZYN::Stdf
