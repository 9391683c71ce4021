#include "runs/files/FolderFiles.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

#include <algorithm>
#include <cerrno>
#include <utility>
#include <vector>

#include <dirent.h>
#include <sys/stat.h>

namespace ZYN {

namespace {

/// What is said to people, with the texts of the tool.
struct Texts {
    Q_DECLARE_TR_FUNCTIONS(zyn)
};

} // namespace

QStringList ReportExtensions()
{
    return {QStringLiteral("zyr"), QStringLiteral("zyr.gz")};
}

QStringList LotExtensions()
{
    QStringList extensions;
    for (const char* const packed : {"", ".gz", ".bz2", ".xz", ".zst"})
        for (const char* const plain : {"stdf", "std"})
            extensions.append(QLatin1String(plain) + QLatin1String(packed));
    return extensions;
}

bool IsUtf8(const QByteArray& name)
{
    return QFile::encodeName(QFile::decodeName(name)) == name;
}

QString ReadableName(const QByteArray& name)
{
    if (IsUtf8(name))
        return QFile::decodeName(name);
    QString readable;
    for (const char byte : name) {
        const auto code = static_cast<unsigned char>(byte);
        readable += code < 0x80 ? QString(QLatin1Char(byte)) : QStringLiteral("\\x%1").arg(uint(code), 2, 16);
    }
    return readable;
}

FolderFiles::FolderFiles(const QStringList& extensions)
{
    for (const QString& extension : extensions)
        m_endings.append(QLatin1Char('.') + extension);
}

void FolderFiles::Search(const QString& folder)
{
    m_folder = folder;
    Enter(QString());
    m_files.sort();
    if (m_files.isEmpty() && m_problems.isEmpty())
        m_problems.append({QString(),
                           Texts::tr("holds no *.%1 file").arg(m_endings.join(QLatin1String(", *")).mid(1)),
                           Texts::tr("name the files themselves if they are called otherwise")});
}

QByteArray FolderFiles::PathOf(const QString& below) const
{
    return QFile::encodeName(below.isEmpty() ? m_folder : m_folder + QLatin1Char('/') + below);
}

void FolderFiles::Enter(const QString& below)
{
    DIR* const handle = opendir(PathOf(below));
    if (!handle)
        return CannotRead(below, errno);
    std::vector<std::pair<QByteArray, bool>> entries; // a folder is closed before others are opened
    while (const dirent* const entry = readdir(handle))
        if (entry->d_name[0] != '.')
            entries.emplace_back(entry->d_name, entry->d_type == DT_DIR);
    closedir(handle);
    std::sort(entries.begin(), entries.end());
    for (const auto& [entry, isFolder] : entries)
        Take(below, entry, isFolder);
}

void FolderFiles::Take(const QString& folder, const QByteArray& entry, bool isFolder)
{
    const QString below = (folder.isEmpty() ? QString() : folder + QLatin1Char('/')) + ReadableName(entry);
    struct stat own {};
    struct stat target {};
    const QByteArray path = PathOf(folder) + '/' + entry;
    const bool isKnown = lstat(path, &own) == 0;
    isFolder = isKnown ? S_ISDIR(own.st_mode) : isFolder;
    if (!isFolder && !IsWanted(below))
        return;
    if (!IsUtf8(entry))
        m_problems.append({below, Texts::tr("its name is no UTF-8"),
                           Texts::tr("rename it, or name it on the command line")});
    else if (isFolder)
        Enter(below);
    else if (stat(path, &target) != 0)
        CannotRead(below, errno);
    else if (S_ISREG(target.st_mode))
        m_files.append(below);
    else if (!S_ISDIR(target.st_mode))
        m_problems.append(
            {below, Texts::tr("is a device or a pipe"), Texts::tr("name it on the command line")});
}

bool FolderFiles::IsWanted(const QString& name) const
{
    return std::any_of(m_endings.begin(), m_endings.end(),
                       [&](const QString& ending) { return name.endsWith(ending, Qt::CaseInsensitive); });
}

void FolderFiles::CannotRead(const QString& below, int error)
{
    if (error == ENOENT)
        m_problems.append({below, Texts::tr("is a link to nowhere"), Texts::tr("remove the link")});
    else
        m_problems.append({below, Texts::tr("cannot be read: %1").arg(qt_error_string(error)),
                           Texts::tr("check its permissions")});
}

} // namespace ZYN
