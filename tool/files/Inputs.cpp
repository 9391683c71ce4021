#include "files/Inputs.h"

#include "terminal/Texts.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>

#include <optional>

#include <fcntl.h>
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

// What an argument is opened by: what Qt cannot name is opened here, and stays open.
QString OpenableName(const QByteArray& argument)
{
    const int descriptor = IsUtf8(argument) ? -1 : open(argument.constData(), O_PATH | O_CLOEXEC);
    return descriptor < 0 ? QFile::decodeName(argument) : QStringLiteral("/proc/self/fd/%1").arg(descriptor);
}

std::optional<Problem> CannotRead(const Input& input)
{
    const QFileInfo info(input.path);
    if (!info.exists())
        return Problem{input.name, 0, Texts::tr("there is no such file"), Texts::tr("check the name")};
    if (!info.isFile() && !info.isDir())
        return Problem{input.name, 0, Texts::tr("is a device"), Texts::tr("name a file, a folder or a pipe")};
    if (!info.isReadable())
        return Problem{input.name, 0, Texts::tr("cannot be read"), Texts::tr("check its permissions")};
    return std::nullopt;
}

QString Below(const QString& folder, const QString& file)
{
    return folder.endsWith(QLatin1Char('/')) || file.isEmpty() ? folder + file
                                                               : folder + QLatin1Char('/') + file;
}

QList<Input> FilesOfFolder(const Input& folder, const QStringList& extensions, QList<Problem>* problems)
{
    FolderFiles found(extensions);
    found.Search(folder.path);
    for (const FolderFiles::Problem& problem : found.GetProblems())
        problems->append({Below(folder.name, problem.file), 0, problem.what, problem.remedy});
    QList<Input> inputs;
    for (const QString& file : found.GetFiles())
        inputs.append({Below(folder.path, file), Below(folder.name, file), file});
    return inputs;
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
    if (output == QLatin1String("-") || existing.isEmpty() || !m_paths.contains(existing))
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
        const QByteArray bytes = QByteArray::fromStdString(argument);
        const QString name = ReadableName(bytes);
        const Input input{OpenableName(bytes), name, QFileInfo(name).fileName()};
        if (input.path == QLatin1String("-") || IsPipe(input.path)) {
            const QString memory = OpenPipe(input.path);
            if (memory.isEmpty())
                problems->append({name, 0, Texts::tr("cannot be read to its end"), {}});
            else
                inputs.append({memory, name, QStringLiteral("stdin")});
        } else if (const std::optional<Problem> problem = CannotRead(input)) {
            problems->append(*problem);
        } else if (QFileInfo(input.path).isDir()) {
            inputs += FilesOfFolder(input, extensions, problems);
        } else {
            inputs.append(input);
        }
    }
    return inputs;
}

} // namespace ZYN::Tool
