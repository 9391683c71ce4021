#pragma once

namespace ZYN::Tool {

/// How talkative the tool is; filled by the command line before a command runs.
struct Manners {
    bool quiet = false;
    bool verbose = false;
};

/// Exit codes.
enum ExitCode : int {
    ExitGood = 0,
    ExitFailed = 1, ///< something failed; the rest was done
    ExitUsage = 2   ///< the command line makes no sense; nothing was done
};

} // namespace ZYN::Tool
