#include "LockedLot.h"

#include "Texts.h"

#include <QtCore/QFile>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ZYN::Tool {

namespace {

// A part goes over the closing PCR and MRR and over a record that a crash cut off: never more than two
// records of the longest kind.
constexpr qint64 tailSize = 2 * (4 + 65535);

bool Lock(int descriptor)
{
    int state = 0;
    do
        state = flock(descriptor, LOCK_EX);
    while (state != 0 && errno == EINTR);
    return state == 0;
}

} // namespace

LockedLot::LockedLot(const QString& path)
    : m_path(path)
    , m_name(QFile::encodeName(path))
{
    // The file may be moved away or removed while one waits for it.
    bool good = true;
    do {
        if (m_descriptor >= 0)
            close(m_descriptor);
        good = OpenOrMake() && Lock(m_descriptor);
    } while (good && !IsStillNamed());
    if (good && !IsFile())
        m_refusal = Problem{m_path, 0, Texts::tr("is a device or a pipe, where no file can be put"),
                            Texts::tr("name a file")};
    else if (!good || !Remember())
        m_refusal =
            Problem{m_path, 0,
                    Texts::tr("no part can be added: %1").arg(QString::fromLocal8Bit(std::strerror(errno))),
                    Texts::tr("check the name and the permissions of file and folder")};
}

LockedLot::~LockedLot()
{
    struct stat status {};
    if (m_made && fstat(m_descriptor, &status) == 0 && status.st_size == 0)
        unlink(m_name.constData());
    if (m_descriptor >= 0)
        close(m_descriptor);
}

bool LockedLot::OpenOrMake()
{
    m_made = false;
    m_descriptor = open(m_name.constData(), O_RDWR | O_CLOEXEC);
    if (m_descriptor < 0 && errno == ENOENT) {
        m_descriptor = open(m_name.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        m_made = m_descriptor >= 0;
        // Made by another process meanwhile, or a link to a file that is not there yet.
        if (!m_made && errno == EEXIST)
            m_descriptor = open(m_name.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    }
    return m_descriptor >= 0;
}

bool LockedLot::IsStillNamed() const
{
    struct stat opened {};
    struct stat named {};
    return fstat(m_descriptor, &opened) == 0 && stat(m_name.constData(), &named) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

bool LockedLot::IsFile() const
{
    struct stat status {};
    return fstat(m_descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

bool LockedLot::Remember()
{
    struct stat status {};
    if (fstat(m_descriptor, &status) != 0)
        return false;
    m_size = status.st_size;
    m_tail.resize(qMin<qint64>(m_size, tailSize));
    return pread(m_descriptor, m_tail.data(), size_t(m_tail.size()), m_size - m_tail.size()) == m_tail.size();
}

bool LockedLot::PutBack()
{
    const bool written = pwrite(m_descriptor, m_tail.constData(), size_t(m_tail.size()),
                                m_size - m_tail.size()) == m_tail.size();
    return ftruncate(m_descriptor, m_size) == 0 && written;
}

bool LockedLot::Sync()
{
    return fsync(m_descriptor) == 0;
}

} // namespace ZYN::Tool
