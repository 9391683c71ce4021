#include "lotfile/LockedLot.h"

#include "lotfile/LotTexts.h"

#include <QtCore/QFile>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ZYN {

namespace {

// A part goes over the closing PCR and MRR, over a record that a crash cut off, over zero bytes: what is no
// zero byte is never more than two records of the longest kind.
constexpr qint64 longestRest = 2 * (4 + 65535);

bool Lock(int descriptor)
{
    int state = 0;
    do
        state = flock(descriptor, LOCK_EX);
    while (state != 0 && errno == EINTR);
    return state == 0;
}

} // namespace

LockedLot::LockedLot(const QString& path, Links links)
    : m_path(path)
    , m_name(QFile::encodeName(path))
    , m_links(links)
{
    // The file may be moved away or removed while one waits for it.
    bool good = true;
    do {
        if (m_descriptor >= 0)
            close(m_descriptor);
        good = OpenOrMake() && Lock(m_descriptor);
    } while (good && !IsStillNamed());
    if (good && !IsFile())
        m_refusal = Problem{m_path, 0, LotTexts::tr("is a device or a pipe, where no file can be put"),
                            LotTexts::tr("name a file")};
    else if (!good)
        m_refusal = Problem{
            m_path, 0,
            LotTexts::tr("no part can be added: %1").arg(QString::fromLocal8Bit(std::strerror(errno))),
            LotTexts::tr("check the name and the permissions of file and folder")};
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
    const int flags = O_RDWR | O_CLOEXEC | (m_links == Links::Refuse ? O_NOFOLLOW | O_NONBLOCK : 0);
    m_made = false;
    m_descriptor = open(m_name.constData(), flags);
    if (m_descriptor < 0 && errno == ENOENT) {
        m_descriptor = open(m_name.constData(), flags | O_CREAT | O_EXCL, 0666);
        m_made = m_descriptor >= 0;
        // Made by another process meanwhile, or a link to a file that is not there yet.
        if (!m_made && errno == EEXIST)
            m_descriptor = open(m_name.constData(), flags | O_CREAT, 0666);
    }
    return m_descriptor >= 0;
}

bool LockedLot::IsStillNamed() const
{
    struct stat opened {};
    struct stat named {};
    const int links = m_links == Links::Refuse ? AT_SYMLINK_NOFOLLOW : 0;
    return fstat(m_descriptor, &opened) == 0 && fstatat(AT_FDCWD, m_name.constData(), &named, links) == 0 &&
           opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

bool LockedLot::IsFile() const
{
    struct stat status {};
    return fstat(m_descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

bool LockedLot::WriteAt(qint64 position, const QByteArray& bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const ssize_t count = pwrite(m_descriptor, bytes.constData() + written,
                                     size_t(bytes.size() - written), position + written);
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return false;
        written += count;
    }
    return ftruncate(m_descriptor, position + written) == 0;
}

LockedLot::Outcome LockedLot::Write(qint64 position, const QByteArray& bytes)
{
    struct stat status {};
    if (fstat(m_descriptor, &status) != 0)
        return Outcome::PutBack;
    QByteArray before(qBound<qint64>(0, status.st_size - position, longestRest), Qt::Uninitialized);
    if (pread(m_descriptor, before.data(), size_t(before.size()), position) != before.size())
        return Outcome::PutBack;
    if (WriteAt(position, bytes) && fsync(m_descriptor) == 0)
        return Outcome::Written;
    return WriteAt(position, before) && ftruncate(m_descriptor, status.st_size) == 0 ? Outcome::PutBack
                                                                                     : Outcome::Lost;
}

QByteArray LockedLot::State() const
{
    struct stat status {};
    if (fstat(m_descriptor, &status) != 0)
        return {};
    return QByteArray::number(qulonglong(status.st_dev)) + ' ' +
           QByteArray::number(qulonglong(status.st_ino)) + ' ' +
           QByteArray::number(qlonglong(status.st_size)) + ' ' +
           QByteArray::number(qlonglong(status.st_mtim.tv_sec)) + ' ' +
           QByteArray::number(qlonglong(status.st_mtim.tv_nsec));
}

} // namespace ZYN
