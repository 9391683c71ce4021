#include "commands/Command.h"
#include "files/Inputs.h"
#include "kinds/ReportConversion.h"
#include "loading/RunLoader.h"
#include "terminal/Terminal.h"
#include "terminal/Texts.h"
#include "watch/HotFolder.h"
#include "watch/WatchStatus.h"

#include <ZYNPersistence/CExportServiceReport.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QFileSystemWatcher>
#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>

#include <algorithm>
#include <csignal>

#include <sys/signalfd.h>
#include <unistd.h>

namespace ZYN::Tool {

namespace {

const QString command = QStringLiteral("watch");
constexpr int ScanMilliseconds = 1000;  // network folders tell nothing by themselves
constexpr int LongestPause = 30 * 1000; // while the archive is away
constexpr qsizetype FilesAtOnce = 100;

struct Arguments {
    std::string folder;
    std::string archive;
    std::vector<std::string> targets;
    std::vector<std::string> formats;
    std::string status;
    bool once = false;
};

struct Target {
    QString folder;
    QString format;
};

// Signals that end the tool, as something to wait for: the report in hand is finished first.
class EndSignals {
public:
    EndSignals()
    {
        sigset_t ending;
        sigemptyset(&ending);
        sigaddset(&ending, SIGTERM);
        sigaddset(&ending, SIGINT);
        pthread_sigmask(SIG_BLOCK, &ending, nullptr);
        m_descriptor = signalfd(-1, &ending, SFD_CLOEXEC | SFD_NONBLOCK);
    }
    ~EndSignals() { close(m_descriptor); }
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

    int Descriptor() const { return m_descriptor; }
    bool HasCome()
    {
        signalfd_siginfo information;
        m_come = m_come || read(m_descriptor, &information, sizeof information) > 0;
        return m_come;
    }

private:
    int m_descriptor;
    bool m_come = false;
};

class Watcher {
public:
    Watcher(const Arguments& arguments, QList<Target> targets, const Manners& manners)
        : m_folder(PathOf(arguments.folder))
        , m_url(PathOf(arguments.archive))
        , m_targets(std::move(targets))
        , m_status(PathOf(arguments.status))
        , m_manners(manners)
        , m_once(arguments.once)
    {
    }

    int Run(const QString& folder)
    {
        QFileSystemWatcher changes({folder});
        QSocketNotifier ending(m_ending.Descriptor(), QSocketNotifier::Read);
        QObject::connect(&ending, &QSocketNotifier::activated, qApp, [this] { Leave(); });
        QObject::connect(&changes, &QFileSystemWatcher::directoryChanged, qApp, [this] { Soon(0); });
        m_timer.setSingleShot(true);
        QObject::connect(&m_timer, &QTimer::timeout, qApp, [this] { TakeAll(); });
        Soon(0);
        QCoreApplication::exec();
        m_folder.Ready(0); // counts anew
        m_status.Tell(QStringLiteral("ended"), m_error, m_folder.Waiting());
        return m_failed ? ExitFailed : ExitGood;
    }

private:
    void Soon(int milliseconds)
    {
        if (m_error.isEmpty() || milliseconds > 0)
            m_timer.start(milliseconds);
    }

    void Leave()
    {
        if (m_ending.HasCome())
            QCoreApplication::quit();
    }

    void TakeAll()
    {
        bool isMore = OpenArchive();
        while (isMore && !m_ending.HasCome()) {
            const QList<Input> ready = m_folder.Ready(FilesAtOnce);
            isMore = !ready.isEmpty() && Take(ready);
            m_status.Tell(QStringLiteral("watching"), {}, m_folder.Waiting());
        }
        FlushOutput();
        if (m_ending.HasCome() || (m_once && m_error.isEmpty() && m_folder.Waiting() == 0))
            QCoreApplication::quit();
        if (!m_error.isEmpty())
            m_status.Tell(QStringLiteral("waiting for the archive"), m_error, m_folder.Waiting());
        Soon(m_error.isEmpty() ? ScanMilliseconds : m_pause);
    }

    bool OpenArchive()
    {
        if (m_isOpen)
            return true;
        m_archive = std::make_unique<Archive>();
        if (!m_archive->Open(m_url, Archive::Mode::ReadWrite)) {
            Lose(m_archive->GetErrorText());
            return false;
        }
        if (!m_error.isEmpty())
            PrintNote(Texts::tr("the archive is there again"));
        m_isOpen = true;
        m_error.clear();
        m_pause = ScanMilliseconds;
        return true;
    }

    // The archive is away: what is in the folder waits.
    void Lose(const QString& error)
    {
        if (m_error.isEmpty())
            PrintProblem({{}, 0, error, Texts::tr("what comes waits in the folder")});
        m_error = error;
        m_isOpen = false;
        m_pause = std::min(2 * m_pause, LongestPause);
    }

    // \return whether there may be more to take now
    bool Take(const QList<Input>& ready)
    {
        const std::optional<Problem> failure =
            LoadRuns(*m_archive, ready, false, [&](const LoadedInput& loaded) {
                if (!loaded.problem)
                    Finish(loaded);
                else if (m_archive->IsFaultOfRuns() || loaded.problem->file == loaded.input->name)
                    GiveUp(*loaded.input, TextOf(*loaded.problem));
            });
        if (failure)
            Lose(failure->what);
        return !failure;
    }

    // In the archive already: whatever happens from here on, a second time does no harm.
    void Finish(const LoadedInput& loaded)
    {
        for (const Target& target : m_targets) {
            const QString output =
                target.folder + QLatin1Char('/') + ConvertedName(loaded.input->relative, target.format);
            const ReportConversion conversion{.format = target.format, .replace = true};
            if (const std::optional<Problem> problem = ConvertReport(*loaded.input, output, conversion)) {
                if (m_folder.GiveUp(*loaded.input, TextOf(*problem)))
                    Say(*loaded.input, TextOf(*problem));
                return;
            }
        }
        m_folder.MoveToDone(*loaded.input);
        m_status.Archived(loaded.input->name);
        if (!m_manners.quiet)
            Print(Texts::tr("%1: runs: %2 added, %3 there already, %4 revised")
                      .arg(Harmless(loaded.input->name), QString::number(loaded.added),
                           QString::number(loaded.present), QString::number(loaded.revised)) +
                  QLatin1Char('\n'));
        FlushOutput();
    }

    void GiveUp(const Input& input, const QString& reason)
    {
        if (m_folder.GiveUp(input, reason))
            Say(input, reason);
    }

    void Say(const Input& input, const QString& reason)
    {
        m_failed = true;
        m_status.Failed(input.name, reason);
        PrintNote(Harmless(reason));
    }

    HotFolder m_folder;
    QString m_url;
    QList<Target> m_targets;
    WatchStatus m_status;
    const Manners& m_manners;
    bool m_once;
    EndSignals m_ending; // before any thread: all of them leave these signals to it
    std::unique_ptr<Archive> m_archive;
    bool m_isOpen = false;
    bool m_failed = false;
    QString m_error; // why the archive is away
    int m_pause = ScanMilliseconds;
    QTimer m_timer;
};

// 0 when the command line makes sense.
int CheckUsage(const Arguments& arguments, QList<Target>* targets)
{
    if (!Archive::IsArchive(PathOf(arguments.archive)))
        return WrongUsage(command, Texts::tr("'%1' names no archive").arg(PathOf(arguments.archive)),
                          Texts::tr("name a file that ends in .zya, or postgresql://USER@HOST/DATABASE"));
    if (arguments.targets.size() != arguments.formats.size())
        return WrongUsage(command, Texts::tr("each --to needs a format, and each format a folder"),
                          Texts::tr("give --to FOLDER -f FORMAT, as often as needed"));
    for (size_t i = 0; i < arguments.targets.size(); ++i) {
        const QString format = QString::fromStdString(arguments.formats[i]).trimmed().toUpper();
        if (!CExportServiceReport::ValidFormat(format) || format == QLatin1String("PDF"))
            return WrongUsage(command, Texts::tr("'%1' is no format that a watcher writes").arg(format),
                              Texts::tr("zyn formats lists them; PDF is made by zyn convert"));
        targets->append({PathOf(arguments.targets[i]), format});
    }
    return ExitGood;
}

int Run(const Arguments& arguments, const Manners& manners)
{
    QList<Target> targets;
    if (const int usage = CheckUsage(arguments, &targets))
        return usage;
    const QString folder = PathOf(arguments.folder);
    if (!QFileInfo(folder).isDir()) {
        PrintProblem({folder, 0, Texts::tr("there is no such folder"), Texts::tr("check the name")});
        return ExitFailed;
    }
    QStringList needed;
    if (const QString bad = HotFolder(folder).Prepare(); !bad.isEmpty())
        needed.append(bad);
    for (const Target& target : std::as_const(targets))
        if (!QDir().mkpath(target.folder))
            needed.append(target.folder);
    if (!needed.isEmpty()) {
        PrintProblem({needed.constFirst(), 0, Texts::tr("the folder cannot be created"),
                      Texts::tr("choose another one")});
        return ExitFailed;
    }
    return Watcher(arguments, targets, manners).Run(folder);
}

} // namespace

Command WatchCommand(CommandLine& zyn, const Manners& manners)
{
    CommandLine watch = zyn.Subcommand("watch", Texts::tr("Archive and convert reports as they come"));
    const auto arguments = std::make_shared<Arguments>();
    watch.Argument("FOLDER", arguments->folder, Texts::tr("Where testers put their reports")).Required();
    watch
        .Value("--archive", arguments->archive,
               Texts::tr("File that ends in .zya, or postgresql://USER@HOST:PORT/DATABASE"))
        .Named(Texts::tr("ARCHIVE"))
        .Required();
    watch.Values("--to", arguments->targets, Texts::tr("Folder that converted reports are written into"))
        .Named(Texts::tr("FOLDER"));
    watch.Values("-f,--format", arguments->formats, Texts::tr("Format of the folder before it"))
        .Named(Texts::tr("FORMAT"));
    watch
        .Value("--status", arguments->status,
               Texts::tr("File for monitoring: last report, waiting, errors, as JSON"))
        .Named(Texts::tr("FILE"));
    watch.Flag("--once", arguments->once, Texts::tr("End when nothing is waiting"));
    watch.Footer(
        Texts::tr("What was taken is moved to FOLDER/done; what cannot be read and is unchanged for three "
                  "seconds to FOLDER/error, with the reason beside it. While the archive is away the rest "
                  "waits. SIGTERM ends it after the report in hand."),
        {"zyn watch /srv/reports --archive line.zya",
         "zyn watch /srv/reports --archive postgresql://line@db/factory --to /srv/csv -f csv"});
    return {watch, [=, &manners] { return Run(*arguments, manners); }, {}};
}

} // namespace ZYN::Tool
