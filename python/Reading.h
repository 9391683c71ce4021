#pragma once

#include "Texts.h"

#include "runs/ReportRuns.h"

#include <string>
#include <utility>
#include <vector>

namespace ZYN::Python {

/// What paths stand for: files as they are, folders with all reports and lots in them.
struct FoundFiles {
    std::vector<std::string> files;
    std::vector<std::pair<std::string, RunFault>> faults; ///< what is there and cannot be read
};
/// \param paths what Python takes for paths
FoundFiles FindFiles(const py::args& paths);

/// Runs, and read().
void AddReading(py::module_& module);

} // namespace ZYN::Python
