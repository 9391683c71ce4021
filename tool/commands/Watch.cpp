#include "commands/Command.h"
#include "files/Inputs.h"
#include "files/Parallel.h"
#include "loading/RunLoader.h"
#include "lots/LotConversion.h"
#include "lots/LotUnits.h"
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

// Trouble with the report has the report's name, with what is written another one.
std::optional<Problem> ConvertInto(const Target& target, const Input& input)
{
    const QString to = target.folder + QLatin1Char('/');
    const ReportConversion conversion{.format = target.format, .replace = true};
    if (!IsLot(input))
        return ConvertReport(input, to + ConvertedName(input.relative, target.format), conversion);
    const QString folder = to + ConvertedLotName(input.relative);
    if (!QDir().mkpath(folder))
        return Problem{folder, 0, Texts::tr("the folder cannot be created"), Texts::tr("choose another one")};
    for (const Conversion& made : ConvertLot(input, folder, conversion, AllCores()))
        if (made.problem)
            return made.problem;
    return std::nullopt;
}

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
        m_folder.Ready(); // counts anew
        m_status.Tell(QStringLiteral("ended"), m_trouble, m_folder.Waiting());
        return m_failed ? ExitFailed : ExitGood;
    }

private:
    void Soon(int milliseconds) { m_timer.start(milliseconds); }

    void Leave()
    {
        if (m_ending.HasCome())
            QCoreApplication::quit();
    }

    void TakeAll()
    {
        m_trouble.clear();
        QList<Input> ready = m_folder.Ready();
        while (!ready.isEmpty() && OpenArchive() && !m_ending.HasCome()) {
            Take(ready.mid(0, FilesAtOnce));
            ready.remove(0, qMin(FilesAtOnce, ready.size()));
            m_status.Tell(State(), m_trouble, ready.size());
        }
        FlushOutput();
        TellOfTrouble();
        if (m_ending.HasCome() || (m_once && m_trouble.isEmpty() && IsEmpty()))
            QCoreApplication::quit();
        m_status.Tell(State(), m_trouble, m_folder.Waiting());
        Soon(m_pause);
    }

    bool IsEmpty()
    {
        m_folder.Ready();
        return m_folder.Waiting() == 0;
    }

    QString State() const
    {
        return m_trouble.isEmpty() ? QStringLiteral("watching") : QStringLiteral("waiting");
    }

    // Once when it begins and once when it ends, however often it is tried in between.
    void TellOfTrouble()
    {
        if (!m_trouble.isEmpty() && m_told.isEmpty())
            PrintProblem({{}, 0, m_trouble, Texts::tr("what comes waits in the folder")});
        if (m_trouble.isEmpty() && !m_told.isEmpty())
            PrintNote(Texts::tr("it goes on"));
        m_told = m_trouble;
        m_pause = m_trouble.isEmpty() ? ScanMilliseconds : qMin(2 * m_pause, LongestPause);
    }

    // \return false where the archive is away, or there is other trouble that ends without us
    bool OpenArchive()
    {
        if (!m_trouble.isEmpty())
            m_archive.reset();
        if (m_archive || !m_trouble.isEmpty())
            return m_trouble.isEmpty();
        auto archive = std::make_unique<Archive>();
        if (archive->Open(m_url, Archive::Mode::ReadWrite))
            m_archive = std::move(archive);
        else
            m_trouble = archive->GetErrorText();
        return m_trouble.isEmpty();
    }

    void Take(const QList<Input>& inputs)
    {
        const std::optional<Problem> failure =
            LoadRuns(*m_archive, inputs, false, [&](const LoadedInput& loaded) {
                if (!loaded.problem)
                    Finish(loaded);
                else if (loaded.problem->file == loaded.input->name)
                    GiveUp(*loaded.input, TextOf(*loaded.problem));
            });
        if (failure)
            m_trouble = TextOf(*failure);
    }

    // In the archive already: whatever happens from here on, a second time does no harm.
    void Finish(const LoadedInput& loaded)
    {
        for (const Target& target : m_targets) {
            const std::optional<Problem> problem = ConvertInto(target, *loaded.input);
            if (problem && problem->file == loaded.input->name)
                return GiveUp(*loaded.input, TextOf(*problem));
            if (problem) {
                m_trouble = TextOf(*problem); // a full disk, for instance: the report is good
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
    EndSignals m_ending;                // before any thread: all of them leave these signals to it
    std::unique_ptr<Archive> m_archive; // null while it is away
    bool m_failed = false;
    QString m_trouble; // why reports wait, as of the last try
    QString m_told;    // the same, as it was told
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
