#include "lots/LotAppend.h"

#include "files/Parallel.h"
#include "kinds/ReportFile.h"
#include "lots/LotUnits.h"
#include "terminal/Progress.h"
#include "terminal/Texts.h"

#include "stdf/Reader.h"

#include <ZYNCommon/UUTTest.h>

#include <QtCore/QFile>

namespace ZYN::Tool {

namespace {

ReportForLot Read(const Input& input, const QString& lot, const LotOptions& options)
{
    std::optional<Problem> problem;
    const std::unique_ptr<UUTTest> test = ReadReport(input.path, input.name, &problem);
    if (problem)
        return {.name = input.name, .problem = problem};
    return MakeForLot(test.get(), input.name, lot, options);
}

// Number of parts in a file, complete ones and one that a crash cut off.
int CountParts(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    constexpr int partType = 5;
    constexpr int resultSubType = 20;
    int parts = 0;
    Stdf::Reader reader(&file);
    for (Stdf::RawRecord record; reader.Next(record);)
        parts += record.type == partType && record.subType == resultSubType;
    return parts;
}

QString WhyBeside(Beside beside)
{
    switch (beside) {
    case Beside::Unrecognised:
        return Texts::tr(
            "the name of the lot, product type or machine goes beyond ASCII or is very long, so that "
            "%2 is not recognised as the lot of %1: its part is in %3");
    case Beside::NamelessLot:
        return Texts::tr("%2 is cut off or damaged before it says which lot it is: the part of %1 is in %3");
    default:
        return Texts::tr("%1 is of another lot, product type or machine than %2: its part is in %3");
    }
}

void SayUnitsWithout(const QList<Conversion>& conversions)
{
    struct Units {
        int count = 0;
        QString first;
    };
    QMap<QString, Units> units;
    for (const Conversion& conversion : conversions) {
        for (auto reason = conversion.without.cbegin(); reason != conversion.without.cend(); ++reason) {
            Units& found = units[reason.key()];
            found.count += reason.value();
            if (found.first.isEmpty())
                found.first = conversion.input;
        }
    }
    for (auto reason = units.cbegin(); reason != units.cend(); ++reason)
        PrintNote(Texts::tr("%n units gave no part, first in %1: %2", nullptr, reason->count)
                      .arg(reason->first, reason.key()));
}

} // namespace

ReportForLot MakeForLot(UUTTest* test, const QString& name, const QString& lot, const LotOptions& options)
{
    ReportForLot report{.name = name, .parts = MakeLotParts(test, options.ignoreReportFlag)};
    if (!report.parts)
        report.problem = NotAdded(name, lot, true);
    return report;
}

QList<Conversion> AppendToLot(const std::vector<ReportForLot>& reports, LotWriter& writer)
{
    QList<LotReport> good;
    for (const ReportForLot& report : reports)
        if (!report.problem)
            good.append({&*report.parts, report.name});
    const QList<LotEntry> entries = writer.Add(good);
    QList<Conversion> conversions;
    auto entry = entries.cbegin();
    for (const ReportForLot& report : reports) {
        Conversion& conversion = conversions.emplaceBack();
        conversion.input = report.name;
        conversion.problem = report.problem;
        if (report.problem)
            continue;
        conversion.output = entry->file;
        conversion.problem = entry->problem;
        conversion.lot = *entry++;
        conversion.without = report.parts->without;
        conversion.beyondAscii = report.parts->beyondAscii;
    }
    return conversions;
}

QList<Conversion> AppendToLot(const QList<Input>& inputs, const QString& path, const LotOptions& options,
                              const Manners& manners)
{
    LotWriter writer(path, options.again);
    if (const std::optional<Problem> refusal = writer.Refusal())
        return RefuseAll(inputs, *refusal);
    QList<Conversion> conversions;
    std::optional<LotParts> none;           // of a report without any part
    const qsizetype batch = 4 * AllCores(); // bounds what is in memory
    Progress progress(inputs.size(), !manners.quiet);
    for (qsizetype start = 0; start < inputs.size(); start += batch) {
        const QList<Input> some = inputs.mid(start, batch);
        std::vector<ReportForLot> reports(size_t(some.size()));
        ForEachIndex(some.size(), AllCores(),
                     [&](qsizetype index) { reports[size_t(index)] = Read(some.at(index), path, options); });
        conversions += AppendToLot(reports, writer);
        for (const ReportForLot& report : reports) {
            if (!none && report.parts && report.parts->parts.isEmpty())
                none = report.parts;
            progress.Step();
        }
    }
    if (none)
        writer.AddNone(*none);
    return conversions;
}

QList<Conversion> AppendLotToLot(const Input& input, LotWriter& writer, const LotOptions& options)
{
    QList<Conversion> conversions;
    const std::optional<Problem> damage = ForEachUnits(input, [&](const std::vector<LotUnit>& units) {
        std::vector<ReportForLot> reports;
        for (const LotUnit& unit : units)
            reports.push_back(MakeForLot(unit.test.get(), input.name, writer.Path(), options));
        conversions += AppendToLot(reports, writer);
    });
    if (damage) {
        Conversion& damaged = conversions.emplaceBack();
        damaged.input = input.name;
        damaged.problem = damage;
    }
    return conversions;
}

void SayBeside(const QString& path, const QList<Conversion>& conversions)
{
    for (const Conversion& conversion : conversions)
        if (conversion.lot && conversion.lot->beside != Beside::No && conversion.lot->added > 0)
            PrintNote(WhyBeside(conversion.lot->beside).arg(conversion.input, path, conversion.output));
}

void SayLot(const QString& path, const QList<Conversion>& conversions)
{
    bool added = false;
    qsizetype present = 0;
    for (const Conversion& conversion : conversions) {
        if (conversion.problem)
            continue;
        added = true;
        present += conversion.lot->present;
    }
    SayBeside(path, conversions);
    SayUnitsWithout(conversions);
    const auto beyond =
        std::find_if(conversions.begin(), conversions.end(),
                     [](const Conversion& conversion) { return !conversion.beyondAscii.isEmpty(); });
    if (beyond != conversions.end())
        PrintNote(
            Texts::tr("%1: %2 goes beyond ASCII; STDF has it as Latin-1, and some readers give up on it")
                .arg(beyond->input, beyond->beyondAscii));
    if (present > 0)
        PrintNote(Texts::tr("%n parts stand there already and are left out; --again adds them all the same",
                            nullptr, int(present)));
    if (added)
        PrintNote(Texts::tr("%1 holds %n parts", nullptr, CountParts(path)).arg(path));
}

} // namespace ZYN::Tool
