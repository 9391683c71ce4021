#pragma once

#include "Texts.h"

#include "archive/ArchiveInfo.h"
#include "archive/Questions.h"

namespace ZYN::Python {

/// Answers as dictionaries; the keys of a group stand in front, as columns of a table would.
py::dict RecordOf(const YieldRow& row);
py::dict RecordOf(const FailureRow& row);
py::dict RecordOf(const MeasureRow& row);
py::dict RecordOf(const UnitRow& row);
py::dict RecordOf(const HistoryRow& row);
py::dict RecordOf(const ArchiveInfo& info);

/// The arrays as columns of one table. Texts that many values share are one object of Python.
py::dict ColumnsOf(const ValueArrays& arrays);

} // namespace ZYN::Python
