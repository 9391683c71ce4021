#include "commands/Command.h"
#include "questions/FigureText.h"
#include "questions/QuestionOptions.h"
#include "terminal/Blocks.h"
#include "terminal/Table.h"
#include "terminal/Texts.h"

#include "archive/questions/AnswerKeys.h"

namespace ZYN::Tool {

namespace {

constexpr int barColumns = 16;

struct Arguments {
    QuestionOptions options{"failures"};
    bool all = false;
};

AnswerRow AnswerOf(const FailureRow& row)
{
    AnswerRow answer(row.group);
    FillRecord(row, answer);
    return answer;
}

void Print(const std::vector<FailureRow>& rows, bool all)
{
    using Side = TableColumn::Side;
    std::int64_t total = 0;
    for (const FailureRow& row : rows)
        total += row.first;
    QList<TableColumn> columns{
        {Texts::tr("Failed first"), Side::Right}, {QString()}, {Texts::tr("Failed"), Side::Right}};
    for (const auto& [name, value] : rows.front().group)
        columns.append({TitleOfGroup(name), Side::Left, true});
    columns.append({{Texts::tr("Ident")}, {Texts::tr("Path"), Side::Left, true}});
    Table table(columns);
    for (const FailureRow& row : rows) {
        const double most = double(qMax(std::int64_t(1), rows.front().first));
        QList<TableCell> cells{ShareText(row.first, total),
                               {Bar(double(row.first) / most, barColumns), Style::Bad},
                               all ? QString::number(row.all) : QString()};
        for (const auto& [name, value] : row.group)
            cells.append(Harmless(value));
        cells.append({Harmless(row.ident), Harmless(row.path)});
        table.Add(cells);
    }
    table.Print();
}

int Run(const Arguments& arguments, const Manners& manners)
{
    RunFilter filter;
    if (const std::optional<int> code = arguments.options.Check(&filter))
        return *code;
    return arguments.options.Run(filter, false, manners, [&](const QuestionOptions::Asked& asked) {
        const std::optional<std::vector<FailureRow>> rows =
            AskFailures(asked.archive, asked.filter, arguments.all);
        if (!rows)
            return std::optional<QuestionOptions::Reply>();
        QuestionOptions::Reply reply{.empty = AnswerOf({}),
                                     .print = [rows, &arguments] { Print(*rows, arguments.all); }};
        for (const FailureRow& row : *rows)
            reply.answer.push_back(AnswerOf(row));
        return std::optional(reply);
    });
}

} // namespace

Command FailuresCommand(CommandLine& zyn, const Manners& manners)
{
    CommandLine failures = zyn.Subcommand("failures", Texts::tr("Tell what failed, and how often"));
    const auto arguments = std::make_shared<Arguments>();
    arguments->options.Describe(failures);
    failures.Flag("--all", arguments->all,
                  Texts::tr("Every measurement that failed, not only what failed first in a run"));
    failures.Footer(
        Texts::tr(
            "Counts runs. What failed first is the first measurement that failed in the first step that\n"
            "failed; shares are of all first failures."),
        {"zyn failures lot/", "zyn failures line.zya --station T3 --since 2026-11-24",
         "zyn failures line.zya --all -o failures.csv"});
    return {failures, [=, &manners] { return Run(*arguments, manners); }, {}};
}

} // namespace ZYN::Tool
