#pragma once

#include "kinds/Finding.h"
#include "kinds/ShowOptions.h"
#include "terminal/Problem.h"

#include <QtCore/QByteArray>
#include <QtCore/QJsonObject>
#include <QtCore/QList>
#include <QtCore/QString>

#include <optional>

namespace ZYN::Tool {

/// Whether a file that begins so is a binning definition.
bool LooksLikeBinning(const QByteArray& head);
/// Prints the bins as a table.
std::optional<Problem> ShowBinning(const QString& path, const QString& name, const ShowOptions& options);
std::optional<Problem> BinningToJson(const QString& path, const QString& name, const ShowOptions& options,
                                     QJsonObject* object);
QList<Finding> CheckBinning(const QString& path);

} // namespace ZYN::Tool
