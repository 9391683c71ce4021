#include "questions/GroupArgument.h"

#include "terminal/Texts.h"

#include <algorithm>

namespace ZYN::Tool {

void GroupArgument::Describe(CommandLine& line)
{
    line.Values("--by", m_by,
                Texts::tr("A line for each %1; several, also separated by commas")
                    .arg(GroupNames().join(QLatin1String(", "))))
        .Named(Texts::tr("GROUP"));
}

std::optional<int> GroupArgument::Check(const QuestionOptions& options, std::vector<GroupBy>* by) const
{
    const QStringList known = GroupNames();
    for (const std::string& text : m_by) {
        for (const QString& part : QString::fromStdString(text).split(QLatin1Char(','), Qt::SkipEmptyParts)) {
            const QString name = part.trimmed().toLower();
            const qsizetype index = known.indexOf(name);
            if (index < 0)
                return options.WrongValue(Texts::tr("--by: there are no groups by '%1'").arg(name),
                                          Texts::tr("choose of %1").arg(known.join(QLatin1String(", "))));
            if (std::find(by->begin(), by->end(), GroupBy(index)) == by->end())
                by->push_back(GroupBy(index));
        }
    }
    return std::nullopt;
}

} // namespace ZYN::Tool
