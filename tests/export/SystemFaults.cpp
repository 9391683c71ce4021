#include "SystemFaults.h"

#include <cerrno>
#include <climits>

#include <sys/fsuid.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

bool watched = false;
int writes = 0;
int goodWrites = 0;
int badWrites = 0;

bool Refused(int descriptor)
{
    struct stat status {};
    if (!watched || fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode))
        return false;
    const int number = writes++;
    return number >= goodWrites && number - goodWrites < badWrites;
}

} // namespace

// Stands before the C library's: every file that Qt writes goes through it.
extern "C" __attribute__((visibility("default"))) ssize_t write(int descriptor, const void* data, size_t size)
{
    if (Refused(descriptor)) {
        errno = EIO;
        return -1;
    }
    return syscall(SYS_write, descriptor, data, size);
}

namespace ZYN::SystemFaults {

FullDisk::FullDisk(qint64 bytes)
{
    ::getrlimit(RLIMIT_FSIZE, &before);
    rlimit limit = before;
    limit.rlim_cur = static_cast<rlim_t>(bytes);
    ::setrlimit(RLIMIT_FSIZE, &limit);
}

FullDisk::~FullDisk()
{
    ::setrlimit(RLIMIT_FSIZE, &before);
}

BadDisk::BadDisk(int takenWrites, Refusal refusal)
{
    writes = 0;
    goodWrites = takenWrites;
    badWrites = refusal == Once ? 1 : INT_MAX;
    watched = true;
}

BadDisk::~BadDisk()
{
    watched = false;
}

int BadDisk::Writes() const
{
    return writes;
}

namespace {

constexpr uid_t nobody = 65534;

} // namespace

// The kernel takes the right to pass over permissions from who changes to another user for files.
OrdinaryUser::OrdinaryUser()
    : user(geteuid() == 0 ? static_cast<uid_t>(setfsuid(nobody)) : geteuid())
{
}

OrdinaryUser::~OrdinaryUser()
{
    setfsuid(user);
}

} // namespace ZYN::SystemFaults
