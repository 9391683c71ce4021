#pragma once

#include "Problem.h"
#include "TemporaryFiles.h"

#include <QtCore/QString>

#include <optional>

namespace ZYN::Tool {

/// A file that appears whole or not at all.
///
/// What is written goes to a temporary name in the same folder (so that paths relative to the file are
/// right); `Commit` brings it to the disk and gives it its name in one step. Without `Commit` nothing is left
/// behind and a file that was there before is untouched.
class SafeOutput {
public:
    /// \param path where the file shall be
    /// \param replace whether it may take the place of an existing file
    SafeOutput(const QString& path, bool replace);
    ~SafeOutput();
    SafeOutput(const SafeOutput&) = delete;
    SafeOutput& operator=(const SafeOutput&) = delete;

    /// Why the file cannot be made; nothing when it can. Ask before writing.
    std::optional<Problem> Refusal() const;
    /// Where to write.
    QString TemporaryName() const { return m_temporaryName; }
    /// What to say when writing failed or did not complete.
    Problem WriteProblem() const;
    /// Gives the file its name. Nothing to report means that it is on the disk.
    std::optional<Problem> Commit();

private:
    Problem About(const QString& what, const QString& remedy = QString()) const;

    QString m_path;   ///< as the user gave it
    QString m_target; ///< the same with symbolic links followed
    QString m_temporaryName;
    bool m_replace;
    std::optional<TemporaryFile> m_temporary;
};

} // namespace ZYN::Tool
