#pragma once

#include "kinds/FileKind.h"

namespace ZYN::Tool {

/// An STDF file of any source, also compressed with gzip, as a kind of file.
bool LooksLikeLot(const QByteArray& head);
std::optional<Problem> ShowLot(const QString& path, const QString& name, const ShowOptions& options);
/// A line for every record.
std::optional<Problem> PrintLotJson(const QString& path, const QString& name, const ShowOptions& options);
QList<Finding> CheckLot(const QString& path);

} // namespace ZYN::Tool
