#include "commands/Command.h"
#include "terminal/Problem.h"
#include "terminal/Terminal.h"
#include "terminal/Texts.h"
#include "terminal/Translation.h"

#include <QtGui/QGuiApplication>

#include <csignal>
#include <cstdio>
#include <exception>

namespace {

using namespace ZYN::Tool;

bool verbose = false;

// Qt talks about itself (fonts, locales) on standard error; who runs a command wants that only on request.
void HandleQtMessage(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    const bool ours = context.category && qstrncmp(context.category, "zyn", 3) == 0;
    const bool forPeople = ours && type != QtDebugMsg;
    if (verbose || forPeople || type == QtCriticalMsg || type == QtFatalMsg)
        PrintProblem({{}, 0, text, {}});
}

std::unique_ptr<QCoreApplication> MakeApplication(const Command& command, int* argc, char** argv)
{
    if (!command.needsGui || !command.needsGui())
        return std::make_unique<QCoreApplication>(*argc, argv);
    // Fonts need a platform, but no display: one that the user's environment names ends the program where
    // there is none.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(*argc, argv);
}

// The exit code, once it is known whether all of the output arrived.
int Finished(int code)
{
    if (FlushOutput())
        return code;
    PrintProblem({Texts::tr("standard output"), 0, Texts::tr("not everything could be written"),
                  Texts::tr("the disk may be full")});
    return ExitFailed;
}

int Run(const Command& command, int* argc, char** argv)
{
    const std::unique_ptr<QCoreApplication> application = MakeApplication(command, argc, argv);
    // What a program asked for is the same in every language.
    if (!command.line.IsGiven("--json"))
        LoadTranslation(application.get());
    return Finished(command.run());
}

int Zyn(int argc, char** argv)
{
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN); // a file size limit is a full disk, not a crash
#endif
    // The command line tells which application to run; its help needs one before.
    auto application = std::make_unique<QCoreApplication>(argc, argv);
    LoadTranslation(application.get());
    Manners manners;
    Program program(Texts::tr("Writes, converts, shows and checks results of production tests."),
                    Texts::tr("zyn COMMAND --help explains a command with examples.\n"
                              "Exit codes: 0 good, 1 something failed (the rest was done), 2 wrong usage."),
                    "zyn " ZYN_VERSION, manners.quiet, manners.verbose);
    CommandLine zyn = program.Top();
    const Command commands[] = {
        SimulateCommand(zyn, manners), ConvertCommand(zyn, manners), StatisticsCommand(zyn, manners),
        ShowCommand(zyn, manners),     CheckCommand(zyn, manners),   ArchiveCommand(zyn, manners),
        WatchCommand(zyn, manners),    YieldCommand(zyn, manners),   FailuresCommand(zyn, manners),
        MeasureCommand(zyn, manners),  UnitsCommand(zyn, manners),   HistoryCommand(zyn, manners),
        PageCommand(zyn, manners),     FormatsCommand(zyn, manners), HelpCommand(zyn, manners)};
    if (const std::optional<int> code = program.Parse(argc, argv))
        return *code == 0 ? Finished(ExitGood) : ExitUsage; // zero: it was the help
    application.reset();
    verbose = manners.verbose;
    qInstallMessageHandler(HandleQtMessage);
    for (const Command& command : commands)
        if (command.line.IsChosen())
            return Run(command, &argc, argv);
    return ExitUsage;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return Zyn(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "zyn: %s\n", error.what()); // in English: there may be no memory for more
    }
    return ExitFailed;
}
