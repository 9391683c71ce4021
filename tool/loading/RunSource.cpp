#include "loading/RunSource.h"

#include "loading/InputRuns.h"
#include "loading/LoadAccount.h"
#include "terminal/Texts.h"

#include <algorithm>

namespace ZYN::Tool {

bool RunSource::Open(const std::vector<std::string>& inputs, const QString& command, bool keepValues,
                     const Manners& manners)
{
    const auto isArchive = [](const std::string& input) { return Archive::IsArchive(PathOf(input)); };
    if (std::none_of(inputs.begin(), inputs.end(), isArchive))
        return ReadInputs(inputs, keepValues, manners);
    if (inputs.size() == 1)
        return OpenArchive(PathOf(inputs.front()));
    m_exitCode = WrongUsage(command, Texts::tr("an archive cannot be asked together with other inputs"),
                            Texts::tr("put them into it with zyn archive add"));
    return false;
}

bool RunSource::OpenArchive(const QString& url)
{
    if (m_archive.Open(url, Archive::Mode::ReadOnly))
        return true;
    PrintProblem({{}, 0, m_archive.GetErrorText(), {}});
    m_exitCode = ExitFailed;
    return false;
}

bool RunSource::ReadInputs(const std::vector<std::string>& arguments, bool keepValues, const Manners& manners)
{
    QList<Problem> problems;
    const QList<Input> inputs = ExpandInputs(arguments, RunExtensions(), &problems);
    for (const Problem& problem : problems)
        PrintProblem(problem);
    std::optional<Problem> failure;
    LoadAccount account(true, manners);
    if (m_archive.OpenTemporary(keepValues))
        failure = LoadRuns(m_archive, inputs, !manners.quiet,
                           [&](const LoadedInput& loaded) { account.Take(loaded); });
    else
        failure = Problem{{}, 0, m_archive.GetErrorText(), {}};
    account.Close();
    // Without a run and without a problem the inputs are empty reports.
    if (!failure && account.GetAdded() == 0 && problems.isEmpty() && account.GetFailed() == 0)
        failure =
            Problem{{}, 0, Texts::tr("there is no run in what was read"), Texts::tr("name reports of units")};
    if (failure)
        PrintProblem(*failure);
    if (failure || !problems.isEmpty() || account.GetFailed() > 0)
        m_exitCode = ExitFailed;
    return !failure && account.GetAdded() > 0;
}

} // namespace ZYN::Tool
