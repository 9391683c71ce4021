#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QList>
#include <QtCore/QString>
#include <QtCore/QStringList>

namespace ZYN {

/// Extensions of XML reports and of STDF lots, plain and compressed; without point.
QStringList ReportExtensions();
QStringList LotExtensions();

/// Whether Qt can open a file by this name.
bool IsUtf8(const QByteArray& name);
/// A file name for people, with bytes that are no UTF-8 as "\xe4".
QString ReadableName(const QByteArray& name);

/// Finds the files of a folder, down to its bottom. What is there and cannot be read (no permission, a link
/// to nowhere, a name that is no UTF-8) becomes a problem, and so does a folder without such a file: who
/// names a folder means all that is in it. Names that begin with a point are passed over, links to folders
/// are not followed.
class FolderFiles {
public:
    /// Something that cannot be read.
    struct Problem {
        QString file; ///< below the folder; empty for the folder itself
        QString what;
        QString remedy;
    };

    /// \param extensions of the files that are wanted, without point
    explicit FolderFiles(const QStringList& extensions);

    void Search(const QString& folder);
    /// Below the folder, in the order of their names.
    const QStringList& GetFiles() const { return m_files; }
    const QList<Problem>& GetProblems() const { return m_problems; }

private:
    void Enter(const QString& below);
    void Take(const QString& folder, const QByteArray& entry, bool isFolder);
    bool IsWanted(const QString& name) const;
    void CannotRead(const QString& below, int error);
    QByteArray PathOf(const QString& below) const;

    QString m_folder;
    QStringList m_endings;
    QStringList m_files;
    QList<Problem> m_problems;
};

} // namespace ZYN
