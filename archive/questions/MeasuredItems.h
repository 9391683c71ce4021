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

/// Whether a measurement is meant by one of some names; without names all are.
bool FitsAny(const QStringList& names, const QString& ident, const QString& path);

/// Finds out which positions of arrays hold values of the same measurement, under the same limits.
class MeasuredItems {
public:
    /// By position up to the last one that is wanted: the number of an item, or -1 for what is not wanted or
    /// no measurement of numbers.
    using Positions = std::vector<int>;

    /// \param names of the measurements that are wanted; empty: all
    explicit MeasuredItems(const Archive& archive, const QStringList& names = {})
        : m_archive(archive)
        , m_names(names)
        , m_limits(archive)
    {
    }

    /// \param limits ids of the sets that will be asked for, all of them on a server: while rows of a query
    /// come, it cannot be asked for more \return false where they cannot be read; the archive then says why
    bool Read(const Programs& programs, const std::vector<qint64>& limits);
    /// \return null where the limits cannot be read; the archive then says why. Valid as long as this object
    const Positions* Find(int layout, qint64 limits);
    const std::vector<MeasuredItem>& GetItems() const { return m_items; }

private:
    struct Component {
        QString identity;      ///< on several servers one component has several numbers
        bool isWanted = false; // a measurement of numbers
        MeasuredItem item;     // without limits
    };
    using Key = std::tuple<QString, QString, QString, std::optional<double>, std::optional<double>,
                           std::string, std::string, bool>;

    Positions PositionsOf(const std::vector<Component>& components, const std::vector<Judgement>& judgements);
    int ItemOf(const Component& component, const Judgement& judgement);

    const Archive& m_archive;
    const QStringList m_names;
    LimitSets m_limits;
    std::unordered_map<int, std::vector<Component>> m_layouts;
    std::map<Key, int> m_known;
    std::map<std::pair<int, qint64>, Positions> m_found;
    std::pair<int, qint64> m_lastKey; // mostly asked for once more
    const Positions* m_last = nullptr;
    std::vector<MeasuredItem> m_items;
};

} // namespace ZYN
