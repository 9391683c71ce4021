#pragma once

#include "terminal/Manners.h"

#include "archive/Archive.h"

namespace ZYN::Tool {

/// What a question is asked of: one archive, or the runs of files and folders in an archive that lives as
/// long as this object.
class RunSource {
public:
    /// Opens an archive to read, or reads the inputs. Tells on standard error what could not be read and what
    /// is odd about the rest. \param command of the question, for messages: "yield" \param keepValues false
    /// for questions that need no measured values \return false when there is nothing to ask
    bool Open(const std::vector<std::string>& inputs, const QString& command, bool keepValues,
              const Manners& manners);

    const Archive& GetArchive() const { return m_archive; }
    /// What the command ends with when the question is answered: not good when some inputs could not be read.
    int GetExitCode() const { return m_exitCode; }

private:
    bool OpenArchive(const QString& url);
    bool ReadInputs(const std::vector<std::string>& inputs, bool keepValues, const Manners& manners);

    Archive m_archive;
    int m_exitCode = ExitGood;
};

} // namespace ZYN::Tool
