#include "export/FaultDevices.h"
#include "import/ReportFiles.h"
#include "support/ReportRun.h"
#include "support/SampleModels.h"

#include "export/CExportBuilderImp.h"
#include "export/CExportDirectorReport.h"
#include "export/Environment.h"
#include "export/FormatRegistry.h"

#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestParameter.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>

#include <QtCore/QBuffer>
#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>

#include <memory>

using namespace ZYN;
using namespace Qt::StringLiterals;

/// What the row formats do beyond the documents of the expected files: nothing to write, and one builder
/// for several documents.
class RowBuilderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void WithoutResultNothingIsWritten_data() { Formats(); }
    void WithoutResultNothingIsWritten();
    void NextDocumentIsClean_data();
    void NextDocumentIsClean();
    void PanelItemWithoutUnit();

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

} // namespace

void RowBuilderTest::Formats()
{
    QTest::addColumn<QString>("format");
    for (const char* const format : {"CSV", "TXT", "HTML"})
        QTest::newRow(format) << QString::fromLatin1(format);
}

void RowBuilderTest::WithoutResultNothingIsWritten()
{
    QFETCH(QString, format);
    Document document(format);
    IExportBuilder* const builder = document.builder.get();
    const auto test = SampleModels::PassedUnit();
    const auto group = test->GetResultSets().constFirst()->GetTestProgram()->GetGroupForIndex(1);
    const auto step = group->GetStepForIndex(0);

    QVERIFY(!builder->BeginTestGroup(group.get(), nullptr));
    QVERIFY(!builder->BeginTestStep(step.get(), nullptr));
    QVERIFY(!builder->BeginTestParameter(group->GetParameterForIndex(0).get(), nullptr));
    QVERIFY(!builder->BeginTestMeasurement(step->GetMeasurementForIndex(0).get(), nullptr));
    QCOMPARE(document.Take(), QByteArray());
}

void RowBuilderTest::NextDocumentIsClean_data()
{
    Formats();
    QTest::newRow("XML") << u"XML"_s;
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
    QCOMPARE(ReportFiles::Content(folder.filePath(u"next"_s)), expected.content);

    // Nor does what a device refused get into the next document.
    BreakingDevice device(7);
    builder->SetDevice(&device);
    Walk(sample->test.get(), builder.get());
    QVERIFY(!builder->OutputComplete());
    QVERIFY(builder->OpenFile(folder.filePath(u"third"_s)));
    QVERIFY(Walk(sample->test.get(), builder.get()));
    QVERIFY(builder->OutputComplete());
    QCOMPARE(ReportFiles::Content(folder.filePath(u"third"_s)), expected.content);
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

QTEST_GUILESS_MAIN(RowBuilderTest)
#include "RowBuilderTest.moc"
