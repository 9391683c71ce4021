#pragma once

#include "runs/Run.h"
#include "runs/RunsGlobal.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ZYN {

class ReportRuns_Private;

/// Why a source gave no runs, or not all, and where it says so.
struct RunFault {
    std::int64_t line = 0;   ///< from 1; 0 when it concerns the whole file
    std::int64_t column = 0; ///< from 1
    std::string text;
    std::int64_t offset = -1; ///< in a file of records: byte from 0; -1 where there is no place
};

/// Reads runs from XML reports, straight from the bytes.
///
/// A report is taken whole or refused: refused is what is no well-formed XML, what the report import calls an
/// error, and an unknown version. One object reads any number of reports, one after the other, and lets their
/// runs share layouts and limits; use one for each thread.
class ZYNRUNS_EXPORT ReportRuns {
public:
    ReportRuns();
    ~ReportRuns();
    ReportRuns(const ReportRuns&) = delete;
    ReportRuns& operator=(const ReportRuns&) = delete;

    /// Reads a file, also a compressed one, piece by piece.
    /// \param runs receives the runs of the report, in their order; unchanged where it is refused
    std::optional<RunFault> ReadFile(const std::string& path, std::vector<Run>* runs);
    /// The same for a report in memory.
    /// \param source goes into `Run::source`
    std::optional<RunFault> Read(const std::string& bytes, const std::string& source, std::vector<Run>* runs);

private:
    std::unique_ptr<ReportRuns_Private> d;
};

} // namespace ZYN
