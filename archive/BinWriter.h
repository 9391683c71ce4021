#pragma once

#include "archive/Database.h"

#include <span>

namespace ZYN {

/// Puts what lots call their bins into an archive, in one transaction. Bins without a name are left out.
bool AddBinNames(Database& database, std::span<const LotBin> bins);

} // namespace ZYN
