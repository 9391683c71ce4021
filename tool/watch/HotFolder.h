#pragma once

#include "files/Inputs.h"

#include <QtCore/QDateTime>
#include <QtCore/QElapsedTimer>
#include <QtCore/QHash>
#include <QtCore/QString>

namespace ZYN::Tool {

/// A folder that testers put reports into. What was taken is moved to "done" below it, what cannot be read to
/// "error", with the reason beside it, under their names; nothing is ever written over or removed.
class HotFolder {
public:
    /// \param folder path of a folder that is there
    explicit HotFolder(const QString& folder);

    /// Makes the folders for what was taken.
    /// \return why that is not possible; empty when it was
    QString Prepare() const;
    /// Files that may be read now, by name: not those that were left as unfinished and are unchanged since.
    QList<Input> Ready();
    /// How many files were there when it was asked last, ready or not.
    qsizetype Waiting() const { return m_waiting; }

    void MoveToDone(const Input& input);
    /// A file that cannot be read: moved away once it is unchanged for three seconds, before it is taken for
    /// one that a tester is still writing. \return whether it was moved
    bool GiveUp(const Input& input, const QString& reason);

private:
    struct Seen {
        qint64 size;
        QDateTime changed;
        QElapsedTimer since;
    };

    bool IsUnfinished(const QString& path);
    QString Move(const Input& input, const QString& subfolder);

    QString m_folder;
    QHash<QString, Seen> m_unfinished; ///< by path
    qsizetype m_waiting = 0;
};

} // namespace ZYN::Tool
