#include "commands/Command.h"
#include "files/SafeOutput.h"
#include "kinds/ReportFile.h"
#include "lots/LotReader.h"
#include "lots/LotSummary.h"
#include "terminal/Terminal.h"
#include "terminal/Texts.h"
#include "terminal/Usage.h"

#include <ZYNPersistence/CExportServiceStatistics.h>

#include <QtCore/QFileInfo>

#include <memory>

namespace ZYN::Tool {

namespace {

const QString command = QStringLiteral("statistics");

// Remarks about a lot that is mixed throughout would bury everything else.
constexpr qsizetype RemarksShown = 20;

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
        return WrongUsage(command, Texts::tr("the format is not clear"), Texts::tr("add -f CSV or -f XML"));
    CExportServiceStatistics service;
    if (!service.SetFormat(format))
        return WrongUsage(command, Texts::tr("there are no statistics as %1").arg(format),
                          Texts::tr("choose CSV or XML"));
    return ExitGood;
}

void PrintRemarks(const LotReader& lot, const Manners& manners)
{
    const QStringList remarks = lot.GetRemarks(manners.verbose);
    const qsizetype shown = manners.verbose ? remarks.size() : qMin(RemarksShown, remarks.size());
    for (const QString& remark : remarks.mid(0, shown))
        PrintNote(remark);
    if (shown < remarks.size())
        PrintNote(Texts::tr("and %n remarks more; -v shows all", nullptr, int(remarks.size() - shown)));
}

// Writes the file with the figures; nothing when none is wanted.
std::optional<Problem> Write(const LotReader& lot, const Arguments& arguments, SafeOutput* output)
{
    if (!output)
        return std::nullopt;
    CExportServiceStatistics service;
    service.SetFormat(FormatOf(arguments));
    service.SetUseScaledData(arguments.scaled);
    service.SetOutputFileName(output->TemporaryName());
    if (!service.Export(lot.GetReport()) || !service.OutputComplete())
        return output->WriteProblem();
    return output->Commit();
}

// The summary, unless standard output has the figures.
void PrintSummary(const LotReader& lot, const Arguments& arguments, const Manners& manners)
{
    if (arguments.json) {
        for (const QJsonObject& program : LotToJson(lot.GetRuns(), lot.GetReport()))
            PrintJsonLine(program);
    } else if (!manners.quiet && !IsStandardOutput(PathOf(arguments.file))) {
        Print(DescribeLot(lot.GetRuns(), lot.GetReport()));
    }
}

int Run(const Arguments& arguments, const Manners& manners)
{
    if (const int usage = CheckUsage(arguments, FormatOf(arguments)))
        return usage;
    QList<Problem> problems;
    const QList<Input> inputs = ExpandInputs(arguments.inputs, ReportExtensions(), &problems);
    std::unique_ptr<SafeOutput> output;
    std::optional<Problem> failure;
    if (!arguments.file.empty()) {
        output = std::make_unique<SafeOutput>(PathOf(arguments.file), arguments.force);
        failure = output->Refusal();
        if (!failure)
            failure = InputFiles(inputs).Refusal(PathOf(arguments.file));
    }
    if (failure) {
        PrintProblem(*failure);
        return ExitFailed;
    }

    LotReader lot(inputs);
    {
        Progress progress(inputs.size(), !manners.quiet);
        lot.Read(progress);
    }
    problems += lot.GetProblems();
    if (lot.GetReportCount() == 0) {
        problems.append({{}, 0, Texts::tr("no report could be read"), Texts::tr("nothing is written")});
    } else {
        if ((failure = Write(lot, arguments, output.get())))
            problems.append(*failure);
        PrintSummary(lot, arguments, manners);
        FlushOutput(); // before the remarks, on a terminal
    }
    if (!manners.quiet)
        PrintRemarks(lot, manners);
    for (const Problem& problem : problems)
        PrintProblem(problem);
    return problems.isEmpty() ? ExitGood : ExitFailed;
}

} // namespace

Command StatisticsCommand(CommandLine& zyn, const Manners& manners)
{
    CommandLine statistics = zyn.Subcommand("statistics", Texts::tr("Summarise the reports of a lot"));
    const auto arguments = std::make_shared<Arguments>();
    statistics.Inputs("INPUT", arguments->inputs,
                      Texts::tr("Reports, folders of reports, or - for standard input"));
    statistics
        .Value("-o,--output", arguments->file,
               Texts::tr("File for the figures; its extension chooses the format; - for standard output"))
        .Named(Texts::tr("FILE"));
    statistics.Value("-f,--format", arguments->format, Texts::tr("CSV or XML")).Named(Texts::tr("FORMAT"));
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
