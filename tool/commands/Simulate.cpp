#include "commands/Command.h"
#include "commands/Stations.h"
#include "files/Inputs.h"
#include "files/Parallel.h"
#include "files/SafeOutput.h"
#include "kinds/ReportConversion.h"
#include "terminal/Progress.h"
#include "terminal/Texts.h"
#include "terminal/Usage.h"

#include "examples/line_simulator/Bins.h"
#include "examples/line_simulator/BusyStation.h"
#include "examples/line_simulator/Line.h"

#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNPersistence/CExportServiceTestPlan.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QMap>

#include <mutex>

namespace ZYN::Tool {

namespace {

struct Arguments {
    std::string folder;
    int panels = 10;
    bool force = false;
    Simulation::LineSettings line;
    StationSettings stations;
};

std::optional<Problem> WriteTestPlan(const Simulation::Line& line, const QString& path, bool replace)
{
    SafeOutput output(path, replace);
    if (const std::optional<Problem> refusal = output.Refusal())
        return refusal;
    CExportServiceTestPlan service(false);
    service.SetOutputFileName(output.TemporaryName());
    const QSharedPointer<TestProgram> program = line.Program();
    if (!service.Export(program.data()) || !service.OutputComplete())
        return output.WriteProblem();
    return output.Commit();
}

std::optional<Problem> WriteBins(const QString& path, bool replace)
{
    SafeOutput output(path, replace);
    if (const std::optional<Problem> refusal = output.Refusal())
        return refusal;
    const QByteArray bins = Simulation::BinsIni();
    QFile file(output.TemporaryName());
    if (!file.open(QIODevice::WriteOnly) || file.write(bins) != bins.size() || !file.flush())
        return output.WriteProblem();
    return output.Commit();
}

// The panels on all cores, each thread with a line of its own; failures in the order of the panels.
QList<Problem> WritePanels(const Arguments& arguments, const QDir& folder, bool showProgress)
{
    const int threads = AllCores();
    const int digits = qMax(4, int(QString::number(arguments.panels).size()));
    QMap<int, Problem> failures;
    std::mutex failuresMutex;
    std::atomic<int> next = 0;
    Progress progress(arguments.panels, showProgress);
    ForEachIndex(threads, threads, [&](qsizetype) {
        const Simulation::Line line(arguments.line);
        for (int panel = ++next; panel <= arguments.panels; panel = ++next) {
            const QString name = QStringLiteral("panel-%1.zyr").arg(panel, digits, 10, QLatin1Char('0'));
            const std::optional<Problem> failure =
                ConvertTest(line.MakePanel(panel).get(), name, folder.filePath(name),
                            {.format = QStringLiteral("XML"), .replace = arguments.force});
            if (failure) {
                const std::lock_guard lock(failuresMutex);
                failures.insert(panel, *failure);
            }
            progress.Step();
        }
    });
    return failures.values();
}

int Run(const Arguments& arguments, const Manners& manners)
{
    const QString path = PathOf(arguments.folder);
    if (!QDir().mkpath(path)) {
        PrintProblem({path, 0, Texts::tr("the folder cannot be created"), Texts::tr("choose another one")});
        return ExitFailed;
    }
    if (arguments.stations.stations > 0)
        return RunStations(arguments.stations, arguments.line, path);
    const QDir folder(path);
    QList<Problem> problems = WritePanels(arguments, folder, !manners.quiet);
    const Simulation::Line line(arguments.line);
    if (const auto problem =
            WriteTestPlan(line, folder.filePath(QStringLiteral("MCB-48.tpl")), arguments.force))
        problems.append(*problem);
    if (const auto problem = WriteBins(folder.filePath(QStringLiteral("bins.ini")), arguments.force))
        problems.append(*problem);
    for (const Problem& problem : problems)
        PrintProblem(problem);
    if (!problems.isEmpty())
        return ExitFailed;
    if (!manners.quiet)
        PrintNote(Texts::tr("%1: %n panels of %2, test plan and bins", nullptr, arguments.panels)
                      .arg(path, QString::number(arguments.line.itemsPerPanel)));
    return ExitGood;
}

} // namespace

Command SimulateCommand(CommandLine& zyn, const Manners& manners)
{
    CommandLine simulate = zyn.Subcommand(
        "simulate",
        Texts::tr("Let a simulated line test a lot: reports, test plan and bins to try things with"));
    const auto arguments = std::make_shared<Arguments>();
    simulate.Value("-d,--directory", arguments->folder, Texts::tr("Folder to write into"))
        .Named(Texts::tr("FOLDER"))
        .Required();
    simulate.Value("--panels", arguments->panels, Texts::tr("Panels to test"))
        .Named(QStringLiteral("N"))
        .Within(1, 10'000'000)
        .HasDefault();
    simulate.Value("--items", arguments->line.itemsPerPanel, Texts::tr("Boards on a panel; 1: single boards"))
        .Named(QStringLiteral("N"))
        .Within(1, 1000)
        .HasDefault();
    simulate.Value("--seed", arguments->line.seed, Texts::tr("The same seed gives the same files"))
        .Named(QStringLiteral("N"))
        .HasDefault();
    simulate.Value("--steps", arguments->line.sweepSteps, Texts::tr("Further steps of ten measurements each"))
        .Named(QStringLiteral("N"))
        .Within(0, 1'000'000)
        .HasDefault();
    StationSettings& stations = arguments->stations;
    simulate
        .Value("--stations", stations.stations,
               Texts::tr("Stations that put reports into the folder as they test, instead of a lot at once"))
        .Named(QStringLiteral("N"))
        .Within(1, Simulation::BusyStation::most);
    simulate.Value("--first-station", stations.first, Texts::tr("Number of the first of them"))
        .Named(QStringLiteral("N"))
        .Within(1, Simulation::BusyStation::most)
        .HasDefault();
    simulate.Value("--rate", stations.rate, Texts::tr("Reports a minute of each station"))
        .Named(QStringLiteral("N"))
        .Within(1, 100'000)
        .HasDefault();
    simulate.Value("--seconds", stations.seconds, Texts::tr("How long; without it until Ctrl+C"))
        .Named(QStringLiteral("N"))
        .Within(1, 1'000'000);
    simulate.Flag("--force", arguments->force, Texts::tr("Replace existing files"));
    simulate.Footer(
        Texts::tr("Stations write as testers do on a bad day: panels, retests on another station, copies, "
                  "corrections, with wrong clocks, and late where the network was lost. Their reports are "
                  "renamed in."),
        {"zyn simulate -d lot", "zyn simulate -d big --panels 250 --items 4 --seed 7",
         "zyn simulate -d /srv/reports --stations 10 --rate 30"});
    return {simulate, [=, &manners] { return Run(*arguments, manners); }, {}};
}

} // namespace ZYN::Tool
