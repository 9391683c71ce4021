#include "archive/Archive.h"
#include "archive/figures/DriftTests.h"
#include "archive/figures/NelsonRules.h"
#include "archive/questions/FilledRow.h"
#include "archive/questions/MeasuresBy.h"
#include "archive/questions/SeriesReader.h"

#include <algorithm>

namespace ZYN {

namespace {

Figures::MeasuredFigures FiguresOf(const MeasuredSeries& series)
{
    Figures::MeasuredFigures figures;
    for (std::size_t i = 0; i < series.values.size(); ++i)
        figures.Add(series.values[i], series.codes[i]);
    figures.failed = series.failed; // also without a number
    figures.notNumbers = series.notNumbers;
    return figures;
}

/// Makes rows of series.
class Measures {
public:
    explicit Measures(SeriesReader& reader)
        : m_reader(reader)
    {
    }

    /// A row and the number of its series.
    struct Numbered {
        MeasureRow row;
        std::size_t series = 0;
    };

    std::vector<Numbered> Rows(const MeasureOptions& options) const
    {
        const std::vector<MeasuredSeries>& series = m_reader.GetSeries();
        std::vector<Figures::DriftTests> tests;
        for (const MeasuredSeries& one : series)
            tests.emplace_back(one.values);
        const std::vector<std::optional<Figures::FoundDrift>> drifts = Figures::FindDrifts(tests);
        std::vector<Numbered> rows;
        for (std::size_t i = 0; i < series.size(); ++i)
            if (FitsAny(options.names, series[i].item.ident, series[i].item.path))
                rows.push_back({RowOf(series[i], drifts[i], options.values), i});
        std::stable_sort(rows.begin(), rows.end(), [](const Numbered& one, const Numbered& other) {
            const MeasureRow& a = one.row;
            const MeasureRow& b = other.row;
            if (a.cpk != b.cpk)
                return a.cpk && (!b.cpk || *a.cpk < *b.cpk);
            return std::tie(a.path, a.group, a.ident, a.lower, a.upper) <
                   std::tie(b.path, b.group, b.ident, b.lower, b.upper);
        });
        return rows;
    }

    std::vector<MeasuredValue> ValuesOf(const MeasuredSeries& series) const
    {
        std::vector<MeasuredValue> values;
        values.reserve(series.values.size());
        for (std::size_t i = 0; i < series.values.size(); ++i) {
            const RunPlace& place = PlaceOf(series, i);
            values.push_back({place.serial, place.lot, place.start, series.values[i],
                              VerdictOf(series.codes[i]), series.codes[i]});
        }
        return values;
    }

private:
    const RunPlace& PlaceOf(const MeasuredSeries& series, std::size_t value) const
    {
        return m_reader.PlaceOf(series.runs[value]);
    }

    MeasureRow RowOf(const MeasuredSeries& series, const std::optional<Figures::FoundDrift>& drift,
                     bool withValues) const
    {
        MeasureRow row = FilledRow(series.item, FiguresOf(series));
        row.group = m_reader.GetPrograms().GroupOf(series.item.program);
        if (drift) {
            const bool isTrend = drift->kind == Figures::FoundDrift::Kind::Trend;
            row.drift = Drift{isTrend ? QStringLiteral("trend") : QStringLiteral("step"), drift->p,
                              drift->sigmas, PlaceOf(series, drift->since), drift->since};
        }
        for (const Figures::NelsonHit& hit : Figures::NelsonHits(series.values))
            row.rules.push_back({hit.rule, PlaceOf(series, hit.since), hit.since});
        if (withValues)
            row.values = ValuesOf(series);
        return row;
    }

    SeriesReader& m_reader;
};

} // namespace

bool FitsMeasurement(const QString& name, const QString& ident, const QString& path)
{
    return name == ident || name == path || path.endsWith(QLatin1String(" / ") + name);
}

bool FitsAny(const QStringList& names, const QString& ident, const QString& path)
{
    return names.isEmpty() || std::any_of(names.begin(), names.end(), [&](const QString& name) {
               return FitsMeasurement(name, ident, path);
           });
}

std::optional<std::vector<MeasureRow>> AskMeasures(const Archive& archive, const RunFilter& filter,
                                                   const MeasureOptions& options)
{
    if (!options.by.empty())
        return AskMeasuresBy(archive, filter, options);
    SeriesReader reader(archive, filter);
    if (!reader.Read())
        return std::nullopt;
    std::vector<MeasureRow> rows;
    for (Measures::Numbered& one : Measures(reader).Rows(options))
        rows.push_back(std::move(one.row));
    return rows;
}

class MeasureAnswer::Private {
public:
    Private(const Archive& archive, const RunFilter& filter)
        : reader(archive, filter)
    {
    }

    SeriesReader reader;
    std::vector<MeasureRow> rows;
    std::vector<std::size_t> series; ///< of each row
};

MeasureAnswer::MeasureAnswer() = default;
MeasureAnswer::~MeasureAnswer() = default;

bool MeasureAnswer::Ask(const Archive& archive, const RunFilter& filter)
{
    d = std::make_unique<Private>(archive, filter);
    if (!d->reader.Read())
        return false;
    for (Measures::Numbered& one : Measures(d->reader).Rows({})) {
        d->rows.push_back(std::move(one.row));
        d->series.push_back(one.series);
    }
    return true;
}

const std::vector<MeasureRow>& MeasureAnswer::GetRows() const
{
    return d->rows;
}

MeasuredNumbers MeasureAnswer::NumbersOf(std::size_t row) const
{
    const MeasuredSeries& series = d->reader.GetSeries()[d->series[row]];
    return {series.values, series.codes};
}

const RunPlace& MeasureAnswer::PlaceOf(std::size_t row, std::size_t number) const
{
    return d->reader.PlaceOf(d->reader.GetSeries()[d->series[row]].runs[number]);
}

} // namespace ZYN
