#pragma once

#include "Texts.h"

#include "runs/Run.h"
#include "runs/files/RunStream.h"

#include <memory>

namespace ZYN::Python {

/// Run, Unit and Measurement.
void AddRuns(py::module_& module);

} // namespace ZYN::Python
