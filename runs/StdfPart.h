#pragma once

#include "StdfTests.h"

#include "runs/Run.h"

#include <string>
#include <utility>
#include <vector>

namespace ZYN {

/// A value of a part that is being tested.
struct StdfValue {
    std::uint32_t component = 0;
    std::uint32_t ownLimits = StdfTests::None; ///< index in `StdfPart::limits`
    double number = 0;
    std::int16_t code = 0;
    bool hasNumber = false;
};

/// A part between its PIR and its PRR.
struct StdfPart {
    bool isOpen = false;
    std::int64_t offset = 0;              ///< of the PIR
    std::uint32_t last = StdfTests::None; ///< its last test
    std::vector<StdfValue> values;
    std::vector<RunItemLimits> limits;                           ///< those that are others than their test's
    std::vector<std::pair<std::uint32_t, std::string>> comments; ///< by index in `values`

    void Begin(std::int64_t at);
    /// Hands its values out: group and step of this project's own lots, then their measurements. A group or
    /// step has the worst code of what belongs to it.
    void Build(const StdfTests& tests, RunBuilder& builder) const;

private:
    std::int16_t WorstFrom(const StdfTests& tests, std::size_t index, bool ofGroup) const;
    void AddAbove(const StdfTests& tests, std::size_t index, RunBuilder& builder) const;
};

} // namespace ZYN
