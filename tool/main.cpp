#include "Command.h"
#include "Problem.h"
#include "Terminal.h"
#include "Translation.h"

#include <CLI/CLI.hpp>

#include <QtGui/QGuiApplication>

#include <csignal>
#include <cstdio>

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

std::string UsageMessage(const CLI::App* app, const CLI::Error& error)
{
    const CLI::App* chosen = app;
    while (!chosen->get_subcommands().empty())
        chosen = chosen->get_subcommands().front();
    std::string help = "zyn";
    if (chosen != app)
        help += " " + chosen->get_name();
    return "zyn: " + std::string(error.what()) + "; see " + help + " --help\n";
}

std::unique_ptr<QCoreApplication> MakeApplication(const Command& command, int* argc, char** argv)
{
    if (!command.needsGui || !command.needsGui())
        return std::make_unique<QCoreApplication>(*argc, argv);
    // Fonts need a platform, but no display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    return std::make_unique<QGuiApplication>(*argc, argv);
}

int Run(const Command& command, int* argc, char** argv)
{
    const std::unique_ptr<QCoreApplication> application = MakeApplication(command, argc, argv);
    LoadTranslation(application.get());
    const int code = command.run();
    if (!FlushOutput()) {
        PrintProblem({QStringLiteral("standard output"), 0, QStringLiteral("not everything could be written"),
                      QStringLiteral("the disk may be full")});
        return ExitFailed;
    }
    return code;
}

} // namespace

int main(int argc, char** argv)
{
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN); // a file size limit is a full disk, not a crash
#endif
    CLI::App app("Writes, converts, shows and checks results of production tests.", "zyn");
    Manners manners;
    app.add_flag("-q,--quiet", manners.quiet, "Say nothing but what went wrong");
    app.add_flag("-v,--verbose", manners.verbose, "Say what is being done");
    app.set_version_flag("--version", "zyn " ZYN_VERSION);
    app.require_subcommand(1);
    app.failure_message(UsageMessage);
    app.footer("zyn COMMAND --help explains a command with examples.\n"
               "Exit codes: 0 good, 1 something failed (the rest was done), 2 wrong usage.");

    const Command commands[] = {SimulateCommand(app, manners),   ConvertCommand(app, manners),
                                StatisticsCommand(app, manners), ShowCommand(app, manners),
                                CheckCommand(app, manners),      FormatsCommand(app, manners)};
    for (const Command& command : commands)
        command.app->fallthrough(); // -q and -v also after the command's name
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? ExitGood : ExitUsage;
    }
    verbose = manners.verbose;
    qInstallMessageHandler(HandleQtMessage);
    for (const Command& command : commands)
        if (command.app->parsed())
            return Run(command, &argc, argv);
    return ExitUsage;
}
