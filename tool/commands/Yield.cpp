#include "commands/Command.h"
#include "questions/FigureText.h"
#include "questions/GroupArgument.h"
#include "questions/QuestionOptions.h"
#include "terminal/Blocks.h"
#include "terminal/Table.h"
#include "terminal/Texts.h"

#include "archive/questions/AnswerKeys.h"

namespace ZYN::Tool {

namespace {

constexpr int barColumns = 12;

struct Arguments {
    QuestionOptions options{"yield"};
    GroupArgument by;
};

AnswerRow AnswerOf(const YieldRow& row)
{
    AnswerRow answer(row.group);
    FillRecord(row, answer);
    return answer;
}

double LostShare(const YieldRow& row)
{
    return row.units > 0 ? double(row.units - row.passed) / double(row.units) : 0;
}

void Print(const std::vector<YieldRow>& rows)
{
    using Side = TableColumn::Side;
    QList<TableColumn> columns;
    for (const auto& [name, value] : rows.front().group)
        columns.append({TitleOfGroup(name), Side::Left, true});
    columns.append({{Texts::tr("Yield"), Side::Right},
                    {Texts::tr("First-pass yield"), Side::Right},
                    {Texts::tr("Not passed")},
                    {Texts::tr("Runs"), Side::Right},
                    {Texts::tr("Failed"), Side::Right},
                    {Texts::tr("Aborted"), Side::Right},
                    {Texts::tr("Errors"), Side::Right},
                    {Texts::tr("Not tested"), Side::Right}});
    double most = 0;
    for (const YieldRow& row : rows)
        most = qMax(most, LostShare(row));
    const auto count = [](std::int64_t number) { return number == 0 ? QString() : QString::number(number); };
    Table table(columns);
    for (const YieldRow& row : rows) {
        QList<TableCell> cells;
        for (const auto& [name, value] : row.group)
            cells.append(value.isEmpty() && name != AnswerKeys::BinName
                             ? TableCell(Texts::tr("(none)"), Style::Dim)
                             : TableCell(Harmless(value)));
        // Bars compare groups; there is nothing to compare one with.
        const QString bar = rows.size() > 1 && most > 0 ? Bar(LostShare(row) / most, barColumns) : QString();
        cells.append({ShareText(row.passed, row.units),
                      ShareText(row.firstPass, row.firstRuns),
                      {bar, Style::Bad},
                      QString::number(row.runs),
                      count(row.failed),
                      count(row.aborted),
                      count(row.errors),
                      count(row.notTested)});
        table.Add(cells);
    }
    table.Print();
}

int Run(const Arguments& arguments, const Manners& manners)
{
    RunFilter filter;
    std::vector<GroupBy> by;
    if (const std::optional<int> code = arguments.options.Check(&filter))
        return *code;
    if (const std::optional<int> code = arguments.by.Check(arguments.options, &by))
        return *code;
    return arguments.options.Run(filter, false, manners, [&](const QuestionOptions::Asked& asked) {
        const std::optional<std::vector<YieldRow>> rows = AskYield(asked.archive, asked.filter, by);
        if (!rows)
            return std::optional<QuestionOptions::Reply>();
        QuestionOptions::Reply reply{.empty = AnswerOf({}), .print = [rows] { Print(*rows); }};
        for (const YieldRow& row : *rows)
            reply.answer.push_back(AnswerOf(row));
        return std::optional(reply);
    });
}

} // namespace

Command YieldCommand(CommandLine& zyn, const Manners& manners)
{
    CommandLine yield =
        zyn.Subcommand("yield", Texts::tr("Tell how many units passed, and how many at once"));
    const auto arguments = std::make_shared<Arguments>();
    arguments->options.Describe(yield);
    arguments->by.Describe(yield);
    yield.Footer(
        Texts::tr(
            "A unit passed when its last run did, and at once when its first run did. Times are in their\n"
            "order, other groups with the worst on top: 1 of 2 is not worse than 80 of 200."),
        {"zyn yield lot/", "zyn yield line.zya --by day --since 2026-11-01",
         "zyn yield line.zya --by station,position --product MCB-48",
         "zyn yield line.zya --by week --json | jq .first_pass"});
    return {yield, [=, &manners] { return Run(*arguments, manners); }, {}};
}

} // namespace ZYN::Tool
