#include "SamplePlan.h"
#include "support/Golden.h"
#include "support/RelaxNg.h"

#include "testplan/CTestPlanBuilderXML.h"

#include <ZYNCommon/TestComponentFactory.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestPlan.h>
#include <ZYNCommon/TestPlanCategory.h>
#include <ZYNCommon/TestPlanData.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/ValidationInterface.h>
#include <ZYNPersistence/CExportServiceTestPlan.h>
#include <ZYNPersistence/CReadServiceTestPlan.h>

#include <QtCore/QBuffer>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using namespace ZYN;

namespace {

/// A validation that offers whatever properties a test wants.
class OpenValidation : public ValidationInterface {
public:
    QList<std::pair<QString, QVariant>> properties;

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
    QList<QString> GetPropertyNames() const override
    {
        QList<QString> names;
        for (const auto& property : properties)
            names += property.first;
        return names;
    }
    QVariant GetProperty(const QString& name) const override
    {
        for (const auto& property : properties) {
            if (property.first == name)
                return property.second;
        }
        return {};
    }
    bool SetProperty(const QString&, const QVariant&) override { return false; }
    bool Validate(const QVariant&) const override { return false; }
};

QByteArray Content(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestPlanExportTest : public QObject {
    Q_OBJECT

private slots:
    void board_data();
    void board();
    void schemasRefuseDamage_data();
    void schemasRefuseDamage();
    void validationProperties_data();
    void validationProperties();
    void noPlanLeavesNoFile();
    void startFailures();
    void serviceIsReused();
    void failedWalkLeavesNothingBehind();
    void deviceFromOutsideStaysOpen();
    void textsThatAreNoXml();
    void deepCategories();
    void manyComponents();

private:
    QString Path(const char* name) const { return folder.filePath(QLatin1StringView(name)); }
    /// Exports with a service of its own that has gone when this returns.
    QByteArray Export(TestProgram* program, bool excludeBinIds = false);

    QTemporaryDir folder;
};

QByteArray TestPlanExportTest::Export(TestProgram* program, bool excludeBinIds)
{
    CExportServiceTestPlan service(excludeBinIds);
    service.SetOutputFileName(Path("out.tpl"));
    if (!service.Export(program) || !service.OutputComplete() || !service.GetErrorText().isEmpty())
        return "export failed";
    return Content(Path("out.tpl"));
}

void TestPlanExportTest::board_data()
{
    QTest::addColumn<bool>("excludeBinIds");
    QTest::newRow("board") << false;
    QTest::newRow("board-without-bin-ids") << true;
}

void TestPlanExportTest::board()
{
    QFETCH(bool, excludeBinIds);
    const QByteArray content = Export(SamplePlan::Program().get(), excludeBinIds);
    QCOMPARE(Golden::Difference(QStringLiteral("test-plan"),
                                QLatin1StringView(QTest::currentDataTag()) + QStringLiteral(".tpl"), content),
             QString());
    QCOMPARE(RelaxNg::Faults(QStringLiteral("test-plan-3.0.0.rng"), Path("out.tpl")), QString());
}

void TestPlanExportTest::schemasRefuseDamage_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("version") << QByteArray("Version=\"3.0.0\"") << QByteArray("Version=\"3.0\"");
    QTest::newRow("attribute missing") << QByteArray(" Unit=\"V\"") << QByteArray();
    QTest::newRow("type is no number") << QByteArray("Type=\"8\"") << QByteArray("Type=\"Real\"");
    QTest::newRow("reserved property") << QByteArray("Name=\"Lower\"") << QByteArray("Name=\"LogInReport\"");
    QTest::newRow("switch is no boolean") << QByteArray(">true</Property>") << QByteArray(">1</Property>");
    QTest::newRow("element in an attribute")
        << QByteArray(">3</Attribute>") << QByteArray("><b/></Attribute>");
    QTest::newRow("unknown element") << QByteArray("</TestPlan>") << QByteArray("<Comment/></TestPlan>");
}

void TestPlanExportTest::schemasRefuseDamage()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QByteArray content = Export(SamplePlan::Program().get());
    QVERIFY2(content.contains(before), "the damage is in what is written");
    const auto refused = [&](const char* schema) {
        return RelaxNg::Refuses(QLatin1StringView(schema), content, Path("damaged.tpl"));
    };
    QVERIFY(!refused("test-plan-3.0.0.rng"));
    QVERIFY2(refused("test-plan-2.0.0.rng"), "another version's schema refuses the file");
    content.replace("3.0.0", "2.0.0");
    QVERIFY(!refused("test-plan-2.0.0.rng"));
    content.replace("2.0.0", "3.0.0").replace(before, after);
    QVERIFY(refused("test-plan-3.0.0.rng"));
}

void TestPlanExportTest::validationProperties_data()
{
    QTest::addColumn<bool>("excludeBinIds");
    QTest::addColumn<QString>("written");
    QTest::newRow("with bin ids") << false
                                  << QStringLiteral("Flag=true Number=0.1 Empty= BinId=1 BinIdLower=2 "
                                                    "SoftBinId=3 MyBinIds=4 binid=5 name=6 BINID=7");
    QTest::newRow("without") << true << QStringLiteral("Flag=true Number=0.1 Empty= binid=5 name=6 BINID=7");
}

void TestPlanExportTest::validationProperties()
{
    QFETCH(bool, excludeBinIds);
    QFETCH(QString, written);
    const auto validation = QSharedPointer<OpenValidation>::create();
    validation->properties = {{QStringLiteral("Name"), 1},        {QStringLiteral("Flag"), true},
                              {QStringLiteral("LogInReport"), 1}, {QStringLiteral("Invalid"), QVariant()},
                              {QStringLiteral("Number"), 0.1},    {QStringLiteral("Empty"), QString()},
                              {QStringLiteral("BinId"), 1},       {QStringLiteral("BinIdLower"), 2},
                              {QStringLiteral("SoftBinId"), 3},   {QStringLiteral("MyBinIds"), 4},
                              {QStringLiteral("binid"), 5},       {QStringLiteral("name"), 6},
                              {QStringLiteral("BINID"), 7}};
    const auto content = QString::fromUtf8(Export(SamplePlan::ProgramWith(validation).get(), excludeBinIds));
    QStringList found;
    static const QRegularExpression property(QStringLiteral("<Property Name=\"(\\w*)\">([^<]*)</Property>"));
    for (const QRegularExpressionMatch& match : property.globalMatch(content))
        found += match.captured(1) + u'=' + match.captured(2);
    QCOMPARE(found.join(u' '), written);

    validation->properties.clear();
    QVERIFY(Export(SamplePlan::ProgramWith(validation).get())
                .contains("<Validation Ident=\"21\" Type=\"7\" Name=\"M\" Unit=\"\xCE\xA9\"/>"));
}

void TestPlanExportTest::noPlanLeavesNoFile()
{
    CExportServiceTestPlan service(false);
    service.SetOutputFileName(Path("none.tpl"));
    QVERIFY(service.Export(SamplePlan::Program().get()));
    QVERIFY(QFile::exists(Path("none.tpl")));
    QVERIFY(service.Export(SamplePlan::ProgramWithoutPlan().get()));
    QVERIFY2(!QFile::exists(Path("none.tpl")), "the counter begins anew with each document");
    QVERIFY(service.OutputComplete());
    QVERIFY(service.GetErrorText().isEmpty());
}

void TestPlanExportTest::startFailures()
{
    CExportServiceTestPlan service(false);
    const auto program = SamplePlan::Program();
    QVERIFY(!service.Export(program.get()));
    QCOMPARE(service.GetErrorText(), QStringLiteral("No filename provided."));
    const QString missing = Path("missing/%1.tpl");
    service.SetOutputFileName(missing);
    QVERIFY(!service.Export(program.get()));
    QCOMPARE(service.GetErrorText(), QStringLiteral("Could not create file: ") + missing);
    service.SetOutputFileName(Path("null.tpl"));
    QVERIFY(!service.Export(nullptr));
    QVERIFY2(service.GetErrorText().isEmpty(), "the export started");
    QVERIFY(!service.OutputComplete());
    QCOMPARE(CExportServiceTestPlan::FileNameFilter(), QStringLiteral("Testplan File (*.tpl)"));
}

// The builder keeps its device after the end of a document: others must be able to read it all the same.
void TestPlanExportTest::serviceIsReused()
{
    const auto program = SamplePlan::Program();
    CExportServiceTestPlan service(false);
    QByteArray first;
    for (const char* const name : {"a.tpl", "b.tpl", "a.tpl"}) {
        service.SetOutputFileName(Path(name));
        QVERIFY(service.Export(program.get()));
        QVERIFY(service.OutputComplete());
        const QByteArray content = Content(Path(name));
        QVERIFY(content.endsWith("</TestPlan>\n"));
        if (first.isEmpty())
            first = content;
        QCOMPARE(content, first);
    }
}

// A walk that breaks off leaves elements open in the stream writer.
void TestPlanExportTest::failedWalkLeavesNothingBehind()
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
    const QByteArray content = Content(Path("whole.tpl"));
    QVERIFY2(content.startsWith(expected.left(200)), content);
    QVERIFY2(content.endsWith("\n</TestPlan>\n"), "Close ends the root that no EndTestProgram ended");
    QCOMPARE(content.count("<TestPlan "), 1);
}

void TestPlanExportTest::deviceFromOutsideStaysOpen()
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
void TestPlanExportTest::textsThatAreNoXml()
{
    const QString bad = QStringLiteral("a") + QChar(0xD800) + QStringLiteral("b") + QChar(0x0001) + u'c';
    const auto validation = QSharedPointer<OpenValidation>::create();
    validation->properties = {{QStringLiteral("P") + bad, bad}, {QStringLiteral("Last"), 1}};
    const auto program = SamplePlan::ProgramWith(validation);
    program->GetGroupForIndex(0)->SetIdentString(bad);
    const QByteArray content = Export(program.get());
    QVERIFY2(content.contains("<Property Name=\"Pa\xEF\xBF\xBD"
                              "b\xEF\xBF\xBD"
                              "c\">a\xEF\xBF\xBD"
                              "b\xEF\xBF\xBD"
                              "c</Property>"),
             content);
    QVERIFY(content.contains("<Property Name=\"Last\">1</Property>"));
    QVERIFY(content.endsWith("</TestPlan>\n"));
}

void TestPlanExportTest::deepCategories()
{
    constexpr int depth = 100000;
    const QByteArray content = Export(SamplePlan::DeepProgram(depth).get());
    QCOMPARE(content.count("<Category "), depth);
    QVERIFY2(content.size() < 100 * depth, "indentation does not grow with the square of the depth");
    const std::unique_ptr<TestPlan> plan(CReadServiceTestPlan().ReadTestPlan(Path("out.tpl")));
    QVERIFY(plan);
    const TestPlanData* data = plan->GetAttributes(QStringLiteral("10"));
    int level = 0;
    for (; !data->GetCategories().isEmpty(); ++level)
        data = data->GetCategories().constFirst()->GetAttributes();
    QCOMPARE(level, depth);
    QCOMPARE(data->GetProperty(QStringLiteral("Depth")), QVariant(depth));
}

void TestPlanExportTest::manyComponents()
{
    constexpr int count = 20000;
    const QByteArray content = Export(SamplePlan::LargeProgram(count).get());
    QCOMPARE(content.count("<Validation "), count);
    const std::unique_ptr<TestPlan> plan(CReadServiceTestPlan().ReadTestPlan(Path("out.tpl")));
    QVERIFY(plan);
    QCOMPARE(plan->GetKeys().size(), count);
    QCOMPARE(plan->GetKeys().constLast(), QString::number(100 + count - 1));
}

QTEST_APPLESS_MAIN(TestPlanExportTest)
#include "TestPlanExportTest.moc"
