#pragma once

#include "files/Inputs.h"
#include "terminal/Problem.h"

#include "archive/Archive.h"

#include <functional>
#include <optional>

namespace ZYN::Tool {

/// What became of an input that was to be put into an archive.
struct LoadedInput {
    const Input* input = nullptr;
    qint64 added = 0, present = 0, revised = 0; ///< runs
    std::optional<Problem> problem =
        {}; ///< then none of its runs is in the archive; of a damaged lot those before the damage are
};

/// Puts the runs of inputs into an archive, in the order of the inputs. They are read on all cores; what
/// waits to be written is bounded. Written is on the caller's thread, in transactions of about 100 runs or a
/// second; the runs of a report come into one. An input that fails does not stop the rest. \param tell called
/// for each input in their order, once its runs are safely in the archive or it has failed \return what is
/// wrong with the archive; then the rest was not added
std::optional<Problem> LoadRuns(Archive& archive, const QList<Input>& inputs, bool showProgress,
                                const std::function<void(const LoadedInput&)>& tell);

} // namespace ZYN::Tool
