#include "export/CExportBuilderDelegation.h"

#include <QtTest/QtTest>

#include <array>
#include <cstring>

using namespace ZYN;

namespace {

/// What arrived at a builder: the operation with its argument types, and the arguments.
struct Call {
    QByteArray operation;
    std::array<const void*, 2> arguments{};

    bool operator==(const Call&) const = default;
};

/// Writes down every call and gives one answer to all.
class CallBuilder : public IExportBuilder {
public:
    QList<Call> calls;
    bool answer = true;
    QStringList properties;
    QIODevice* device = nullptr;
    bool scaled = false;

    void SetProperty(const QString& key, const QString& value) override { properties = {key, value}; }
    void SetDevice(QIODevice* newDevice) override { device = newDevice; }
    QIODevice* GetDevice() override { return device; }
    bool OpenFile(const QString&) override { return Note("OpenFile"); }
    void SetUseScaledData(bool flag) override { scaled = flag; }
    bool GetUseScaledData() override { return scaled; }
    bool Open() override { return Note("Open"); }
    bool Close() override { return Note("Close"); }
    bool IsOpened() override { return Note("IsOpened"); }

#define ZYN_SLOT_NONE(name)                                                                                  \
    bool name() override                                                                                     \
    {                                                                                                        \
        return Note(#name);                                                                                  \
    }
#define ZYN_SLOT_ONE(name, Model)                                                                            \
    bool name(Model* object) override                                                                        \
    {                                                                                                        \
        return Note(#name " " #Model, object);                                                               \
    }
#define ZYN_SLOT_RESULT(name, Component)                                                                     \
    bool name(Component* component, TestResult* result) override                                             \
    {                                                                                                        \
        return Note(#name " " #Component " TestResult", component, result);                                  \
    }
    ZYN_EXPORT_BUILDER_SLOTS(ZYN_SLOT_NONE, ZYN_SLOT_ONE, ZYN_SLOT_RESULT)
#undef ZYN_SLOT_NONE
#undef ZYN_SLOT_ONE
#undef ZYN_SLOT_RESULT

private:
    bool Note(const char* operation, const void* first = nullptr, const void* second = nullptr)
    {
        calls += Call{operation, {first, second}};
        return answer;
    }
};

class Delegation : public CExportBuilderDelegation {
public:
    using CExportBuilderDelegation::CExportBuilderDelegation;
    bool OpenFile(const QString&) override { return true; }
};

/// A different address each time that nothing may look behind.
template <class Model>
Model* NextAddress()
{
    static quintptr last = 0x1000;
    return reinterpret_cast<Model*>(last += 0x100);
}

struct Answers {
    QList<Call> expected;
    QList<bool> given;
};

/// Calls every Begin/End operation, each with arguments of its own.
Answers CallAll(IExportBuilder& builder)
{
    Answers answers;
#define ZYN_SLOT_NONE(name)                                                                                  \
    answers.expected += Call{#name, {}};                                                                     \
    answers.given += builder.name();
#define ZYN_SLOT_ONE(name, Model)                                                                            \
    {                                                                                                        \
        Model* const object = NextAddress<Model>();                                                          \
        answers.expected += Call{#name " " #Model, {object}};                                                \
        answers.given += builder.name(object);                                                               \
    }
#define ZYN_SLOT_RESULT(name, Component)                                                                     \
    {                                                                                                        \
        Component* const component = NextAddress<Component>();                                               \
        TestResult* const result = NextAddress<TestResult>();                                                \
        answers.expected += Call{#name " " #Component " TestResult", {component, result}};                   \
        answers.given += builder.name(component, result);                                                    \
    }
    ZYN_EXPORT_BUILDER_SLOTS(ZYN_SLOT_NONE, ZYN_SLOT_ONE, ZYN_SLOT_RESULT)
#undef ZYN_SLOT_NONE
#undef ZYN_SLOT_ONE
#undef ZYN_SLOT_RESULT
    return answers;
}

/// Index of an operation in the table of virtual functions. The C++ ABI of the platforms in use stores
/// it in the member pointer ("Itanium C++ ABI", 2.3): the offset in the table plus 1.
template <class Signature>
int SlotOf(Signature IExportBuilder::*operation)
{
    std::uintptr_t offset = 0;
    std::memcpy(&offset, &operation, sizeof(offset));
    return static_cast<int>((offset - 1) / sizeof(void*));
}

} // namespace

class BuilderSlotsTest : public QObject {
    Q_OBJECT

private slots:
    void OrderIsFixed();
    void DelegationForwardsEverySlot();
    void DelegationForwardsSettings();
};

void BuilderSlotsTest::OrderIsFixed()
{
#if !defined(__x86_64__)
    QSKIP("member pointers are laid out differently here");
#endif
    // Builders and their callers may come from libraries of different age: operations keep their place.
    using I = IExportBuilder;
    const std::array slotsInOrder{
        SlotOf<void(const QString&, const QString&)>(&I::SetProperty),
        SlotOf<void(QIODevice*)>(&I::SetDevice),
        SlotOf<QIODevice*()>(&I::GetDevice),
        SlotOf<bool(const QString&)>(&I::OpenFile),
        SlotOf<void(bool)>(&I::SetUseScaledData),
        SlotOf<bool()>(&I::GetUseScaledData),
        SlotOf<bool()>(&I::Open),
        SlotOf<bool()>(&I::Close),
        SlotOf<bool()>(&I::IsOpened),
        SlotOf<bool(TestProgram*)>(&I::BeginTestProgram),
        SlotOf<bool(TestProgram*, TestResult*)>(&I::BeginTestProgram),
        SlotOf<bool(TestProgram*)>(&I::EndTestProgram),
        SlotOf<bool(TestGroup*)>(&I::BeginTestGroup),
        SlotOf<bool(TestGroup*, TestResult*)>(&I::BeginTestGroup),
        SlotOf<bool(TestGroup*)>(&I::EndTestGroup),
        SlotOf<bool(TestStep*)>(&I::BeginTestStep),
        SlotOf<bool(TestStep*, TestResult*)>(&I::BeginTestStep),
        SlotOf<bool(TestStep*)>(&I::EndTestStep),
        SlotOf<bool(TestParameter*)>(&I::BeginTestParameter),
        SlotOf<bool(TestParameter*, TestResult*)>(&I::BeginTestParameter),
        SlotOf<bool(TestParameter*)>(&I::EndTestParameter),
        SlotOf<bool(TestMeasurement*)>(&I::BeginTestMeasurement),
        SlotOf<bool(TestMeasurement*, TestResult*)>(&I::BeginTestMeasurement),
        SlotOf<bool(TestMeasurement*)>(&I::EndTestMeasurement),
        SlotOf<bool(UnitUnderTest*)>(&I::BeginUnitUnderTest),
        SlotOf<bool(UnitUnderTest*)>(&I::EndUnitUnderTest),
        SlotOf<bool(ProductionLot*)>(&I::BeginProductionLot),
        SlotOf<bool(ProductionLot*)>(&I::EndProductionLot),
        SlotOf<bool(ProductType*)>(&I::BeginProductType),
        SlotOf<bool(ProductType*)>(&I::EndProductType),
        SlotOf<bool(Fixture*)>(&I::BeginFixture),
        SlotOf<bool(Fixture*)>(&I::EndFixture),
        SlotOf<bool(UUTTest*)>(&I::BeginUUTTest),
        SlotOf<bool(UUTTest*)>(&I::EndUUTTest),
        SlotOf<bool(ZYNSession*)>(&I::BeginSession),
        SlotOf<bool(ZYNSession*)>(&I::EndSession),
        SlotOf<bool(TestResultSet*)>(&I::BeginTestResultSet),
        SlotOf<bool(TestResultSet*)>(&I::EndTestResultSet),
        SlotOf<bool(StatisticsData*)>(&I::BeginStatisticsData),
        SlotOf<bool(StatisticsData*)>(&I::EndStatisticsData),
        SlotOf<bool()>(&I::BeginTestResults),
        SlotOf<bool()>(&I::EndTestResults),
        SlotOf<bool()>(&I::BeginSubUnitTests),
        SlotOf<bool()>(&I::EndSubUnitTests),
        SlotOf<bool()>(&I::BeginSubUnitTest),
        SlotOf<bool()>(&I::EndSubUnitTest),
    };
    QCOMPARE(slotsInOrder.size(), 46);
    // The destructor comes first and has two entries: destroy, and destroy with delete.
    for (int index = 0; index < 46; ++index)
        QCOMPARE(slotsInOrder.at(static_cast<std::size_t>(index)), index + 2);
}

void BuilderSlotsTest::DelegationForwardsEverySlot()
{
    for (const bool answer : {true, false}) {
        auto* const target = new CallBuilder;
        target->answer = answer;
        Delegation delegation(target);

        const Answers answers = CallAll(delegation);
        QCOMPARE(answers.expected.size(), 37);
        QVERIFY(target->calls == answers.expected);
        QCOMPARE(answers.given, QList<bool>(37, answer));

        target->calls.clear();
        QCOMPARE(delegation.Open(), answer);
        QCOMPARE(delegation.Close(), answer);
        QCOMPARE(delegation.IsOpened(), answer);
        QVERIFY((target->calls == QList<Call>{{"Open", {}}, {"Close", {}}, {"IsOpened", {}}}));
    }
}

void BuilderSlotsTest::DelegationForwardsSettings()
{
    auto* const target = new CallBuilder;
    Delegation delegation(target);

    delegation.SetProperty(QStringLiteral("key"), QStringLiteral("value"));
    QCOMPARE(target->properties, QStringList({QStringLiteral("key"), QStringLiteral("value")}));

    QIODevice* const device = NextAddress<QIODevice>();
    delegation.SetDevice(device);
    QCOMPARE(target->device, device);
    QCOMPARE(delegation.GetDevice(), device);

    for (const bool flag : {true, false}) {
        delegation.SetUseScaledData(flag);
        QCOMPARE(target->scaled, flag);
        QCOMPARE(delegation.GetUseScaledData(), flag);
    }
}

QTEST_GUILESS_MAIN(BuilderSlotsTest)
#include "BuilderSlotsTest.moc"
