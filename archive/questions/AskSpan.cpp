#include "archive/Archive.h"
#include "archive/StartOfRun.h"
#include "archive/questions/ChosenRuns.h"

namespace ZYN {

namespace {

// Of starts that can be read. \param direction "" or "DESC"
std::optional<QString> StartAtEnd(const Archive& archive, const ChosenRuns& runs, const QString& direction)
{
    std::optional<QSqlQuery> query =
        runs.Select(QStringLiteral("v.start_text"), runs.JoinValues(),
                    QStringLiteral("r.start < %1").arg(QString::number(unreadableStart)),
                    QStringLiteral("ORDER BY r.start %1, r.id %1 LIMIT 1").arg(direction));
    const QString start = query && query->next() ? query->value(0).toString() : QString();
    return query && IsComplete(archive, *query) ? std::optional(start) : std::nullopt;
}

} // namespace

std::optional<RunSpan> AskSpan(const Archive& archive, const RunFilter& filter)
{
    const ChosenRuns runs(archive, filter, ChosenRuns::Of::All);
    const std::optional<QString> first = StartAtEnd(archive, runs, {});
    const std::optional<QString> last = StartAtEnd(archive, runs, QStringLiteral("DESC"));
    return first && last ? std::optional(RunSpan{*first, *last}) : std::nullopt;
}

} // namespace ZYN
