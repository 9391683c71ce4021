#pragma once

#include "runs/ReportRuns.h"

#include <functional>

namespace ZYN {

class StdfRuns_Private;

/// Reads runs from STDF lot files (version 4) of any tester, one by one: memory grows with the tests of a
/// part and the sites that test at once, not with the file. What lots hold of this project's own making comes
/// back in base units and with groups and steps.
///
/// One object reads any number of files, one after the other, and lets their runs share layouts and limits;
/// use one for each thread.
///
/// Source: the STDF V4 standard; docs/runs.md says how its records become runs.
class ZYNRUNS_EXPORT StdfRuns {
public:
    /// Takes a run. Return false to end reading.
    using Take = std::function<bool(Run&&)>;

    StdfRuns();
    ~StdfRuns();
    StdfRuns(const StdfRuns&) = delete;
    StdfRuns& operator=(const StdfRuns&) = delete;

    /// Whether a file, also a compressed one, is an STDF file, by its first bytes.
    static bool IsStdf(const std::string& path);

    /// Reads a file, also a compressed one. What stands before damage is handed out.
    /// \return what is damaged, and the place of the first damage
    std::optional<RunFault> ReadFile(const std::string& path, const Take& take);
    /// The same for a lot in memory.
    /// \param source goes into `Run::source`
    std::optional<RunFault> Read(std::string_view bytes, const std::string& source, const Take& take);

    /// The bins of the last file, of each of its streams hard ones first, by number. Testers write them
    /// behind the parts.
    const std::vector<LotBin>& Bins() const;

private:
    std::unique_ptr<StdfRuns_Private> d;
};

} // namespace ZYN
