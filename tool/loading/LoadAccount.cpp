#include "loading/LoadAccount.h"

#include "terminal/Texts.h"

namespace ZYN::Tool {

namespace {

// Remarks about a folder that was copied as a whole would bury everything else.
constexpr int RemarksShown = 20;

} // namespace

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
        Remark(Texts::tr("%1: %n runs are copies of runs read before; they count once", nullptr,
                         int(loaded.present))
                   .arg(name));
    if (loaded.revised > 0)
        Remark(Texts::tr("%1: %n runs differ from what was read before, and replace it", nullptr,
                         int(loaded.revised))
                   .arg(name));
}

void LoadAccount::Close() const
{
    if (m_remarks > RemarksShown && !m_manners.verbose)
        PrintNote(Texts::tr("and %n remarks more; -v shows all", nullptr, m_remarks - RemarksShown));
}

void LoadAccount::Remark(const QString& text)
{
    if (++m_remarks <= RemarksShown || m_manners.verbose)
        PrintNote(text);
}

} // namespace ZYN::Tool
