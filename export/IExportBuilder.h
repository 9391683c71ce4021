#pragma once

#include <QtCore/QString>

class QIODevice;

namespace ZYN {

class Fixture;
class ProductionLot;
class ProductType;
class StatisticsData;
class TestGroup;
class TestMeasurement;
class TestParameter;
class TestProgram;
class TestResult;
class TestResultSet;
class TestStep;
class UnitUnderTest;
class UUTTest;
class ZYNSession;

// The Begin/End operations in slot order, written once. Each row is expanded three times: pure in the
// interface, "answer true, write nothing" in the base builder, "pass it on" in the delegation.
//   NONE(name)               no argument
//   ONE(name, Model)         a model object
//   RESULT(name, Component)  a component and its result
#define ZYN_EXPORT_BUILDER_SLOTS(NONE, ONE, RESULT)                                                          \
    ONE(BeginTestProgram, TestProgram)                                                                       \
    RESULT(BeginTestProgram, TestProgram)                                                                    \
    ONE(EndTestProgram, TestProgram)                                                                         \
    ONE(BeginTestGroup, TestGroup)                                                                           \
    RESULT(BeginTestGroup, TestGroup)                                                                        \
    ONE(EndTestGroup, TestGroup)                                                                             \
    ONE(BeginTestStep, TestStep)                                                                             \
    RESULT(BeginTestStep, TestStep)                                                                          \
    ONE(EndTestStep, TestStep)                                                                               \
    ONE(BeginTestParameter, TestParameter)                                                                   \
    RESULT(BeginTestParameter, TestParameter)                                                                \
    ONE(EndTestParameter, TestParameter)                                                                     \
    ONE(BeginTestMeasurement, TestMeasurement)                                                               \
    RESULT(BeginTestMeasurement, TestMeasurement)                                                            \
    ONE(EndTestMeasurement, TestMeasurement)                                                                 \
    ONE(BeginUnitUnderTest, UnitUnderTest)                                                                   \
    ONE(EndUnitUnderTest, UnitUnderTest)                                                                     \
    ONE(BeginProductionLot, ProductionLot)                                                                   \
    ONE(EndProductionLot, ProductionLot)                                                                     \
    ONE(BeginProductType, ProductType)                                                                       \
    ONE(EndProductType, ProductType)                                                                         \
    ONE(BeginFixture, Fixture)                                                                               \
    ONE(EndFixture, Fixture)                                                                                 \
    ONE(BeginUUTTest, UUTTest)                                                                               \
    ONE(EndUUTTest, UUTTest)                                                                                 \
    ONE(BeginSession, ZYNSession)                                                                            \
    ONE(EndSession, ZYNSession)                                                                              \
    ONE(BeginTestResultSet, TestResultSet)                                                                   \
    ONE(EndTestResultSet, TestResultSet)                                                                     \
    ONE(BeginStatisticsData, StatisticsData)                                                                 \
    ONE(EndStatisticsData, StatisticsData)                                                                   \
    NONE(BeginTestResults)                                                                                   \
    NONE(EndTestResults)                                                                                     \
    NONE(BeginSubUnitTests)                                                                                  \
    NONE(EndSubUnitTests)                                                                                    \
    NONE(BeginSubUnitTest)                                                                                   \
    NONE(EndSubUnitTest)

/// What a director talks to: turns the walk over a model into one format on one device.
///
/// Model pointers are borrowed for the call and may be null. A Begin operation that returns false has
/// written nothing; the director then leaves out the element's children and its End. The order of the
/// operations is fixed.
class IExportBuilder {
public:
    virtual ~IExportBuilder() = default;

    /// Settings by name ("ReportLogo", "XMLStyle"); the first value set for a key wins.
    virtual void SetProperty(const QString& key, const QString& value) = 0;
    /// The device is not owned. Another device that was set before is closed.
    virtual void SetDevice(QIODevice* device) = 0;
    virtual QIODevice* GetDevice() = 0;
    /// Creates the output file and makes it the device.
    virtual bool OpenFile(const QString& fileName) = 0;
    virtual void SetUseScaledData(bool flag) = 0;
    virtual bool GetUseScaledData() = 0;
    /// Starts the document.
    virtual bool Open() = 0;
    /// Ends the document.
    virtual bool Close() = 0;
    virtual bool IsOpened() = 0;

#define ZYN_SLOT_NONE(name) virtual bool name() = 0;
#define ZYN_SLOT_ONE(name, Model) virtual bool name(Model* object) = 0;
#define ZYN_SLOT_RESULT(name, Component) virtual bool name(Component* component, TestResult* result) = 0;
    ZYN_EXPORT_BUILDER_SLOTS(ZYN_SLOT_NONE, ZYN_SLOT_ONE, ZYN_SLOT_RESULT)
#undef ZYN_SLOT_NONE
#undef ZYN_SLOT_ONE
#undef ZYN_SLOT_RESULT
};

} // namespace ZYN
