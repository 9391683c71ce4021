#include "loading/ArchiveCopy.h"

#include "archive/ArchiveRuns.h"

namespace ZYN::Tool {

namespace {

constexpr std::size_t runsOfBatch = 100;
constexpr std::size_t binsOfBatch = 10'000;

} // namespace

LoadedInput CopyArchive(Archive& archive, const Input& source)
{
    LoadedInput loaded{.input = &source};
    Archive from;
    const auto fail = [&](const Archive& at) {
        QString text = at.GetErrorText();
        const bool isSource = &at == &from;
        const QString own = source.name + QStringLiteral(": "); // what an archive says begins with its name
        if (isSource && text.startsWith(own))
            text.remove(0, own.size());
        loaded.problem = Problem{isSource ? source.name : QString(), 0, text, {}};
        return loaded;
    };
    if (!from.Open(source.path, Archive::Mode::ReadOnly))
        return fail(from);
    ArchiveRuns runs(from);
    for (;;) {
        const std::optional<std::vector<LotBin>> bins = runs.NextBins(binsOfBatch);
        if (!bins)
            return fail(from);
        if (bins->empty())
            break;
        if (!archive.AddBins(*bins))
            return fail(archive);
    }
    for (;;) {
        const std::optional<std::vector<Run>> batch = runs.Next(runsOfBatch);
        if (!batch)
            return fail(from);
        if (batch->empty())
            return loaded;
        AddedRuns counts;
        if (!archive.Add(*batch, &counts))
            return fail(archive);
        loaded.added += counts.added;
        loaded.present += counts.present;
        loaded.revised += counts.revised;
    }
}

} // namespace ZYN::Tool
