#include "Inputs.h"

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <optional>

#include <sys/mman.h>
#include <unistd.h>

namespace ZYN::Tool {

namespace {

// Standard input as a file in memory that can be opened by name, as often as one likes.
QString StandardInputPath(QList<Problem>* problems)
{
    static QString path;
    if (!path.isEmpty())
        return path;
    const int descriptor = memfd_create("standard input", MFD_CLOEXEC);
    QFile input;
    QFile memory;
    if (descriptor < 0 || !memory.open(descriptor, QIODevice::WriteOnly) ||
        !input.open(stdin, QIODevice::ReadOnly)) {
        problems->append({QStringLiteral("-"), 0, QStringLiteral("standard input cannot be read"), {}});
        return QString();
    }
    for (QByteArray chunk = input.read(1 << 20); !chunk.isEmpty(); chunk = input.read(1 << 20))
        memory.write(chunk);
    memory.close(); // flushes; the descriptor stays open
    return path = QStringLiteral("/proc/self/fd/%1").arg(descriptor);
}

QList<Input> FilesOfFolder(const QString& folder, const QStringList& extensions)
{
    QStringList filters;
    for (const QString& extension : extensions)
        filters.append(QStringLiteral("*.") + extension);
    QList<Input> inputs;
    const QDir base(folder);
    QDirIterator it(folder, filters, QDir::Files | QDir::Readable, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        inputs.append({path, path, base.relativeFilePath(path)});
    }
    std::sort(inputs.begin(), inputs.end(), [](const Input& a, const Input& b) { return a.path < b.path; });
    return inputs;
}

std::optional<Problem> CannotRead(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return Problem{path, 0, QStringLiteral("there is no such file"), QStringLiteral("check the name")};
    if (!info.isReadable())
        return Problem{path, 0, QStringLiteral("cannot be read"), QStringLiteral("check its permissions")};
    return std::nullopt;
}

} // namespace

QString PathOf(const std::string& argument)
{
    return QFile::decodeName(argument.c_str());
}

QList<Input> ExpandInputs(const std::vector<std::string>& arguments, const QStringList& extensions,
                          QList<Problem>* problems)
{
    QList<Input> inputs;
    for (const std::string& argument : arguments) {
        const QString path = PathOf(argument);
        if (path == QLatin1String("-")) {
            const QString memory = StandardInputPath(problems);
            if (!memory.isEmpty())
                inputs.append({memory, path, QStringLiteral("stdin")});
        } else if (const std::optional<Problem> problem = CannotRead(path)) {
            problems->append(*problem);
        } else if (QFileInfo(path).isDir()) {
            const QList<Input> files = FilesOfFolder(path, extensions);
            if (files.isEmpty())
                problems->append(
                    {path, 0,
                     QStringLiteral("holds no *.%1 file").arg(extensions.join(QLatin1String(", *."))),
                     QStringLiteral("name the files themselves if they are called otherwise")});
            inputs += files;
        } else {
            inputs.append({path, path, QFileInfo(path).fileName()});
        }
    }
    return inputs;
}

} // namespace ZYN::Tool
