#include "commands/Command.h"
#include "files/Inputs.h"
#include "kinds/FileKind.h"
#include "terminal/Terminal.h"
#include "terminal/Texts.h"
#include "terminal/Usage.h"

namespace ZYN::Tool {

namespace {

struct Arguments {
    std::vector<std::string> inputs;
    ShowOptions options;
    bool json = false;
};

std::optional<Problem> ShowJson(const FileKind& kind, const Input& input, const ShowOptions& options)
{
    if (kind.printJson)
        return kind.printJson(input.path, input.name, options);
    QJsonObject object;
    const std::optional<Problem> problem = kind.toJson(input.path, input.name, options, &object);
    if (object.isEmpty())
        return problem;
    object.insert(QStringLiteral("file"), input.name);
    PrintJsonLine(object);
    return problem;
}

int Run(const Arguments& arguments)
{
    QList<Problem> problems;
    const QList<Input> inputs = ExpandInputs(arguments.inputs, KnownExtensions(), &problems);
    for (const Input& input : inputs) {
        if (!arguments.json)
            SeparateNext();
        std::optional<Problem> problem;
        if (const FileKind* const kind = KindOf(input.path, input.name, &problem))
            problem = arguments.json ? ShowJson(*kind, input, arguments.options)
                                     : kind->show(input.path, input.name, arguments.options);
        if (problem)
            problems.append(*problem);
    }
    FlushOutput(); // before the problems, on a terminal
    for (const Problem& problem : problems)
        PrintProblem(problem);
    return problems.isEmpty() ? ExitGood : ExitFailed;
}

} // namespace

Command ShowCommand(CommandLine& zyn, const Manners&)
{
    CommandLine show = zyn.Subcommand("show", Texts::tr("Show what a file holds"));
    const auto arguments = std::make_shared<Arguments>();
    show.Inputs("FILE", arguments->inputs, Texts::tr("Files, folders, or - for standard input"));
    show.Flag("--failed", arguments->options.failedOnly, Texts::tr("Only what failed"));
    show.Flag("--map", arguments->options.withMap,
              Texts::tr("STDF: also the wafers, a character for each die"));
    show.Flag("--json", arguments->json, Texts::tr("For programs: one JSON object a line"));
    show.Footer(Texts::tr("Colours are used on a terminal, unless NO_COLOR is set."),
                {"zyn show panel-0007.zyr", "zyn show --failed lot/ | less",
                 "zyn show --json lot/*.zyr | jq -r 'select(.code < 0) | .serial'"});
    return {show, [=] { return Run(*arguments); }, {}};
}

} // namespace ZYN::Tool
