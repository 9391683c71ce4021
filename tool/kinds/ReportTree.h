#pragma once

#include "kinds/FileKind.h"

namespace ZYN::Tool {

/// Prints an XML report as a tree: verdict, name, value, limits, duration.
std::optional<Problem> ShowReport(const QString& path, const QString& name, const ShowOptions& options);

} // namespace ZYN::Tool
