#include "terminal/Problem.h"

#include "terminal/Terminal.h"
#include "terminal/Texts.h"

#include <cstdio>

namespace ZYN::Tool {

namespace {

constexpr int remarksShown = 20;

} // namespace

void PrintNote(const QString& text)
{
    const QByteArray line = (Harmless(text) + QLatin1Char('\n')).toUtf8();
    std::fwrite(line.constData(), 1, size_t(line.size()), stderr); // one call: lines of threads do not mix
}

void Remarks::Add(const QString& text)
{
    if (!m_manners.quiet && (++m_count <= remarksShown || m_manners.verbose))
        PrintNote(text);
}

void Remarks::Add(const QStringList& texts)
{
    for (const QString& text : texts)
        Add(text);
}

void Remarks::Close() const
{
    if (m_count > remarksShown && !m_manners.verbose)
        PrintNote(Texts::tr("and %n remarks more; -v shows all", nullptr, m_count - remarksShown));
}

void PrintProblem(const Problem& problem)
{
    PrintNote(QStringLiteral("zyn: ") + TextOf(problem));
}

int WrongUsage(const QString& command, const QString& what, const QString& remedy)
{
    PrintProblem({{},
                  0,
                  what,
                  QStringLiteral("%1 (%2)").arg(
                      remedy, Texts::tr("see %1 --help").arg(QStringLiteral("zyn ") + command))});
    return ExitUsage;
}

} // namespace ZYN::Tool
