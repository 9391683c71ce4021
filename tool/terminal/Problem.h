#pragma once

#include "terminal/Manners.h"

#include "text/Problem.h"

#include <QtCore/QStringList>

namespace ZYN::Tool {

/// "zyn: " and the text of a problem on standard error. Any thread.
void PrintProblem(const Problem& problem);
/// A line on standard error, for what is good to know. Any thread.
void PrintNote(const QString& text);

/// Says what is odd, a line each, unless -q forbids: twenty of it, as a lot that is mixed throughout would
/// bury everything else; all of it with -v.
class Remarks {
public:
    explicit Remarks(const Manners& manners)
        : m_manners(manners)
    {
    }

    void Add(const QString& text);
    void Add(const QStringList& texts);
    /// Says how many were not shown.
    void Close() const;

private:
    const Manners& m_manners;
    int m_count = 0;
};

/// Says that the command line makes no sense, and returns the exit code for it.
int WrongUsage(const QString& command, const QString& what, const QString& remedy);

} // namespace ZYN::Tool
