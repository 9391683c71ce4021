#include "support/Test.h"
#include "support/SampleProgram.h"

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
struct Board {
    SampleModels::ProgramWriter writer{1, "program"};
    QSharedPointer<TestGroup> group = writer.Group(2, "group");
    QSharedPointer<TestStep> step = writer.Step(3, "step");
    QSharedPointer<TestMeasurement> rail = writer.Measurement(
        4, "rail", ZYN_ADDRESS_REAL, SampleModels::RealLimits(MeasurementUnit::Volt, 1.0, 2.0));
    QSharedPointer<TestMeasurement> bare = writer.Measurement(5, "bare", ZYN_ADDRESS_REAL);
    TestPlan plan{QFileInfo("x.tpl")};

    TestPlan::Applied Apply() const { return plan.ApplyTo(writer.program.data()); }
    QSharedPointer<ValidationInterface> Limits() const { return rail->GetValidationCtrl()->GetValidation(); }
};

const QString rail = "4";
const QString step = "3";

} // namespace

class TestPlanTest : public QObject {
    Q_OBJECT
private slots:
    void TheLastSetOfAnIdentCounts()
    {
        TestPlan plan(QFileInfo("dir/x.tpl"));
        plan.AddValidation(rail, Data({{"a", 1}}));
        auto* const last = Data({{"a", 2}});
        plan.AddAttributes(step, Data({}));
        plan.AddValidation(rail, last);
        plan.AddValidation(rail, last);
        plan.AddProperties(rail, nullptr);
        QCOMPARE(plan.GetKeys(), (QStringList{rail, step}));
        QCOMPARE(plan.GetValidation(rail), last);
        QCOMPARE(plan.GetProperties(rail), nullptr);
        QCOMPARE(plan.ApplyTo(nullptr).components, 0);
    }

    void LimitsAreReplaced()
    {
        Board program;
        const QString lower = "Lower";
        program.plan.AddValidation(rail, Data({{"Name", "rail"}, {lower, "1.5"}, {"Nonsense", 1}}));
        program.plan.AddValidation("5", Data({{lower, 1.5}}));
        const auto applied = program.Apply();
        QCOMPARE(applied.components, 1);
        QCOMPARE(program.Limits()->GetLowerLimit().toDouble(), 1.5);
        QCOMPARE(program.Limits()->GetUpperLimit().toDouble(), 2.0);
        QCOMPARE(applied.problems,
                 (QStringList{"ident '4' (rail): 'Nonsense' does not take the value '1'",
                              "ident '5' (bare): has no validation that could take the plan's limits"}));
    }

    void AttributesKeepTheirTypes()
    {
        Board program;
        auto* const former = new CtrlAttributes;
        former->AddAttribute(new TestComponentAttr("gone", TestComponentAttr::Integer, 1));
        former->AddAttribute(new TestComponentAttr("count", TestComponentAttr::Integer, 2));
        auto* const category = new TestComponentAttr("sub", TestComponentAttr::Category);
        category->AddChild(new TestComponentAttr("on", TestComponentAttr::Boolean, false));
        former->AddAttribute(category);
        program.step->SetAttributesCtrl(former);

        auto* const data = Data({{"new", 1.5}, {"count", "no number"}, {"text", "7"}});
        auto* const inner = Data({{"on", "true"}});
        inner->AddCategory(new TestPlanCategory("empty"));
        data->AddCategory(Category("sub", inner));
        data->AddCategory(Category("more", Data({{"n", 3}})));
        program.plan.AddAttributes(step, data);

        const auto applied = program.Apply();
        QCOMPARE(Text(program.step->GetAttributesCtrl()->GetAttributes()),
                 QStringLiteral("new:Real=1.5 count:Integer=2 text:String=7 sub{on:Boolean=true empty{}} "
                                "more{n:Integer=3}"));
        QCOMPARE(applied.problems,
                 QStringList{"ident '3' (step): 'count' does not take the value 'no number'"});
    }

    void Switches()
    {
        Board program;
        program.plan.AddProperties(step, Data({{"LogInReport", "false"}, {"Enabled", "false"}}));
        program.plan.AddProperties(rail, Data({{"LogInReport", "false"}}));
        program.plan.AddProperties("2", Data({{"Enabled", "perhaps"}}));
        const auto applied = program.Apply();
        QCOMPARE(applied.components, 2);
        QVERIFY(!program.step->GetLogInReportCtrl()->GetLogInReport());
        QVERIFY(!program.step->GetEnableCtrl()->IsEnabled());
        QVERIFY(!program.step->GetTestPlanValuesCtrl()->IsEnabled());
        QVERIFY(!program.rail->GetLogInReportCtrl()->GetLogInReport());
        QVERIFY(program.rail->GetTestPlanValuesCtrl()->IsEnabled());
        QVERIFY(program.group->GetEnableCtrl()->IsEnabled());
        QCOMPARE(applied.problems,
                 QStringList{"ident '2' (group): 'Enabled' does not take the value 'perhaps'"});
    }

    void UnknownAndSharedIdents()
    {
        Board program;
        const QString off = "0";
        program.bare->SetIdentString(step);
        program.plan.AddProperties(step, Data({{"Enabled", off}}));
        program.plan.AddProperties("99", Data({{"Enabled", off}}));
        const auto applied = program.Apply();
        QCOMPARE(applied.components, 0);
        QCOMPARE(applied.unknownKeys, QStringList{"99"});
        QCOMPARE(applied.problems, QStringList{"ident '3': 2 components have it, none was changed"});
        QVERIFY(program.step->GetEnableCtrl()->IsEnabled());
    }
};

QTEST_APPLESS_MAIN(TestPlanTest)
#include "TestPlanTest.moc"
