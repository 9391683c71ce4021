#include "Inputs.h"

#include "Texts.h"

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <algorithm>
#include <optional>

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace ZYN::Tool {

namespace {

// What comes through a pipe as a file in memory that can be opened by name, as often as one likes.
// \return an empty name when it cannot be read
QString CopyToMemory(QFile* pipe)
{
    const int descriptor = memfd_create("zyn input", MFD_CLOEXEC);
    QFile memory;
    if (descriptor < 0 || !pipe->isOpen() || !memory.open(descriptor, QIODevice::WriteOnly))
        return QString();
    for (QByteArray chunk = pipe->read(1 << 20); !chunk.isEmpty(); chunk = pipe->read(1 << 20))
        memory.write(chunk);
    if (!memory.flush() || pipe->error() != QFileDevice::NoError)
        return QString();
    return QStringLiteral("/proc/self/fd/%1").arg(descriptor); // which stays open
}

bool IsPipe(const QString& path)
{
    struct stat status {};
    return stat(QFile::encodeName(path).constData(), &status) == 0 && S_ISFIFO(status.st_mode);
}

QString OpenPipe(const QString& path)
{
    QFile pipe(path);
    if (path == QLatin1String("-"))
        pipe.open(stdin, QIODevice::ReadOnly);
    else
        pipe.open(QIODevice::ReadOnly);
    return CopyToMemory(&pipe);
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
        inputs.append({path, path, base.relativeFilePath(QFileInfo(path).absoluteFilePath())});
    }
    std::sort(inputs.begin(), inputs.end(), [](const Input& a, const Input& b) { return a.path < b.path; });
    return inputs;
}

std::optional<Problem> CannotRead(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return Problem{path, 0, Texts::tr("there is no such file"), Texts::tr("check the name")};
    if (!info.isFile() && !info.isDir())
        return Problem{path, 0, Texts::tr("is a device"), Texts::tr("name a file, a folder or a pipe")};
    if (!info.isReadable())
        return Problem{path, 0, Texts::tr("cannot be read"), Texts::tr("check its permissions")};
    return std::nullopt;
}

} // namespace

InputFiles::InputFiles(const QList<Input>& inputs)
{
    for (const Input& input : inputs)
        m_paths.insert(QFileInfo(input.path).canonicalFilePath());
}

std::optional<Problem> InputFiles::Refusal(const QString& output) const
{
    const QString existing = QFileInfo(output).canonicalFilePath();
    if (existing.isEmpty() || !m_paths.contains(existing))
        return std::nullopt;
    return Problem{output, 0, Texts::tr("is an input as well"),
                   Texts::tr("choose another name for the output")};
}

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
        if (path == QLatin1String("-") || IsPipe(path)) {
            const QString memory = OpenPipe(path);
            if (memory.isEmpty())
                problems->append({path, 0, Texts::tr("cannot be read to its end"), {}});
            else
                inputs.append({memory, path, QStringLiteral("stdin")});
        } else if (const std::optional<Problem> problem = CannotRead(path)) {
            problems->append(*problem);
        } else if (QFileInfo(path).isDir()) {
            const QList<Input> files = FilesOfFolder(path, extensions);
            if (files.isEmpty())
                problems->append({path, 0,
                                  Texts::tr("holds no *.%1 file").arg(extensions.join(QLatin1String(", *."))),
                                  Texts::tr("name the files themselves if they are called otherwise")});
            inputs += files;
        } else {
            inputs.append({path, path, QFileInfo(path).fileName()});
        }
    }
    return inputs;
}

} // namespace ZYN::Tool
