#include "archive/Archive.h"
#include "archive/questions/ChosenRuns.h"

namespace ZYN {

namespace {

std::optional<QStringList> TextsOf(const Archive& archive, const QString& sql)
{
    QStringList texts;
    std::optional<QSqlQuery> query = Ask(archive, sql);
    while (query && query->next())
        texts.append(query->value(0).toString());
    return query && IsComplete(archive, *query) ? std::optional(texts) : std::nullopt;
}

} // namespace

std::optional<QStringList> AskMeasurementNames(const Archive& archive)
{
    return TextsOf(
        archive, QStringLiteral("SELECT name FROM component WHERE kind = 7 UNION SELECT ident FROM component "
                                "WHERE kind = 7 UNION SELECT path FROM component WHERE kind = 7 ORDER BY 1"));
}

std::optional<QStringList> AskSerials(const Archive& archive)
{
    return TextsOf(
        archive,
        QStringLiteral("SELECT DISTINCT CASE WHEN serial = '' THEN seen_ident ELSE serial END FROM unit "
                       "ORDER BY 1"));
}

} // namespace ZYN
