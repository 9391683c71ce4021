#include "commands/Command.h"
#include "questions/FigureText.h"
#include "questions/QuestionOptions.h"
#include "questions/VerdictCell.h"
#include "terminal/Table.h"
#include "terminal/Texts.h"

#include "archive/questions/AnswerKeys.h"

namespace ZYN::Tool {

namespace {

struct Arguments {
    QuestionOptions options{"units"};
    UnitOptions wanted;
};

AnswerRow AnswerOf(const UnitRow& row)
{
    AnswerRow answer(row.group);
    FillRecord(row, answer);
    answer.Add("first_failure", row.firstFailure.isEmpty() ? QJsonValue() : QJsonValue(row.firstFailure));
    return answer;
}

void Print(const std::vector<UnitRow>& rows)
{
    using Side = TableColumn::Side;
    QList<TableColumn> columns{
        {Texts::tr("Serial")}, {Texts::tr("Product"), Side::Left, true}, {Texts::tr("Lot")}};
    for (const auto& [name, value] : rows.front().group)
        columns.append({TitleOfGroup(name), Side::Left, true});
    columns.append({{Texts::tr("Runs"), Side::Right},
                    {Texts::tr("First run")},
                    {Texts::tr("Last run")},
                    {Texts::tr("Failed first"), Side::Left, true}});
    Table table(columns);
    for (const UnitRow& row : rows) {
        QList<TableCell> cells{Harmless(row.serial), Harmless(row.product), Harmless(row.lot)};
        for (const auto& [name, value] : row.group)
            cells.append(Harmless(value));
        cells.append({QString::number(row.runs), VerdictCell(row.firstCode), VerdictCell(row.code),
                      Harmless(row.firstFailure)});
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
        const std::optional<std::vector<UnitRow>> rows =
            AskUnits(asked.archive, asked.filter, arguments.wanted);
        if (!rows)
            return std::optional<QuestionOptions::Reply>();
        QuestionOptions::Reply reply{.empty = AnswerOf({}), .print = [rows] { Print(*rows); }};
        for (const UnitRow& row : *rows)
            reply.answer.push_back(AnswerOf(row));
        return std::optional(reply);
    });
}

} // namespace

Command UnitsCommand(CommandLine& zyn, const Manners& manners)
{
    CommandLine units =
        zyn.Subcommand("units", Texts::tr("List units with the verdicts of their first and last run"));
    const auto arguments = std::make_shared<Arguments>();
    arguments->options.Describe(units);
    units.Flag("--failed", arguments->wanted.failed, Texts::tr("Only units whose last run did not pass"));
    units.Flag("--retested", arguments->wanted.retested, Texts::tr("Only units with several runs"));
    units.Footer({}, {"zyn units lot/ --failed", "zyn units line.zya --retested --since 2026-11-24",
                      "zyn units line.zya --failed --json | jq -r .serial"});
    return {units, [=, &manners] { return Run(*arguments, manners); }, {}};
}

} // namespace ZYN::Tool
