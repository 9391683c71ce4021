#pragma once

#include "files/Inputs.h"
#include "lots/Conversion.h"
#include "terminal/Manners.h"

namespace ZYN::Tool {

/// Writes all measurements of the inputs, reports and STDF lots, as one flat table: a row for each result, in
/// the order of inputs and runs. What cannot be read is left out and told; where that is all, nothing is
/// written. Memory does not grow with the rows. \param replace whether it may take the place of an existing
/// file \return what became of each input
QList<Conversion> WriteValueSheet(const QList<Input>& inputs, const QString& path, bool replace,
                                  const Manners& manners);

} // namespace ZYN::Tool
