#include "ToolFolder.h"
#include "support/Golden.h"
#include "support/Test.h"

#include <memory>

#include <sys/stat.h>

using namespace ZYN;

class ToolTest : public QObject {
    Q_OBJECT

private:
    ToolFolder lot;
    std::unique_ptr<ToolFolder> folder; // of one test, with the report a.zyr
    QByteArray report;                  // what stands in it

private slots:
    void initTestCase()
    {
        const auto outcome = lot.Zyn("simulate -q -d . --panels 10 --items 4");
        QCOMPARE(outcome.errors, QByteArray());
        QCOMPARE(outcome.code, 0);
        report = lot.Content("panel-0001.zyr");
    }

    void init()
    {
        folder = std::make_unique<ToolFolder>();
        folder->Write("a.zyr", report);
    }

    void ExitCodes_data()
    {
        const Rows<int, QByteArray> row;
        row("--help", 0, "simulate");
        row("--version", 0, "zyn ");
        row("convert --help", 0, "Examples");
        row("formats", 0, ".zyr");
        row("", 2, "see zyn --help");
        row("show --frobnicate a.zyr", 2, "expected: --frobnicate; see zyn show --help");
        row("help", 0, "simulate");
        row("help convert", 0, "--logo");
        row("help shwo", 2, "no command 'shwo' (did you mean 'show'?)");
        row("conv a.zyr", 2, "no command 'conv' (did you mean 'convert'?)");
        row("show --jsno a.zyr", 2, "expected: --jsno (did you mean '--json'?)");
        row("show --vrebose a.zyr", 2, "(did you mean '--verbose'?)");
        row("convert a.zyr -o -", 2, "format is not clear");
        row("convert a.zyr -o - -f csv --json", 2, "both want standard output");
        row("convert a.zyr -f CSV", 2, "-o FILE or -d FOLDER");
        row("convert a.zyr -f CSV -o a.csv -d out", 2, "-o FILE or -d FOLDER");
        row("convert a.zyr -f DOCX -o a.docx", 2, "no format 'DOCX'");
        row("convert a.zyr -o .csv/a", 2, "format is not clear");
        row("convert a.zyr a.zyr -o b.zyr", 2, "-d FOLDER");
        row("convert a.zyr -f STDF -o b.stdf.gz", 2, "leave .gz away");
        row("convert no.zyr -o b.zyr", 1, "zyn: no.zyr: there is no such file");
        row("show empty", 1, "holds no *.");
        row("show a.bin", 1, "no known kind");
        row("show /dev/zero", 1, "is a device");
        row("convert a.zyr -f xml -o b.zyr", 0, "");
        row("convert a.zyr -o b.zyr -v", 0, "a.zyr -> b.zyr");
    }
    void ExitCodes()
    {
        const auto [code, says] = CurrentRow<int, QByteArray>();
        QDir().mkdir(folder->Path("empty"));
        folder->Write("a.bin", "\x00\x01\x02");
        const auto outcome = folder->Zyn(QTest::currentDataTag());
        QCOMPARE(outcome.code, code);
        QVERIFY2((outcome.output + outcome.errors).contains(says), outcome.output + outcome.errors);
    }

    void SimulateGivesTheSameBytes()
    {
        const auto files = [](const QString& seed) {
            const ToolFolder made;
            made.Zyn("simulate -q -d . --panels 2 --seed " + seed);
            return made.Snapshot();
        };
        const auto first = files("5");
        QCOMPARE(first.keys().join(' '), QString("MCB-48.tpl bins.ini panel-0001.zyr panel-0002.zyr"));
        QVERIFY(first == files("5"));
        QVERIFY(first != files("6"));
        QVERIFY(first["MCB-48.tpl"].contains("BinId"));
    }

    void ReplacingKeepsPermissionsAndLinks()
    {
        const QString real = folder->Path("real.csv");
        folder->Write("real.csv", "old");
        QFile::setPermissions(real, QFile::ReadOwner | QFile::WriteOwner);
        QFile::link("real.csv", folder->Path("link.csv"));
        QCOMPARE(folder->Zyn("convert a.zyr -o link.csv --force").code, 0);
        QVERIFY(QFileInfo(folder->Path("link.csv")).isSymLink());
        QVERIFY(folder->Content("real.csv").size() > 1000);
        struct stat status {};
        QCOMPARE(stat(qPrintable(real), &status), 0);
        QCOMPARE(status.st_mode & 0777, mode_t(0600));
    }

    void OneBrokenInputDoesNotStopTheOthers()
    {
        folder->Write("b.zyr", report.left(report.size() / 2));
        folder->Write("c.zyr", report);
        const auto outcome = folder->Zyn("convert . none.zyr -d out -f json --json");
        QCOMPARE(outcome.code, 1);
        QVERIFY2(QString(outcome.errors).contains(QRegularExpression("zyn: \\./b\\.zyr:\\d+: ")),
                 outcome.errors);
        QVERIFY(outcome.errors.contains("2 of 4"));
        QMap<QString, QStringList> inputs; // by what became of them
        for (const QByteArray& line : outcome.output.trimmed().split('\n')) {
            const QJsonObject object = QJsonDocument::fromJson(line).object();
            inputs[object.keys().constFirst()] += object["input"].toString();
        }
        QCOMPARE(inputs["error"], QStringList({"none.zyr", "./b.zyr"}));
        QCOMPARE(inputs["input"], QStringList({"./a.zyr", "./c.zyr"}));
        QCOMPARE(folder->Snapshot("out").keys(), QStringList({"a.json", "c.json"}));
    }

    void ConflictingNamesAreFoundBeforeWriting()
    {
        folder->Write("sub/a.zyr", report);
        const auto outcome = folder->Zyn("convert a.zyr sub/a.zyr -d out -f csv");
        QCOMPARE(outcome.code, 2);
        QVERIFY2(outcome.errors.contains("out/a.csv: would be made from both a.zyr and sub/a.zyr"),
                 outcome.errors);
        QVERIFY(!QFileInfo::exists(folder->Path("out")));
    }

    void FoldersKeepTheirShape()
    {
        folder->Write("lots/a.zyr", report);
        folder->Write("lots/one/a.zyr", report);
        QCOMPARE(folder->Zyn("convert lots -d out -f csv").code, 0);
        QCOMPARE(folder->Snapshot("out").keys(), QStringList({"a.csv", "one/a.csv"}));
    }

    void PipesAreRead()
    {
        QCOMPARE(folder->Zyn("convert - -o b.zyr", report).code, 0);
        QCOMPARE(folder->Zyn("convert a.zyr -o c.zyr").code, 0);
        QCOMPARE(folder->Content("b.zyr"), folder->Content("c.zyr"));
        QCOMPARE(folder->Zyn("convert - -o - -f xml", report).output, folder->Content("c.zyr"));
        QCOMPARE(folder->Zyn("convert - -o d.zyr").code, 1); // from an empty one
        QVERIFY(!QFileInfo::exists(folder->Path("d.zyr")));
    }

    void Show_data()
    {
        const Rows<QString> row;
        row("show --failed .", "show-failed.txt");
        row("show --json --failed panel-0004.zyr", "show-failed.json");
    }
    void Show()
    {
        const auto [golden] = CurrentRow<QString>();
        const auto outcome = lot.Zyn(QTest::currentDataTag());
        QCOMPARE(outcome.code, 0);
        QCOMPARE(Golden::Difference("tool", golden, outcome.output), QString());
    }

    // A report's names are data from anywhere, and so are the names of files: here a control sequence
    // introducer, a delete, a next line, a right-to-left override and a line separator.
    void NamesNeverSteerTheTerminal_data()
    {
        const Rows<int, QByteArray> row;
        row("show b.zyr", 0, "Input\\x9b\\x7f\\x85\\u202e\\u2028");
        row("show --json b.zyr", 0, "Input\\u009b\\u007f\\u0085\\u202e\\u2028");
        row("show --json b.stdf", 0, "Input\\u009b\\u007f\\u0085?");
        row("check --json HOSTILE", 1, "\"file\":\"\\u009b\\u007f");
        row("convert --json HOSTILE -d out -f XML", 1, "\"input\":\"\\u009b");
        row("statistics --json b.zyr -o HOSTILE.csv", 0, "");
        row("HOSTILE", 2, "there is no command '\\x9b");
        row("show --HOSTILE b.zyr", 2, "not expected: --\\x9b");
    }
    void NamesNeverSteerTheTerminal()
    {
        const auto [code, says] = CurrentRow<int, QByteArray>();
        const QString hostile = "\u009b\u007f\u0085\u202e\u2028";
        QByteArray named = report;
        named.replace("Input current", "Input" + hostile.toUtf8());
        folder->Write("b.zyr", named);
        folder->Write(hostile, "<TestReport>");
        QCOMPARE(folder->Zyn("convert -q b.zyr -o b.stdf").code, 0);
        const auto outcome = folder->Zyn(QString(QTest::currentDataTag()).replace("HOSTILE", hostile));
        const QByteArray printed = outcome.output + outcome.errors;
        QVERIFY2(outcome.code == code && printed.contains(says), printed);
        const QString shown = QString(printed).remove('\n');
        for (const QChar c : shown)
            QVERIFY2(c.category() != QChar::Other_Control && c.category() != QChar::Other_Format &&
                         c.category() != QChar::Separator_Line,
                     printed);
    }

    void PdfNeedsNoDisplay()
    {
        const auto outcome = folder->Zyn("convert a.zyr -o a.pdf", {}, [] {
            unsetenv("DISPLAY");
            setenv("QT_QPA_PLATFORM", "xcb", 1);
        });
        QVERIFY2(outcome.code == 0, outcome.errors);
    }

    void ShowPrintsWhatCouldBeRead()
    {
        folder->Write("b.zyr", report.left(report.size() / 2));
        const auto outcome = folder->Zyn("show b.zyr");
        QCOMPARE(outcome.code, 1);
        QVERIFY2(outcome.output.contains("Input current"), outcome.output);
        QVERIFY2(outcome.errors.contains("is no complete report"), outcome.errors);
    }

    void CheckNamesThePlace()
    {
        QCOMPARE(lot.Zyn("check .").output, QByteArray());
        QByteArrayList lines = report.split('\n');
        lines[20].replace("<", "<<");
        folder->Write("b.zyr", lines.join('\n'));
        const auto outcome = folder->Zyn("check a.zyr b.zyr");
        QCOMPARE(outcome.code, 1);
        QVERIFY2(outcome.output.startsWith("b.zyr:21:"), outcome.output);
    }

    void CheckNotesAnEmptyRun()
    {
        QByteArray emptied = lot.Content("panel-0004.zyr");
        const qsizetype begin = emptied.indexOf("<Testprogram");
        const qsizetype end = emptied.indexOf("</Testprogram>") + 14;
        folder->Write("b.zyr", emptied.remove(begin, end - begin));
        const auto outcome = folder->Zyn("check b.zyr");
        QVERIFY2(outcome.output.contains("the run holds no results: its program had none"), outcome.output);
    }

    // A value that was changed after the verdict, and a verdict that was changed after the value.
    void CheckComparesVerdicts()
    {
        QByteArray changed = lot.Content("panel-0004.zyr");
        const qsizetype good = changed.indexOf("<TestMeasurement ID=\"321\"");
        const qsizetype value = changed.indexOf("<Property Name=\"Value\">", good) + 23;
        changed.replace(value, 2, "99");
        const qsizetype failed = changed.lastIndexOf("<Result Code=\"-1\"", changed.indexOf("66.64"));
        changed.replace(failed, 17, "<Result Code=\"1\"");
        folder->Write("b.zyr", changed);
        const auto outcome = folder->Zyn("check b.zyr");
        QCOMPARE(outcome.code, 1);
        const QByteArrayList lines = outcome.output.trimmed().split('\n');
        QCOMPARE(lines.size(), 2);
        const QByteArray place = "b.zyr:" + QByteArray::number(changed.left(good).count('\n') + 1);
        QVERIFY2(lines[0].startsWith(place) && lines[0].contains("'Voltage' passed although its value is 99"),
                 lines[0]);
        QVERIFY2(lines[1].contains("'Ripple' passed although its value is 66.64 (limits ≤ 30)"), lines[1]);

        // A byte that readers leave out.
        folder->Write("b.zyr", changed.replace("<TestResults>", "\x12<TestResults>"));
        QCOMPARE(folder->Zyn("check b.zyr").output, outcome.output);
    }
};

QTEST_GUILESS_MAIN(ToolTest)
#include "ToolTest.moc"
