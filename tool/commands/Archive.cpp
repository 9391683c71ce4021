#include "commands/Command.h"
#include "loading/ArchiveCopy.h"
#include "loading/InputRuns.h"
#include "loading/LoadAccount.h"
#include "questions/TimeArgument.h"
#include "terminal/Terminal.h"
#include "terminal/Texts.h"

#include "archive/ArchiveInfo.h"

#include <QtCore/QDateTime>
#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtCore/QTimeZone>
#include <QtCore/QUrl>

namespace ZYN::Tool {

namespace {

struct Arguments {
    std::string url;
    std::vector<std::string> inputs;
    std::string before;
    bool withoutOperator = false;
    bool json = false;
};

int Fail(const QString& text)
{
    PrintProblem({{}, 0, text, {}});
    return ExitFailed;
}

// An address as the command line gives it; none with a problem that was told.
std::optional<QString> UrlOf(const Arguments& arguments, const QString& command)
{
    const QString url = PathOf(arguments.url);
    if (Archive::IsArchive(url))
        return url;
    WrongUsage(command, Texts::tr("'%1' names no archive").arg(url),
               Texts::tr("name a file that ends in .zya, or postgresql://USER@HOST/DATABASE"));
    return std::nullopt;
}

int Create(const Arguments& arguments, const Manners& manners)
{
    const std::optional<QString> url = UrlOf(arguments, QStringLiteral("archive create"));
    if (!url)
        return ExitUsage;
    Archive archive;
    if (!archive.Create(*url))
        return Fail(archive.GetErrorText());
    if (manners.verbose)
        PrintNote(Texts::tr("%1: a new archive").arg(archive.GetShownUrl()));
    return ExitGood;
}

void PrintLoadedJson(const LoadedInput& loaded)
{
    const QJsonValue error = loaded.problem ? QJsonValue(TextOf(*loaded.problem)) : QJsonValue();
    PrintJsonLine({{QStringLiteral("input"), loaded.input->name},
                   {QStringLiteral("added"), loaded.added},
                   {QStringLiteral("present"), loaded.present},
                   {QStringLiteral("revised"), loaded.revised},
                   {QStringLiteral("error"), error}});
    FlushOutput(); // it is in the archive, whatever happens next
}

void PrintSum(const LoadAccount& account)
{
    const auto number = [](qint64 count) { return QString::number(count); };
    Print(Texts::tr("runs: %1 added, %2 there already, %3 revised; inputs that failed: %4")
              .arg(number(account.GetAdded()), number(account.GetPresent()), number(account.GetRevised()),
                   number(account.GetFailed())) +
          QLatin1Char('\n'));
}

int Add(const Arguments& arguments, const Manners& manners)
{
    const std::optional<QString> url = UrlOf(arguments, QStringLiteral("archive add"));
    if (!url)
        return ExitUsage;
    Archive archive;
    if (!archive.Open(*url, Archive::Mode::ReadWrite))
        return Fail(archive.GetErrorText());
    archive.SetKeepsOperators(!arguments.withoutOperator);
    const auto isArchive = [](const std::string& input) { return Archive::IsArchive(PathOf(input)); };
    std::vector<std::string> files = arguments.inputs, archives;
    std::copy_if(files.begin(), files.end(), std::back_inserter(archives), isArchive);
    std::erase_if(files, isArchive);
    QList<Problem> problems;
    const QList<Input> inputs = ExpandInputs(files, RunExtensions(), &problems);
    LoadAccount account(false, manners);
    const auto take = [&](const LoadedInput& loaded) {
        account.Take(loaded);
        if (arguments.json)
            PrintLoadedJson(loaded);
    };
    for (const Problem& problem : problems) {
        const Input input{problem.file, problem.file, {}};
        take({.input = &input, .problem = problem});
    }
    for (const std::string& source : archives) {
        const QString address = PathOf(source);
        // A password is refused, and not shown either.
        const QString name = QFileInfo::exists(address) ? address : QUrl(address).toDisplayString();
        const Input input{address, name, {}};
        const LoadedInput loaded = CopyArchive(archive, input);
        take(loaded);
        if (loaded.problem && loaded.problem->file.isEmpty())
            return Fail(loaded.problem->what);
    }
    const std::optional<Problem> failure = LoadRuns(archive, inputs, !manners.quiet, take);
    account.Close();
    if (failure)
        PrintProblem(*failure);
    if (!arguments.json && !manners.quiet)
        PrintSum(account);
    return account.GetFailed() == 0 && !failure ? ExitGood : ExitFailed;
}

QString TimeText(const std::optional<std::int64_t>& time)
{
    return time ? QDateTime::fromMSecsSinceEpoch(*time, Qt::UTC).toString(Qt::ISODate) : QString();
}

void PrintInfoJson(const QString& url, const ArchiveInfo& info)
{
    const auto time = [](const std::optional<std::int64_t>& at) {
        return at ? QJsonValue(TimeText(at)) : QJsonValue();
    };
    PrintJsonLine({{QStringLiteral("archive"), url},
                   {QStringLiteral("kind"), info.kind},
                   {QStringLiteral("version"), info.version},
                   {QStringLiteral("runs"), qint64(info.runs)},
                   {QStringLiteral("replaced"), qint64(info.replaced)},
                   {QStringLiteral("units"), qint64(info.units)},
                   {QStringLiteral("products"), qint64(info.products)},
                   {QStringLiteral("lots"), qint64(info.lots)},
                   {QStringLiteral("programs"), qint64(info.programs)},
                   {QStringLiteral("values"), qint64(info.values)},
                   {QStringLiteral("bytes"), qint64(info.bytes)},
                   {QStringLiteral("first"), time(info.first)},
                   {QStringLiteral("last"), time(info.last)}});
}

void PrintInfo(const QString& url, const ArchiveInfo& info)
{
    PrintTitle(url, Texts::tr("%1 archive, version %2").arg(info.kind, QString::number(info.version)));
    const auto line = [](const QString& name, const QString& text) {
        Print(QStringLiteral("  ") + PadRight(name, 10) + text + QLatin1Char('\n'));
    };
    const auto number = [](std::int64_t count) { return QString::number(count); };
    line(Texts::tr("runs"),
         info.replaced == 0
             ? number(info.runs)
             : Texts::tr("%1, and %2 that were replaced").arg(number(info.runs), number(info.replaced)));
    line(Texts::tr("units"), Texts::tr("%1 of %2 products in %3 lots")
                                 .arg(number(info.units), number(info.products), number(info.lots)));
    line(Texts::tr("programs"), number(info.programs));
    if (info.first)
        line(Texts::tr("time"), Texts::tr("%1 to %2").arg(TimeText(info.first), TimeText(info.last)));
    line(Texts::tr("values"), number(info.values));
    line(Texts::tr("size"), QLocale(QLocale::C).formattedDataSize(info.bytes));
}

int Info(const Arguments& arguments, const Manners&)
{
    const std::optional<QString> url = UrlOf(arguments, QStringLiteral("archive info"));
    if (!url)
        return ExitUsage;
    Archive archive;
    if (!archive.Open(*url, Archive::Mode::ReadOnly))
        return Fail(archive.GetErrorText());
    const std::optional<ArchiveInfo> info = AskInfo(archive);
    if (!info)
        return Fail(archive.GetErrorText());
    arguments.json ? PrintInfoJson(archive.GetShownUrl(), *info)
                   : PrintInfo(Harmless(archive.GetShownUrl()), *info);
    return ExitGood;
}

int Remove(const Arguments& arguments, const Manners& manners)
{
    const QString command = QStringLiteral("archive remove");
    const std::optional<QString> url = UrlOf(arguments, command);
    if (!url)
        return ExitUsage;
    TimeBound before;
    if (const std::optional<int> code = TakeTime(command, "--before", arguments.before, &before))
        return *code;
    Archive archive;
    std::int64_t removed = 0;
    if (!archive.Open(*url, Archive::Mode::ReadWrite) || !archive.RemoveBefore(before, &removed))
        return Fail(archive.GetErrorText());
    if (!manners.quiet)
        Print(Texts::tr("%n runs were removed", nullptr, int(removed)) + QLatin1Char('\n'));
    return ExitGood;
}

int Upgrade(const Arguments& arguments, const Manners& manners)
{
    const std::optional<QString> url = UrlOf(arguments, QStringLiteral("archive upgrade"));
    if (!url)
        return ExitUsage;
    Archive archive;
    if (!archive.Upgrade(*url))
        return Fail(archive.GetErrorText());
    if (manners.verbose)
        PrintNote(Texts::tr("%1: is up to date").arg(archive.GetShownUrl()));
    return ExitGood;
}

CommandLine AddCommand(CommandLine& archive, const char* name, const QString& text,
                       const std::shared_ptr<Arguments>& arguments)
{
    CommandLine command = archive.Subcommand(name, text);
    command.Argument("ARCHIVE", arguments->url,
                     Texts::tr("File that ends in .zya, or postgresql://USER@HOST:PORT/DATABASE"));
    return command;
}

} // namespace

Command ArchiveCommand(CommandLine& zyn, const Manners& manners)
{
    CommandLine archive =
        zyn.Subcommand("archive", Texts::tr("Keep results in a database that answers questions"));
    const auto arguments = std::make_shared<Arguments>();

    CommandLine create = AddCommand(archive, "create", Texts::tr("Make a new, empty archive"), arguments);
    create.Footer(
        Texts::tr("The database of a server must be there already, and be empty. A password is taken\n"
                  "from ~/.pgpass."),
        {"zyn archive create line.zya", "zyn archive create postgresql://zyn@server/results"});
    CommandLine add =
        AddCommand(archive, "add", Texts::tr("Put the runs of reports into an archive"), arguments);
    add.Inputs("INPUT", arguments->inputs,
               Texts::tr("Reports, STDF lots, folders of them, - for standard input, or other archives"));
    add.Flag("--without-operator", arguments->withoutOperator,
             Texts::tr("Do not keep the names of those who tested"));
    add.Flag("--json", arguments->json, Texts::tr("For programs: one JSON object an input and line"));
    add.Footer(
        Texts::tr("What is there already is not added again. Of a run that is there with another content\n"
                  "the later one counts; the other is kept."),
        {"zyn archive add line.zya monday/ tuesday/",
         "zyn archive add postgresql://zyn@server/results line.zya",
         "zyn archive add line.zya --json lot/ | jq .error"});
    CommandLine info = AddCommand(archive, "info", Texts::tr("Say what an archive holds"), arguments);
    info.Flag("--json", arguments->json, Texts::tr("For programs: one JSON object"));
    info.Footer({}, {"zyn archive info line.zya"});
    CommandLine remove = AddCommand(archive, "remove", Texts::tr("Remove old runs"), arguments);
    remove
        .Value("--before", arguments->before,
               Texts::tr("Runs that started before this time: 2026-11-24, 2026-11-24T13:00"))
        .Named(Texts::tr("TIME"))
        .Required();
    remove.Footer(Texts::tr("What is left keeps its place: a retest does not become a first run."),
                  {"zyn archive remove line.zya --before 2026-01-01"});
    CommandLine upgrade = AddCommand(archive, "upgrade",
                                     Texts::tr("Bring the tables of an older archive up to date"), arguments);
    upgrade.Footer({}, {"zyn archive upgrade line.zya"});

    archive.Footer({}, {"zyn archive create line.zya", "zyn archive add line.zya monday/"});
    return {archive,
            [=, &manners] {
                const std::pair<CommandLine, int (*)(const Arguments&, const Manners&)> commands[] = {
                    {create, Create}, {add, Add}, {info, Info}, {remove, Remove}, {upgrade, Upgrade}};
                for (const auto& [command, run] : commands)
                    if (command.IsChosen())
                        return run(*arguments, manners);
                return int(ExitUsage);
            },
            {}};
}

} // namespace ZYN::Tool
