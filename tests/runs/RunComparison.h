#pragma once

#include "runs/Run.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <span>

namespace ZYN {

/// Whether every component of a report has one result, in front of what it holds, every set one program, and
/// every `Limits` a type and a unit with its factor, every `Result` a duration. What the import makes of
/// another report depends on what it read before; runs do not.
bool HasUsualOrder(const QByteArray& report);

/// What differs between the runs of a report's bytes and those of the model that the import made of it, apart
/// from what `docs/formats.md` says that the import loses. Empty where nothing does.
/// \param unitTexts whether the units of the report have the texts of their codes
QString DifferenceToImport(std::span<const Run> read, std::span<const Run> imported, bool unitTexts);

} // namespace ZYN
