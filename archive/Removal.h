#pragma once

#include "archive/Database.h"
#include "archive/Questions.h"

namespace ZYN {

/// Removes runs that started before a time, and units that have none left. What is left keeps `first`: a
/// retest does not become a first run. \param removed number of runs
bool RemoveRunsBefore(Database& database, const TimeBound& bound, std::int64_t* removed);

} // namespace ZYN
