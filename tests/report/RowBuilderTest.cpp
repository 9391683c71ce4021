#include "export/FaultDevices.h"
#include "support/ReportRun.h"
#include "support/SampleModels.h"
#include "support/SampleProgram.h"

#include "export/CExportDirectorReport.h"
#include "export/Environment.h"
#include "export/FormatRegistry.h"
#include "report/CReportBuilderCSV.h"
#include "report/CReportBuilderHTML.h"
#include "report/CReportBuilderTXT.h"

#include <ZYNCommon/Station.h>

#include <QtCore/QBuffer>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <memory>

using namespace ZYN;
using namespace Qt::StringLiterals;

/// What the row formats do beyond the documents of the expected files: nothing to write, nowhere to
/// write it, and one builder for several documents.
class RowBuilderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void NullWritesNothing_data() { Formats(); }
    void NullWritesNothing();
    void OpenNeedsADevice_data() { Formats(); }
    void OpenNeedsADevice();
    void FullDiskIsNoticed_data() { Formats(); }
    void FullDiskIsNoticed();
    void NextDocumentIsClean_data() { Formats(); }
    void NextDocumentIsClean();
    void SecondCloseWritesNothing();
    void TextProgramWithoutResult();
    void PanelItemWithoutUnit();
    void UnclosedTableStaysUnclosed();
    void HostileCsvCells();

private:
    static void Formats();
};

namespace {

using Builder = std::unique_ptr<CExportBuilderImp>;

Builder MakeBuilder(const QString& format)
{
    return Builder(dynamic_cast<CExportBuilderImp*>(FormatRegistry::CreateReportBuilder(format)));
}

/// What a builder writes into an open document between two moments.
struct Document {
    QBuffer buffer;
    Builder builder;

    explicit Document(const QString& format)
        : builder(MakeBuilder(format))
    {
        builder->SetDevice(&buffer);
        builder->Open();
        Take();
    }
    ~Document() { builder->SetDevice(nullptr); }

    QByteArray Take()
    {
        const QByteArray written = buffer.data().mid(taken);
        taken = buffer.data().size();
        return written;
    }

private:
    qsizetype taken = 0;
};

bool Walk(UUTTest* test, IExportBuilder* builder)
{
    CExportDirectorReport director;
    return director.ExportUUTTest(test, builder);
}

QByteArray Content(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

} // namespace

void RowBuilderTest::Formats()
{
    QTest::addColumn<QString>("format");
    for (const char* const format : {"CSV", "TXT", "HTML"})
        QTest::newRow(format) << QString::fromLatin1(format);
}

void RowBuilderTest::NullWritesNothing()
{
    QFETCH(QString, format);
    Document document(format);
    IExportBuilder* const builder = document.builder.get();
    const auto test = SampleModels::PassedUnit();
    TestResultSet* const set = test->GetResultSets().constFirst();
    const auto program = set->GetTestProgram();
    const auto group = program->GetGroupForIndex(1);
    const auto step = group->GetStepForIndex(0);
    TestResult* const result = set->GetResult(program.get());

    QVERIFY(!builder->BeginTestProgram(nullptr, result));
    QVERIFY(!builder->BeginTestGroup(nullptr, result));
    QVERIFY(!builder->BeginTestGroup(group.get(), nullptr));
    QVERIFY(!builder->BeginTestStep(nullptr, result));
    QVERIFY(!builder->BeginTestStep(step.get(), nullptr));
    QVERIFY(!builder->BeginTestParameter(nullptr, result));
    QVERIFY(!builder->BeginTestParameter(group->GetParameterForIndex(0).get(), nullptr));
    QVERIFY(!builder->BeginTestMeasurement(nullptr, result));
    QVERIFY(!builder->BeginTestMeasurement(step->GetMeasurementForIndex(0).get(), nullptr));
    if (format != u"CSV") {
        QVERIFY(!builder->BeginUUTTest(nullptr));
        QVERIFY(!builder->BeginUnitUnderTest(nullptr));
        QVERIFY(!builder->BeginProductType(nullptr));
        QVERIFY(!builder->BeginFixture(nullptr));
        QVERIFY(!builder->BeginSession(nullptr));
    }
    if (format == u"HTML")
        QVERIFY(!builder->BeginProductionLot(nullptr));
    if (format != u"TXT")
        QVERIFY(!builder->BeginTestProgram(program.get(), nullptr));
    QCOMPARE(document.Take(), QByteArray());
}

void RowBuilderTest::OpenNeedsADevice()
{
    QFETCH(QString, format);
    const Builder builder = MakeBuilder(format);
    QVERIFY(!builder->Open());
    QVERIFY(!builder->IsOpened());
    QVERIFY(!Walk(SampleModels::PassedUnit().get(), builder.get()));
    QVERIFY(!builder->OutputComplete());
}

void RowBuilderTest::FullDiskIsNoticed()
{
    QFETCH(QString, format);
    const QFileInfo fullDisk(u"/dev/full"_s);
    if (!fullDisk.exists())
        QSKIP("no /dev/full here");
    const Builder builder = MakeBuilder(format);
    QVERIFY(builder->OpenFile(fullDisk.filePath()));
    QVERIFY(Walk(SampleModels::PassedUnit().get(), builder.get()));
    QVERIFY(!builder->OutputComplete());
}

void RowBuilderTest::NextDocumentIsClean()
{
    QFETCH(QString, format);
    const auto sample = SampleModels::MakeReportCase(u"panel"_s);
    const ReportRun expected = ExportSample(format, *sample);
    const Environment::Override environment(SampleModels::ReportTime(), SampleModels::EngineVersion());

    // A panel item's result set without a program ends the walk in the middle of the document.
    const auto broken = SampleModels::Panel();
    broken->GetUUTTests().at(1)->AssignResultSet(new TestResultSet({}, {}));
    const QTemporaryDir folder;
    const Builder builder = MakeBuilder(format);
    QVERIFY(builder->OpenFile(folder.filePath(u"broken"_s)));
    QVERIFY(!Walk(broken.get(), builder.get()));
    QVERIFY(builder->IsOpened());

    QVERIFY(builder->OpenFile(folder.filePath(u"next"_s)));
    QVERIFY(Walk(sample->test.get(), builder.get()));
    QVERIFY(builder->OutputComplete());
    QCOMPARE(Content(folder.filePath(u"next"_s)), expected.content);

    // Nor does what a device refused get into the next document.
    BreakingDevice device(7);
    builder->SetDevice(&device);
    Walk(sample->test.get(), builder.get());
    QVERIFY(!builder->OutputComplete());
    QVERIFY(builder->OpenFile(folder.filePath(u"third"_s)));
    QVERIFY(Walk(sample->test.get(), builder.get()));
    QVERIFY(builder->OutputComplete());
    QCOMPARE(Content(folder.filePath(u"third"_s)), expected.content);
}

void RowBuilderTest::SecondCloseWritesNothing()
{
    Document document(u"TXT"_s);
    QVERIFY(document.builder->Close());
    QCOMPARE(document.Take(), QByteArray("\n"));
    QVERIFY(!document.builder->IsOpened());
    document.builder->SetDevice(&document.buffer);
    QVERIFY(document.builder->Close());
    QCOMPARE(document.Take(), QByteArray());
}

void RowBuilderTest::TextProgramWithoutResult()
{
    Document document(u"TXT"_s);
    SampleModels::ProgramWriter writer(1, u"Alone"_s);
    QVERIFY(static_cast<IExportBuilder*>(document.builder.get())
                ->BeginTestProgram(writer.program.get(), nullptr));
    const QByteArray block = document.Take();
    QVERIFY(block.endsWith("\nVersion:            \nCreator:            \n\n"));
    QVERIFY(!block.contains("Result:") && !block.contains("Duration:") && !block.contains("Timestamp:"));
}

void RowBuilderTest::PanelItemWithoutUnit()
{
    Document document(u"HTML"_s);
    UUTTest item(1, QString());
    document.builder->BeginSubUnitTest();
    QVERIFY(document.builder->BeginUUTTest(&item));
    QVERIFY(document.Take().startsWith("<hr><br><p class=\"headline\">Panel Item</p>\n<table"));
    document.builder->EndUUTTest(&item);
    document.builder->EndSubUnitTest();
    document.Take();
    // The next one is no panel item.
    QVERIFY(document.builder->BeginUUTTest(&item));
    QVERIFY(document.Take().startsWith("<table"));
}

void RowBuilderTest::UnclosedTableStaysUnclosed()
{
    Document document(u"HTML"_s);
    UUTTest test(1, QString());
    document.builder->BeginUUTTest(&test);
    document.Take();
    QVERIFY(document.builder->Close());
    QCOMPARE(document.Take(), QByteArray("</body></html>\n"));
}

void RowBuilderTest::HostileCsvCells()
{
    // Line breaks and tabs in comments must not tear a row apart: fifteen cells unless a name holds a ';'.
    SampleModels::ProgramWriter writer(1, u"P"_s);
    SampleModels::RunWriter run(writer.program, QSharedPointer<Station>(), 1);
    TestResult* const result = run.Verdict(writer.program, 1.0);
    writer.program->SetIdentString(u""_s);
    result->SetComment(u"\n a\r\n\tb \n"_s);
    result->SetAttribute(u" \t "_s);
    Document document(u"CSV"_s);
    const std::unique_ptr<TestResultSet> set(run.Take());
    QVERIFY(
        static_cast<IExportBuilder*>(document.builder.get())->BeginTestProgram(writer.program.get(), result));
    const QList<QByteArray> lines = document.Take().split('\n');
    QCOMPARE(lines.size(), 3);
    QCOMPARE(lines.at(0).count(';'), 14);
    QCOMPARE(lines.at(1), QByteArray("=\"\";P;1;Program;0;NOT TESTED;;;;;;;1000;;a b"));
}

QTEST_GUILESS_MAIN(RowBuilderTest)
#include "RowBuilderTest.moc"
