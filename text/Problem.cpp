#include "text/Problem.h"

namespace ZYN {

QString TextOf(const Problem& problem)
{
    QString text;
    if (!problem.file.isEmpty())
        text += problem.file + QLatin1Char(':');
    if (problem.line > 0)
        text += QString::number(problem.line) + QLatin1Char(':');
    if (!problem.file.isEmpty() || problem.line > 0)
        text += QLatin1Char(' ');
    text += problem.what;
    if (!problem.remedy.isEmpty())
        text += QStringLiteral("; ") + problem.remedy;
    return text;
}

} // namespace ZYN
