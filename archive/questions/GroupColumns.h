#pragma once

#include "archive/Questions.h"

#include <QtCore/QVariant>

namespace ZYN {

/// What it is called in answers and on the command line: "day".
QString NameOf(GroupBy by);
/// Whether groups are parts of time.
bool IsTime(GroupBy by);

/// The column of a statement over `r` and `u` (see `ChosenRuns`) that tells groups apart; parts of time are
/// counted by the tester's clock and are null for a start that cannot be read.
QString ColumnOf(GroupBy by, bool isPostgreSql);
/// Whether the column is one of `u`.
bool NeedsUnit(GroupBy by);

/// How the value of such a column stands in an answer: "2026-11-24 13", "2026-W48"; empty for null.
QString TextOf(GroupBy by, const QVariant& value);
/// The same of a day, week or month that a day is of (since 1970, see `DayOf`).
QString TextOfDay(GroupBy by, qint64 day);

} // namespace ZYN
