#include "files/FolderFiles.h"

#include "terminal/Texts.h"

#include <QtCore/QFile>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <vector>

#include <dirent.h>
#include <sys/stat.h>

namespace ZYN::Tool {

FolderFiles::FolderFiles(const QStringList& extensions)
{
    for (const QString& extension : extensions)
        m_endings.append(QLatin1Char('.') + extension);
}

void FolderFiles::Search(const QString& path, const QString& name)
{
    Enter({path, name, QString()});
    std::sort(m_files.begin(), m_files.end(), [](const Input& a, const Input& b) { return a.path < b.path; });
}

void FolderFiles::Enter(const Input& folder)
{
    DIR* const handle = opendir(QFile::encodeName(folder.path));
    if (!handle)
        return CannotRead(folder, errno);
    std::vector<std::pair<QByteArray, bool>> entries; // a folder is closed before others are opened
    while (const dirent* const entry = readdir(handle))
        if (entry->d_name[0] != '.')
            entries.emplace_back(entry->d_name, entry->d_type == DT_DIR);
    closedir(handle);
    std::sort(entries.begin(), entries.end());
    for (const auto& [entry, isFolder] : entries)
        Take(folder, entry, isFolder);
}

void FolderFiles::Take(const Input& folder, const QByteArray& entry, bool isFolder)
{
    const auto below = [&](const QString& above) {
        const bool needsSlash = !above.isEmpty() && !above.endsWith(QLatin1Char('/'));
        return (needsSlash ? above + QLatin1Char('/') : above) + ReadableName(entry);
    };
    const Input input{below(folder.path), below(folder.name), below(folder.relative)};
    struct stat own {};
    struct stat target {};
    const QByteArray path = QFile::encodeName(folder.path) + '/' + entry;
    const bool isKnown = lstat(path, &own) == 0;
    isFolder = isKnown ? S_ISDIR(own.st_mode) : isFolder;
    if (!isFolder && !IsWanted(input.name))
        return;
    if (!IsUtf8(entry))
        m_problems.append({input.name, 0, Texts::tr("its name is no UTF-8"),
                           Texts::tr("rename it, or name it on the command line")});
    else if (isFolder)
        Enter(input);
    else if (stat(path, &target) != 0)
        CannotRead(input, errno);
    else if (S_ISREG(target.st_mode))
        m_files.append(input);
    else if (!S_ISDIR(target.st_mode))
        m_problems.append(
            {input.name, 0, Texts::tr("is a device or a pipe"), Texts::tr("name it on the command line")});
}

bool FolderFiles::IsWanted(const QString& name) const
{
    return std::any_of(m_endings.begin(), m_endings.end(),
                       [&](const QString& ending) { return name.endsWith(ending, Qt::CaseInsensitive); });
}

void FolderFiles::CannotRead(const Input& input, int error)
{
    if (error == ENOENT)
        m_problems.append({input.name, 0, Texts::tr("is a link to nowhere"), Texts::tr("remove the link")});
    else
        m_problems.append({input.name, 0, Texts::tr("cannot be read: %1").arg(qt_error_string(error)),
                           Texts::tr("check its permissions")});
}

} // namespace ZYN::Tool
