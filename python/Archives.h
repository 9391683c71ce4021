#pragma once

#include "Texts.h"

namespace ZYN::Python {

/// Archive, and archive().
void AddArchives(py::module_& module);

} // namespace ZYN::Python
