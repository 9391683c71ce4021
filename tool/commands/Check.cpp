#include "commands/Command.h"
#include "files/Inputs.h"
#include "files/Parallel.h"
#include "kinds/FileKind.h"
#include "terminal/Progress.h"
#include "terminal/Terminal.h"
#include "terminal/Texts.h"
#include "terminal/Usage.h"

namespace ZYN::Tool {

namespace {

struct Arguments {
    std::vector<std::string> inputs;
    bool json = false;
};

QList<Finding> Check(const Input& input)
{
    std::optional<Problem> problem;
    const FileKind* const kind = KindOf(input.path, input.name, &problem);
    if (!kind)
        return {{.text = problem->what + QStringLiteral("; ") + problem->remedy}};
    return kind->check(input.path);
}

void PrintFinding(const Input& input, const Finding& finding)
{
    QString place = input.name + QLatin1Char(':');
    if (finding.line > 0)
        place += QString::number(finding.line) + QLatin1Char(':');
    if (finding.offset >= 0)
        place += QStringLiteral("offset %1:").arg(finding.offset);
    if (finding.column > 0)
        place += QString::number(finding.column) + QLatin1Char(':');
    Print(Harmless(place) + QLatin1Char(' ') +
          (finding.isError ? QString() : Paint(Texts::tr("note:") + QLatin1Char(' '), Style::Odd)) +
          Harmless(finding.text) + QLatin1Char('\n'));
}

void PrintFindingJson(const Input& input, const Finding& finding)
{
    QJsonObject object{{QStringLiteral("file"), input.name},
                       {QStringLiteral("line"), finding.line},
                       {QStringLiteral("column"), finding.column},
                       {QStringLiteral("error"), finding.isError},
                       {QStringLiteral("text"), finding.text}};
    if (finding.offset >= 0)
        object.insert(QStringLiteral("offset"), finding.offset);
    PrintJsonLine(object);
}

int Run(const Arguments& arguments, const Manners& manners)
{
    QList<Problem> problems;
    const QList<Input> inputs = ExpandInputs(arguments.inputs, KnownExtensions(), &problems);
    std::vector<QList<Finding>> findings(size_t(inputs.size()));
    {
        Progress progress(inputs.size(), !manners.quiet);
        ForEachIndex(inputs.size(), AllCores(), [&](qsizetype index) {
            findings[size_t(index)] = Check(inputs.at(index));
            progress.Step();
        });
    }
    qsizetype faulty = problems.size();
    for (qsizetype i = 0; i < inputs.size(); ++i) {
        bool isFaulty = false;
        for (const Finding& finding : findings[size_t(i)]) {
            isFaulty |= finding.isError;
            arguments.json ? PrintFindingJson(inputs.at(i), finding) : PrintFinding(inputs.at(i), finding);
        }
        faulty += isFaulty;
        if (manners.verbose && !isFaulty)
            PrintNote(Texts::tr("%1: good").arg(inputs.at(i).name));
    }
    FlushOutput(); // before the problems, on a terminal
    for (const Problem& problem : problems)
        PrintProblem(problem);
    return faulty == 0 ? ExitGood : ExitFailed;
}

} // namespace

Command CheckCommand(CommandLine& zyn, const Manners& manners)
{
    CommandLine check =
        zyn.Subcommand("check", Texts::tr("Check whether files are well formed, known and complete"));
    const auto arguments = std::make_shared<Arguments>();
    check.Inputs("FILE", arguments->inputs, Texts::tr("Files, folders, or - for standard input"));
    check.Flag("--json", arguments->json, Texts::tr("For programs: one JSON object a finding and line"));
    check.Footer(
        Texts::tr("Prints one finding a line as FILE:LINE:COLUMN: text (STDF: FILE:offset N: text) and\n"
                  "exits with 1 if any is an error."),
        {"zyn check lot/", "zyn check --json bins.ini | jq .line"});
    return {check, [=, &manners] { return Run(*arguments, manners); }, {}};
}

} // namespace ZYN::Tool
