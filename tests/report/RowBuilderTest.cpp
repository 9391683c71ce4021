#include "export/FaultDevices.h"
#include "support/Model.h"
#include "support/ReportRun.h"
#include "support/Test.h"

#include "export/CExportBuilderImp.h"
#include "export/CExportDirectorReport.h"
#include "export/Environment.h"
#include "export/FormatRegistry.h"

#include <memory>

using namespace ZYN;

namespace {

using Builder = std::unique_ptr<CExportBuilderImp>;

Builder MakeBuilder(const QString& format)
{
    return Builder(dynamic_cast<CExportBuilderImp*>(FormatRegistry::CreateReportBuilder(format)));
}

} // namespace

/// What the row formats do beyond the documents of the expected files: nothing to write, and one builder
/// for several documents.
class RowBuilderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void WithoutResultNothingIsWritten()
    {
        const auto test = SampleModels::PassedUnit();
        const auto group = test->GetResultSets().constFirst()->GetTestProgram()->GetGroupForIndex(1);
        const auto step = group->GetStepForIndex(0);
        for (const char* format : {"CSV", "TXT", "HTML"}) {
            QBuffer buffer;
            const Builder owner = MakeBuilder(format);
            IExportBuilder* const builder = owner.get();
            builder->SetDevice(&buffer);
            builder->Open();
            const qint64 before = buffer.size();
            QVERIFY(!builder->BeginTestGroup(group.get(), nullptr));
            QVERIFY(!builder->BeginTestStep(step.get(), nullptr));
            QVERIFY(!builder->BeginTestParameter(group->GetParameterForIndex(0).get(), nullptr));
            QVERIFY(!builder->BeginTestMeasurement(step->GetMeasurementForIndex(0).get(), nullptr));
            QCOMPARE(buffer.size(), before);
            builder->SetDevice(nullptr);
        }
    }

    void DeviceFromOutside()
    {
        QBuffer first;
        QBuffer second;
        QVERIFY(first.open(QIODevice::WriteOnly) && second.open(QIODevice::WriteOnly));
        {
            const Builder builder = MakeBuilder("CSV");
            builder->SetDevice(&first);
            builder->SetDevice(&first);
            QVERIFY(first.isOpen());

            builder->SetDevice(&second);
            QVERIFY(!first.isOpen());
            QCOMPARE(builder->GetDevice(), &second);

            builder->SetDevice(nullptr);
            QVERIFY(!second.isOpen());
            QVERIFY(!builder->GetDevice());

            QVERIFY(second.open(QIODevice::WriteOnly));
            builder->SetDevice(&second);
        }
        // The end of the builder touches no device but its own file.
        QVERIFY(second.isOpen());
    }

    void NextDocumentIsClean_data()
    {
        const Rows<> row;
        for (const char* format : {"CSV", "TXT", "HTML", "XML"})
            row(format);
    }
    void NextDocumentIsClean()
    {
        const QString format = QTest::currentDataTag();
        const auto sample = SampleModels::MakeReportCase("panel");
        const ReportRun expected = ExportSample(format, *sample);
        const Environment::Override environment(SampleModels::ReportTime(), SampleModels::EngineVersion());
        const QTemporaryDir folder;
        const Builder builder = MakeBuilder(format);
        const auto walk = [&](UUTTest* test) {
            return CExportDirectorReport().ExportUUTTest(test, builder.get());
        };
        const auto verifyNext = [&] {
            const QString next = folder.filePath("next");
            QVERIFY(builder->OpenFile(next));
            QVERIFY(walk(sample->test.get()));
            QVERIFY(builder->OutputComplete());
            QCOMPARE(Files::Content(next), expected.content);
        };

        // A panel item's result set without a program ends the walk in the middle of the document.
        const auto broken = SampleModels::Panel();
        broken->GetUUTTests().at(1)->AssignResultSet(new TestResultSet({}, {}));
        QVERIFY(builder->OpenFile(folder.filePath("broken")));
        QVERIFY(!walk(broken.get()));
        QVERIFY(builder->IsOpened());
        verifyNext();

        // Nor does what a device refused get into the next document.
        BreakingDevice device(7);
        builder->SetDevice(&device);
        walk(sample->test.get());
        QVERIFY(!builder->OutputComplete());
        verifyNext();
    }
};

QTEST_GUILESS_MAIN(RowBuilderTest)
#include "RowBuilderTest.moc"
