// Lot files that exist already: the search for the place of the next part, and parts that are added there.

#include "FuzzSupport.h"

#include "stdf/LotFiles.h"
#include "stdf/LotModels.h"

#include "export/CExportDirectorReport.h"
#include "report/stdf/CReportBuilderSTDF.h"
#include "report/stdf/StdfLotFile.h"

#include <ZYNCommon/UUTTest.h>

#include <QtCore/QBuffer>

using namespace ZYN;
using namespace ZYN::Fuzz;

namespace {

/// What the library knows about a lot file that it is going to add to.
struct Lot {
    bool goesOn = false; ///< empty, or of the lot that the unit belongs to
    StdfPlace place;
};

Lot Look(QByteArray bytes)
{
    static const StdfLotNames ownNames{QStringLiteral("LOT-1"), QStringLiteral("Motor board"),
                                       QStringLiteral("TESTER-3")};
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    StdfLotFile file(&buffer);
    if (file.HoldsNothing())
        return {true, {}};
    return {file.ReadNames() == ownNames, file.FindPlace()};
}

/// Whether the place is known from the last bytes alone, which may also be the end of another record.
bool IsFromEnd(const StdfPlace& place, const QByteArray& bytes)
{
    constexpr qint64 closingSize = 34; // PCR and MRR
    return place.closingPcr && place.position == bytes.size() - closingSize;
}

bool IsStartOfRecord(qint64 position, const LotFiles::Contents& contents)
{
    return std::any_of(contents.records.begin(), contents.records.end(),
                       [&](const Stdf::Record& record) { return record.offset == position; });
}

LotFiles::Contents Read(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return LotFiles::Read(&buffer);
}

void Append(const MemoryFile& file)
{
    static const auto unit = LotModels::MakeTest(LotModels::SimpleUnit(QStringLiteral("SN1"), 1));
    CReportBuilderSTDF builder(true);
    CExportDirectorReport director;
    Require(builder.OpenFile(file.Name()) && director.ExportUUTTest(unit.get(), &builder),
            "a part can be exported");
}

/// Adds a part and compares the file with what it was.
void AddPart(MemoryFile& file)
{
    const QByteArray before = file.Get();
    const Lot lot = Look(before);
    const qint64 kept = lot.place.position;
    Require(kept >= 0 && kept <= before.size(), "the place is inside the file");
    Append(file);
    const QByteArray after = file.Get();
    if (!lot.goesOn) {
        Require(after == before, "another lot is left as it was");
        return;
    }
    Require(after.startsWith(before.first(kept)), "what stands before the place stays");
    const LotFiles::Contents readBefore = Read(before);
    if (readBefore.fault)
        return;
    if (IsFromEnd(lot.place, before) && !IsStartOfRecord(kept, readBefore))
        return; // the price of not reading a large lot for each part
    const LotFiles::Contents readAfter = Read(after);
    Require(!readAfter.fault, "a file that could be read to its end still can",
            readAfter.fault ? readAfter.fault->text : QString());
    Require(readAfter.PartIds() == readBefore.PartIds() + QStringList{QStringLiteral("SN1")},
            "there is one more part", readBefore.Names() + QStringLiteral("\nbecame\n") + readAfter.Names());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    static MemoryFile file;
    file.Set(Input(data, size));
    AddPart(file);
    AddPart(file);
    return 0;
}
