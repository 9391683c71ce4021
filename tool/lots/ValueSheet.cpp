#include "lots/ValueSheet.h"

#include "files/SafeOutput.h"
#include "files/Workbook.h"
#include "loading/InputRuns.h"
#include "terminal/Progress.h"

#include "archive/Questions.h"
#include "runs/files/RunItems.h"

#include <algorithm>
#include <cmath>

namespace ZYN::Tool {

namespace {

QStringList Titles()
{
    return QStringLiteral(
               "product lot serial ident panel position wafer start station program run run_verdict "
               "path component value unit lower upper verdict code seconds comment source")
        .split(QLatin1Char(' '));
}

SheetCell Text(const std::string& text)
{
    return {QString::fromStdString(text)};
}

SheetCell Number(double number)
{
    return std::isnan(number) ? SheetCell() : SheetCell{number};
}

template <typename Some>
SheetCell Number(const std::optional<Some>& number)
{
    return number ? SheetCell{double(*number)} : SheetCell();
}

SheetCell NumberOrText(const std::vector<double>& numbers, const Run::Texts& texts, std::uint32_t position)
{
    const std::string* const text = FindText(texts, position);
    return text ? Text(*text) : Number(numbers[position]);
}

/// Puts the rows of runs into a workbook.
class ValueRows {
public:
    explicit ValueRows(Workbook& workbook)
        : m_workbook(workbook)
    {
    }

    bool AreNone() const { return m_areNone; }

    void Add(const Run& run)
    {
        m_areNone = false;
        const QList<SheetCell> head = Head(run);
        const SheetCell source = Text(run.source);
        for (std::uint32_t position = 0; position < run.codes.size(); ++position)
            if (IsMeasuredAt(run, position))
                m_workbook.Add(head + Measurement(run, position) + QList<SheetCell>{source});
    }

private:
    static QList<SheetCell> Head(const Run& run)
    {
        return {Text(run.product),         Text(run.lot),          Text(run.serial),
                Text(run.ident),           Text(run.panel),        Number(run.position),
                Text(run.wafer),           Text(run.startText),    Text(run.station),
                Text(run.layout->program), {double(run.runIndex)}, {VerdictOf(run.code), run.code < 0}};
    }

    static QList<SheetCell> Measurement(const Run& run, std::uint32_t position)
    {
        const RunComponent& component = run.layout->components[position];
        const int code = run.codes[position];
        SheetCell value = NumberOrText(run.values, run.texts, position);
        value.isBad = code < 0;
        const std::string* const comment = FindText(run.comments, position);
        return {Text(component.path),
                Text(component.ident),
                value,
                Text(component.unit),
                run.limits ? NumberOrText(run.limits->lower, run.limits->lowerTexts, position) : SheetCell(),
                run.limits ? NumberOrText(run.limits->upper, run.limits->upperTexts, position) : SheetCell(),
                {VerdictOf(code), code < 0},
                {double(code), code < 0},
                Number(SecondsAt(run, position)),
                comment ? Text(*comment) : SheetCell()};
    }

    Workbook& m_workbook;
    bool m_areNone = true; ///< no run has come
};

} // namespace

QList<Conversion> WriteValueSheet(const QList<Input>& inputs, const QString& path, bool replace,
                                  const Manners& manners)
{
    SafeOutput output(path, replace);
    if (const std::optional<Problem> refusal = output.Refusal())
        return RefuseAll(inputs, *refusal);
    QList<Conversion> conversions;
    Workbook workbook(output.TemporaryName(), QStringLiteral("measurements"), Titles());
    ValueRows rows(workbook);
    InputRuns runs(inputs);
    Progress progress(inputs.size(), !manners.quiet);
    while (!runs.IsAtEnd()) {
        const InputRuns::Piece piece = runs.Take();
        for (const Run& run : piece.runs)
            rows.Add(run);
        if (!piece.isLast)
            continue;
        conversions.append({piece.input->name, path, piece.problem});
        progress.Step();
    }
    const bool isFailure = std::ranges::any_of(
        conversions, [](const Conversion& conversion) { return conversion.problem.has_value(); });
    if (isFailure && rows.AreNone())
        return conversions; // and no file
    std::optional<Problem> problem;
    if (workbook.Close())
        problem = output.WriteProblem();
    else
        problem = output.Commit();
    for (Conversion& conversion : conversions)
        if (problem)
            conversion.problem = problem;
    return conversions;
}

} // namespace ZYN::Tool
