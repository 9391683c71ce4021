#pragma once

#include "KnownLimits.h"

#include "runs/Run.h"
#include "runs/RunBuilder.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace ZYN {

/// A name of a program, or of what stands above a component, is told again with each component: with hundreds
/// of thousands of characters it would fill the memory. Of such a one the beginning and a hash, else the
/// name.
std::string Shortened(const std::string& name);

/// The components of a run that fits no known layout, made one by one.
class LayoutMaker {
public:
    LayoutMaker() = default;
    /// Begins with components that are known.
    /// \param layout where they stand
    /// \param positions which of them the run has, ascending; what a component belongs to is not always among
    ///        them
    LayoutMaker(const RunLayout& layout, const std::vector<std::uint32_t>& positions);

    /// \param parent index of the group or step that it belongs to; -1 for none
    void Add(const RunItem& item, int parent);

    std::vector<RunComponent> components;

private:
    std::unordered_map<std::string, int> m_count; ///< how often a component stands in the program
};

/// A layout that runs share, and the limits that they were judged by.
class KnownLayout {
public:
    explicit KnownLayout(RunLayout made);

    bool IsOf(std::string_view program, std::string_view ident, std::string_view version) const;
    /// Whether a component stands at a position: the same, with the same kind of value.
    /// \param parent position of the group or step that it belongs to
    bool IsAt(std::size_t position, const RunItem& item, int parent) const;
    /// Where the components stand; nothing unless all are there in this order.
    std::optional<std::vector<std::uint32_t>> PlacesOf(const std::vector<RunComponent>& components) const;
    /// A layout that has these components as well, in an order that fits both; nothing if there is none that
    /// is worth it.
    std::optional<RunLayout> With(const std::vector<RunComponent>& components) const;

    std::shared_ptr<const RunLayout> layout;
    /// By position: where the same component stands before; -1 for the first.
    std::vector<int> previous;
    std::size_t longest = 0; ///< components of the longest run
    KnownLimits limits;

private:
    std::unordered_map<std::string_view, std::uint32_t> m_places; ///< by identity
};

} // namespace ZYN
