#include "archive/questions/Programs.h"

#include "archive/questions/ChosenRuns.h"

#include <QtCore/QSet>

namespace ZYN {

bool Programs::Read(const Archive& archive)
{
    std::optional<QSqlQuery> query = Ask(archive, QStringLiteral("SELECT id, program FROM layout"));
    while (query && query->next())
        m_names.insert(query->value(0).toInt(), query->value(1).toString());
    return query && IsComplete(archive, *query);
}

bool Programs::Read(const Archive& archive, const ChosenRuns& runs)
{
    if (!Read(archive))
        return false;
    if (QSet<QString>(m_names.cbegin(), m_names.cend()).size() < 2)
        return true;
    std::optional<QSqlQuery> query = runs.Select(QStringLiteral("DISTINCT r.layout"));
    QSet<QString> chosen;
    while (query && query->next())
        chosen.insert(NameOf(query->value(0).toInt()));
    m_areSeveral = chosen.size() > 1;
    return query && IsComplete(archive, *query);
}

} // namespace ZYN
