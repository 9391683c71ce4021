#pragma once

#include "files/Inputs.h"
#include "terminal/Problem.h"

#include <QtCore/QSharedPointer>

#include <functional>
#include <optional>
#include <vector>

namespace ZYN {
class UUTTest;
}

namespace ZYN::Tool {

/// A run of an STDF lot, as a report wants it.
struct LotUnit {
    QString name; ///< for a file: its number in the lot and its serial, "00007-W3,12"
    QSharedPointer<UUTTest> test;
};

/// Whether an input is an STDF file.
bool IsLot(const Input& input);

/// Hands out the runs of an STDF lot, some at a time.
/// \return what is damaged; what stands before it was handed out
std::optional<Problem> ForEachUnits(const Input& lot,
                                    const std::function<void(const std::vector<LotUnit>&)>& take);

} // namespace ZYN::Tool
