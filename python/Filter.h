#pragma once

#include "Texts.h"

#include "archive/Questions.h"

namespace ZYN::Python {

/// The runs that keyword arguments choose: product, lot, station, program, serial, since, until, across_lots.
/// Throws TypeError for another name.
RunFilter FilterOf(const py::kwargs& wanted);

/// A datetime, date or text in ISO 8601 as a bound.
TimeBound TimeOf(const py::handle& time);

} // namespace ZYN::Python
