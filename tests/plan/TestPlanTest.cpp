#include "support/SampleProgram.h"

#include <ZYNCommon/CtrlAttributes.h>
#include <ZYNCommon/CtrlEnable.h>
#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/CtrlTestPlanValues.h>
#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/TestComponentAttr.h>
#include <ZYNCommon/TestPlan.h>
#include <ZYNCommon/TestPlanCategory.h>
#include <ZYNCommon/TestPlanData.h>

#include <QtTest/QTest>

using namespace ZYN;

namespace {

using Properties = QList<std::pair<QString, QVariant>>;

TestPlanData* Data(const Properties& properties)
{
    auto* const data = new TestPlanData;
    for (const auto& [name, value] : properties)
        data->SetProperty(name, value);
    return data;
}

TestPlanCategory* Category(const QString& name, TestPlanData* data)
{
    auto* const category = new TestPlanCategory(name);
    category->SetAttributes(data);
    return category;
}

/// "name:type=value" and "name{...}", in order.
QString Text(const QList<TestComponentAttr*>& attributes)
{
    QStringList texts;
    for (const TestComponentAttr* const attribute : attributes) {
        if (attribute->GetType() == TestComponentAttr::Category)
            texts << attribute->GetName() + QLatin1Char('{') + Text(attribute->GetChildren()) +
                         QLatin1Char('}');
        else
            texts << attribute->GetName() + QLatin1Char(':') +
                         TestComponentAttr::TypeToString(attribute->GetType()) + QLatin1Char('=') +
                         attribute->GetValue().toString();
    }
    return texts.join(QLatin1Char(' '));
}

/// A program with the idents 1 (program), 2 (group), 3 (step), 4 and 5 (measurements, 4 with limits).
struct Program {
    SampleModels::ProgramWriter writer{1, QStringLiteral("program")};
    QSharedPointer<TestGroup> group = writer.Group(2, QStringLiteral("group"));
    QSharedPointer<TestStep> step = writer.Step(3, QStringLiteral("step"));
    QSharedPointer<TestMeasurement> rail =
        writer.Measurement(4, QStringLiteral("rail"), ZYN_ADDRESS_REAL,
                           SampleModels::RealLimits(MeasurementUnit::Volt, 1.0, 2.0));
    QSharedPointer<TestMeasurement> bare = writer.Measurement(5, QStringLiteral("bare"), ZYN_ADDRESS_REAL);
    TestPlan plan{QFileInfo(QStringLiteral("x.tpl"))};

    TestPlan::Applied Apply() const { return plan.ApplyTo(writer.program.data()); }
    QSharedPointer<ValidationInterface> Limits() const { return rail->GetValidationCtrl()->GetValidation(); }
};

const QString rail = QStringLiteral("4");
const QString step = QStringLiteral("3");

} // namespace

class TestPlanTest : public QObject {
    Q_OBJECT
private slots:
    void theLastSetOfAnIdentCounts();
    void valuesKeepTheirOrder();
    void limitsOfTheProgramItselfFitAgain();
    void limitsAreReplaced();
    void attributesKeepTheirTypes();
    void switches();
    void unknownAndSharedIdents();
};

void TestPlanTest::theLastSetOfAnIdentCounts()
{
    TestPlan plan(QFileInfo(QStringLiteral("dir/x.tpl")));
    QCOMPARE(plan.GetFileInfo().fileName(), QStringLiteral("x.tpl"));
    plan.AddValidation(rail, Data({{QStringLiteral("a"), 1}}));
    auto* const last = Data({{QStringLiteral("a"), 2}});
    plan.AddAttributes(step, Data({}));
    plan.AddValidation(rail, last);
    plan.AddValidation(rail, last);
    plan.AddProperties(rail, nullptr);
    QCOMPARE(plan.GetKeys(), (QStringList{rail, step}));
    QCOMPARE(plan.GetValidation(rail), last);
    QCOMPARE(plan.GetProperties(rail), nullptr);
    QCOMPARE(plan.GetAttributes(QStringLiteral("none")), nullptr);
    QCOMPARE(plan.ApplyTo(nullptr).components, 0);
}

void TestPlanTest::valuesKeepTheirOrder()
{
    const std::unique_ptr<TestPlanData> data(
        Data({{QStringLiteral("b"), 1}, {QStringLiteral("a"), 2}, {QStringLiteral("b"), 3}}));
    QCOMPARE(data->GetPropertyNames(), (QStringList{QStringLiteral("b"), QStringLiteral("a")}));
    QCOMPARE(data->GetProperty(QStringLiteral("b")), QVariant(3));
    QVERIFY(!data->GetProperty(QStringLiteral("c")).isValid());
    QVERIFY(!data->HasProperty(QStringLiteral("c")));
}

void TestPlanTest::limitsOfTheProgramItselfFitAgain()
{
    const Program source;
    Program target;
    source.Limits()->SetResultInverted(true);
    auto* const data = Data({{QStringLiteral("Name"), QStringLiteral("rail")}});
    for (const QString& name : source.Limits()->GetPropertyNames()) {
        if (const QVariant value = source.Limits()->GetProperty(name); value.isValid())
            data->SetProperty(name, value.toString()); // as a plan file brings them
    }
    target.plan.AddValidation(rail, data);
    const auto applied = target.Apply();
    QCOMPARE(applied.problems, QStringList());
    QCOMPARE(applied.components, 1);
    for (const QString& name : source.Limits()->GetPropertyNames())
        QCOMPARE(target.Limits()->GetProperty(name), source.Limits()->GetProperty(name));
}

void TestPlanTest::limitsAreReplaced()
{
    Program program;
    const QString lower = QStringLiteral("Lower");
    program.plan.AddValidation(rail, Data({{lower, QStringLiteral("1.5")}, {QStringLiteral("Nonsense"), 1}}));
    program.plan.AddValidation(QStringLiteral("5"), Data({{lower, 1.5}}));
    const auto applied = program.Apply();
    QCOMPARE(applied.components, 1);
    QCOMPARE(program.Limits()->GetLowerLimit().toDouble(), 1.5);
    QCOMPARE(program.Limits()->GetUpperLimit().toDouble(), 2.0);
    QCOMPARE(applied.problems,
             (QStringList{
                 QStringLiteral("ident '4' (rail): 'Nonsense' does not take the value '1'"),
                 QStringLiteral("ident '5' (bare): has no validation that could take the plan's limits")}));
}

void TestPlanTest::attributesKeepTheirTypes()
{
    Program program;
    auto* const former = new CtrlAttributes;
    former->AddAttribute(new TestComponentAttr(QStringLiteral("gone"), TestComponentAttr::Integer, 1));
    former->AddAttribute(new TestComponentAttr(QStringLiteral("count"), TestComponentAttr::Integer, 2));
    auto* const category = new TestComponentAttr(QStringLiteral("sub"), TestComponentAttr::Category);
    category->AddChild(new TestComponentAttr(QStringLiteral("on"), TestComponentAttr::Boolean, false));
    former->AddAttribute(category);
    program.step->SetAttributesCtrl(former);

    auto* const data = Data({{QStringLiteral("new"), 1.5},
                             {QStringLiteral("count"), QStringLiteral("no number")},
                             {QStringLiteral("text"), QStringLiteral("7")}});
    auto* const inner = Data({{QStringLiteral("on"), QStringLiteral("true")}});
    inner->AddCategory(new TestPlanCategory(QStringLiteral("empty")));
    data->AddCategory(Category(QStringLiteral("sub"), inner));
    data->AddCategory(Category(QStringLiteral("more"), Data({{QStringLiteral("n"), 3}})));
    program.plan.AddAttributes(step, data);

    const auto applied = program.Apply();
    QCOMPARE(Text(program.step->GetAttributesCtrl()->GetAttributes()),
             QStringLiteral("new:Real=1.5 count:Integer=2 text:String=7 sub{on:Boolean=true empty{}} "
                            "more{n:Integer=3}"));
    QCOMPARE(applied.problems,
             QStringList{QStringLiteral("ident '3' (step): 'count' does not take the value 'no number'")});
}

void TestPlanTest::switches()
{
    Program program;
    program.plan.AddProperties(step, Data({{QStringLiteral("LogInReport"), QStringLiteral("false")},
                                           {QStringLiteral("Enabled"), QStringLiteral("false")}}));
    program.plan.AddProperties(rail, Data({{QStringLiteral("LogInReport"), QStringLiteral("false")}}));
    program.plan.AddProperties(QStringLiteral("2"),
                               Data({{QStringLiteral("Enabled"), QStringLiteral("perhaps")}}));
    const auto applied = program.Apply();
    QCOMPARE(applied.components, 2);
    QVERIFY(!program.step->GetLogInReportCtrl()->GetLogInReport());
    QVERIFY(!program.step->GetEnableCtrl()->IsEnabled());
    QVERIFY(!program.step->GetTestPlanValuesCtrl()->IsEnabled());
    QVERIFY(!program.rail->GetLogInReportCtrl()->GetLogInReport());
    QVERIFY(program.rail->GetTestPlanValuesCtrl()->IsEnabled());
    QVERIFY(program.group->GetEnableCtrl()->IsEnabled());
    QCOMPARE(applied.problems,
             QStringList{QStringLiteral("ident '2' (group): 'Enabled' does not take the value 'perhaps'")});
}

void TestPlanTest::unknownAndSharedIdents()
{
    Program program;
    const QString off = QStringLiteral("0");
    program.bare->SetIdentString(step);
    program.plan.AddProperties(step, Data({{QStringLiteral("Enabled"), off}}));
    program.plan.AddProperties(QStringLiteral("99"), Data({{QStringLiteral("Enabled"), off}}));
    const auto applied = program.Apply();
    QCOMPARE(applied.components, 0);
    QCOMPARE(applied.unknownKeys, QStringList{QStringLiteral("99")});
    QCOMPARE(applied.problems,
             QStringList{QStringLiteral("ident '3': 2 components have it, none was changed")});
    QVERIFY(program.step->GetEnableCtrl()->IsEnabled());
}

QTEST_APPLESS_MAIN(TestPlanTest)
#include "TestPlanTest.moc"
