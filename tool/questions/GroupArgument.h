#pragma once

#include "questions/QuestionOptions.h"

namespace ZYN::Tool {

/// The option `--by`: what an answer has a line for each of.
class GroupArgument {
public:
    void Describe(CommandLine& line);
    /// Makes sense of what was given. \return the exit code where there is none in it; it was told
    std::optional<int> Check(const QuestionOptions& options, std::vector<GroupBy>* by) const;

private:
    std::vector<std::string> m_by;
};

} // namespace ZYN::Tool
