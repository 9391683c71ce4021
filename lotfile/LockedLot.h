#pragma once

#include "text/Problem.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

namespace ZYN {

/// An STDF lot file while parts are added to it: no other process that locks it so writes meanwhile, and what
/// was there can be put back.
///
/// The lock is on the file itself (flock), so a process that dies leaves none behind.
class LockedLot {
public:
    enum class Links {
        Follow, ///< the user named the file
        Refuse  ///< the name was made here: a link was put there by somebody else
    };

    /// Waits until the lot is free. Makes the file when there is none.
    LockedLot(const QString& path, Links links);
    /// Frees the lot. A file that was made and got nothing is removed.
    ~LockedLot();
    LockedLot(const LockedLot&) = delete;
    LockedLot& operator=(const LockedLot&) = delete;

    /// Why the lot cannot be written to; nothing when it can. Ask before writing.
    const std::optional<Problem>& Refusal() const { return m_refusal; }
    /// Open for reading and writing; stays the lot's.
    int Descriptor() const { return m_descriptor; }
    /// Writes over everything from a position on, which is in the last two records or behind them, and brings
    /// the file to the disk. What fails is put back.
    enum class Outcome { Written, PutBack, Lost };
    Outcome Write(qint64 position, const QByteArray& bytes);
    /// Tells this state of the file from any other.
    QByteArray State() const;

private:
    bool OpenOrMake();
    bool IsStillNamed() const;
    bool IsFile() const;
    bool WriteAt(qint64 position, const QByteArray& bytes);

    QString m_path;
    QByteArray m_name;
    Links m_links;
    int m_descriptor = -1;
    bool m_made = false;
    std::optional<Problem> m_refusal;
};

} // namespace ZYN
