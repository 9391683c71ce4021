#pragma once

#include "terminal/CommandLine.h"
#include "terminal/Manners.h"

#include <functional>

/// \file
/// The subcommands of `zyn`, one source file each. Each function adds its options to the command line and
/// returns what to run when the user chose it.

namespace ZYN::Tool {

struct Command {
    CommandLine line;
    std::function<int()> run;
    /// Whether it draws text (PDF) and so needs the GUI application; empty: never.
    std::function<bool()> needsGui;
};

Command SimulateCommand(CommandLine& zyn, const Manners& manners);
Command ConvertCommand(CommandLine& zyn, const Manners& manners);
Command StatisticsCommand(CommandLine& zyn, const Manners& manners);
Command ShowCommand(CommandLine& zyn, const Manners& manners);
Command CheckCommand(CommandLine& zyn, const Manners& manners);
Command ArchiveCommand(CommandLine& zyn, const Manners& manners);
Command YieldCommand(CommandLine& zyn, const Manners& manners);
Command FailuresCommand(CommandLine& zyn, const Manners& manners);
Command MeasureCommand(CommandLine& zyn, const Manners& manners);
Command PageCommand(CommandLine& zyn, const Manners& manners);
Command UnitsCommand(CommandLine& zyn, const Manners& manners);
Command WatchCommand(CommandLine& zyn, const Manners& manners);
Command HistoryCommand(CommandLine& zyn, const Manners& manners);
Command FormatsCommand(CommandLine& zyn, const Manners& manners);
Command HelpCommand(CommandLine& zyn, const Manners& manners);

} // namespace ZYN::Tool
