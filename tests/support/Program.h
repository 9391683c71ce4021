#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QProcess>
#include <QtCore/QStringList>

#include <functional>

/// Other programs: the tool, and independent readers of the formats.
namespace ZYN::Program {

struct Outcome {
    /// -1 for a program that did not start, crashed or took more than two minutes.
    int code = -1;
    QByteArray output;
    QByteArray errors;
};

/// Runs a program to its end.
/// \param input what it reads from its standard input
/// \param prepare called in the new process before the program
inline Outcome Run(const QString& program, const QStringList& arguments, const QString& folder = {},
                   const QByteArray& input = {}, const std::function<void()>& prepare = {})
{
    QProcess process;
    process.setWorkingDirectory(folder);
    if (prepare)
        process.setChildProcessModifier(prepare);
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    const bool ended = process.waitForFinished(120'000) && process.exitStatus() == QProcess::NormalExit;
    if (!ended)
        process.kill();
    return {ended ? process.exitCode() : -1, process.readAllStandardOutput(), process.readAllStandardError()};
}

/// The same with the arguments in one text, parted by blanks.
inline Outcome Run(const QString& program, const char* arguments, const QString& folder = {})
{
    return Run(program, QString(arguments).split(u' ', Qt::SkipEmptyParts), folder);
}

} // namespace ZYN::Program
