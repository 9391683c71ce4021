#pragma once

#include "loading/RunLoader.h"
#include "terminal/Manners.h"

namespace ZYN::Tool {

/// Sums up what became of inputs, and tells about each that failed or that something was odd with.
class LoadAccount {
public:
    /// \param tellCopies whether it is odd that a run is there already
    LoadAccount(bool tellCopies, const Manners& manners)
        : m_tellCopies(tellCopies)
        , m_remarks(manners)
    {
    }

    void Take(const LoadedInput& loaded);
    /// Says how many remarks were not shown.
    void Close() const { m_remarks.Close(); }

    qint64 GetAdded() const { return m_added; }
    qint64 GetPresent() const { return m_present; }
    qint64 GetRevised() const { return m_revised; }
    /// Number of inputs.
    qint64 GetFailed() const { return m_failed; }

private:
    const bool m_tellCopies;
    qint64 m_added = 0, m_present = 0, m_revised = 0, m_failed = 0;
    Remarks m_remarks;
};

} // namespace ZYN::Tool
