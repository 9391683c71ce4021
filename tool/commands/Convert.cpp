#include "commands/Command.h"
#include "files/Inputs.h"
#include "files/Parallel.h"
#include "files/SafeOutput.h"
#include "files/Workbook.h"
#include "kinds/ReportConversion.h"
#include "kinds/ReportFile.h"
#include "loading/InputRuns.h"
#include "lots/LotAppend.h"
#include "lots/LotConversion.h"
#include "lots/LotUnits.h"
#include "lots/ValueSheet.h"
#include "terminal/Progress.h"
#include "terminal/Terminal.h"
#include "terminal/Texts.h"
#include "terminal/Usage.h"

#include <ZYNPersistence/CExportServiceReport.h>

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QHash>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

#include <algorithm>

namespace ZYN::Tool {

namespace {

const QString command = QStringLiteral("convert");
const QString sheetFormat = QStringLiteral("XLSX"); // one table of all measurements

struct Arguments {
    std::vector<std::string> inputs;
    std::string file;
    std::string folder;
    std::string format;
    std::string logo;
    std::string style;
    bool all = false;
    bool again = false;
    bool force = false;
    bool json = false;
};

struct Job {
    Input input;
    QString output; ///< of an STDF lot the folder of its reports
    bool isLot = false;
};

QString FormatOf(const Arguments& arguments)
{
    const auto ofExtension = [](const QString& extension) {
        return CExportServiceReport::FormatForExtension(QLatin1Char('.') + extension.toLower());
    };
    // Only the end of the name counts, whatever its folders are called.
    if (arguments.format.empty() && IsWorkbook(PathOf(arguments.file)))
        return sheetFormat;
    if (arguments.format.empty())
        return ofExtension(QFileInfo(PathOf(arguments.file)).suffix());
    const QString name = QString::fromStdString(arguments.format).trimmed().toUpper();
    const QString native = CExportServiceReport::ValidFormat(name) ? QString() : ofExtension(name);
    return native.isEmpty() ? name : native; // "zyr" means XML
}

// One file that takes the parts of many reports.
bool IsLotFile(const Arguments& arguments, const QString& format)
{
    if (arguments.file.empty() || IsStandardOutput(PathOf(arguments.file)))
        return false;
    const QList<ReportFormat> formats = CExportServiceReport::Formats();
    return std::any_of(formats.begin(), formats.end(), [&](const ReportFormat& known) {
        return known.takesManyReports &&
               (known.name == format || known.otherNames.contains(format.toLower()));
    });
}

// 0 when the command line makes sense.
int CheckUsage(const Arguments& arguments, const QString& format, qsizetype inputs)
{
    if (arguments.file.empty() == arguments.folder.empty())
        return WrongUsage(command, Texts::tr("one place for the output is needed"),
                          Texts::tr("give -o FILE or -d FOLDER"));
    if (format.isEmpty())
        return WrongUsage(command, Texts::tr("the format is not clear"),
                          Texts::tr("add -f FORMAT; zyn formats lists them"));
    if (format == sheetFormat && arguments.file.empty())
        return WrongUsage(command, Texts::tr("a workbook takes all measurements"),
                          Texts::tr("give -o FILE instead of -d FOLDER"));
    if (format != sheetFormat && !CExportServiceReport::ValidFormat(format))
        return WrongUsage(command, Texts::tr("there is no format '%1'").arg(format),
                          Texts::tr("zyn formats lists them"));
    if (PathOf(arguments.file).endsWith(QLatin1String(".gz")))
        return WrongUsage(command, Texts::tr("files are written as they are, not compressed"),
                          Texts::tr("leave .gz away, and compress the file afterwards"));
    if (IsStandardOutput(PathOf(arguments.file)) && arguments.json)
        return WrongUsage(command, Texts::tr("-o - and --json both want standard output"),
                          Texts::tr("leave one of them away"));
    if (!arguments.file.empty() && inputs > 1 && format != sheetFormat && !IsLotFile(arguments, format))
        return WrongUsage(command, Texts::tr("several reports do not fit into one %1 file").arg(format),
                          Texts::tr("give -d FOLDER instead of -o FILE"));
    return ExitGood;
}

QString OutputName(const Arguments& arguments, const Input& input, const QString& format, bool isLot)
{
    if (!arguments.file.empty())
        return PathOf(arguments.file);
    return QDir::cleanPath(
        PathOf(arguments.folder) + QLatin1Char('/') +
        (isLot ? ConvertedLotName(input.relative) : ConvertedName(input.relative, format)));
}

// Every output must have one source, and none may be an input: found before anything is written.
int CheckConflicts(const QList<Job>& jobs, const InputFiles& inputs)
{
    QHash<QString, QString> sourceOf;
    for (const Job& job : jobs) {
        const QString& source = sourceOf[job.output];
        if (!source.isEmpty()) {
            PrintProblem({job.output, 0,
                          Texts::tr("would be made from both %1 and %2").arg(source, job.input.name),
                          Texts::tr("convert them into different folders")});
            return ExitUsage;
        }
        sourceOf[job.output] = job.input.name;
        if (const std::optional<Problem> refusal = inputs.Refusal(job.output)) {
            PrintProblem(*refusal);
            return ExitFailed;
        }
    }
    return ExitGood;
}

// Makes the folders of the outputs, so that no two threads do.
std::optional<Problem> MakeFolders(const QList<Job>& jobs)
{
    QSet<QString> made;
    for (const Job& job : jobs) {
        const QString folder = job.isLot ? job.output : QFileInfo(job.output).path();
        if (made.contains(folder))
            continue;
        made.insert(folder);
        if (!QDir().mkpath(folder))
            return Problem{folder, 0, Texts::tr("the folder cannot be created"),
                           Texts::tr("choose another one")};
    }
    return std::nullopt;
}

QList<Conversion> ConvertAll(const QList<Job>& jobs, const Arguments& arguments, const QString& format,
                             const Manners& manners)
{
    // Text is laid out by the thread of the application only.
    const int threads = format == QLatin1String("PDF") ? 1 : AllCores();
    const ReportConversion conversion{format, arguments.all, PathOf(arguments.logo), PathOf(arguments.style),
                                      arguments.force};
    std::vector<QList<Conversion>> conversions(size_t(jobs.size()));
    Progress progress(jobs.size(), !manners.quiet);
    ForEachIndex(jobs.size(), threads, [&](qsizetype index) {
        const Job& job = jobs.at(index);
        if (!job.isLot) {
            conversions[size_t(index)] = {
                {job.input.name, job.output, ConvertReport(job.input, job.output, conversion)}};
            progress.Step();
        }
    });
    for (qsizetype index = 0; index < jobs.size(); ++index) {
        if (!jobs.at(index).isLot)
            continue;
        conversions[size_t(index)] =
            ConvertLot(jobs.at(index).input, jobs.at(index).output, conversion, threads);
        progress.Step();
    }
    QList<Conversion> all;
    for (const QList<Conversion>& some : conversions)
        all += some;
    return all;
}

void PrintConversionsJson(const QList<Conversion>& conversions)
{
    for (const Conversion& conversion : conversions) {
        QJsonObject object{{QStringLiteral("input"), conversion.input}};
        if (conversion.problem) {
            object.insert(QStringLiteral("error"), TextOf(*conversion.problem));
        } else {
            object.insert(QStringLiteral("output"), conversion.output);
            if (conversion.lot) {
                object.insert(QStringLiteral("added"), conversion.lot->added);
                object.insert(QStringLiteral("present"), conversion.lot->present);
            }
        }
        PrintJsonLine(object);
    }
}

// Each input that could not be converted; what several meet alike (a lot that cannot be written to) once.
void PrintProblems(const QList<Conversion>& conversions)
{
    std::optional<Problem> last;
    for (const Conversion& conversion : conversions) {
        if (conversion.problem && conversion.problem != last)
            PrintProblem(*conversion.problem);
        last = conversion.problem;
    }
}

// \return 0, or the exit code when nothing was converted
int ConvertToFiles(const QList<Input>& inputs, const Arguments& arguments, const QString& format,
                   const Manners& manners, QList<Conversion>* conversions)
{
    QList<Job> jobs;
    for (const Input& input : inputs) {
        const bool isLot = IsLot(input);
        if (isLot && arguments.folder.empty())
            return WrongUsage(command, Texts::tr("a lot becomes many reports"),
                              Texts::tr("give -d FOLDER instead of -o FILE"));
        jobs.append({input, OutputName(arguments, input, format, isLot), isLot});
    }
    if (const int conflict = CheckConflicts(jobs, InputFiles(inputs)))
        return conflict;
    if (!arguments.folder.empty()) {
        if (const std::optional<Problem> problem = MakeFolders(jobs)) {
            PrintProblem(*problem);
            return ExitFailed;
        }
    }
    *conversions += ConvertAll(jobs, arguments, format, manners);
    return ExitGood;
}

int Run(const Arguments& arguments, const Manners& manners)
{
    QList<Problem> unreadable;
    const QString format = FormatOf(arguments);
    const bool isSheet = format == sheetFormat;
    const QList<Input> inputs =
        ExpandInputs(arguments.inputs, isSheet ? RunExtensions() : ReportExtensions(), &unreadable);
    if (const int usage = CheckUsage(arguments, format, inputs.size()))
        return usage;

    QList<Conversion> conversions;
    for (const Problem& problem : std::as_const(unreadable)) {
        Conversion& unread = conversions.emplaceBack();
        unread.input = problem.file;
        unread.problem = problem;
    }
    const bool isLot = IsLotFile(arguments, format);
    if (isLot || isSheet) {
        if (const std::optional<Problem> refusal = InputFiles(inputs).Refusal(PathOf(arguments.file))) {
            PrintProblem(*refusal);
            return ExitFailed;
        }
    }
    if (isLot)
        conversions += AppendToLot(inputs, PathOf(arguments.file), {arguments.all, arguments.again}, manners);
    else if (isSheet)
        conversions += WriteValueSheet(inputs, PathOf(arguments.file), arguments.force, manners);
    else if (const int code = ConvertToFiles(inputs, arguments, format, manners, &conversions))
        return code;

    if (arguments.json)
        PrintConversionsJson(conversions);
    FlushOutput(); // before the problems, on a terminal
    PrintProblems(conversions);
    qsizetype converted = 0;
    for (const Conversion& conversion : std::as_const(conversions)) {
        converted += !conversion.problem;
        if (manners.verbose && !conversion.problem)
            PrintNote(QStringLiteral("%1 -> %2").arg(conversion.input, conversion.output));
    }
    if (isLot && !manners.quiet)
        SayLot(PathOf(arguments.file), conversions);
    else if (!manners.quiet && conversions.size() > 1)
        PrintNote(Texts::tr("converted %1 of %n reports to %2", nullptr, int(conversions.size()))
                      .arg(QString::number(converted), format));
    return converted == conversions.size() ? ExitGood : ExitFailed;
}

} // namespace

Command ConvertCommand(CommandLine& zyn, const Manners& manners)
{
    CommandLine convert =
        zyn.Subcommand("convert", Texts::tr("Convert XML reports (.zyr) into other formats"));
    const auto arguments = std::make_shared<Arguments>();
    convert.Inputs("INPUT", arguments->inputs,
                   Texts::tr("Reports, folders of reports, STDF lots, or - for standard input"));
    convert
        .Value("-o,--output", arguments->file,
               Texts::tr("File to write; its extension chooses the format; - for standard output"))
        .Named(Texts::tr("FILE"));
    convert
        .Value("-d,--directory", arguments->folder,
               Texts::tr("Folder to write into, one file for each report"))
        .Named(Texts::tr("FOLDER"));
    convert.Value("-f,--format", arguments->format, Texts::tr("Format (see zyn formats)"))
        .Named(Texts::tr("FORMAT"));
    convert.Value("--logo", arguments->logo, Texts::tr("Logo for HTML and PDF"))
        .Named(Texts::tr("FILE"))
        .ExistingFile();
    convert.Value("--style", arguments->style, Texts::tr("Style sheet that XML reports refer to"))
        .Named(Texts::tr("FILE"));
    convert.Flag("--all", arguments->all, Texts::tr("Also what is marked as not to be reported"));
    convert.Flag("--again", arguments->again,
                 Texts::tr("STDF: add also parts that stand in the lot already"));
    convert.Flag("--json", arguments->json, Texts::tr("For programs: one JSON object an input and line"));
    convert.Flag("--force", arguments->force, Texts::tr("Replace existing files"));
    convert.Footer({}, {"zyn convert panel-0007.zyr -o panel-0007.html --logo logo.png",
                        "zyn convert lot/ -d csv -f csv",
                        "zyn convert lot/ -o lot.stdf        " + Texts::tr("adds a part for each report"),
                        "zyn convert lot/ -o lot.xlsx        " + Texts::tr("all measurements, a row each"),
                        "ssh tester cat last.zyr | zyn convert - -o last.pdf"});
    return {convert, [=, &manners] { return Run(*arguments, manners); },
            [=] { return FormatOf(*arguments) == QLatin1String("PDF"); }};
}

} // namespace ZYN::Tool
