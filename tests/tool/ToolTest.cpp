#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QMap>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <functional>
#include <memory>

#include <sys/resource.h>
#include <sys/stat.h>

namespace {

struct Outcome {
    int code;
    QString output;
    QString errors;
};

// Runs the tool in a folder.
Outcome Zyn(const QString& folder, const QStringList& arguments, const QByteArray& input = QByteArray(),
            const std::function<void()>& prepare = {})
{
    QProcess process;
    process.setWorkingDirectory(folder);
    if (prepare)
        process.setChildProcessModifier(prepare);
    process.start(QStringLiteral(ZYN_TOOL), arguments);
    process.write(input);
    process.closeWriteChannel();
    process.waitForFinished(60000);
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

void Write(const QString& path, const QByteArray& content)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

// Every regular file below a folder with its content, hidden ones too.
QMap<QString, QByteArray> Snapshot(const QString& folder)
{
    QMap<QString, QByteArray> files;
    QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString path = it.next();
        files.insert(QDir(folder).relativeFilePath(path), Content(path));
    }
    return files;
}

QStringList Words(const QString& line)
{
    return line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

class ToolTest : public QObject {
    Q_OBJECT
private slots:
    void initTestCase();
    void init();
    void ExitCodes_data();
    void ExitCodes();
    void SimulateGivesTheSameBytes();
    void OutputIsRefused_data();
    void OutputIsRefused();
    void AFailedWriteLeavesNothing_data();
    void AFailedWriteLeavesNothing();
    void ReplacingKeepsPermissionsAndLinks();
    void OneBrokenInputDoesNotStopTheOthers();
    void ConflictingNamesAreFoundBeforeWriting();
    void FoldersKeepTheirShape();
    void PipesAreRead();
    void ShowPrintsTheTree();
    void ShowJsonHoldsTheNumbers();
    void ShowNeverSteersTheTerminal();
    void ShowPrintsWhatCouldBeRead();
    void CheckNamesThePlace();
    void CheckComparesVerdicts();

private:
    QString Path(const char* name) const { return m_folder->filePath(QLatin1String(name)); }

    QTemporaryDir m_lot;
    std::unique_ptr<QTemporaryDir> m_folder; // of one test, with the report a.zyr
};

void ToolTest::initTestCase()
{
    const Outcome outcome =
        Zyn(m_lot.path(), Words(QStringLiteral("simulate -q -d . --panels 10 --items 4")));
    QCOMPARE(outcome.errors, QString());
    QCOMPARE(outcome.code, 0);
}

void ToolTest::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QFile::copy(m_lot.filePath(QStringLiteral("panel-0001.zyr")), Path("a.zyr")));
}

void ToolTest::ExitCodes_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("says");
    QTest::addRow("help") << "--help" << 0 << "simulate";
    QTest::addRow("version") << "--version" << 0 << "zyn ";
    QTest::addRow("help of a command") << "convert --help" << 0 << "Examples";
    QTest::addRow("formats") << "formats" << 0 << ".zyr";
    QTest::addRow("no command") << "" << 2 << "see zyn --help";
    QTest::addRow("unknown option") << "show --frobnicate a.zyr" << 2 << "see zyn show --help";
    QTest::addRow("no output") << "convert a.zyr -f CSV" << 2 << "-o FILE or -d FOLDER";
    QTest::addRow("two outputs") << "convert a.zyr -f CSV -o a.csv -d out" << 2 << "-o FILE or -d FOLDER";
    QTest::addRow("unknown format") << "convert a.zyr -f DOCX -o a.docx" << 2 << "no format 'DOCX'";
    QTest::addRow("format not clear") << "convert a.zyr -o .csv/a" << 2 << "format is not clear";
    QTest::addRow("many into one") << "convert a.zyr a.zyr -o b.zyr" << 2 << "-d FOLDER";
    QTest::addRow("no such input") << "convert no.zyr -o b.zyr" << 1 << "zyn: no.zyr: there is no such file";
    QTest::addRow("nothing in the folder") << "show empty" << 1 << "holds no *.";
    QTest::addRow("no known kind") << "show a.bin" << 1 << "no known kind";
    QTest::addRow("a device") << "show /dev/zero" << 1 << "is a device";
    QTest::addRow("good") << "convert a.zyr -f xml -o b.zyr" << 0 << "";
    QTest::addRow("verbose after the command") << "convert a.zyr -o b.zyr -v" << 0 << "a.zyr -> b.zyr";
}

void ToolTest::ExitCodes()
{
    QFETCH(const QString, arguments);
    QDir(m_folder->path()).mkdir(QStringLiteral("empty"));
    Write(Path("a.bin"), "\x00\x01\x02");
    const Outcome outcome = Zyn(m_folder->path(), Words(arguments));
    QTEST(outcome.code, "code");
    QFETCH(const QString, says);
    QVERIFY2((outcome.output + outcome.errors).contains(says), qPrintable(outcome.output + outcome.errors));
}

void ToolTest::SimulateGivesTheSameBytes()
{
    const auto lot = [](const QTemporaryDir& folder, const char* options) {
        return Zyn(folder.path(),
                   Words(QStringLiteral("simulate -q -d . --panels 6 ") + QLatin1String(options)))
            .code;
    };
    QTemporaryDir first;
    QTemporaryDir again;
    QTemporaryDir other;
    QCOMPARE(lot(first, "--seed 5"), 0);
    QCOMPARE(lot(again, "--seed 5"), 0);
    QCOMPARE(lot(other, "--seed 6"), 0);
    const auto files = Snapshot(first.path());
    QCOMPARE(files.keys(), Words(QStringLiteral("MCB-48.tpl bins.ini panel-0001.zyr panel-0002.zyr "
                                                "panel-0003.zyr panel-0004.zyr panel-0005.zyr "
                                                "panel-0006.zyr")));
    QVERIFY(files == Snapshot(again.path()));
    QVERIFY(files != Snapshot(other.path()));
    QVERIFY(files.value(QStringLiteral("MCB-48.tpl")).contains("BinId"));
}

void ToolTest::OutputIsRefused_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("says");
    QTest::addRow("existing file") << "-o old.zyr"
                                   << "zyn: old.zyr: already exists; add --force";
    QTest::addRow("itself") << "-o ./a.zyr --force"
                            << "is an input as well";
    QTest::addRow("itself through a link") << "-o link.zyr --force"
                                           << "is an input as well";
    QTest::addRow("a folder") << "-o folder -f XML --force"
                              << "is a folder";
    QTest::addRow("a pipe") << "-o pipe -f XML --force"
                            << "device or a pipe";
    QTest::addRow("a full device") << "-o /dev/full -f XML --force"
                                   << "device or a pipe";
    QTest::addRow("a full device as lot") << "-o /dev/full -f STDF"
                                          << "device or a pipe";
    QTest::addRow("a link to nowhere") << "-o dangling.zyr --force"
                                       << "link to nowhere";
    QTest::addRow("no folder") << "-o no/b.zyr"
                               << "folder does not exist";
    QTest::addRow("file as folder") << "-d old.zyr -f XML"
                                    << "folder cannot be created";
}

void ToolTest::OutputIsRefused()
{
    QFETCH(const QString, arguments);
    QFETCH(const QString, says);
    Write(Path("old.zyr"), "old");
    QDir(m_folder->path()).mkdir(QStringLiteral("folder"));
    QFile::link(QStringLiteral("a.zyr"), Path("link.zyr"));
    QFile::link(QStringLiteral("nowhere"), Path("dangling.zyr"));
    QCOMPARE(mkfifo(qPrintable(Path("pipe")), 0600), 0);
    const auto before = Snapshot(m_folder->path());

    const Outcome outcome = Zyn(m_folder->path(), Words(QStringLiteral("convert a.zyr ") + arguments));
    QCOMPARE(outcome.code, 1);
    QVERIFY2(outcome.errors.contains(says), qPrintable(outcome.errors));
    QCOMPARE(outcome.errors.count(QLatin1Char('\n')), 1);
    QVERIFY(Snapshot(m_folder->path()) == before);
}

void ToolTest::AFailedWriteLeavesNothing_data()
{
    QTest::addColumn<QString>("output");
    QTest::addColumn<bool>("exists");
    for (const char* const extension : {"zyr", "csv", "txt", "html", "json", "pdf"})
        for (const bool exists : {false, true})
            QTest::addRow("%s %s", extension, exists ? "replaced" : "new")
                << QStringLiteral("b.") + QLatin1String(extension) << exists;
}

// A file size limit is a full disk that needs no file system of its own.
void ToolTest::AFailedWriteLeavesNothing()
{
    QFETCH(const QString, output);
    QFETCH(const bool, exists);
    if (exists)
        Write(m_folder->filePath(output), "old");
    const auto before = Snapshot(m_folder->path());
    const Outcome outcome = Zyn(m_folder->path(),
                                {QStringLiteral("convert"), QStringLiteral("a.zyr"),
                                 QStringLiteral("--force"), QStringLiteral("-o"), output},
                                {}, [] {
                                    const rlimit limit{4096, 4096};
                                    setrlimit(RLIMIT_FSIZE, &limit);
                                });
    QCOMPARE(outcome.code, 1);
    QVERIFY2(outcome.errors.contains(output + QStringLiteral(": could not be written")),
             qPrintable(outcome.errors));
    QVERIFY(Snapshot(m_folder->path()) == before);
}

void ToolTest::ReplacingKeepsPermissionsAndLinks()
{
    Write(Path("real.csv"), "old");
    QFile::setPermissions(Path("real.csv"), QFile::ReadOwner | QFile::WriteOwner);
    QFile::link(QStringLiteral("real.csv"), Path("link.csv"));
    QCOMPARE(Zyn(m_folder->path(), Words(QStringLiteral("convert a.zyr -o link.csv --force"))).code, 0);
    QVERIFY(QFileInfo(Path("link.csv")).isSymLink());
    QVERIFY(Content(Path("real.csv")).size() > 1000);
    struct stat status {};
    QCOMPARE(stat(qPrintable(Path("real.csv")), &status), 0);
    QCOMPARE(status.st_mode & 0777, mode_t(0600));
}

void ToolTest::OneBrokenInputDoesNotStopTheOthers()
{
    const QByteArray whole = Content(Path("a.zyr"));
    Write(Path("b.zyr"), whole.left(whole.size() / 2));
    Write(Path("c.zyr"), whole);
    const Outcome outcome =
        Zyn(m_folder->path(), Words(QStringLiteral("convert . none.zyr -d out -f json --json")));
    QCOMPARE(outcome.code, 1);
    QVERIFY2(outcome.errors.contains(QRegularExpression(QStringLiteral("zyn: \\./b\\.zyr:\\d+: "))),
             qPrintable(outcome.errors));
    QVERIFY(outcome.errors.contains(QStringLiteral("2 of 4")));
    QMap<QString, QStringList> inputs; // by what became of them
    for (const QString& line : outcome.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const QJsonObject object = QJsonDocument::fromJson(line.toUtf8()).object();
        inputs[object.keys().constFirst()] += object.value(QStringLiteral("input")).toString();
    }
    QCOMPARE(inputs.value(QStringLiteral("error")), Words(QStringLiteral("none.zyr ./b.zyr")));
    QCOMPARE(inputs.value(QStringLiteral("input")), Words(QStringLiteral("./a.zyr ./c.zyr")));
    QCOMPARE(Snapshot(Path("out")).keys(), Words(QStringLiteral("a.json c.json")));
}

void ToolTest::ConflictingNamesAreFoundBeforeWriting()
{
    QDir(m_folder->path()).mkdir(QStringLiteral("sub"));
    QVERIFY(QFile::copy(Path("a.zyr"), Path("sub/a.zyr")));
    const Outcome outcome =
        Zyn(m_folder->path(), Words(QStringLiteral("convert a.zyr sub/a.zyr -d out -f csv")));
    QCOMPARE(outcome.code, 2);
    QVERIFY2(
        outcome.errors.contains(QStringLiteral("out/a.csv: would be made from both a.zyr and sub/a.zyr")),
        qPrintable(outcome.errors));
    QVERIFY(!QFileInfo::exists(Path("out")));
}

void ToolTest::FoldersKeepTheirShape()
{
    QDir(m_folder->path()).mkpath(QStringLiteral("lots/one"));
    QVERIFY(QFile::copy(Path("a.zyr"), Path("lots/a.zyr")));
    QVERIFY(QFile::copy(Path("a.zyr"), Path("lots/one/a.zyr")));
    QCOMPARE(Zyn(m_folder->path(), Words(QStringLiteral("convert lots -d out -f csv"))).code, 0);
    QCOMPARE(Snapshot(Path("out")).keys(), Words(QStringLiteral("a.csv one/a.csv")));
}

void ToolTest::PipesAreRead()
{
    const QByteArray report = Content(Path("a.zyr"));
    QCOMPARE(Zyn(m_folder->path(), Words(QStringLiteral("convert - -o b.zyr")), report).code, 0);
    QCOMPARE(Zyn(m_folder->path(), Words(QStringLiteral("convert a.zyr -o c.zyr"))).code, 0);
    QCOMPARE(Content(Path("b.zyr")), Content(Path("c.zyr")));
    const Outcome nothing = Zyn(m_folder->path(), Words(QStringLiteral("convert - -o d.zyr")));
    QCOMPARE(nothing.code, 1);
    QVERIFY(!QFileInfo::exists(Path("d.zyr")));
}

void ToolTest::ShowPrintsTheTree()
{
    const Outcome outcome = Zyn(m_lot.path(), Words(QStringLiteral("show --failed .")));
    QCOMPARE(outcome.code, 0);
    const QString goldenPath = QStringLiteral(ZYN_SOURCE_DIR "/tests/golden/tool/show-failed.txt");
    if (qEnvironmentVariableIsSet("ZYN_UPDATE_GOLDEN"))
        Write(goldenPath, outcome.output.toUtf8());
    QCOMPARE(outcome.output.split(QLatin1Char('\n')),
             QString::fromUtf8(Content(goldenPath)).split(QLatin1Char('\n')));
}

void ToolTest::ShowJsonHoldsTheNumbers()
{
    const Outcome outcome = Zyn(m_lot.path(), Words(QStringLiteral("show --json --failed panel-0004.zyr .")));
    const QStringList lines = outcome.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QVERIFY(lines.size() > 10);
    const QJsonObject panel = QJsonDocument::fromJson(lines.first().toUtf8()).object();
    QCOMPARE(panel.value(QStringLiteral("file")).toString(), QStringLiteral("panel-0004.zyr"));
    QCOMPARE(panel.value(QStringLiteral("lot")).toString(), QStringLiteral("L00001"));
    QCOMPARE(panel.value(QStringLiteral("code")).toInt(), -5);
    // Down to the voltage of the board with the bad 5 V supply.
    QJsonObject part = panel.value(QStringLiteral("items")).toArray().last().toObject();
    QCOMPARE(part.value(QStringLiteral("place")).toInt(), 3);
    part = part.value(QStringLiteral("runs"))
               .toArray()
               .first()
               .toObject()
               .value(QStringLiteral("program"))
               .toObject();
    for (int level = 0; level < 3; ++level)
        part = part.value(QStringLiteral("children")).toArray().first().toObject();
    QCOMPARE(part.value(QStringLiteral("name")).toString(), QStringLiteral("Voltage"));
    QCOMPARE(part.value(QStringLiteral("value")).toDouble(), 4.315);
    QCOMPARE(part.value(QStringLiteral("lower")).toDouble(), 4.85);
    QCOMPARE(part.value(QStringLiteral("lowerOperator")).toString(), QStringLiteral("<="));
    QCOMPARE(part.value(QStringLiteral("code")).toInt(), -1);
}

// A report's names are data from anywhere: here a control sequence introducer and a right-to-left override.
void ToolTest::ShowNeverSteersTheTerminal()
{
    QByteArray report = Content(Path("a.zyr"));
    QVERIFY(report.contains("Input current"));
    report.replace("Input current", "Input&#x9b;31m\xe2\x80\xae current&#9;x");
    Write(Path("b.zyr"), report);
    const Outcome outcome = Zyn(m_folder->path(), Words(QStringLiteral("show b.zyr")));
    QCOMPARE(outcome.code, 0);
    QVERIFY2(outcome.output.contains(QStringLiteral("Input\\x9b31m\\u202e current")),
             qPrintable(outcome.output));
    for (const QChar c : outcome.output)
        QVERIFY(c == QLatin1Char('\n') ||
                (c.category() != QChar::Other_Control && c.category() != QChar::Other_Format));
}

void ToolTest::CheckNamesThePlace()
{
    QCOMPARE(Zyn(m_lot.path(), Words(QStringLiteral("check ."))).output, QString());
    QList<QByteArray> lines = Content(Path("a.zyr")).split('\n');
    lines[20].replace("<", "<<");
    Write(Path("b.zyr"), lines.join('\n'));
    const Outcome outcome = Zyn(m_folder->path(), Words(QStringLiteral("check a.zyr b.zyr")));
    QCOMPARE(outcome.code, 1);
    QVERIFY2(outcome.output.startsWith(QStringLiteral("b.zyr:21:")), qPrintable(outcome.output));
}

// A value that was changed after the verdict, and a verdict that was changed after the value.
void ToolTest::CheckComparesVerdicts()
{
    QByteArray report = Content(m_lot.filePath(QStringLiteral("panel-0004.zyr")));
    const qsizetype good = report.indexOf("<TestMeasurement ID=\"321\"");
    const qsizetype value = report.indexOf("<Property Name=\"Value\">", good) + 23;
    report.replace(value, 2, "99");
    const qsizetype failed = report.lastIndexOf("<Result Code=\"-1\"", report.indexOf("66.64"));
    report.replace(failed, 17, "<Result Code=\"1\"");
    Write(Path("b.zyr"), report);
    const auto lineOf = [&](qsizetype position) {
        return QString::number(report.left(position).count('\n') + 1);
    };
    const Outcome outcome = Zyn(m_folder->path(), Words(QStringLiteral("check b.zyr")));
    QCOMPARE(outcome.code, 1);
    const QStringList lines = outcome.output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    QCOMPARE(lines.size(), 2);
    QVERIFY2(lines.at(0).startsWith(QStringLiteral("b.zyr:") + lineOf(good)) &&
                 lines.at(0).contains(QStringLiteral("'Voltage' passed although its value is 99")),
             qPrintable(lines.at(0)));
    QVERIFY2(
        lines.at(1).contains(QStringLiteral("'Ripple' passed although its value is 66.64 (limits ≤ 30)")),
        qPrintable(lines.at(1)));
}

void ToolTest::ShowPrintsWhatCouldBeRead()
{
    const QByteArray whole = Content(Path("a.zyr"));
    Write(Path("b.zyr"), whole.left(whole.size() / 2));
    const Outcome outcome = Zyn(m_folder->path(), Words(QStringLiteral("show b.zyr")));
    QCOMPARE(outcome.code, 1);
    QVERIFY2(outcome.output.contains(QStringLiteral("Input current")), qPrintable(outcome.output));
    QVERIFY2(outcome.errors.contains(QStringLiteral("is no complete report")), qPrintable(outcome.errors));
}

QTEST_GUILESS_MAIN(ToolTest)
#include "ToolTest.moc"
