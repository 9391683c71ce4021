#pragma once

#include <QtCore/QtGlobal>

#include <cerrno>
#include <climits>

#include <sys/fsuid.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

/// Faults of the system below the library, for this process, while an object lives. One source file of a
/// program includes this: it stands before the C library's `write`.
namespace ZYN::SystemFaults {

/// Files cannot grow beyond a size: the disk is full at a chosen byte. Needs SIGXFSZ to be ignored.
class FullDisk {
public:
    explicit FullDisk(qint64 bytes)
    {
        ::getrlimit(RLIMIT_FSIZE, &before);
        rlimit limit = before;
        limit.rlim_cur = static_cast<rlim_t>(bytes);
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &before); }
    Q_DISABLE_COPY_MOVE(FullDisk)

private:
    rlimit before{};
};

/// A disk that takes a number of writes into regular files, then refuses: one write, or all that follow.
class BadDisk {
public:
    enum Refusal { Once, ForGood };

    BadDisk(int takenWrites, Refusal refusal)
    {
        writes = 0;
        goodWrites = takenWrites;
        badWrites = refusal == Once ? 1 : INT_MAX;
        watched = true;
    }
    ~BadDisk() { watched = false; }
    Q_DISABLE_COPY_MOVE(BadDisk)

    /// Writes into regular files so far, refused ones among them.
    int Writes() const { return writes; }

    static bool Refuses(int descriptor)
    {
        struct stat status {};
        if (!watched || fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
            return false;
        const int number = writes++;
        return number >= goodWrites && number - goodWrites < badWrites;
    }

private:
    static inline bool watched = false;
    static inline int writes = 0;
    static inline int goodWrites = 0;
    static inline int badWrites = 0;
};

/// File permissions bind this thread, also where the tests run as root: the kernel takes the right to pass
/// over permissions from who changes to another user for files.
class OrdinaryUser {
public:
    OrdinaryUser()
        : user(geteuid() == 0 ? static_cast<uid_t>(setfsuid(nobody)) : geteuid())
    {
    }
    ~OrdinaryUser() { setfsuid(user); }
    Q_DISABLE_COPY_MOVE(OrdinaryUser)

private:
    static constexpr uid_t nobody = 65534;
    const uid_t user;
};

} // namespace ZYN::SystemFaults

// Every file that Qt writes goes through it.
extern "C" __attribute__((visibility("default"))) ssize_t write(int descriptor, const void* data, size_t size)
{
    if (ZYN::SystemFaults::BadDisk::Refuses(descriptor)) {
        errno = EIO;
        return -1;
    }
    return syscall(SYS_write, descriptor, data, size);
}
