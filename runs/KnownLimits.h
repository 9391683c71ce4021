#pragma once

#include "runs/Run.h"
#include "runs/RunBuilder.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace ZYN {

/// The limits of one value, kept.
struct KeptLimits {
    KeptLimits() = default;
    explicit KeptLimits(const RunItemLimits& limits);

    double lower = RunItemLimits::None;
    double upper = RunItemLimits::None;
    double nominal = RunItemLimits::None;
    std::string lowerOperator;
    std::string upperOperator;
    std::optional<std::string> lowerText;
    std::optional<std::string> upperText;
    bool inverted = false;
};

/// Limits of one value and where it stands.
struct PlacedLimits {
    std::uint32_t position = 0;
    KeptLimits limits;
};

/// The sets of limits that the last runs of a layout were judged by, so that equal ones are shared.
class KnownLimits {
public:
    /// Whether the newest set has these limits at a position.
    bool Matches(std::uint32_t position, const RunItemLimits* limits) const;
    /// The limits of the newest set at a position.
    KeptLimits Newest(std::uint32_t position) const;
    /// The set of a run: the newest one with changes. It becomes the newest.
    /// \param codes by position; where a run has no result its limits may be any
    /// \return null where nothing has limits
    std::shared_ptr<const RunLimits> Share(const std::vector<PlacedLimits>& changes,
                                           const std::vector<std::int16_t>& codes);

private:
    static constexpr std::size_t most = 8;
    std::vector<std::shared_ptr<const RunLimits>> m_sets; ///< newest first; null: no limits
};

} // namespace ZYN
