#pragma once

#include "kinds/ShowOptions.h"
#include "terminal/Problem.h"

#include <QtCore/QJsonObject>
#include <QtCore/QString>

#include <optional>

namespace ZYN::Tool {

/// An XML report as one JSON object: units with their runs, groups, steps and measurements.
std::optional<Problem> ReportToJson(const QString& path, const QString& name, const ShowOptions& options,
                                    QJsonObject* object);

} // namespace ZYN::Tool
