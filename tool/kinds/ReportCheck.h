#pragma once

#include "kinds/FileKind.h"

namespace ZYN::Tool {

/// What is wrong with an XML report.
QList<Finding> CheckReport(const QString& path);

} // namespace ZYN::Tool
