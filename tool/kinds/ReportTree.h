#pragma once

#include "kinds/ShowOptions.h"
#include "terminal/Problem.h"

#include <QtCore/QString>

#include <optional>

namespace ZYN::Tool {

/// Prints an XML report as a tree: verdict, name, value, limits, duration.
std::optional<Problem> ShowReport(const QString& path, const QString& name, const ShowOptions& options);

} // namespace ZYN::Tool
