#include "commands/Command.h"
#include "questions/FigureText.h"
#include "questions/Nearest.h"
#include "questions/QuestionOptions.h"
#include "questions/VerdictCell.h"
#include "terminal/Table.h"
#include "terminal/Texts.h"

#include "archive/questions/AnswerKeys.h"

namespace ZYN::Tool {

namespace {

struct Arguments {
    QuestionOptions options{"history"};
    std::string serial;
};

QJsonValue NumberOrNull(const std::optional<double>& number)
{
    return number ? QJsonValue(*number) : QJsonValue();
}

AnswerRow AnswerOf(const HistoryRow& row)
{
    AnswerRow answer;
    FillRecord(row, answer);
    QJsonValue failure;
    if (row.firstFailure)
        failure = QJsonObject{{QStringLiteral("path"), row.firstFailure->path},
                              {QStringLiteral("value"), NumberOrNull(row.firstFailure->value)},
                              {QStringLiteral("unit"), row.firstFailure->unit},
                              {QStringLiteral("lower"), NumberOrNull(row.firstFailure->lower)},
                              {QStringLiteral("upper"), NumberOrNull(row.firstFailure->upper)}};
    answer.Add("first_failure", failure,
               {QStringLiteral("path"), QStringLiteral("value"), QStringLiteral("unit"),
                QStringLiteral("lower"), QStringLiteral("upper")});
    return answer;
}

void Print(const std::vector<HistoryRow>& rows)
{
    using Side = TableColumn::Side;
    Table table({{Texts::tr("Start")},
                 {Texts::tr("Product"), Side::Left, true},
                 {Texts::tr("Lot")},
                 {Texts::tr("Station")},
                 {Texts::tr("Program"), Side::Left, true},
                 {Texts::tr("Run"), Side::Right},
                 {Texts::tr("Verdict")},
                 {Texts::tr("Value"), Side::Right},
                 {Texts::tr("Limits")},
                 {Texts::tr("Failed first"), Side::Left, true}});
    for (const HistoryRow& row : rows) {
        const FirstFailure failure = row.firstFailure.value_or(FirstFailure());
        const Scale scale(failure.unit, failure.style);
        table.Add({Harmless(row.start),
                   Harmless(row.product),
                   Harmless(row.lot),
                   Harmless(row.station),
                   Harmless(row.program),
                   QString::number(row.run),
                   VerdictCell(row.code),
                   {scale.WithUnit(failure.value), Style::Bad},
                   scale.Limits(failure.lower, failure.upper),
                   Harmless(failure.path)});
    }
    table.Print();
}

// Nobody remembers serials to the letter.
bool TellUnknown(const Archive& archive, const QString& serial)
{
    const std::optional<QStringList> serials = AskSerials(archive);
    if (!serials)
        return false;
    if (serials->contains(serial))
        PrintProblem({{},
                      0,
                      Texts::tr("no run of unit '%1' is among those that were chosen").arg(Harmless(serial)),
                      Texts::tr("choose more of them")});
    else
        PrintProblem(
            {{}, 0, Texts::tr("there is no unit '%1'").arg(Harmless(serial)), Suggestion(serial, *serials)});
    return true;
}

int Run(const Arguments& arguments, const Manners& manners)
{
    RunFilter filter;
    if (const std::optional<int> code = arguments.options.Check(&filter))
        return *code;
    filter.serial = QString::fromStdString(arguments.serial);
    return arguments.options.Run(filter, true, manners, [&](const QuestionOptions::Asked& asked) {
        const std::optional<std::vector<HistoryRow>> rows = AskHistory(asked.archive, asked.filter);
        if (!rows || (rows->empty() && !TellUnknown(asked.archive, asked.filter.serial)))
            return std::optional<QuestionOptions::Reply>();
        QuestionOptions::Reply reply{
            .empty = AnswerOf({}), .print = [rows] { Print(*rows); }, .isGood = !rows->empty()};
        for (const HistoryRow& row : *rows)
            reply.answer.push_back(AnswerOf(row));
        return std::optional(reply);
    });
}

} // namespace

Command HistoryCommand(CommandLine& zyn, const Manners& manners)
{
    CommandLine history = zyn.Subcommand("history", Texts::tr("Tell all that happened to a unit"));
    const auto arguments = std::make_shared<Arguments>();
    history
        .Argument("SERIAL", arguments->serial,
                  Texts::tr("Serial of a unit or panel; its ident where it has none"))
        .Required();
    arguments->options.Describe(history, false);
    history.Footer(
        {}, {"zyn history SN-1042 line.zya", "zyn history SN-1042 lot/ --json | jq .first_failure.path"});
    return {history, [=, &manners] { return Run(*arguments, manners); }, {}};
}

} // namespace ZYN::Tool
