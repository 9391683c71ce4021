#pragma once

#include "archive/ArchiveGlobal.h"
#include "runs/Run.h"

#include <memory>
#include <optional>
#include <vector>

namespace ZYN {

class Archive;

/// The runs of an archive and names of bins, to be put into another one: from a file onto a server. They come
/// in the order of time, what was replaced before what replaced it, so that they end up there as they stand
/// here.
///
/// \code
/// ArchiveRuns source(file);
/// while (const std::optional<std::vector<Run>> runs = source.Next(100)) {
///     if (runs->empty())
///         return true;
///     if (!server.Add(*runs, nullptr))
///         return false; // the server says why
/// }
/// return false; // the file says why
/// \endcode
///
/// Of a unit with a serial, runs get the ident that was seen first. On the archive's thread.
class ZYNARCHIVE_EXPORT ArchiveRuns {
public:
    /// \param archive open, as long as this object
    explicit ArchiveRuns(const Archive& archive);
    ~ArchiveRuns();
    ArchiveRuns(const ArchiveRuns&) = delete;
    ArchiveRuns& operator=(const ArchiveRuns&) = delete;

    /// The next runs, empty when there are no more. \return none where they cannot be read; the archive then
    /// says why
    std::optional<std::vector<Run>> Next(std::size_t count);
    /// The same of what lots call their bins. To be taken to their end before or after the runs: a server is
    /// asked one question at a time.
    std::optional<std::vector<LotBin>> NextBins(std::size_t count);

private:
    class Private;
    std::unique_ptr<Private> d;
};

} // namespace ZYN
