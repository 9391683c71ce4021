#include "files/SafeOutput.h"

#include "terminal/Terminal.h"
#include "terminal/Texts.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QRandomGenerator>

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <stdio.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace ZYN::Tool {

namespace {

QString ErrorText(int error)
{
    switch (error) {
    case EACCES:
    case EPERM:
        return Texts::tr("permission denied");
    case EROFS:
        return Texts::tr("the file system is read-only");
    case ENOSPC:
        return Texts::tr("the disk is full");
    case EDQUOT:
        return Texts::tr("the disk quota is used up");
    case EFBIG:
        return Texts::tr("the file is larger than allowed");
    default:
        return QString::fromLocal8Bit(std::strerror(error));
    }
}

// Brings a folder's entries to the disk. Not every file system can; the file itself is safe.
void SyncFolder(const QString& path)
{
    const int descriptor = open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_DIRECTORY);
    if (descriptor < 0)
        return;
    fsync(descriptor);
    close(descriptor);
}

// Moves a file within its folder; without `replace` it never takes the place of another.
int Rename(const QByteArray& from, const QByteArray& to, bool replace)
{
    if (replace)
        return rename(from.constData(), to.constData()) == 0 ? 0 : errno;
    if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    // A file system that cannot do it in one step.
    if (link(from.constData(), to.constData()) != 0)
        return errno;
    unlink(from.constData());
    return 0;
}

// Nobody can know the name before and put a link there, and no other process has it, whatever its id and
// host.
QString NewTemporaryName(const QFileInfo& target)
{
    return QStringLiteral("%1/.zyn-%2.tmp")
        .arg(target.absolutePath())
        .arg(QRandomGenerator::system()->generate64(), 16, 16, QLatin1Char('0'));
}

} // namespace

SafeOutput::SafeOutput(const QString& path, bool replace)
    : m_path(path)
    , m_target(QFileInfo(path).exists() ? QFileInfo(path).canonicalFilePath() : path)
    , m_replace(replace)
    , m_refusal(IsStandardOutput(path) ? std::nullopt : FindRefusal())
{
    if (IsStandardOutput(path))
        MakeMemory();
    else if (!m_refusal)
        MakeTemporaryFile();
}

SafeOutput::~SafeOutput()
{
    if (m_temporary)
        QFile::remove(m_temporaryName);
    if (m_descriptor >= 0)
        close(m_descriptor);
}

void SafeOutput::MakeTemporaryFile()
{
    do {
        m_temporaryName = NewTemporaryName(QFileInfo(m_target));
        const QByteArray name = QFile::encodeName(m_temporaryName);
        m_temporary.emplace(name);
        m_descriptor = open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
    } while (m_descriptor < 0 && errno == EEXIST);
    if (m_descriptor < 0) {
        m_refusal = About(Texts::tr("could not be written: %1").arg(ErrorText(errno)));
        m_temporary.reset();
    }
}

void SafeOutput::MakeMemory()
{
    m_descriptor = memfd_create("zyn output", MFD_CLOEXEC);
    if (m_descriptor < 0)
        m_refusal = Problem{
            Texts::tr("standard output"), 0, Texts::tr("could not be written: %1").arg(ErrorText(errno)), {}};
    m_temporaryName = QStringLiteral("/proc/self/fd/%1").arg(m_descriptor);
}

std::optional<Problem> SafeOutput::CopyToStandardOutput()
{
    QFile memory(m_temporaryName);
    if (!memory.open(QIODevice::ReadOnly))
        return WriteProblem();
    for (QByteArray piece = memory.read(1 << 20); !piece.isEmpty(); piece = memory.read(1 << 20))
        PrintBytes(piece);
    return std::nullopt; // whether it arrived shows when standard output is flushed
}

// Whether what has the temporary name is still the file that was made here.
bool SafeOutput::IsTemporaryFile() const
{
    struct stat made {};
    struct stat named {};
    return fstat(m_descriptor, &made) == 0 &&
           lstat(QFile::encodeName(m_temporaryName).constData(), &named) == 0 &&
           made.st_dev == named.st_dev && made.st_ino == named.st_ino;
}

Problem SafeOutput::About(const QString& what, const QString& remedy) const
{
    return {m_path, 0, what, remedy};
}

std::optional<Problem> SafeOutput::FindRefusal() const
{
    const QFileInfo target(m_path);
    const QFileInfo folder(QFileInfo(m_target).absolutePath());
    if (target.isDir())
        return About(Texts::tr("is a folder"), Texts::tr("name a file, or a folder with -d"));
    if (target.exists() && !target.isFile())
        return About(Texts::tr("is a device or a pipe, where no file can be put"), Texts::tr("name a file"));
    if (target.isSymLink() && !target.exists())
        return About(Texts::tr("is a link to nowhere"), Texts::tr("remove the link"));
    if (target.exists() && !m_replace)
        return About(Texts::tr("already exists"), Texts::tr("add --force to replace it"));
    if (!folder.exists())
        return About(Texts::tr("its folder does not exist"), Texts::tr("create it first"));
    if (!folder.isDir() || !folder.isWritable())
        return About(Texts::tr("its folder cannot be written to"),
                     Texts::tr("choose another folder or change its permissions"));
    return std::nullopt;
}

Problem SafeOutput::WriteProblem() const
{
    if (IsStandardOutput(m_path))
        return {Texts::tr("standard output"), 0, Texts::tr("there is not enough memory for it"),
                Texts::tr("name a file")};
    // The file system itself is asked: a table of mounts does not name the root of a container or a chroot.
    struct statvfs system {};
    const QByteArray folder = QFile::encodeName(QFileInfo(m_target).absolutePath());
    const bool isKnown = statvfs(folder.constData(), &system) == 0 && system.f_blocks > 0;
    if (isKnown && (system.f_flag & ST_RDONLY))
        return About(Texts::tr("could not be written: %1").arg(ErrorText(EROFS)),
                     Texts::tr("choose another folder"));
    if (isKnown && quint64(system.f_bavail) * system.f_frsize < 64 * 1024)
        return About(Texts::tr("could not be written: %1").arg(ErrorText(ENOSPC)),
                     Texts::tr("free some space and try again"));
    return About(Texts::tr("could not be written completely, so nothing was kept"),
                 isKnown ? Texts::tr("look at the disk's space, quota and file size limit")
                         : Texts::tr("the file system does not tell its free space; look at the disk's "
                                     "space, quota and file size limit"));
}

std::optional<Problem> SafeOutput::Commit()
{
    if (IsStandardOutput(m_path))
        return CopyToStandardOutput();
    if (!IsTemporaryFile())
        return About(Texts::tr("somebody removed or replaced its temporary file while it was written"),
                     Texts::tr("try again, or choose a folder that only you can write to"));
    int error = fsync(m_descriptor) == 0 ? 0 : errno;
    struct stat old {};
    const QByteArray from = QFile::encodeName(m_temporaryName);
    const QByteArray to = QFile::encodeName(m_target);
    if (error == 0 && m_replace && stat(to.constData(), &old) == 0)
        chmod(from.constData(), old.st_mode & 07777); // the new content of an old file
    if (error == 0)
        error = Rename(from, to, m_replace);
    if (error == EEXIST)
        return About(Texts::tr("already exists"), Texts::tr("add --force to replace it"));
    if (error != 0)
        return About(Texts::tr("could not be written: %1").arg(ErrorText(error)));
    m_temporary.reset();
    SyncFolder(QFileInfo(m_target).absolutePath());
    return std::nullopt;
}

} // namespace ZYN::Tool
