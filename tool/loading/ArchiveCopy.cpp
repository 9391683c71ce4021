#include "loading/ArchiveCopy.h"

#include "archive/ArchiveRuns.h"

namespace ZYN::Tool {

namespace {

constexpr std::size_t RunsOfBatch = 100;

} // namespace

LoadedInput CopyArchive(Archive& archive, const Input& source)
{
    LoadedInput loaded{.input = &source};
    Archive from;
    const auto fail = [&](const Archive& at) {
        // What the source says begins with its name.
        const QString own = from.GetShownUrl() + QStringLiteral(": ");
        const QString text = at.GetErrorText();
        loaded.problem = &at == &archive        ? Problem{{}, 0, text, {}}
                         : text.startsWith(own) ? Problem{source.name, 0, text.mid(own.size()), {}}
                                                : Problem{source.name, 0, text, {}};
        return loaded;
    };
    if (!from.Open(source.path, Archive::Mode::ReadOnly))
        return fail(from);
    ArchiveRuns runs(from);
    for (;;) {
        const std::optional<std::vector<Run>> batch = runs.Next(RunsOfBatch);
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
