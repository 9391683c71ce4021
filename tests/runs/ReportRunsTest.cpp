#include "RunComparison.h"
#include "RunText.h"
#include "import/ReportPieces.h"
#include "support/Golden.h"
#include "support/Test.h"

#include "runs/ReportRuns.h"
#include "runs/RunBuilder.h"
#include "runs/model/ModelRuns.h"
#include "runs/model/RunModel.h"

#include <ZYNCommon/UUTTest.h>

#include <QtCore/QStringConverter>

using namespace ZYN;

namespace {

QByteArray Report(const QString& name)
{
    return Files::Content(Golden::Folder() + u'/' + name + "/report.zyr");
}

/// The runs of a report, or what is wrong with it: "line:column: text".
QString Reading(ReportRuns& reader, const QByteArray& report, std::vector<Run>* runs)
{
    const std::size_t before = runs->size();
    const std::optional<RunFault> fault = reader.Read(report.toStdString(), "report", runs);
    if (!fault)
        return RunText(std::span(*runs).subspan(before));
    return QStringLiteral("%1:%2: %3").arg(fault->line).arg(fault->column).arg(fault->text.c_str());
}

QByteArray Wide(const QByteArray& report, QStringConverter::Encoding encoding)
{
    QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
    return encoder(QString::fromUtf8(report).replace("encoding=\"UTF-8\"", "encoding=\"UTF-16\""));
}

/// A report of the sample, changed.
QByteArray Changed(const char* name, const QByteArray& from, const QByteArray& to)
{
    QByteArray report = Report(name);
    const qsizetype at = report.indexOf(from);
    return at < 0 ? QByteArray() : report.replace(at, from.size(), to);
}

QByteArray Attributes(int count)
{
    QByteArray attributes;
    for (int i = 0; i < count; ++i)
        attributes += " a" + QByteArray::number(i) + "=''";
    return attributes;
}

/// The report without what stands from a text to another, that included.
QByteArray Without(QByteArray report, const QByteArray& from, const QByteArray& to)
{
    const qsizetype begin = report.indexOf(from);
    return report.remove(begin, report.indexOf(to, begin) + to.size() - begin);
}

} // namespace

class ReportRunsTest : public QObject {
    Q_OBJECT
private slots:
    void Samples_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString& name : Golden::Rows({}, QStringLiteral("runs.txt")))
            QTest::newRow(qPrintable(name)) << name;
    }
    void Samples()
    {
        QFETCH(QString, name);
        ReportRuns reader;
        std::vector<Run> runs;
        const QString text = Reading(reader, Report(name), &runs);
        const QString difference = Golden::Difference(name, QStringLiteral("runs.txt"), text.toUtf8());
        QVERIFY2(difference.isEmpty(), qPrintable(difference));

        // The same from the model that the import makes of it.
        const ReportFiles::Reading imported = ReportFiles::Read(Report(name));
        RunBuilder builder;
        std::vector<Run> ofModel;
        AddRunsOfModel(*imported.test, std::string(), builder, &ofModel);
        QCOMPARE(DifferenceToImport(runs, ofModel, true), QString());

        // And as a report of the model that is made of a run.
        for (Run& run : runs) {
            run.isPanel = false;
            run.panel.clear();
            std::vector<Run> again;
            const QString back = Reading(reader, ReportFiles::Write(*ModelOfRun(run)), &again);
            QCOMPARE(back, RunText(std::span(&run, 1)));
        }
    }

    void Refused_data()
    {
        const Rows<QByteArray, QByteArray, QString> row;
        row("cut off", "</TestReport>", "", "274:1: no well-formed XML: no element found");
        row("no XML", "<UnitUnderTest>", "<UnitUnderTest",
            "11:9: no well-formed XML: not well-formed (invalid token)");
        row("other root", "TestReport", "Report", "2:25: the root element is 'Report', not 'TestReport'");
        row("no version", " Version=\"1.4.0\"", "", "2:13: the report has no version");
        row("unknown version", "1.4.0", "1.5.0", "2:29: version '1.5.0' is not known, only '1.4.0'");
        row("entities", "<TestReport", "<!DOCTYPE a [<!ENTITY b \"bb\"><!ENTITY c \"&b;&b;\">]><TestReport",
            "2:25: Documents that declare entities are not supported");
        row("declared attributes", "<TestReport", "<!DOCTYPE a [<!ATTLIST b c CDATA 'd'>]><TestReport",
            "2:34: Documents that declare attributes are not supported");
        row("undeclared entity", "SN", "&unit;", "12:35: no well-formed XML: undefined entity");
        row("crowded tag", "<UUTTest", "<UUTTest" + Attributes(65),
            "3:459: a start tag with more than 64 attributes");
        row("unknown element", "<ProductionLot", "<Lot/><ProductionLot",
            "25:11: element 'Lot' is not expected here");
        row("unknown element in another", "<Limits", "<Bounds/><Limits",
            "89:38: element 'Bounds' is not expected in 'TestMeasurement'");
        row("unknown property", "SourceLine", "Line", "63:55: property 'Line' of 'TestGroup' is unknown");
        row("stray text", "</Limits>", "text</Limits>",
            "96:33: text in 'Limits' outside of a property or behind its first piece");
        row("text in pieces", "</Property>", "<!-- -->text</Property>",
            "4:60: text in 'UUTTest' outside of a property or behind its first piece");
        row("no integer", "Type=\"2\"", "Type=\"two\"", "61:64: 'two' is not an integer of 32 bits");
        row("no duration", "12.5</Property>", "12,5</Property>", "100:74: duration '12,5' is not a number");
        row("no value", "Value\">1", "Value\">one", "98:70: value 'one' is not a number");
        row("limits", "&lt;=", "=&lt;", "96:38: limits that are no numbers or have an unknown operator");
        row("unit without a name", "Name=\"Name\"", "Name=\"SerialNo\"",
            "11:51: 'SerialNo' of a unit that has no name yet");
        row("lot without a number", "LotNumber", "OrderCode",
            "26:59: order code of a lot that has no number yet");
    }
    void Refused()
    {
        const auto [from, to, expected] = CurrentRow<QByteArray, QByteArray, QString>();
        ReportRuns reader;
        std::vector<Run> runs;
        QCOMPARE(Reading(reader, Changed("passed-unit", from, to), &runs), expected);
        QVERIFY(runs.empty());
        QVERIFY(!Reading(reader, Report("passed-unit"), &runs).isEmpty());
        QCOMPARE(runs.size(), 1);
    }

    void OtherBytes_data()
    {
        const Rows<QByteArray> row;
        const QByteArray report = Report("hostile-names");
        row("a control character from a bar code", QByteArray(report).replace("Property", "Prop\x12\x12"
                                                                                          "erty"));
        row("UTF-16", Wide(report, QStringConverter::Utf16LE));
        row("UTF-16, high byte first", Wide(report, QStringConverter::Utf16BE));
        row("compressed", Program::Run("gzip", {"-c"}, {}, report).output);
        row("compressed in two pieces", Program::Run("gzip", {"-c"}, {}, report.first(999)).output +
                                            Program::Run("gzip", {"-c"}, {}, report.sliced(999)).output);
    }
    void OtherBytes()
    {
        const auto [bytes] = CurrentRow<QByteArray>();
        ReportRuns reader;
        std::vector<Run> runs;
        QCOMPARE(Reading(reader, bytes, &runs), Reading(reader, Report("hostile-names"), &runs));
        QTemporaryDir folder;
        const QString path = Files::Write(folder.filePath("report.zyr"), bytes);
        QVERIFY(!reader.ReadFile(path.toStdString(), &runs));
        QCOMPARE(RunText(std::span(runs).last(1)), RunText(std::span(runs).first(1)));
        QCOMPARE(runs.back().source, path.toStdString());
    }

    void Files_data()
    {
        const QByteArray gzip = Program::Run("gzip", {"-c"}, {}, Report("panel")).output;
        const Rows<QByteArray, QString> row;
        row("missing", QByteArray(), "the file cannot be opened: No such file or directory");
        row("cut off", gzip.chopped(9), "the compressed file is cut off");
        row("damaged", QByteArray(gzip).replace(100, 4, "junk"), "the compressed file is damaged: invalid");
        row("empty", QByteArray(""), "no well-formed XML: no element found");
    }
    void Files()
    {
        const auto [bytes, expected] = CurrentRow<QByteArray, QString>();
        QTemporaryDir folder;
        const QString path = folder.filePath("report.zyr.gz");
        if (!bytes.isNull())
            Files::Write(path, bytes);
        std::vector<Run> runs;
        const std::optional<RunFault> fault = ReportRuns().ReadFile(path.toStdString(), &runs);
        QVERIFY(fault && runs.empty());
        QVERIFY2(QString::fromStdString(fault->text).startsWith(expected), fault->text.c_str());
    }

    void Sharing()
    {
        ReportRuns reader;
        std::vector<Run> runs;
        const auto read = [&](const QByteArray& report) {
            return Reading(reader, report, &runs).contains("program") ? runs.back() : Run();
        };
        const QByteArray whole = Report("failed-unit");
        const QByteArray stopped = Without(whole, "<TestGroup ID=\"520\"", "</TestGroup>");
        const QByteArray skipped = Without(whole, "<TestMeasurement ID=\"3\"", "</TestMeasurement>");
        const QByteArray renamed = QByteArray(whole).replace("Negative, huge", "New");
        const QByteArray otherLimit = QByteArray(whole).replace(">10.1<", ">10.2<");

        const Run first = read(stopped);
        const Run second = read(whole);
        QVERIFY(first.layout != second.layout);
        QCOMPARE(first.codes.size(), first.layout->components.size());
        for (const QByteArray& fitting : {stopped, whole, skipped}) {
            const Run run = read(fitting);
            QCOMPARE(run.layout, second.layout);
            QCOMPARE(run.limits, second.limits);
        }
        const Run changed = read(otherLimit);
        QCOMPARE(changed.layout, second.layout);
        QVERIFY(changed.limits != second.limits && changed.limits->hash != second.limits->hash);
        QCOMPARE(read(whole).limits, second.limits);
        QCOMPARE(read(otherLimit).limits, changed.limits);

        // One layout for both, whichever comes from now on.
        const Run added = read(renamed);
        QCOMPARE(added.layout->components.size(), second.layout->components.size() + 1);
        QCOMPARE(read(whole).layout, added.layout);
        QCOMPARE(RunText(std::span(&runs.back(), 1)), RunText(std::span(&second, 1)));
    }

    void Repeated()
    {
        QByteArray report = Report("passed-unit");
        const qsizetype begin = report.indexOf("<TestStep");
        const QByteArray end = "</TestStep>";
        const QByteArray step = report.mid(begin, report.indexOf(end, begin) + end.size() - begin);
        const QByteArray twice = QByteArray(report).insert(begin, step);
        ReportRuns reader;
        std::vector<Run> runs;
        for (const QByteArray& one : {report, twice, report, twice})
            Reading(reader, one, &runs);
        QCOMPARE(RunText(std::span(&runs[2], 1)), RunText(std::span(&runs[0], 1)));
        QCOMPARE(RunText(std::span(&runs[3], 1)), RunText(std::span(&runs[1], 1)));
        QCOMPARE(RunText(std::span(&runs[1], 1)).count("#2 | code"), 1);
    }
};

QTEST_GUILESS_MAIN(ReportRunsTest)
#include "ReportRunsTest.moc"
