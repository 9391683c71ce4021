#include "watch/WatchLog.h"

#include "terminal/Terminal.h"
#include "terminal/Texts.h"

#include <sys/stat.h>
#include <unistd.h>

namespace ZYN::Tool {

namespace {

// Priorities of syslog(3).
constexpr int errorPriority = 3;
constexpr int warningPriority = 4;
constexpr int noticePriority = 5;
constexpr int informationPriority = 6;

// The variable alone says nothing: a terminal that was started as a service inherits it.
bool OutputIsJournal()
{
    struct stat output {};
    if (fstat(STDOUT_FILENO, &output) != 0)
        return false;
    const QByteArray stream =
        QByteArray::number(qulonglong(output.st_dev)) + ':' + QByteArray::number(qulonglong(output.st_ino));
    return qgetenv("JOURNAL_STREAM") == stream;
}

} // namespace

WatchLog::WatchLog(const Manners& manners)
    : m_manners(manners)
    , m_isForJournal(OutputIsJournal())
{
}

void WatchLog::TellJournal(int priority, const QJsonObject& object)
{
    Print(QStringLiteral("<%1>").arg(priority));
    PrintJsonLine(object);
    FlushOutput();
}

void WatchLog::Archived(const LoadedInput& loaded) const
{
    if (m_manners.quiet)
        return;
    if (m_isForJournal)
        return TellJournal(informationPriority, {{QStringLiteral("input"), loaded.input->name},
                                                 {QStringLiteral("added"), loaded.added},
                                                 {QStringLiteral("present"), loaded.present},
                                                 {QStringLiteral("revised"), loaded.revised}});
    Print(Texts::tr("%1: runs: %2 added, %3 there already, %4 revised")
              .arg(Harmless(loaded.input->name), QString::number(loaded.added),
                   QString::number(loaded.present), QString::number(loaded.revised)) +
          QLatin1Char('\n'));
    FlushOutput();
}

void WatchLog::Failed(const QString& input, const QString& reason) const
{
    if (m_isForJournal)
        return TellJournal(errorPriority,
                           {{QStringLiteral("input"), input}, {QStringLiteral("error"), reason}});
    PrintNote(reason);
}

void WatchLog::Waits(const QString& reason) const
{
    if (m_isForJournal)
        return TellJournal(warningPriority, {{QStringLiteral("state"), QStringLiteral("waiting")},
                                             {QStringLiteral("error"), reason}});
    PrintProblem({{}, 0, reason, Texts::tr("what comes waits in the folder")});
}

void WatchLog::GoesOn() const
{
    if (m_isForJournal)
        return TellJournal(noticePriority, {{QStringLiteral("state"), QStringLiteral("watching")}});
    PrintNote(Texts::tr("it goes on"));
}

} // namespace ZYN::Tool
