#include "FuzzedModel.h"

#include "support/SampleProgram.h"

#include <ZYNCommon/CtrlEnable.h>
#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/Fixture.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductTypeMultiPanel.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/Station.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/WorkSpace.h>
#include <ZYNCommon/ZYNSession.h>

#include <bit>
#include <limits>

namespace ZYN::Fuzz {

using SampleModels::ProgramWriter;
using SampleModels::RunWriter;

QSharedPointer<UUTTest> FuzzedModel::Test()
{
    const QSharedPointer<UUTTest> test = Item();
    AddHeader(test.get());
    for (int items = Yes() ? 0 : Count(3); items > 0; --items)
        test->AddUUTTest(Item());
    return test;
}

QSharedPointer<UUTTest> FuzzedModel::Item()
{
    const auto test = QSharedPointer<UUTTest>::create(1L, Text());
    if (!Seldom())
        test->SetUnitUnderTest(Unit());
    if (Yes())
        test->SetResult(EN_ZYN_RESULT(Code({-5, -3, -1, 0, 1, 6})));
    test->SetResultDescription(Text());
    test->SetStartTimeString(Time());
    test->SetStopTimeString(Time());
    test->SetDuration(Real());
    for (int runs = Seldom() ? 2 : Count(1); runs > 0; --runs)
        test->AssignResultSet(Run());
    return test;
}

void FuzzedModel::AddHeader(UUTTest* test)
{
    if (Yes()) {
        const auto lot = QSharedPointer<ProductionLot>::create(1L, Text());
        lot->SetOrderCode(Text());
        test->SetProductionLot(lot);
    }
    if (Yes()) {
        const auto fixture = QSharedPointer<Fixture>::create(1L, Text());
        fixture->SetIdent(Text());
        fixture->SetSerialNo(Text());
        test->SetFixture(fixture);
    }
    if (Yes()) {
        const auto workSpace = QSharedPointer<WorkSpace>::create(1L, Text());
        workSpace->CreateNewUser(Text());
        workSpace->Login(0, QString());
        auto* const session = new ZYNSession;
        session->SetMachineName(Text());
        if (!Seldom())
            session->SetWorkSpace(workSpace);
        test->SetSession(session);
    }
}

QSharedPointer<UnitUnderTest> FuzzedModel::Unit()
{
    const auto unit = QSharedPointer<UnitUnderTest>::create(1L, Text());
    unit->SetSerialNo(Text());
    unit->SetIdentString(Text());
    unit->SetPanelIndex(Code({0, 1, 2}));
    if (Yes())
        unit->SetProductType(Product());
    return unit;
}

QSharedPointer<ProductType> FuzzedModel::Product()
{
    const auto product = QSharedPointer<ProductType>::create(long(Code({0, 7})), Text());
    product->SetArticelCode(Text());
    product->SetCustomer(Text());
    product->SetDescription(Text());
    product->SetClusterLevel(Code({0, 1}));
    // A key becomes the name of an attribute as it stands.
    if (Yes())
        product->SetParameter(OneOf({QStringLiteral("Revision"), QStringLiteral("_GoldenDevice1")}), Text());
    if (Yes())
        AddPanelInfo(product.get());
    return product;
}

void FuzzedModel::AddPanelInfo(ProductType* product)
{
    const auto panel = product->GetMultiPanelInfo();
    panel->SetMultiPanel(Yes());
    panel->SetPanelItems(Code({0, 4}));
    panel->SetSplitting(Yes());
    for (int programs = Count(2); programs > 0; --programs)
        product->AddTestProgram(Code({1, 2}));
    panel->SetSplittingString(
        OneOf({QString(), QStringLiteral("1_2"), QStringLiteral("1_2 2_4"), QStringLiteral("none")}));
}

TestResultSet* FuzzedModel::Run()
{
    QSharedPointer<Station> station;
    if (Yes()) {
        station = QSharedPointer<Station>::create(long(Code({0, 3})), Text());
        station->SetDescription(Text());
    }
    ProgramWriter program(Code({0, 100}), Text());
    RunWriter run(program.program, station, Code({0, 1}));
    program.program->SetDisplayName(Text());
    program.program->SetCreator(Text());
    program.program->SetVersion(Text());
    program.program->SetFileName(Text().toUtf8().constData());
    if (!Seldom())
        AddVerdict(run, program.program);
    for (int groups = Count(3); groups > 0; --groups)
        AddGroup(program, run);
    return run.Take();
}

void FuzzedModel::AddGroup(ProgramWriter& program, RunWriter& run)
{
    const auto group = program.Group(Code({0, 10}), Text(), EN_ZYN_GROUP(Code({0, 0, 1, 2})));
    SetSwitches(group.get());
    AddVerdict(run, group);
    for (int parameters = Seldom() ? Count(2) : 0; parameters > 0; --parameters) {
        const EN_ZYN_ADDRESS type = OneOf({ZYN_ADDRESS_INTEGER, ZYN_ADDRESS_REAL, ZYN_ADDRESS_STRING});
        AddValue(run, program.Parameter(Code({0, 1}), Text(), type), type);
    }
    for (int steps = Count(3); steps > 0; --steps)
        AddStep(program, run);
}

void FuzzedModel::AddStep(ProgramWriter& program, RunWriter& run)
{
    const auto step = program.Step(Code({0, 20}), Text(), Text());
    SetSwitches(step.get());
    AddVerdict(run, step);
    for (int measurements = Count(4); measurements > 0; --measurements) {
        const auto type = EN_ZYN_ADDRESS(Code({ZYN_ADDRESS_INTEGER, ZYN_ADDRESS_REAL, ZYN_ADDRESS_STRING}));
        const auto limits = Seldom() ? SampleModels::Limits() : Limits(type);
        const auto measurement = program.Measurement(Code({0, 1, 2}), Text(), type, limits);
        SetSwitches(measurement.get());
        AddValue(run, measurement, type);
    }
}

void FuzzedModel::AddVerdict(RunWriter& run, const QSharedPointer<TestComponent>& component)
{
    if (!Seldom())
        Complete(run.Verdict(component, 0.0));
}

void FuzzedModel::AddValue(RunWriter& run, const QSharedPointer<TestComponent>& component,
                           EN_ZYN_ADDRESS type)
{
    if (!Seldom())
        Complete(run.Value(component, Value(type)));
}

void FuzzedModel::Complete(TestResult* result)
{
    result->SetDuration(Real());
    if (Yes())
        result->SetResult(EN_ZYN_RESULT(Code({-5, -3, -1, 0, 1, 6})));
    if (Seldom())
        result->SetTimeString(Time());
    if (Seldom())
        result->SetComment(Text());
    if (Seldom())
        result->SetAttribute(Text());
}

void FuzzedModel::SetSwitches(TestComponent* component)
{
    if (Seldom())
        component->SetIdentString(Text());
    if (Seldom())
        component->SetLogInReportCtrl(new CtrlLogInReport(false));
    if (Seldom())
        component->SetEnableCtrl(new CtrlEnable(false));
}

SampleModels::Limits FuzzedModel::Limits(EN_ZYN_ADDRESS type)
{
    SampleModels::Limits limits;
    const bool isText = type == ZYN_ADDRESS_STRING;
    // A text has no digits of a base.
    const int unit = isText ? OneOf({0, 1, 999}) : Code({0, 1, 25, 26});
    const auto integer = [this] { return int(Integer()); };
    switch (Count(isText ? 2 : 1)) {
    case 0:
        limits.reset(TestComponentFactory::CreateValidationReal(
            unit, Operator(), Operator(), Real(), Real(), -1, -1, -1, -1, -1, -1, Code({0, -3, 3, 6, 1}),
            Yes() ? Real() : std::numeric_limits<double>::quiet_NaN()));
        break;
    case 1:
        limits.reset(TestComponentFactory::CreateValidationInt(unit, Operator(), Operator(), integer(),
                                                               integer(), -1, -1, -1, -1, -1, -1));
        if (type == ZYN_ADDRESS_INTEGER && Seldom())
            limits->SetProperty(QStringLiteral("Upper"), Integer());
        if (Seldom())
            limits->SetProperty(QStringLiteral("ScaleFactor"), Code({3}));
        break;
    default:
        limits.reset(TestComponentFactory::CreateValidationString(unit, Operator(), Text(), -1, -1, -1, -1));
    }
    limits->SetResultInverted(Seldom());
    return limits;
}

/// Mostly of the measurement's type; texts only where a text belongs, and no integer that a real number does
/// not hold where a real number belongs.
QVariant FuzzedModel::Value(EN_ZYN_ADDRESS type)
{
    if (type == ZYN_ADDRESS_REAL && Seldom())
        return int(Integer());
    if (Seldom())
        type = OneOf({ZYN_ADDRESS_NONE, ZYN_ADDRESS_REAL});
    switch (type) {
    case ZYN_ADDRESS_INTEGER:
        return Seldom() ? QVariant(qulonglong(Integer())) : QVariant(Integer());
    case ZYN_ADDRESS_REAL:
        return Seldom() ? QVariant(float(Real())) : QVariant(Real());
    case ZYN_ADDRESS_STRING:
        return Text();
    default:
        return Yes() ? QVariant(Yes()) : QVariant();
    }
}

QString FuzzedModel::Text()
{
    switch (Count(7)) {
    case 0:
        return {};
    case 1: {
        const std::string units = m_bytes.ConsumeBytesAsString(2 * std::size_t(Count(16)));
        QString text(qsizetype(units.size() / 2), Qt::Uninitialized);
        std::memcpy(text.data(), units.data(), units.size() / 2 * 2);
        return text;
    }
    case 2:
        return OneOf({QStringLiteral(" "), QStringLiteral("a\r\n\tb"),
                      QStringLiteral("<img src=\"/dev/zero\">"), QStringLiteral("]]>"),
                      QStringLiteral("%1 %2"), QStringLiteral("=1+1;"), QString(300, u'x'),
                      QString(QChar(0xd800)), QStringLiteral("&amp;")});
    default:
        return QString::fromStdString(m_bytes.ConsumeRandomLengthString(20));
    }
}

QString FuzzedModel::Time()
{
    switch (Count(3)) {
    case 0:
        return {};
    case 1:
        return Text();
    default:
        return QDateTime::fromSecsSinceEpoch(m_bytes.ConsumeIntegral<qint32>(), Qt::UTC)
            .toString(Qt::ISODate);
    }
}

qlonglong FuzzedModel::Integer()
{
    return Yes() ? m_bytes.ConsumeIntegralInRange(-10, 1000) : m_bytes.ConsumeIntegral<qlonglong>();
}

/// A code that is known or, seldom, any number.
int FuzzedModel::Code(std::initializer_list<int> usual)
{
    return Seldom() ? m_bytes.ConsumeIntegral<int>() : OneOf(usual);
}

double FuzzedModel::Real()
{
    switch (Count(3)) {
    case 0:
        return m_bytes.ConsumeIntegralInRange(-1000, 1000);
    case 1:
        return m_bytes.ConsumeIntegralInRange(-100000, 100000) / 1e4;
    default:
        return std::bit_cast<double>(m_bytes.ConsumeIntegral<quint64>());
    }
}

const char* FuzzedModel::Operator()
{
    return OneOf({"", "<=", "<", ">=", ">", "==", "!="});
}

} // namespace ZYN::Fuzz
