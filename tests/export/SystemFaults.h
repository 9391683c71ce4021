#pragma once

#include <QtCore/QtGlobal>

#include <sys/resource.h>
#include <sys/types.h>

/// Faults of the system below the library, for this process, while an object lives.
namespace ZYN::SystemFaults {

/// Files cannot grow beyond a size: the disk is full at a chosen byte. Needs SIGXFSZ to be ignored.
class FullDisk {
public:
    explicit FullDisk(qint64 bytes);
    ~FullDisk();
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before{};
};

/// A disk that takes a number of writes into regular files, then refuses: one write, or all that follow.
class BadDisk {
public:
    enum Refusal { Once, ForGood };

    BadDisk(int goodWrites, Refusal refusal);
    ~BadDisk();
    BadDisk(const BadDisk&) = delete;
    BadDisk& operator=(const BadDisk&) = delete;

    /// Writes into regular files so far, refused ones among them.
    int Writes() const;
};

/// File permissions bind this thread, also where the tests run as root.
class OrdinaryUser {
public:
    OrdinaryUser();
    ~OrdinaryUser();
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    const uid_t user;
};

} // namespace ZYN::SystemFaults
