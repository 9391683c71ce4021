#include "commands/Command.h"
#include "files/Inputs.h"
#include "loading/RunLoader.h"
#include "terminal/Terminal.h"
#include "terminal/Texts.h"
#include "watch/EndSignals.h"
#include "watch/HotFolder.h"
#include "watch/ReportOutputs.h"
#include "watch/WatchLog.h"
#include "watch/WatchStatus.h"

#include <ZYNPersistence/CExportServiceReport.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFileSystemWatcher>
#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>

#include <algorithm>
#include <memory>
#include <span>
#include <vector>

namespace ZYN::Tool {

namespace {

const QString command = QStringLiteral("watch");
constexpr int scanMilliseconds = 1000;  // network folders tell nothing by themselves
constexpr int longestPause = 30 * 1000; // while the archive is away
constexpr qsizetype filesAtOnce = 100;

struct Arguments {
    std::string folder;
    std::string archive;
    std::vector<std::string> targets;
    std::vector<std::string> formats;
    std::string lot;
    std::string status;
    bool withoutOperator = false;
    bool once = false;
};

class Watcher {
public:
    Watcher(const Arguments& arguments, HotFolder& folder, ReportOutputs& outputs, const Manners& manners)
        : m_folder(folder)
        , m_url(PathOf(arguments.archive))
        , m_keepsOperators(!arguments.withoutOperator)
        , m_outputs(outputs)
        , m_status(PathOf(arguments.status))
        , m_log(manners)
        , m_once(arguments.once)
    {
    }

    int Run(const QString& folder)
    {
        QFileSystemWatcher changes({folder});
        QSocketNotifier ending(m_ending.Descriptor(), QSocketNotifier::Read);
        QObject::connect(&ending, &QSocketNotifier::activated, qApp, [this] { End(); });
        QObject::connect(&changes, &QFileSystemWatcher::directoryChanged, qApp, [this] {
            if (m_trouble.isEmpty()) // else the pause is kept, however much comes
                Soon(0);
        });
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

    void End()
    {
        if (m_ending.HasCome())
            QCoreApplication::quit();
    }

    void TakeAll()
    {
        m_trouble.clear();
        QList<Input> ready = m_folder.Ready();
        while (!ready.isEmpty() && OpenArchive() && !m_ending.HasCome()) {
            Take(ready.mid(0, filesAtOnce));
            ready.remove(0, qMin(filesAtOnce, ready.size()));
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
            m_log.Waits(m_trouble);
        if (m_trouble.isEmpty() && !m_told.isEmpty())
            m_log.GoesOn();
        m_told = m_trouble;
        m_pause = m_trouble.isEmpty() ? scanMilliseconds : qMin(2 * m_pause, longestPause);
    }

    // \return false where the archive is away, or there is other trouble that ends without us
    bool OpenArchive()
    {
        if (m_archive || !m_trouble.isEmpty())
            return m_trouble.isEmpty();
        auto archive = std::make_unique<Archive>();
        if (archive->Open(m_url, Archive::Mode::ReadWrite)) {
            archive->SetKeepsOperators(m_keepsOperators);
            m_archive = std::move(archive);
        } else
            m_trouble = archive->GetErrorText();
        return m_trouble.isEmpty();
    }

    void Take(const QList<Input>& inputs)
    {
        std::vector<LoadedInput> archived;
        const std::optional<Problem> failure =
            LoadRuns(*m_archive, inputs, false, [&](const LoadedInput& loaded) {
                if (m_ending.HasCome())
                    return; // it is in the archive, and will be found there
                if (!loaded.problem)
                    archived.push_back(loaded);
                else if (loaded.problem->file == loaded.input->name)
                    GiveUp(*loaded.input, TextOf(*loaded.problem));
            });
        for (std::span<const LoadedInput> rest = archived; !rest.empty() && !m_ending.HasCome();) {
            const size_t some = std::min(rest.size(), size_t(ReportOutputs::AtOnce()));
            Finish(rest.first(some));
            rest = rest.subspan(some);
        }
        if (!failure)
            return;
        m_trouble = TextOf(*failure);
        m_archive.reset(); // a connection that was lost does not come back by itself
    }

    // In the archive already: whatever happens from here on, a second time does no harm.
    void Finish(std::span<const LoadedInput> archived)
    {
        QList<Input> inputs;
        for (const LoadedInput& loaded : archived)
            inputs.append(*loaded.input);
        const std::vector<std::optional<Problem>> problems = m_outputs.Write(inputs);
        for (size_t index = 0; index < archived.size(); ++index)
            Leave(archived[index], problems[index]);
    }

    void Leave(const LoadedInput& loaded, const std::optional<Problem>& problem)
    {
        if (problem && problem->file == loaded.input->name)
            GiveUp(*loaded.input, TextOf(*problem));
        else if (problem)
            m_trouble = TextOf(*problem); // a full disk, for instance: the report is good
        if (problem)
            return;
        m_folder.MoveToDone(*loaded.input);
        m_status.Archived(loaded.input->name);
        m_log.Archived(loaded);
    }

    void GiveUp(const Input& input, const QString& reason)
    {
        if (!m_folder.GiveUp(input, reason))
            return;
        m_failed = true;
        m_status.Failed(input.name, reason);
        m_log.Failed(input.name, reason);
    }

    HotFolder& m_folder;
    QString m_url;
    bool m_keepsOperators;
    ReportOutputs& m_outputs;
    WatchStatus m_status;
    WatchLog m_log;
    bool m_once;
    EndSignals m_ending;                // before any thread: all of them leave these signals to it
    std::unique_ptr<Archive> m_archive; // null while it is away
    bool m_failed = false;
    QString m_trouble; // why reports wait, as of the last try
    QString m_told;    // the same, as it was told
    int m_pause = scanMilliseconds;
    QTimer m_timer;
};

// 0 when the command line makes sense.
int CheckUsage(const Arguments& arguments, QList<ReportOutputs::Target>* targets)
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
    QList<ReportOutputs::Target> targets;
    if (const int usage = CheckUsage(arguments, &targets))
        return usage;
    const QString path = PathOf(arguments.folder);
    HotFolder folder(path);
    ReportOutputs outputs(targets, PathOf(arguments.lot));
    std::optional<Problem> problem = folder.Prepare();
    if (!problem)
        problem = outputs.Prepare();
    if (problem) {
        PrintProblem(*problem);
        return ExitFailed;
    }
    return Watcher(arguments, folder, outputs, manners).Run(path);
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
    watch.Value("--lot", arguments->lot, Texts::tr("STDF lot that the parts of every report are added to"))
        .Named(Texts::tr("FILE"));
    watch
        .Value("--status", arguments->status,
               Texts::tr("File for monitoring: last report, waiting, errors, as JSON"))
        .Named(Texts::tr("FILE"));
    watch.Flag("--without-operator", arguments->withoutOperator,
               Texts::tr("Do not keep the names of those who tested in the archive"));
    watch.Flag("--once", arguments->once, Texts::tr("End when nothing is waiting"));
    watch.Footer(
        Texts::tr("What was taken is moved to FOLDER/done; what cannot be read and is unchanged for three "
                  "seconds to FOLDER/error, with the reason beside it. While the archive is away the rest "
                  "waits. SIGTERM ends it after the reports in hand."),
        {"zyn watch /srv/reports --archive line.zya",
         "zyn watch /srv/reports --archive postgresql://line@db/factory --to /srv/csv -f csv"});
    return {watch, [=, &manners] { return Run(*arguments, manners); }, {}};
}

} // namespace ZYN::Tool
