#pragma once

#include "kinds/FileKind.h"

namespace ZYN::Tool {

/// An XML report as one JSON object: units with their runs, groups, steps and measurements.
std::optional<Problem> ReportToJson(const QString& path, const QString& name, const ShowOptions& options,
                                    QJsonObject* object);

} // namespace ZYN::Tool
