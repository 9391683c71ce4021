#include "commands/Command.h"
#include "files/SafeOutput.h"
#include "files/Workbook.h"
#include "kinds/ReportFile.h"
#include "loading/InputRuns.h"
#include "loading/LoadAccount.h"
#include "lots/CountedSets.h"
#include "lots/FigureSheet.h"
#include "lots/LotReader.h"
#include "questions/Summary.h"
#include "terminal/Terminal.h"
#include "terminal/Texts.h"
#include "terminal/Usage.h"

#include <ZYNPersistence/CExportServiceStatistics.h>

#include <QtCore/QFileInfo>

#include <algorithm>
#include <memory>

namespace ZYN::Tool {

namespace {

const QString command = QStringLiteral("statistics");
const QString sheetFormat = QStringLiteral("XLSX");

struct Arguments {
    std::vector<std::string> inputs;
    std::string file;
    std::string format;
    bool scaled = false;
    bool json = false;
    bool force = false;
};

QString FormatOf(const Arguments& arguments)
{
    if (!arguments.format.empty())
        return QString::fromStdString(arguments.format).trimmed().toUpper();
    if (IsWorkbook(PathOf(arguments.file)))
        return sheetFormat;
    // Only the end of the name counts, whatever its folders are called.
    return CExportServiceStatistics::FormatForExtension(QLatin1Char('.') +
                                                        QFileInfo(PathOf(arguments.file)).suffix().toLower());
}

// 0 when the command line makes sense.
int CheckUsage(const Arguments& arguments, const QString& format)
{
    if (arguments.file.empty()) {
        if (arguments.format.empty() && !arguments.scaled && !arguments.force)
            return ExitGood;
        return WrongUsage(command, Texts::tr("-f, --scaled and --force are for a file with the figures"),
                          Texts::tr("add -o FILE, or -o - for standard output"));
    }
    if (IsStandardOutput(PathOf(arguments.file)) && arguments.json)
        return WrongUsage(command, Texts::tr("-o - and --json both want standard output"),
                          Texts::tr("leave one of them away"));
    if (format.isEmpty())
        return WrongUsage(command, Texts::tr("the format is not clear"),
                          Texts::tr("add -f CSV, -f XML or -f XLSX"));
    CExportServiceStatistics service;
    if (format != sheetFormat && !service.SetFormat(format))
        return WrongUsage(command, Texts::tr("there are no statistics as %1").arg(format),
                          Texts::tr("choose CSV, XML or XLSX"));
    return ExitGood;
}

// Writes the file with the figures; nothing when none is wanted.
std::optional<Problem> Write(const LotReader& lot, const Arguments& arguments, SafeOutput* output)
{
    if (!output)
        return std::nullopt;
    if (FormatOf(arguments) == sheetFormat)
        return WriteFigureSheet(*lot.GetReport(), arguments.scaled, output->TemporaryName())
                   ? output->WriteProblem()
                   : output->Commit();
    CExportServiceStatistics service;
    service.SetFormat(FormatOf(arguments));
    service.SetUseScaledData(arguments.scaled);
    service.SetOutputFileName(output->TemporaryName());
    if (!service.Export(lot.GetReport()) || !service.OutputComplete())
        return output->WriteProblem();
    return output->Commit();
}

// The summary, unless standard output has the figures.
void PrintSummary(const Summary& summary, const Arguments& arguments, const Manners& manners)
{
    if (arguments.json) {
        for (const QJsonObject& program : summary.ToJson())
            PrintJsonLine(program);
    } else if (!manners.quiet && !IsStandardOutput(PathOf(arguments.file))) {
        Print(summary.ToText());
    }
    FlushOutput(); // before the remarks, on a terminal
}

int Fail(const Problem& problem)
{
    PrintProblem(problem);
    return ExitFailed;
}

// Asks the archive that holds the runs of the reports, which the file with the figures is made of as well.
int Tell(const Archive& archive, const QList<Input>& inputs, const QList<Problem>& unread,
         const Arguments& arguments, SafeOutput* output, const Manners& manners)
{
    const std::optional<Summary> summary = Summary::Ask(archive);
    const std::optional<QStringList> notes = AskNotes(archive, {});
    const std::optional<std::vector<SourcePlace>> places = AskPlaces(archive);
    if (!summary || !notes || !places)
        return Fail({{}, 0, archive.GetErrorText(), {}});
    const CountedSets counted(*places);
    LotReader lot(inputs, counted);
    {
        Progress progress(inputs.size(), !manners.quiet);
        lot.Read(progress);
    }
    QList<Problem> problems = lot.GetProblems();
    // The model's reader knows more kinds of files and tells more about them.
    for (const Problem& problem : unread)
        if (std::none_of(problems.begin(), problems.end(),
                         [&](const Problem& told) { return told.file == problem.file; }))
            problems.append(problem);
    if (lot.GetReportCount() == 0)
        problems.append({{}, 0, Texts::tr("no report could be read"), Texts::tr("nothing is written")});
    else if (const std::optional<Problem> failure = Write(lot, arguments, output))
        problems.append(*failure);
    if (lot.GetReportCount() > 0)
        PrintSummary(*summary, arguments, manners);
    Remarks remarks(manners);
    remarks.Add(*notes);
    remarks.Add(lot.GetRemarks(manners.verbose));
    remarks.Close();
    for (const Problem& problem : problems)
        PrintProblem(problem);
    return problems.isEmpty() ? ExitGood : ExitFailed;
}

int Run(const Arguments& arguments, const Manners& manners)
{
    if (const int usage = CheckUsage(arguments, FormatOf(arguments)))
        return usage;
    QList<Problem> problems;
    const QList<Input> inputs = ExpandInputs(arguments.inputs, RunExtensions(), &problems);
    std::unique_ptr<SafeOutput> output;
    if (!arguments.file.empty()) {
        output = std::make_unique<SafeOutput>(PathOf(arguments.file), arguments.force);
        std::optional<Problem> refusal = output->Refusal();
        if (!refusal)
            refusal = InputFiles(inputs).Refusal(PathOf(arguments.file));
        if (refusal)
            return Fail(*refusal);
    }

    Archive archive;
    LoadAccount account(true, manners);
    const auto take = [&](const LoadedInput& loaded) {
        if (loaded.problem)
            problems.append(*loaded.problem);
        else
            account.Take(loaded);
    };
    if (!archive.OpenTemporary(true))
        return Fail({{}, 0, archive.GetErrorText(), {}});
    if (const std::optional<Problem> failure = LoadRuns(archive, inputs, !manners.quiet, take))
        return Fail(*failure);
    account.Close();
    return Tell(archive, inputs, problems, arguments, output.get(), manners);
}

} // namespace

Command StatisticsCommand(CommandLine& zyn, const Manners& manners)
{
    CommandLine statistics = zyn.Subcommand("statistics", Texts::tr("Summarise the reports of a lot"));
    const auto arguments = std::make_shared<Arguments>();
    statistics.Inputs("INPUT", arguments->inputs,
                      Texts::tr("Reports, STDF lots, folders of them, or - for standard input"));
    statistics
        .Value("-o,--output", arguments->file,
               Texts::tr("File for the figures; its extension chooses the format; - for standard output"))
        .Named(Texts::tr("FILE"));
    statistics.Value("-f,--format", arguments->format, Texts::tr("CSV, XML or XLSX"))
        .Named(Texts::tr("FORMAT"));
    statistics.Flag("--scaled", arguments->scaled, Texts::tr("Values with the prefixes of their units"));
    statistics.Flag("--json", arguments->json,
                    Texts::tr("For programs: the summary as a JSON object a program and line"));
    statistics.Flag("--force", arguments->force, Texts::tr("Replace an existing file"));
    statistics.Footer(
        Texts::tr(
            "Prints the yield, the first-pass yield, what failed first and the smallest CPK; what is odd\n"
            "about the lot goes to standard error."),
        {"zyn statistics lot/", "zyn statistics lot/ -o lot.csv --scaled",
         "zyn statistics monday/ tuesday/ -o week.xml"});
    return {statistics, [=, &manners] { return Run(*arguments, manners); }, {}};
}

} // namespace ZYN::Tool
