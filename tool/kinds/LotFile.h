#pragma once

#include "kinds/Finding.h"
#include "kinds/ShowOptions.h"
#include "terminal/Problem.h"

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>

#include <optional>

namespace ZYN::Tool {

// An STDF file of any source, also a compressed one, as a kind of file.

/// "damaged at offset 1234: why".
QString AtOffset(qint64 offset, const QString& why);
std::optional<Problem> ShowLot(const QString& path, const QString& name, const ShowOptions& options);
/// A line for every record.
std::optional<Problem> PrintLotJson(const QString& path, const QString& name, const ShowOptions& options);
QList<Finding> CheckLot(const QString& path);

} // namespace ZYN::Tool
