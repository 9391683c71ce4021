#include "archive/questions/BinNames.h"

#include "archive/Archive.h"
#include "archive/questions/AnswerKeys.h"
#include "archive/questions/GroupColumns.h"

#include <algorithm>

namespace ZYN {

namespace {

// The lots are those that units are of.
const QString joinNames = QStringLiteral(" JOIN bin b ON b.product = u.product AND b.lot = u.lot AND "
                                         "b.program = r.program AND b.is_soft = 0 AND b.number = r.hard_bin");

bool Contains(const std::vector<GroupBy>& by, GroupBy one)
{
    return std::find(by.begin(), by.end(), one) != by.end();
}

} // namespace

AnswerGroup GroupOf(const Programs& programs, const std::vector<GroupBy>& by, const QString& program,
                    const std::vector<QString>& texts)
{
    AnswerGroup group = Contains(by, GroupBy::Program) ? AnswerGroup() : programs.GroupOf(program);
    for (std::size_t i = 0; i < by.size(); ++i)
        group.emplace_back(NameOf(by[i]), texts[i]);
    return group;
}

bool BinNames::Read(const Archive& archive, const ChosenRuns& runs, const Programs& programs,
                    const std::vector<GroupBy>& by)
{
    if (!Contains(by, GroupBy::Bin))
        return true;
    QString columns = QStringLiteral("DISTINCT r.layout, b.name");
    for (const GroupBy one : by)
        columns += QStringLiteral(", ") + ColumnOf(one, archive.IsPostgreSql());
    std::optional<QSqlQuery> query = runs.Select(columns, runs.JoinHome() + joinNames);
    while (query && query->next()) {
        const QString program = programs.NameOf(query->value(0).toInt());
        std::vector<QString> texts;
        for (std::size_t i = 0; i < by.size(); ++i)
            texts.push_back(by[i] == GroupBy::Program ? program : TextOf(by[i], query->value(int(i) + 2)));
        m_names[GroupOf(programs, by, program, texts)].insert(query->value(1).toString());
    }
    return query && IsComplete(archive, *query);
}

void BinNames::PutInto(AnswerGroup* group) const
{
    const auto known = m_names.find(*group);
    QStringList names;
    if (known != m_names.end())
        names = QStringList(known->second.begin(), known->second.end());
    const auto bin = std::find_if(group->begin(), group->end(),
                                  [](const auto& part) { return part.first == NameOf(GroupBy::Bin); });
    group->insert(bin + 1, {QString(AnswerKeys::BinName), names.join(QStringLiteral(" / "))});
}

} // namespace ZYN
