#include "archive/SummaryCell.h"

#include "archive/ArrayReader.h"
#include "archive/StartOfRun.h"

#include <algorithm>
#include <array>

namespace ZYN {

namespace {

using Figures::MeasuredFigures;
using Figures::Moments;

constexpr std::int64_t minute = 60'000;

constexpr std::size_t columnCount = 13;
using Row = std::array<double, columnCount>; // in the order of the columns

Row RowOf(const MeasuredFigures& figures)
{
    const Moments::State& all = figures.all.GetState();
    const Moments::State& passed = figures.passed.GetState();
    return {double(figures.results),
            double(figures.failed),
            double(figures.notNumbers),
            double(all.count),
            all.first,
            all.mean,
            all.squares,
            all.min,
            all.max,
            double(passed.count),
            passed.first,
            passed.mean,
            passed.squares};
}

MeasuredFigures FiguresOf(const Row& row)
{
    const auto whole = [&](std::size_t column) { return std::int64_t(row[column]); };
    MeasuredFigures figures;
    figures.results = whole(0);
    figures.failed = whole(1);
    figures.notNumbers = whole(2);
    if (row[3] > 0)
        figures.all = Moments({whole(3), row[4], row[5], row[6], row[7], row[8]});
    // The extremes of those that passed are asked by nobody.
    if (row[9] > 0)
        figures.passed = Moments({whole(9), row[10], row[11], row[12], row[7], row[8]});
    return figures;
}

} // namespace

qint64 DayOf(std::int64_t start, const std::optional<int>& utcOffset)
{
    if (start == unreadableStart)
        return unreadableDay;
    constexpr std::int64_t before = 20'000'000; // days; divisions round towards 0
    return (start + utcOffset.value_or(0) * minute + before * millisecondsOfDay) / millisecondsOfDay - before;
}

MeasuredFigures& SummaryCell::At(std::size_t position)
{
    if (figures.size() <= position)
        figures.resize(position + 1);
    return figures[position];
}

void SummaryCell::Add(const Run& run)
{
    ++runs;
    auto text = run.texts.begin();
    for (std::size_t position = 0; position < run.codes.size(); ++position) {
        if (run.codes[position] == Run::NoCode)
            continue;
        const bool isNumber = !std::isnan(run.values[position]);
        if (!isNumber)
            text =
                std::find_if(text, run.texts.end(), [&](const auto& one) { return one.first >= position; });
        if (isNumber || text == run.texts.end() || text->first != position)
            At(position).Add(run.values[position], run.codes[position]);
        else
            At(position).AddText(NumberOfText(text->second), run.codes[position]);
    }
}

void SummaryCell::AddKept(const QByteArray& values, const QByteArray& codes, const QByteArray& texts)
{
    ++runs;
    const std::vector<std::pair<int, double>> numbers =
        texts.isEmpty() ? std::vector<std::pair<int, double>>() : NumbersByPosition(texts);
    ArrayReader value(values), code(codes);
    for (std::size_t position = 0; !code.IsAtEnd() && !value.IsAtEnd(); ++position) {
        const std::optional<int> verdict = code.Integer();
        const double number = value.Number();
        if (!verdict)
            continue;
        const auto text = !std::isnan(number)
                              ? numbers.end()
                              : std::find_if(numbers.begin(), numbers.end(), [&](const auto& one) {
                                    return std::size_t(one.first) == position;
                                });
        if (text == numbers.end())
            At(position).Add(number, *verdict);
        else
            At(position).AddText(std::isnan(text->second) ? std::nullopt : std::optional(text->second),
                                 *verdict);
    }
}

void SummaryCell::Merge(const SummaryCell& other)
{
    runs += other.runs;
    for (std::size_t position = 0; position < other.figures.size(); ++position)
        At(position).Merge(other.figures[position]);
}

const QStringList& SummaryColumns()
{
    static const QStringList names{
        QStringLiteral("results"),       QStringLiteral("failed"),        QStringLiteral("not_numbers"),
        QStringLiteral("counts"),        QStringLiteral("firsts"),        QStringLiteral("means"),
        QStringLiteral("squares"),       QStringLiteral("mins"),          QStringLiteral("maxs"),
        QStringLiteral("passed_counts"), QStringLiteral("passed_firsts"), QStringLiteral("passed_means"),
        QStringLiteral("passed_squares")};
    return names;
}

QVariantList ArraysOfSummary(const SummaryCell& cell, ArrayStyle style)
{
    std::array<std::vector<double>, columnCount> columns;
    for (const MeasuredFigures& figures : cell.figures) {
        const Row row = RowOf(figures);
        for (std::size_t column = 0; column < columnCount; ++column)
            columns[column].push_back(row[column]);
    }
    QVariantList arrays;
    for (const std::vector<double>& column : columns)
        arrays.append(ArrayOf(column, style));
    return arrays;
}

std::vector<MeasuredFigures> FiguresOfSummary(const QList<QByteArray>& arrays,
                                              const std::vector<bool>& positions)
{
    std::vector<ArrayReader> readers;
    for (const QByteArray& array : arrays)
        readers.emplace_back(array);
    std::vector<MeasuredFigures> figures;
    while (!readers.front().IsAtEnd()) {
        const bool isWanted =
            positions.empty() || (figures.size() < positions.size() && positions[figures.size()]);
        Row row{};
        for (std::size_t column = 0; column < columnCount; ++column) {
            if (isWanted)
                row[column] = readers[column].Number();
            else
                readers[column].Skip();
        }
        figures.push_back(isWanted ? FiguresOf(row) : MeasuredFigures());
    }
    return figures;
}

} // namespace ZYN
