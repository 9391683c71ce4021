#pragma once

#include "files/TemporaryFiles.h"
#include "terminal/Problem.h"

#include <QtCore/QString>

#include <optional>

namespace ZYN::Tool {

/// A file that appears whole or not at all.
///
/// What is written goes to a file with a random name in the same folder (so that paths relative to the file
/// are right), which is made here and is never one that was there; `Commit` brings it to the disk and gives
/// it its name in one step. Without `Commit` nothing is left behind and a file that was there before is
/// untouched. Used by one thread.
///
/// Standard output is written to memory first, so that it too gets the whole or nothing.
class SafeOutput {
public:
    /// \param path where the file shall be; "-" is standard output
    /// \param replace whether it may take the place of an existing file
    SafeOutput(const QString& path, bool replace);
    ~SafeOutput();
    SafeOutput(const SafeOutput&) = delete;
    SafeOutput& operator=(const SafeOutput&) = delete;

    /// Why the file cannot be made; nothing when it can. Ask before writing.
    const std::optional<Problem>& Refusal() const { return m_refusal; }
    /// Where to write.
    QString TemporaryName() const { return m_temporaryName; }
    /// What to say when writing failed or did not complete.
    Problem WriteProblem() const;
    /// Gives the file its name. Nothing to report means that it is on the disk.
    std::optional<Problem> Commit();

private:
    Problem About(const QString& what, const QString& remedy = QString()) const;
    std::optional<Problem> FindRefusal() const;
    void MakeTemporaryFile();
    void MakeMemory();
    std::optional<Problem> CopyToStandardOutput();
    bool IsTemporaryFile() const;

    QString m_path;   ///< as the user gave it
    QString m_target; ///< the same with symbolic links followed
    bool m_replace;
    std::optional<Problem> m_refusal;
    QString m_temporaryName;
    std::optional<TemporaryFile> m_temporary;
    int m_descriptor = -1; ///< of the temporary file, by which it is known again
};

inline bool IsStandardOutput(const QString& path)
{
    return path == QLatin1String("-");
}

} // namespace ZYN::Tool
