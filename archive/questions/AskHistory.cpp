#include "archive/Archive.h"
#include "archive/ArrayReader.h"
#include "archive/questions/ChosenRuns.h"
#include "archive/questions/LimitSets.h"

#include <QtCore/QHash>

namespace ZYN {

namespace {

/// What failed first in a run, until its limits are read.
struct Found {
    qint64 limits = 0;
    int position = 0;
};

std::optional<double> ValueOf(const QSqlQuery& row, int number, int texts, int position)
{
    if (!row.value(number).isNull())
        return row.value(number).toDouble();
    // A number that a double does not hold exactly.
    for (const auto& [at, value] : NumbersByPosition(row.value(texts).toString().toUtf8()))
        if (at == position && std::isfinite(value))
            return value;
    return std::nullopt;
}

bool FillLimits(const Archive& archive, const std::vector<Found>& found, std::vector<HistoryRow>* rows)
{
    LimitSets sets(archive);
    for (std::size_t i = 0; i < rows->size(); ++i) {
        std::optional<FirstFailure>& failure = (*rows)[i].firstFailure;
        if (!failure)
            continue;
        const std::vector<Judgement>* const limits = sets.Get(found[i].limits);
        if (!limits)
            return false;
        if (std::size_t(found[i].position) < limits->size()) {
            const Judgement& judgement = (*limits)[std::size_t(found[i].position)];
            failure->lower = judgement.lower;
            failure->upper = judgement.upper;
            failure->style.lowerOperator = QString::fromStdString(judgement.lowerOperator);
        }
    }
    return true;
}

} // namespace

std::optional<std::vector<HistoryRow>> AskHistory(const Archive& archive, const RunFilter& filter)
{
    const ChosenRuns runs(archive, filter, ChosenRuns::Of::All);
    std::optional<QSqlQuery> query = runs.Select(
        QStringLiteral(
            "u.product, u.serial, u.seen_ident, u.lot, r.station, v.start_text, r.program, r.code, r.unit, "
            "r.limits, c.path, i.pos, i.unit, i.factor, i.unit_code, f.num, CASE WHEN f.num IS NULL THEN "
            "v.texts END"),
        runs.JoinHome() + runs.JoinValues() + runs.JoinFirstFailure() +
            QStringLiteral(
                " LEFT JOIN component c ON c.id = f.component LEFT JOIN layout_item i ON i.layout = r.layout "
                "AND i.component = f.component"),
        {}, QStringLiteral("ORDER BY ") + ChosenRuns::InOrder());
    std::vector<HistoryRow> rows;
    std::vector<Found> found;
    QHash<std::pair<qint64, QString>, std::int64_t> counts;
    while (query && query->next()) {
        int column = 0;
        const auto next = [&] { return query->value(column++); };
        HistoryRow row;
        row.product = next().toString();
        row.serial = next().toString();
        const QString ident = next().toString();
        if (row.serial.isEmpty())
            row.serial = ident;
        row.lot = next().toString();
        row.station = next().toString();
        row.start = next().toString();
        row.program = next().toString();
        row.code = next().toInt();
        row.verdict = VerdictOf(row.code);
        row.run = ++counts[{next().toLongLong(), row.program}];
        Found place{next().toLongLong(), 0};
        if (const QVariant path = next(); !path.isNull()) {
            place.position = next().toInt();
            FirstFailure failure;
            failure.path = path.toString();
            failure.unit = next().toString();
            failure.style.factor = next().toInt();
            failure.style.unitCode = next().toInt();
            failure.value = ValueOf(*query, column, column + 1, place.position);
            row.firstFailure = failure;
        }
        found.push_back(place);
        rows.push_back(std::move(row));
    }
    if (!query || !IsComplete(archive, *query) || !FillLimits(archive, found, &rows))
        return std::nullopt;
    return rows;
}

} // namespace ZYN
