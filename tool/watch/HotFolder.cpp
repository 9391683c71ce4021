#include "watch/HotFolder.h"

#include "loading/InputRuns.h"
#include "loading/RunLoader.h"
#include "terminal/Problem.h"
#include "terminal/Texts.h"

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace ZYN::Tool {

namespace {

constexpr qint64 unchangedMilliseconds = 3000;

bool HoldsRuns(const QString& name)
{
    const QStringList extensions = RunExtensions();
    return std::ranges::any_of(extensions, [&](const QString& extension) {
        return name.endsWith(QLatin1Char('.') + extension, Qt::CaseInsensitive);
    });
}

/// "panel-7 (2).zyr": a name for what has to stand beside another file of the same name.
QString Numbered(const QString& name, int number)
{
    const qsizetype dot = name.indexOf(QLatin1Char('.'), 1);
    return QStringLiteral("%1 (%2)%3")
        .arg(name.left(dot))
        .arg(number)
        .arg(dot < 0 ? QString() : name.mid(dot));
}

} // namespace

HotFolder::HotFolder(const QString& folder)
    : m_folder(folder)
{
}

HotFolder::~HotFolder()
{
    if (m_lock >= 0)
        close(m_lock);
}

std::optional<Problem> HotFolder::Prepare()
{
    if (!QFileInfo(m_folder).isDir())
        return Problem{m_folder, 0, Texts::tr("there is no such folder"), Texts::tr("check the name")};
    if (IsTakenByAnother())
        return Problem{m_folder, 0, Texts::tr("another zyn watch takes what comes here"),
                       Texts::tr("end that one first")};
    for (const QString& subfolder : {QStringLiteral("done"), QStringLiteral("error")}) {
        const QString path = m_folder + QLatin1Char('/') + subfolder;
        if (!QDir().mkpath(path) || !QFileInfo(path).isWritable())
            return Problem{path, 0, Texts::tr("the folder cannot be written to"),
                           Texts::tr("check the rights of the folder")};
    }
    return std::nullopt;
}

bool HotFolder::IsTakenByAnother()
{
    m_lock = open(QFile::encodeName(m_folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    return m_lock >= 0 && flock(m_lock, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

QList<Input> HotFolder::Ready()
{
    QStringList names;
    QDirIterator files(m_folder, QDir::Files | QDir::Hidden);
    while (files.hasNext()) {
        files.next();
        // Testers write under a name that begins with a dot and rename what is complete.
        if (!files.fileName().startsWith(QLatin1Char('.')) && HoldsRuns(files.fileName()))
            names.append(files.fileName());
    }
    m_waiting = names.size();
    names.sort();
    QList<Input> ready;
    for (const QString& name : std::as_const(names)) {
        const QString path = m_folder + QLatin1Char('/') + name;
        if (!IsUnfinished(path))
            ready.append({path, name, name});
    }
    return ready;
}

/// Whether a file could not be read and is as it was then, for less than the time after which it is given up.
bool HotFolder::IsUnfinished(const QString& path)
{
    const auto seen = m_unfinished.constFind(path);
    if (seen == m_unfinished.constEnd())
        return false;
    const QFileInfo info(path);
    const bool isSame = info.size() == seen->size && info.lastModified() == seen->changed;
    return isSame && seen->since.elapsed() < unchangedMilliseconds;
}

void HotFolder::MoveToDone(const Input& input)
{
    Move(input, QStringLiteral("done"));
}

bool HotFolder::GiveUp(const Input& input, const QString& reason)
{
    const QFileInfo info(input.path);
    const auto seen = m_unfinished.constFind(input.path);
    const bool isSame =
        seen != m_unfinished.constEnd() && info.size() == seen->size && info.lastModified() == seen->changed;
    if (!isSame || seen->since.elapsed() < unchangedMilliseconds) {
        if (!isSame) {
            Seen& now = m_unfinished[input.path];
            now = {info.size(), info.lastModified(), {}};
            now.since.start();
        }
        return false;
    }
    QSaveFile beside(Move(input, QStringLiteral("error")) + QLatin1String(".reason.txt"));
    if (beside.open(QIODevice::WriteOnly)) {
        beside.write(reason.toUtf8() + '\n');
        beside.commit();
    }
    return true;
}

/// \return where it is now
QString HotFolder::Move(const Input& input, const QString& subfolder)
{
    m_unfinished.remove(input.path);
    const QString folder = m_folder + QLatin1Char('/') + subfolder + QLatin1Char('/');
    QString to = folder + input.relative;
    // What is there is never replaced: it is another content of the same name.
    for (int number = 2; !QFile::rename(input.path, to); ++number) {
        if (!QFileInfo::exists(to)) {
            PrintProblem({input.path, 0, Texts::tr("cannot be moved to %1").arg(to),
                          Texts::tr("check the rights of the folder")});
            break;
        }
        to = folder + Numbered(input.relative, number);
    }
    return to;
}

} // namespace ZYN::Tool
