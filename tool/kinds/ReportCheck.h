#pragma once

#include "kinds/Finding.h"

#include <QtCore/QList>
#include <QtCore/QString>

namespace ZYN::Tool {

/// What is wrong with an XML report.
QList<Finding> CheckReport(const QString& path);

} // namespace ZYN::Tool
