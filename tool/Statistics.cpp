#include "Command.h"
#include "LotReader.h"
#include "LotSummary.h"
#include "ReportFile.h"
#include "SafeOutput.h"
#include "Terminal.h"
#include "Texts.h"
#include "Usage.h"

#include <ZYNPersistence/CExportServiceStatistics.h>

#include <QtCore/QFileInfo>

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
int CheckUsage(const QString& format)
{
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

std::optional<Problem> Write(const LotReader& lot, const Arguments& arguments, const QString& format,
                             SafeOutput& output)
{
    CExportServiceStatistics service;
    service.SetFormat(format);
    service.SetUseScaledData(arguments.scaled);
    service.SetOutputFileName(output.TemporaryName());
    if (!service.Export(lot.GetReport()) || !service.OutputComplete())
        return output.WriteProblem();
    return output.Commit();
}

int Run(const Arguments& arguments, const Manners& manners)
{
    const QString format = FormatOf(arguments);
    if (const int usage = CheckUsage(format))
        return usage;
    QList<Problem> problems;
    const QList<Input> inputs = ExpandInputs(arguments.inputs, ReportExtensions(), &problems);
    SafeOutput output(PathOf(arguments.file), arguments.force);
    std::optional<Problem> failure = output.Refusal();
    if (!failure)
        failure = InputFiles(inputs).Refusal(PathOf(arguments.file));
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
    if (lot.GetReportCount() == 0)
        problems.append({{}, 0, Texts::tr("no report could be read"), Texts::tr("nothing is written")});
    else if ((failure = Write(lot, arguments, format, output)))
        problems.append(*failure);

    if (lot.GetReportCount() > 0) {
        if (arguments.json) {
            for (const QJsonObject& program : LotToJson(lot.GetRuns(), lot.GetReport()))
                PrintJsonLine(program);
        } else if (!manners.quiet) {
            Print(DescribeLot(lot.GetRuns(), lot.GetReport()));
        }
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
        .Value("-o,--output", arguments->file, Texts::tr("File to write; its extension chooses the format"))
        .Named(Texts::tr("FILE"))
        .Required();
    statistics.Value("-f,--format", arguments->format, Texts::tr("CSV or XML")).Named(Texts::tr("FORMAT"));
    statistics.Flag("--scaled", arguments->scaled, Texts::tr("Values with the prefixes of their units"));
    statistics.Flag("--json", arguments->json, Texts::tr("For programs: the summary as a JSON object"));
    statistics.Flag("--force", arguments->force, Texts::tr("Replace an existing file"));
    statistics.Footer(
        Texts::tr("Prints the yield, the first-pass yield, the steps that failed most and the smallest CPK;\n"
                  "what is odd about the lot goes to standard error."),
        {"zyn statistics lot/ -o lot.csv --scaled", "zyn statistics monday/ tuesday/ -o week.xml"});
    return {statistics, [=, &manners] { return Run(*arguments, manners); }, {}};
}

} // namespace ZYN::Tool
