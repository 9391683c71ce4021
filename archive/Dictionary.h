#pragma once

#include "archive/Arrays.h"
#include "archive/Database.h"

#include <QtCore/QHash>

#include <span>
#include <string>
#include <unordered_map>

namespace ZYN {

/// The rows that many runs share: components, layouts, sets of limits. They are written in a transaction of
/// their own, so that no run that fails takes them along, and looked up once.
class Dictionary {
public:
    /// \param keepAttributes whether runs have attributes at all
    Dictionary(Database& database, bool keepAttributes);

    /// Makes sure that there are the rows of these runs.
    bool Learn(std::span<const Run> runs);
    /// Of runs that were learned last.
    std::int64_t LayoutOf(const Run& run) const;
    QVariant LimitsOf(const Run& run) const;     ///< null without limits
    QVariant AttributesOf(const Run& run) const; ///< null without attributes

private:
    std::int64_t AddLayout(const RunLayout& layout);
    bool AddItem(std::int64_t layout, int position, const RunComponent& component, std::int64_t componentId);
    std::int64_t AddComponent(const std::string& program, const RunComponent& component,
                              const QVariant& parent);
    std::int64_t AddLimits(const RunLimits& limits);
    std::int64_t AddAttributes(const QString& attributes);
    bool LearnRun(const Run& run);
    bool HasAttributes(const Run& run) const;
    static QString TextOfAttributes(const Run& run);
    /// The id that a query gives; 0 for none or an error.
    std::int64_t IdOf(QSqlQuery& query);

    Database& m_database;
    const ArrayStyle m_style;
    const bool m_keepAttributes;
    std::unordered_map<std::string, std::int64_t> m_layouts, m_limits; // by hash
    QHash<QString, qint64> m_attributes;
};

} // namespace ZYN
