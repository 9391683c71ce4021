#pragma once

#include "archive/questions/LimitSets.h"
#include "archive/questions/Programs.h"

#include <map>
#include <tuple>
#include <unordered_map>
#include <vector>

namespace ZYN {

/// A measurement of numbers under one set of limits.
struct MeasuredItem {
    QString program, ident, path, unit;
    NumberStyle style; ///< by its last layout
    Judgement judgement;
};

/// Finds out which positions of arrays hold values of the same measurement, under the same limits.
class MeasuredItems {
public:
    /// By position: the number of an item, or -1 for what is no measurement of numbers.
    using Positions = std::vector<int>;

    explicit MeasuredItems(const Archive& archive)
        : m_archive(archive)
        , m_limits(archive)
    {
    }

    /// \param limits ids of all sets that will be asked for: while rows of a query come, a server cannot be
    /// asked for more \return false where they cannot be read; the archive then says why
    bool Read(const Programs& programs, const std::vector<qint64>& limits);
    const Positions& Find(int layout, qint64 limits);
    const std::vector<MeasuredItem>& GetItems() const { return m_items; }

private:
    struct Component {
        QString identity; ///< on several servers one component has several numbers
        bool isNumber = false;
        MeasuredItem item; // without limits
    };
    using Key = std::tuple<QString, QString, QString, std::optional<double>, std::optional<double>,
                           std::string, std::string, bool>;

    int ItemOf(const Component& component, const Judgement& judgement);

    const Archive& m_archive;
    LimitSets m_limits;
    std::unordered_map<int, std::vector<Component>> m_layouts;
    std::map<Key, int> m_known;
    std::map<std::pair<int, qint64>, Positions> m_found;
    std::vector<MeasuredItem> m_items;
};

} // namespace ZYN
