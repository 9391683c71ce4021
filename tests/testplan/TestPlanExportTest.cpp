#include "support/Test.h"
#include "SamplePlan.h"
#include "support/Golden.h"
#include "support/Model.h"
#include "support/RelaxNg.h"

#include "testplan/CTestPlanBuilderXML.h"

#include <ZYNPersistence/CExportServiceTestPlan.h>
#include <ZYNPersistence/CReadServiceTestPlan.h>

using namespace ZYN;

namespace {

/// A validation that offers whatever properties a test wants.
class OpenValidation : public ValidationInterface {
public:
    QMap<QString, QVariant> properties;

    ValueDisplay* GetValueDisplay() const override { return nullptr; }
    bool HasLowerLimit() const override { return false; }
    bool HasUpperLimit() const override { return false; }
    QVariant GetLowerLimit() const override { return {}; }
    QVariant GetUpperLimit() const override { return {}; }
    QString GetLowerLimitText() const override { return {}; }
    QString GetUpperLimitText() const override { return {}; }
    LimitOperator GetLowerOperator() const override { return {}; }
    LimitOperator GetUpperOperator() const override { return {}; }
    bool HasNominal() const override { return false; }
    QVariant GetNominal() const override { return {}; }
    QString GetNominalText() const override { return {}; }
    MeasurementUnit GetMeasurementUnit() const override { return MeasurementUnit(MeasurementUnit::Ohm); }
    bool IsResultInverted() const override { return false; }
    void SetResultInverted(bool) override {}
    QList<QString> GetPropertyNames() const override { return properties.keys(); }
    QVariant GetProperty(const QString& name) const override { return properties.value(name); }
    bool SetProperty(const QString&, const QVariant&) override { return false; }
    bool Validate(const QVariant&) const override { return false; }
    Limits GetLimits() const override { return {}; }
};

} // namespace

class TestPlanExportTest : public QObject {
    Q_OBJECT

private slots:
    void Board()
    {
        for (const bool excludeBinIds : {false, true}) {
            const QString golden = excludeBinIds ? "board-without-bin-ids.tpl" : "board.tpl";
            const QByteArray content = Export(SamplePlan::Program().get(), excludeBinIds);
            QCOMPARE(Golden::Difference("test-plan", golden, content), QString());
            QCOMPARE(RelaxNg::Faults("test-plan-3.0.0.rng", Path("out.tpl")), QString());
            Files::Write(Path("2.tpl"), QByteArray(content).replace("3.0.0", "2.0.0"));
            QCOMPARE(RelaxNg::Faults("test-plan-2.0.0.rng", Path("2.tpl")), QString());
        }
    }

    void ValidationProperties()
    {
        const auto validation = QSharedPointer<OpenValidation>::create();
        const auto written = [&](bool excludeBinIds) {
            const QByteArray content = Export(SamplePlan::ProgramWith(validation).get(), excludeBinIds);
            QStringList found;
            static const QRegularExpression property("<Property Name=\"(\\w*)\">([^<]*)</Property>");
            for (const auto& match : property.globalMatch(QString::fromUtf8(content)))
                found += match.captured(1) + u'=' + match.captured(2);
            return found.join(u' ');
        };
        for (const char* name : {"Name", "LogInReport", "BinId", "BinIdLower", "MyBinIds", "name", "BINID"})
            validation->properties.insert(name, 1);
        validation->properties.insert({{"Invalid", QVariant()}, {"Flag", true}, {"Empty", QString()}});
        QCOMPARE(written(false), "BINID=1 BinId=1 BinIdLower=1 Empty= Flag=true MyBinIds=1 name=1");
        QCOMPARE(written(true), "BINID=1 Empty= Flag=true name=1");
    }

    // The builder keeps its device after the end of a document: others must be able to read it all the same.
    void ServiceIsReused()
    {
        const auto program = SamplePlan::Program();
        const QByteArray expected = Export(program.get());
        CExportServiceTestPlan service(false);
        for (const char* const name : {"a.tpl", "b.tpl", "a.tpl"}) {
            service.SetOutputFileName(Path(name));
            QVERIFY(service.Export(program.get()) && service.OutputComplete());
            QCOMPARE(Files::Content(Path(name)), expected);
        }
        QVERIFY(service.Export(SamplePlan::ProgramWith(nullptr).get()));
        QVERIFY2(!QFile::exists(Path("a.tpl")), "no plan leaves no file, whatever was written before");
        QVERIFY(service.OutputComplete() && service.GetErrorText().isEmpty());
    }

    // A walk that breaks off leaves elements open in the stream writer.
    void FailedWalkLeavesNothingBehind()
    {
        const auto program = SamplePlan::Program();
        const QByteArray expected = Export(program.get());
        CTestPlanBuilderXML builder(false);
        const auto writeDocument = [&](const QString& name) {
            return builder.OpenFile(name) && builder.Open() && builder.BeginTestProgram(program.get()) &&
                   builder.BeginTestGroup(program->GetGroupForIndex(0).get());
        };
        QVERIFY(writeDocument(Path("broken.tpl")));
        QVERIFY(writeDocument(Path("whole.tpl")));
        QVERIFY(builder.Close());
        QVERIFY(builder.OutputComplete());
        const QByteArray content = Files::Content(Path("whole.tpl"));
        QVERIFY2(content.startsWith(expected.left(200)), content);
        QVERIFY2(content.endsWith("\n</TestPlan>\n"), "Close ends the root that no EndTestProgram ended");
        QCOMPARE(content.count("<TestPlan "), 1);
    }

    void DeviceFromOutsideStaysOpen()
    {
        QBuffer buffer;
        CTestPlanBuilderXML builder(false);
        QVERIFY2(!builder.Open(), "no device");
        builder.SetDevice(&buffer);
        QVERIFY(builder.Open());
        QVERIFY(!builder.BeginTestGroup(static_cast<TestGroup*>(nullptr)));
        QVERIFY(builder.EndTestProgram(nullptr));
        QVERIFY(builder.Close());
        QVERIFY(buffer.isOpen());
        QVERIFY(!builder.IsOpened());
        QCOMPARE(buffer.data(),
                 QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<TestPlan Version=\"3.0.0\"/>\n"));
    }

    // The stream writer would drop these and all that follows.
    void TextsThatAreNoXml()
    {
        const QString bad = QString("a") + QChar(0xD800) + "b" + QChar(0x0001) + u'c';
        const auto validation = QSharedPointer<OpenValidation>::create();
        validation->properties = {{"P" + bad, bad}, {"Z", 1}};
        const auto program = SamplePlan::ProgramWith(validation);
        program->GetGroupForIndex(0)->SetIdentString(bad);
        const QByteArray content = Export(program.get());
        const QByteArray mended = QString("a\ufffdb\ufffdc").toUtf8();
        QVERIFY2(content.contains("<Property Name=\"P" + mended + "\">" + mended + "</Property>"), content);
        QVERIFY(content.contains("<Property Name=\"Z\">1</Property>") && content.endsWith("</TestPlan>\n"));
    }

    void DeepCategories()
    {
        constexpr int depth = 100000;
        const QByteArray content = Export(SamplePlan::DeepProgram(depth).get());
        QCOMPARE(content.count("<Category "), depth);
        QVERIFY2(content.size() < 100 * depth, "indentation does not grow with the square of the depth");
        const std::unique_ptr<TestPlan> plan(CReadServiceTestPlan().ReadTestPlan(Path("out.tpl")));
        QVERIFY(plan);
        const TestPlanData* data = plan->GetAttributes("10");
        int level = 0;
        for (; !data->GetCategories().isEmpty(); ++level)
            data = data->GetCategories().constFirst()->GetAttributes();
        QCOMPARE(level, depth);
        QCOMPARE(data->GetProperty("Depth"), QVariant(depth));
    }

private:
    QString Path(const char* name) const { return folder.filePath(QLatin1StringView(name)); }
    /// Exports with a service of its own that has gone when this returns.
    QByteArray Export(TestProgram* program, bool excludeBinIds = false)
    {
        CExportServiceTestPlan service(excludeBinIds);
        service.SetOutputFileName(Path("out.tpl"));
        if (!service.Export(program) || !service.OutputComplete() || !service.GetErrorText().isEmpty())
            return "export failed";
        return Files::Content(Path("out.tpl"));
    }

    QTemporaryDir folder;
};

QTEST_APPLESS_MAIN(TestPlanExportTest)
#include "TestPlanExportTest.moc"
