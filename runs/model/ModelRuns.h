#pragma once

#include "runs/Run.h"
#include "runs/RunBuilder.h"

#include <string>
#include <vector>

namespace ZYN {

class UUTTest;

/// Makes runs of the test of a unit or a panel, by a walk over the model. Everything that has a result is in
/// them, whether it is meant for reports or not; a group or step without one is left out with all it holds.
/// \param builder lets the runs share their layouts and limits with those that it made before
/// \param source goes into `Run::source`
/// \param runs receives them: the panel's own first, then item by item
void AddRunsOfModel(const UUTTest& test, const std::string& source, RunBuilder& builder,
                    std::vector<Run>* runs);

} // namespace ZYN
