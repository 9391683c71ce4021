#include "commands/Command.h"
#include "terminal/Problem.h"
#include "terminal/Terminal.h"
#include "terminal/Texts.h"

#include <memory>

namespace ZYN::Tool {

Command HelpCommand(CommandLine& zyn, const Manners&)
{
    CommandLine help = zyn.Subcommand("help", Texts::tr("Explain the tool or a command"));
    const auto names = std::make_shared<std::vector<std::string>>();
    help.Words("COMMAND", *names, Texts::tr("The command to explain"));
    help.Footer({}, {"zyn help convert"});
    const auto run = [=] {
        QString unknown;
        const std::optional<QString> text = zyn.HelpOf(*names, &unknown);
        if (!text) {
            PrintProblem({{}, 0, unknown, Texts::tr("see %1 --help").arg(QStringLiteral("zyn"))});
            return int(ExitUsage);
        }
        Print(*text);
        return int(ExitGood);
    };
    return {help, run, {}};
}

} // namespace ZYN::Tool
