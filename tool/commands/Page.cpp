#include "commands/Command.h"
#include "files/Inputs.h"
#include "files/SafeOutput.h"
#include "loading/RunSource.h"
#include "questions/QuestionOptions.h"
#include "terminal/Texts.h"

#include "page/LotPage.h"
#include "page/LotPdf.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

namespace ZYN::Tool {

namespace {

struct Arguments {
    QuestionOptions options{"page"};
    std::string file;
    bool force = false;
};

int Fail(const Problem& problem)
{
    PrintProblem(problem);
    return ExitFailed;
}

// Server addresses are named as they are shown elsewhere: without a password.
QStringList NamesOf(const Arguments& arguments, const Archive& archive)
{
    QStringList names;
    for (const std::string& input : arguments.options.GetInputs())
        names.append(Archive::IsArchive(PathOf(input)) ? archive.GetShownUrl() : PathOf(input));
    return names;
}

int Run(const Arguments& arguments, const Manners& manners)
{
    RunFilter filter;
    if (const std::optional<int> code = arguments.options.CheckRuns(&filter))
        return *code;
    const QString path = PathOf(arguments.file);
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix != QLatin1String("html") && suffix != QLatin1String("pdf"))
        return arguments.options.WrongValue(Texts::tr("%1: the format is not clear").arg(path),
                                            Texts::tr("give it a name that ends in .html or .pdf"));
    SafeOutput output(path, arguments.force);
    if (output.Refusal())
        return Fail(*output.Refusal());
    RunSource source;
    if (!source.Open(arguments.options.GetInputs(), QStringLiteral("page"), true, manners))
        return source.GetExitCode();
    const Archive& archive = source.GetArchive();
    const auto lots = Page::AskLots(archive, filter);
    if (!lots)
        return Fail({{}, 0, archive.GetErrorText(), {}});
    if (lots->empty())
        return Fail({{}, 0, Texts::tr("there is nothing to tell about the runs that were chosen"), {}});
    QFile file(output.TemporaryName());
    if (!file.open(QIODevice::WriteOnly))
        return Fail(output.WriteProblem());
    const auto write = suffix == QLatin1String("pdf") ? Page::WriteLotPdf : Page::WriteLotPage;
    if (!write(archive, {filter, *lots, NamesOf(arguments, archive)}, file) ||
        file.error() != QFileDevice::NoError)
        return Fail(archive.GetErrorText().isEmpty() ? output.WriteProblem()
                                                     : Problem{{}, 0, archive.GetErrorText(), {}});
    if (!file.flush())
        return Fail(output.WriteProblem());
    if (const std::optional<Problem> problem = output.Commit())
        return Fail(*problem);
    if (!manners.quiet && suffix == QLatin1String("html"))
        PrintNote(Texts::tr("%1: open it in a browser").arg(path));
    return source.GetExitCode();
}

} // namespace

Command PageCommand(CommandLine& zyn, const Manners& manners)
{
    CommandLine page =
        zyn.Subcommand("page", Texts::tr("Make a page about lots, to look at, print and mail"));
    const auto arguments = std::make_shared<Arguments>();
    arguments->options.DescribeRuns(page);
    page.Value("-o,--output", arguments->file, Texts::tr("File to write, which ends in .html or .pdf"))
        .Named(Texts::tr("FILE"))
        .Required();
    page.Flag("--force", arguments->force, Texts::tr("Replace an existing file"));
    page.Footer(
        Texts::tr(
            "One file without scripts: yield, failures, every measurement with its pictures, what drifts\n"
            "on top. As .pdf for paper, a measurement a third of a page."),
        {"zyn page lot/ -o lot.html", "zyn page line.zya --lot LOT-2024-077 -o lot.pdf"});
    return {page, [=, &manners] { return Run(*arguments, manners); }, [] { return true; }};
}

} // namespace ZYN::Tool
