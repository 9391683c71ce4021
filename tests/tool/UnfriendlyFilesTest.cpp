#include "ToolFolder.h"
#include "support/Test.h"

#include <linux/capability.h>
#include <pty.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace ZYN;

namespace {

/// In the tool's process: permissions bind, also where the tests run as root.
void BindPermissions()
{
    prctl(PR_CAPBSET_DROP, CAP_DAC_OVERRIDE);
    prctl(PR_CAPBSET_DROP, CAP_DAC_READ_SEARCH);
}

QByteArray Gzip(const QByteArray& content)
{
    return Program::Run("gzip", {"-n"}, {}, content).output;
}

/// Compresses a start and very many repetitions that are never in memory: what a program takes is counted
/// from what its parent had.
QByteArray Gzip(const QByteArray& start, const QByteArray& unit, qsizetype times)
{
    QProcess gzip;
    gzip.start("gzip", {"-n"});
    gzip.write(start);
    constexpr qsizetype chunk = 10'000;
    const QByteArray units = unit.repeated(chunk);
    for (qsizetype i = 0; i < times / chunk; ++i) {
        gzip.write(units);
        gzip.waitForBytesWritten();
    }
    gzip.closeWriteChannel();
    gzip.waitForFinished();
    return gzip.readAllStandardOutput();
}

/// A report of one step with two thousand measurements whose program, group and step have names of 200 KB.
QByteArray LongNames()
{
    const QByteArray name(200'000, 'n');
    QByteArray measurements;
    for (int i = 1; i <= 2000; ++i)
        measurements += "<TestMeasurement ID='" + QByteArray::number(i) +
                        "' Name='m' Type='9'><Limits Type='9' DataType='Real'><Property Name='Unit' Code='0' "
                        "Factor='0'/></Limits><Result Code='1'><Property Name='Value'>1</Property></Result>"
                        "</TestMeasurement>";
    return "<TestReport Version='1.4.0'><UUTTest><Property Name='Result'>1</Property></UUTTest><TestResults>"
           "<TestResultSet><Testprogram ID='1' Name='" +
           name + "' Type='1'><Result Code='1'/><TestGroup ID='2' Name='" + name +
           "' Type='2'><Result Code='1'/><TestStep ID='3' Name='" + name + "' Type='3'><Result Code='1'/>" +
           measurements + "</TestStep></TestGroup></Testprogram></TestResultSet></TestResults></TestReport>";
}

} // namespace

/// Files that are damaged, cannot be read, or were made to do harm.
class UnfriendlyFilesTest : public QObject {
    Q_OBJECT

private:
    ToolFolder folder; // with a lot in "lot"
    QByteArray report; // the first one of it, in which all passed

private slots:
    void initTestCase()
    {
        qputenv("NO_COLOR", "1");
        qputenv("ASAN_OPTIONS", "quarantine_size_mb=1"); // what is freed is no longer taken
        QCOMPARE(folder.Zyn("simulate -q -d lot --panels 4").code, 0);
        report = folder.Content("lot/panel-0001.zyr");
    }

    void MemoryIsInProportionToTheFile_data()
    {
        const Rows<QString, QByteArray> row;
        const QByteArray stream = QByteArray::fromHex("0200000a0204");
        const QByteArray bin = QByteArray::fromHex("0b000128ff01010001000000500141");
        row("check", "far.stdf.gz", Gzip(stream, stream, 1'500'000));
        row("show", "bins.stdf.gz", Gzip(stream, bin, 1'500'000));
        row("statistics -q -o names.csv", "names.zyr", LongNames());
        row("show --failed", "zeros.zyr.gz", Gzip(QByteArray(), QByteArray(50, ' '), 6'000'000));
    }
    void MemoryIsInProportionToTheFile()
    {
        const auto [name, content] = CurrentRow<QString, QByteArray>();
        folder.Write(name, content);
        const auto outcome = folder.Zyn(QString(QTest::currentDataTag()) + u' ' + name);
        QVERIFY(outcome.code >= 0);
        rusage usage{};
        getrusage(RUSAGE_CHILDREN, &usage);
        QVERIFY2(usage.ru_maxrss < 200 * 1024, qPrintable(QString::number(usage.ru_maxrss)));
    }

    void NoVerdictOfWhatIsIncomplete_data()
    {
        const Rows<QByteArray, QString> row;
        row("empty", QByteArray(), "");
        row("truncated", report.first(report.size() / 2), "PASS");
        row("compressed and truncated", Gzip(report).chopped(1000), "PASS");
    }
    void NoVerdictOfWhatIsIncomplete()
    {
        const auto [content, stated] = CurrentRow<QByteArray, QString>();
        folder.Write("b.zyr", content);
        const auto tree = folder.Zyn("show b.zyr");
        QCOMPARE(tree.code, 1);
        QVERIFY2(tree.output.contains("\nINCOMPLETE  b.zyr:") && tree.output.count("\nINCOMPLETE  ") > 1 &&
                     !tree.output.contains("\nPASS        MCB"),
                 tree.output);
        QVERIFY(stated.isEmpty() || tree.output.contains("it states " + stated.toUtf8()));
        QCOMPARE(folder.Zyn("check b.zyr").output.contains("verdicts and values could not be compared"),
                 !content.isEmpty());
        const auto json = QJsonDocument::fromJson(folder.Zyn("show --json b.zyr").output);
        QCOMPARE(json["verdict"].toString(), "INCOMPLETE");
        QVERIFY(json["code"].isNull() && json["incomplete"].toString().contains("is no complete report"));
        QVERIFY(stated.isEmpty() || json["stated"].toString() == stated);
    }

    void WhatIsNotReadIsNamed()
    {
        folder.Write("odd/good.zyr", report);
        folder.Write("odd/secret.zyr", report);
        folder.Write("odd/closed/a.zyr", report);
        QVERIFY(QFile::link("nowhere", folder.Path("odd/link.zyr")));
        const QByteArray latin = QFile::encodeName(folder.Path("odd")) + "/gr\xfcn.zyr";
        QCOMPARE(::link(QFile::encodeName(folder.Path("odd/good.zyr")), latin), 0);
        QCOMPARE(::chmod(QFile::encodeName(folder.Path("odd/secret.zyr")), 0), 0);
        QCOMPARE(::chmod(QFile::encodeName(folder.Path("odd/closed")), 0), 0);
        for (const QString command :
             {"check", "show", "convert -d out -f csv", "statistics -o odd.csv --force"}) {
            const auto outcome = folder.Zyn(command + " odd", {}, BindPermissions);
            QCOMPARE(outcome.code, 1);
            const QByteArray said = outcome.errors + outcome.output;
            for (const QByteArray name : {"odd/secret.zyr: ", "odd/closed: cannot be read: Permission denied",
                                          "odd/link.zyr: is a link to nowhere", "odd/gr\\xfcn.zyr: "})
                QVERIFY2(said.contains(name), said);
        }
        QCOMPARE(folder.Snapshot("out").keys(), QStringList("good.csv"));
        QCOMPARE(::chmod(QFile::encodeName(folder.Path("odd/closed")), 0755), 0);
    }

    void NameThatIsNoUtf8IsReadDirectly()
    {
        const QByteArray name = "gr\xfcn.zyr";
        QCOMPARE(::symlink("lot/panel-0001.zyr", QFile::encodeName(folder.Path(".")) + '/' + name), 0);
        // QProcess has no such arguments, a shell's printf does.
        const auto outcome =
            Program::Run("sh", {"-c", ZYN_TOOL " convert \"$(printf 'gr\\374n.zyr')\" -d direct -f csv"},
                         folder.Path("."));
        QVERIFY2(outcome.code == 0, outcome.errors);
        QCOMPARE(folder.Snapshot("direct").keys(), QStringList("gr\\xfcn.csv"));
    }

    void CompressedReportsAreReports()
    {
        folder.Write("packed/a.zyr.gz", Gzip(report));
        QCOMPARE(folder.Zyn("check -v packed").errors, "packed/a.zyr.gz: good\n");
        QCOMPARE(folder.Zyn("show packed/a.zyr.gz").output.replace("packed/a.zyr.gz", "lot/panel-0001.zyr"),
                 folder.Zyn("show lot/panel-0001.zyr").output);
        QCOMPARE(folder.Zyn("convert packed -d unpacked -f csv").code, 0);
        QCOMPARE(folder.Zyn("convert lot/panel-0001.zyr -o plain.csv").code, 0);
        QCOMPARE(folder.Content("unpacked/a.csv"), folder.Content("plain.csv"));
        QVERIFY(folder.Zyn("statistics - -o packed.csv", Gzip(report)).output.contains("(4 of 4)"));
    }

    void TreeFitsTheTerminal()
    {
        QByteArray wide = folder.Content("lot/panel-0004.zyr");
        wide.replace("Rail 5 V: Voltage", QByteArray(200, 'd'))
            .replace("\"Rail 5 V\"", '"' + QByteArray(200, 'n') + '"');
        folder.Write("wide.zyr", wide);
        int terminal = -1;
        int output = -1;
        const winsize size{24, 70, 0, 0};
        QCOMPARE(openpty(&terminal, &output, nullptr, nullptr, &size), 0);
        QCOMPARE(folder.Zyn("show wide.zyr --failed", {}, [&] { dup2(output, 1); }).code, 0);
        ::close(output);
        QByteArray shown;
        for (char c = 0; ::read(terminal, &c, 1) == 1;)
            shown += c;
        ::close(terminal);
        const QStringList rows = QString(shown).section("\r\n\r\n", 1).split("\r\n", Qt::SkipEmptyParts);
        QVERIFY2(rows.size() > 10 && rows.filter("ddd…").size() == 1 && rows.filter("nnn…").size() == 1,
                 shown);
        for (const QString& row : rows)
            QVERIFY2(row.size() <= 70, qPrintable(row));
    }
};

QTEST_GUILESS_MAIN(UnfriendlyFilesTest)
#include "UnfriendlyFilesTest.moc"
