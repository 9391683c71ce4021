#pragma once

#include "archive/Arrays.h"
#include "archive/Database.h"

#include <span>
#include <string>
#include <unordered_map>

namespace ZYN {

/// The rows that many runs share: components, layouts, sets of limits. They are written in a transaction of
/// their own, so that no run that fails takes them along, and looked up once.
class Dictionary {
public:
    explicit Dictionary(Database& database);

    /// Makes sure that there are the rows of these runs.
    bool Learn(std::span<const Run> runs);
    /// Of runs that were learned last.
    std::int64_t LayoutOf(const Run& run) const;
    QVariant LimitsOf(const Run& run) const; ///< null without limits

private:
    std::int64_t AddLayout(const RunLayout& layout);
    bool AddItem(std::int64_t layout, int position, const RunComponent& component, std::int64_t componentId);
    std::int64_t AddComponent(const std::string& program, const RunComponent& component,
                              const QVariant& parent);
    std::int64_t AddLimits(const RunLimits& limits);
    /// The id that a query gives; 0 for none or an error.
    std::int64_t IdOf(QSqlQuery& query);

    Database& m_database;
    const ArrayStyle m_style;
    std::unordered_map<std::string, std::int64_t> m_layouts, m_limits; // by hash
};

} // namespace ZYN
