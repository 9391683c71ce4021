#pragma once

#include "Problem.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

namespace ZYN::Tool {

/// An STDF lot file while one part is added to it: no other process that locks it so writes meanwhile, and
/// what was there can be put back.
///
/// The lock is on the file itself (flock), so a process that dies leaves none behind.
class LockedLot {
public:
    /// Waits until the lot is free. Makes the file when there is none.
    explicit LockedLot(const QString& path);
    /// Frees the lot. A file that was made and got nothing is removed.
    ~LockedLot();
    LockedLot(const LockedLot&) = delete;
    LockedLot& operator=(const LockedLot&) = delete;

    /// Why the lot cannot be written to; nothing when it can. Ask before writing.
    const std::optional<Problem>& Refusal() const { return m_refusal; }
    /// Makes the file what it was. Everybody else must have closed it.
    /// \return false when that failed too
    bool PutBack();
    /// Brings the file to the disk.
    bool Sync();

private:
    bool OpenOrMake();
    bool IsStillNamed() const;
    bool IsFile() const;
    bool Remember();

    QString m_path;
    QByteArray m_name;
    int m_descriptor = -1;
    bool m_made = false;
    qint64 m_size = 0;
    QByteArray m_tail;
    std::optional<Problem> m_refusal;
};

} // namespace ZYN::Tool
