#pragma once

#include "files/Inputs.h"

namespace ZYN::Tool {

/// Finds the files of a folder, down to its bottom. What is there and cannot be read (no permission, a link
/// to nowhere, a name that is no UTF-8) becomes a problem: who names a folder means all that is in it. Names
/// that begin with a point are passed over, links to folders are not followed.
class FolderFiles {
public:
    /// \param extensions of the files that are wanted, without point
    explicit FolderFiles(const QStringList& extensions);

    /// \param path what to open
    /// \param name what to call the folder in messages
    void Search(const QString& path, const QString& name);
    /// In the order of their names.
    const QList<Input>& GetFiles() const { return m_files; }
    const QList<Problem>& GetProblems() const { return m_problems; }

private:
    void Enter(const Input& folder);
    void Take(const Input& folder, const QByteArray& entry, bool isFolder);
    bool IsWanted(const QString& name) const;
    void CannotRead(const Input& input, int error);

    QStringList m_endings;
    QList<Input> m_files;
    QList<Problem> m_problems;
};

} // namespace ZYN::Tool
