#pragma once

#include <ZYNCommon/ZYNTypes.h>

#include <QtCore/QSharedPointer>
#include <QtCore/QString>
#include <QtCore/QVariant>

#include <fuzzer/FuzzedDataProvider.h>

#include <initializer_list>

namespace ZYN {
class ManagedObject;
class ProductType;
class TestResult;
class TestComponent;
class TestResultSet;
class UnitUnderTest;
class UUTTest;
class ValidationInterface;
namespace SampleModels {
class ProgramWriter;
class RunWriter;
} // namespace SampleModels
} // namespace ZYN

namespace ZYN::Fuzz {

/// Makes the test of a unit from the fuzzer's bytes: any names, values, limits and units, with or without
/// every part that may be missing. When the bytes are used up, what comes last is small and empty.
class FuzzedModel {
public:
    explicit FuzzedModel(FuzzedDataProvider& bytes)
        : m_bytes(bytes)
    {
    }

    QSharedPointer<UUTTest> Test();

private:
    QSharedPointer<UUTTest> Item();
    void AddHeader(UUTTest* test);
    QSharedPointer<UnitUnderTest> Unit();
    QSharedPointer<ProductType> Product();
    void AddPanelInfo(ProductType* product);

    TestResultSet* Run();
    void AddGroup(SampleModels::ProgramWriter& program, SampleModels::RunWriter& run);
    void AddStep(SampleModels::ProgramWriter& program, SampleModels::RunWriter& run);
    void AddValue(SampleModels::RunWriter& run, const QSharedPointer<TestComponent>& component,
                  EN_ZYN_ADDRESS type);
    void AddVerdict(SampleModels::RunWriter& run, const QSharedPointer<TestComponent>& component);
    void Complete(TestResult* result);
    void SetSwitches(TestComponent* component);
    /// Limits that a component of this type may have.
    QSharedPointer<ValidationInterface> Limits(EN_ZYN_ADDRESS type);
    QVariant Value(EN_ZYN_ADDRESS type);

    bool Yes() { return m_bytes.ConsumeBool(); }
    /// Rarely true, and false when the bytes are used up.
    bool Seldom() { return m_bytes.ConsumeIntegral<quint8>() > 0xe0; }
    int Count(int most) { return m_bytes.ConsumeIntegralInRange(0, most); }
    template <class Kind>
    Kind OneOf(std::initializer_list<Kind> kinds)
    {
        return kinds.begin()[m_bytes.ConsumeIntegralInRange<std::size_t>(0, kinds.size() - 1)];
    }
    QString Text();
    QString Time();
    qlonglong Integer();
    int Code(std::initializer_list<int> usual);
    double Real();
    const char* Operator();

    FuzzedDataProvider& m_bytes;
};

} // namespace ZYN::Fuzz
