#include "loading/LoadAccount.h"

#include "terminal/Texts.h"

namespace ZYN::Tool {

void LoadAccount::Take(const LoadedInput& loaded)
{
    const QString& name = loaded.input->name;
    m_added += loaded.added;
    m_present += loaded.present;
    m_revised += loaded.revised;
    m_failed += loaded.problem.has_value();
    if (loaded.problem && loaded.problem->file == name) // else it is the archive's, which is told once
        PrintProblem(*loaded.problem);
    if (loaded.present > 0 && m_tellCopies)
        m_remarks.Add(Texts::tr("%1: %n runs are copies of runs read before; they count once", nullptr,
                                int(loaded.present))
                          .arg(name));
    if (loaded.revised > 0)
        m_remarks.Add(Texts::tr("%1: %n runs differ from what was read before, and replace it", nullptr,
                                int(loaded.revised))
                          .arg(name));
}

} // namespace ZYN::Tool
