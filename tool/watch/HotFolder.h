#pragma once

#include "files/Inputs.h"
#include "terminal/Problem.h"

#include <QtCore/QDateTime>
#include <QtCore/QElapsedTimer>
#include <QtCore/QHash>
#include <QtCore/QString>

#include <optional>

namespace ZYN::Tool {

/// A folder that testers put reports into. What was taken is moved to "done" below it, what cannot be read to
/// "error", with the reason beside it, under their names; nothing is ever written over or removed.
class HotFolder {
public:
    /// \param folder path of a folder that is there
    explicit HotFolder(const QString& folder);
    ~HotFolder();
    Q_DISABLE_COPY_MOVE(HotFolder)

    /// Makes the folders for what was taken, and keeps other watchers away: two would take the same files.
    /// The lock is on the folder itself, so a watcher that is killed leaves none behind; where the file
    /// system knows no locks there is none. \return why nothing can be taken
    std::optional<Problem> Prepare();
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

    bool IsTakenByAnother();
    bool IsUnfinished(const QString& path);
    QString Move(const Input& input, const QString& subfolder);

    QString m_folder;
    QHash<QString, Seen> m_unfinished; ///< by path
    qsizetype m_waiting = 0;
    int m_lock = -1; ///< descriptor of the folder
};

} // namespace ZYN::Tool
