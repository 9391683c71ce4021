/// Every class, operation, constructor and enumeration of the model that others rely on, each once and with
/// its signature. What does not hold does not compile; a site with a model library of its own builds this
/// file against it first.

#include <ZYNCommon/CtrlAttributes.h>
#include <ZYNCommon/CtrlEnable.h>
#include <ZYNCommon/CtrlLogInReport.h>
#include <ZYNCommon/CtrlTestPlanValues.h>
#include <ZYNCommon/CtrlValidation.h>
#include <ZYNCommon/Fixture.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductTypeMultiPanel.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/Station.h>
#include <ZYNCommon/StatisticsData.h>
#include <ZYNCommon/StatisticsDataDecoration.h>
#include <ZYNCommon/StatisticsDataReport.h>
#include <ZYNCommon/TestComponentAttr.h>
#include <ZYNCommon/TestComponentFactory.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestParameter.h>
#include <ZYNCommon/TestPlan.h>
#include <ZYNCommon/TestPlanCategory.h>
#include <ZYNCommon/TestPlanData.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResult.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ValidationInterface.h>
#include <ZYNCommon/ValueComperator.h>
#include <ZYNCommon/WorkSpace.h>
#include <ZYNCommon/ZYNApplication.h>
#include <ZYNCommon/ZYNSession.h>
#include <ZYNCommon/ZYNTools.h>
#include <ZYNCommon/ZYNUser.h>
#include <ZYNIni/IniReader.h>

#include <QtTest/QTest>

#include <type_traits>

using namespace ZYN;

namespace {

template <typename Class, typename Signature>
using Member = Signature Class::*;

// A signature reads as the declaration does: QString(int) const. An operation may be inherited.
#define OPERATION(Class, Signature, Name)                                                                    \
    static_assert(std::is_convertible_v<decltype(&Class::Name), Member<Class, Signature>>)
// The same for several names that share one signature.
#define OPERATIONS(Class, Signature, ...) REPEAT(EACH_OPERATION(Class, Signature, __VA_ARGS__))
#define EACH_OPERATION(Class, Signature, Name, ...)                                                          \
    OPERATION(Class, Signature, Name) __VA_OPT__(; NEXT_OPERATION PARENTHESES(Class, Signature, __VA_ARGS__))
#define NEXT_OPERATION() EACH_OPERATION
#define PARENTHESES ()
#define REPEAT(...) REPEAT4(REPEAT4(REPEAT4(__VA_ARGS__)))
#define REPEAT4(...) REPEAT1(REPEAT1(REPEAT1(REPEAT1(__VA_ARGS__))))
#define REPEAT1(...) __VA_ARGS__
// What is told as one type and taken as another, or as the same.
#define PROPERTY(Class, Property, Told, Taken)                                                               \
    OPERATION(Class, Told() const, Get##Property);                                                           \
    OPERATION(Class, void(Taken), Set##Property)
#define FUNCTION(Class, Name, ...) static_assert(std::is_same_v<decltype(Class::Name), __VA_ARGS__>)
#define CONSTRUCTOR(...) static_assert(std::is_constructible_v<__VA_ARGS__>)

using Name = const QString&;
using Display = const ValueDisplay*;
template <typename T>
using Shared = QSharedPointer<T>;
/// Taken like the pointer itself, without counting.
template <typename T>
using Lent = const QSharedPointer<T>&;

// Enumerations

template <typename... Enumerations>
constexpr bool AreInt = (std::is_same_v<std::underlying_type_t<Enumerations>, int> && ...);
static_assert(
    AreInt<EN_ZYN_RESULT, EN_ZYN_GROUP, EN_ZYN_ADDRESS, LimitOperator::Code, ValueDisplay::ScaleFactor,
           TestComponentAttr::TestComponentAttrType, ZYNAppType::Type, WorkSpace::LOGIN_ERROR>);

// Component base. Compiles only where the base declares these virtual.

class ManagedObjectVirtuals : public ManagedObject {
    QString GetName() const override = 0;
    QString GetParameter(Name) const override = 0;
    QMap<QString, QString> GetParameters() const override = 0;
    bool HasParameter(Name) const override = 0;
    void SetParameter(Name, Name) override = 0;
    void SetParameters(const QMap<QString, QString>&) override = 0;
    bool CanSaveProperty(Name) const override = 0;
    bool IsValid() const override = 0;
};

static_assert(std::is_base_of_v<ManagedObject, TestComponent>);
OPERATIONS(TestComponent, QString() const, GetName, GetIdentString, GetTypeString);
OPERATIONS(TestComponent, CtrlLogInReport*() const, GetLogInReportCtrl);
OPERATIONS(TestComponent, CtrlEnable*() const, GetEnableCtrl);
OPERATIONS(TestComponent, CtrlValidation*() const, GetValidationCtrl);
OPERATIONS(TestComponent, CtrlAttributes*() const, GetAttributesCtrl);
OPERATIONS(TestComponent, CtrlTestPlanValues*() const, GetTestPlanValuesCtrl);
OPERATIONS(TestComponent, bool() const, IsTestplanDisabled);
OPERATIONS(TestComponent, void(TestResult*), SetResult);
OPERATIONS(TestComponent, long, id);
OPERATIONS(TestComponent, EN_ZYN_ADDRESS, type);
OPERATIONS(TestMeasurement, EN_ZYN_RESULT, resultState);

template <typename Component>
class ComponentVirtuals : public Component {
    CtrlValidation* GetValidationCtrl() const override = 0;
    QList<TestComponent*> GetChildren() const override = 0;
    TestProgram* GetTestProgram() const override = 0;
};
template class ComponentVirtuals<TestProgram>;
template class ComponentVirtuals<TestGroup>;
template class ComponentVirtuals<TestStep>;
template class ComponentVirtuals<TestMeasurement>;

// Components

static_assert(std::is_base_of_v<TestComponent, TestProgram>);
CONSTRUCTOR(TestProgram, long, Name, unsigned long);
OPERATIONS(TestProgram, int() const, GetGroupCount);
OPERATIONS(TestProgram, Lent<TestGroup>(int) const, GetGroupForIndex);
OPERATIONS(TestProgram, int(Shared<TestGroup>), AddGroup);
OPERATIONS(TestProgram, QString() const, GetDisplayName, GetCreator, GetVersion, GetFileVersion);
OPERATIONS(TestProgram, const QFileInfo&() const, GetFileInfo);
OPERATIONS(TestProgram, void(Name), SetDisplayName, SetCreator, SetVersion);
OPERATIONS(TestProgram, void(const char*), SetFileName);

static_assert(std::is_base_of_v<TestComponent, TestGroup>);
CONSTRUCTOR(TestGroup, long, Name, TestProgram*, unsigned int, long, EN_ZYN_GROUP, void*);
OPERATIONS(TestGroup, int() const, GetParameterCount, GetStepCount);
OPERATIONS(TestGroup, Lent<TestParameter>(int) const, GetParameterForIndex);
OPERATIONS(TestGroup, Lent<TestStep>(int) const, GetStepForIndex);
OPERATIONS(TestGroup, int(Shared<TestStep>), AddStep);
OPERATIONS(TestGroup, bool() const, IsUserGroup);

static_assert(std::is_base_of_v<TestComponent, TestStep>);
CONSTRUCTOR(TestStep, long, Name, TestGroup*, unsigned int, long, Name);
OPERATIONS(TestStep, int() const, GetMeasurementCount);
OPERATIONS(TestStep, Lent<TestMeasurement>(int) const, GetMeasurementForIndex);
OPERATIONS(TestStep, Shared<TestMeasurement>(long) const, GetMeasurementForID);
OPERATIONS(TestStep, int(Shared<TestMeasurement>), AddMeasurement);

static_assert(std::is_base_of_v<TestComponent, TestParameter>);
static_assert(std::is_base_of_v<TestComponent, TestMeasurement>);
CONSTRUCTOR(TestMeasurement, long, Name, EN_ZYN_ADDRESS, TestStep*, unsigned int, long);

// Results

CONSTRUCTOR(TestResult, Shared<TestComponent>);
PROPERTY(TestResult, Result, EN_ZYN_RESULT, EN_ZYN_RESULT);
OPERATIONS(TestResult, QString() const, GetResultString, GetValueTypeString, GetBaseUnitString, GetComment,
           GetAttribute, GetTimeString, GetDurationString, GetDurationStringFormated);
PROPERTY(TestResult, Value, const QVariant&, const QVariant&);
OPERATIONS(TestResult, QString(Display) const, GetValueString, GetLowerLimitString, GetUpperLimitString);
OPERATIONS(TestResult, QString(Display, bool) const, GetUnitString);
PROPERTY(TestResult, Duration, double, double);
PROPERTY(TestResult, Validation, Lent<ValidationInterface>, Shared<ValidationInterface>);
OPERATIONS(TestResult, void(Name), SetComment, SetAttribute);

CONSTRUCTOR(TestResultSet, Shared<TestProgram>, Shared<Station>);
OPERATIONS(TestResultSet, Shared<TestProgram>() const, GetTestProgram);
OPERATIONS(TestResultSet, TestResult*(const TestComponent*) const, GetResult);
OPERATIONS(TestResultSet, void(TestResult*), AddResult);
OPERATIONS(TestResultSet, long() const, GetTestIndex, GetStationID);
OPERATIONS(TestResultSet, void(long), SetTestIndex);
OPERATIONS(TestResultSet, QString() const, GetStationDescription);
OPERATIONS(TestResultSet, int() const, GetFaildStepCount);
OPERATIONS(TestResultSet, QList<QString>() const, GetFailedTestGroups);

// Unit side

static_assert(std::is_base_of_v<ManagedObject, UUTTest>);
CONSTRUCTOR(UUTTest, long, Name);
PROPERTY(UUTTest, UnitUnderTest, Shared<UnitUnderTest>, Shared<UnitUnderTest>);
OPERATIONS(UUTTest, Shared<ProductType>() const, GetProductType);
PROPERTY(UUTTest, ProductionLot, Shared<ProductionLot>, Shared<ProductionLot>);
OPERATIONS(UUTTest, Shared<Fixture>() const, GetFixture);
PROPERTY(UUTTest, Session, ZYNSession*, ZYNSession*);
OPERATIONS(UUTTest, QList<TestResultSet*>() const, GetResultSets);
OPERATIONS(UUTTest, QList<Shared<UUTTest>>() const, GetUUTTests);
PROPERTY(UUTTest, Result, EN_ZYN_RESULT, EN_ZYN_RESULT);
OPERATIONS(UUTTest, QString() const, GetResultString, GetResultDescription, GetStartTimeString,
           GetStopTimeString, GetDurationString, GetDurationStringFormated);
OPERATIONS(UUTTest, QDateTime() const, GetStartTime, GetStopTime);
OPERATIONS(UUTTest, long long() const, GetDuration_ms);
OPERATIONS(UUTTest, bool() const, IsValid);
OPERATIONS(UUTTest, void(Name), SetResultDescription, SetStartTimeString, SetStopTimeString);
OPERATIONS(UUTTest, void(double), SetDuration);
OPERATIONS(UUTTest, void(TestResultSet*), AssignResultSet);
OPERATIONS(UUTTest, void(Shared<UUTTest>), AddUUTTest);

CONSTRUCTOR(UnitUnderTest, long, Name);
OPERATIONS(UnitUnderTest, QString() const, GetSerialNo, GetIdentString);
PROPERTY(UnitUnderTest, PanelIndex, long, long);
PROPERTY(UnitUnderTest, ProductType, Shared<ProductType>, Shared<ProductType>);
OPERATIONS(UnitUnderTest, bool() const, IsValid);
OPERATIONS(UnitUnderTest, void(Name), SetSerialNo, SetIdentString);

CONSTRUCTOR(ProductType, long, Name);
OPERATIONS(ProductType, QString() const, GetArticelCode, GetCustomer, GetDescription);
PROPERTY(ProductType, ClusterLevel, long, long);
OPERATIONS(ProductType, Shared<ProductTypeMultiPanel>() const, GetMultiPanelInfo);
OPERATIONS(ProductType, bool() const, IsValid);
OPERATIONS(ProductType, void(Name), SetArticelCode, SetCustomer, SetDescription);
OPERATIONS(ProductType, void(int), AddTestProgram);

OPERATIONS(ProductTypeMultiPanel, bool() const, IsMultiPanel, HasSplitting);
PROPERTY(ProductTypeMultiPanel, PanelItems, long, long);
PROPERTY(ProductTypeMultiPanel, SplittingString, QString, Name);
OPERATIONS(ProductTypeMultiPanel, void(bool), SetMultiPanel, SetSplitting);

CONSTRUCTOR(ProductionLot, long, Name);
PROPERTY(ProductionLot, OrderCode, QString, Name);
OPERATIONS(ProductionLot, bool() const, IsValid);

OPERATIONS(FixtureBase, QString() const, GetIdent, GetDescription);
static_assert(std::is_base_of_v<FixtureBase, Fixture>);
OPERATIONS(Fixture, QString() const, GetSerialNo, GetFixtureTypeName);

CONSTRUCTOR(Station, long, Name);
OPERATIONS(Station, void(Name), SetDescription);

CONSTRUCTOR(ZYNSession);
OPERATIONS(ZYNSession, QString() const, GetMachineName, GetWorkspaceName, GetCurrentUserName);
OPERATIONS(ZYNSession, void(Name), SetMachineName);
OPERATIONS(ZYNSession, void(Shared<WorkSpace>), SetWorkSpace);

CONSTRUCTOR(WorkSpace, long, Name);
class WorkSpaceVirtuals : public WorkSpace {
    Shared<ZYNUser> GetCurrentUser() const override = 0;
    QString GetCurrentUserName() const override = 0;
    QList<Shared<ZYNUser>> GetUserList() const override = 0;
    void SetUserList(const QList<Shared<ZYNUser>>&) override = 0;
    QMap<int, QString> GetUserNames() const override = 0;
    Shared<ZYNUser> CreateNewUser(Name) override = 0;
    QStringList GetPluginList() const override = 0;
    void SetPluginList(const QStringList&) override = 0;
    QString GetPlugin(int) const override = 0;
    int CreateNewPlugin(Name) override = 0;
    QStringList GetAppUsageList() const override = 0;
    void SetAppUsageList(const QStringList&) override = 0;
    bool IsAppUsageAllowed(Name) const override = 0;
    LOGIN_ERROR Login(int, Name) override = 0;
    bool Reset() override = 0;
};

CONSTRUCTOR(ZYNUser, Name);
OPERATIONS(ZYNUser, void(Name), SetPassword);

// Statistics

OPERATIONS(StatisticsDataReport, ZYNSession*() const, GetSession);
OPERATIONS(StatisticsDataReport, Shared<ProductType>() const, GetProductType);
OPERATIONS(StatisticsDataReport, Shared<UnitUnderTest>() const, GetUnitUnderTest);
OPERATIONS(StatisticsDataReport, Shared<TestProgram>() const, GetTestProgram);
OPERATIONS(StatisticsDataReport, QList<StatisticsData*>() const, GetTestData);

OPERATIONS(StatisticsData, TestComponent*() const, GetComponent);
OPERATIONS(StatisticsData, TestResult*(int) const, GetResult);
OPERATIONS(StatisticsData, int() const, Size, GetNrPass, GetNrFail);
OPERATIONS(StatisticsData, bool() const, HasStatisticDetails);

CONSTRUCTOR(StatisticsDataDecoration, const StatisticsData*);
class StatisticsDataDecorationVirtuals : public StatisticsDataDecoration {
    QString GetMin() const override = 0;
    QString GetMax() const override = 0;
    QString GetAverage() const override = 0;
    QString GetSigma() const override = 0;
    QString GetCPK() const override = 0;
    QString GetLowerLimit() const override = 0;
    QString GetUpperLimit() const override = 0;
    QString GetUnitString() const override = 0;
    void SetUseScaledData(bool) override = 0;
};

// Values and validations

OPERATIONS(ValueDisplay, QString(const QVariant&) const, ToString);
FUNCTION(ValueDisplay, StaticToString, QString(const QVariant&));
OPERATIONS(ValueDisplay, ValueDisplay::ScaleFactor() const, GetScaleFactor);
OPERATIONS(ValueDisplay, QString() const, GetScaleString);
FUNCTION(ValueDisplay, ScaleFactorToString, QString(ValueDisplay::ScaleFactor));
CONSTRUCTOR(LimitOperator);
static_assert(std::is_copy_assignable_v<LimitOperator>);
OPERATIONS(LimitOperator, QString() const, ToString);
OPERATIONS(MeasurementUnit, QString() const, ToString);
FUNCTION(ValueComperator, Verify, bool(double, double, LimitOperator::Code));

OPERATIONS(ValidationInterface, ValueDisplay*() const, GetValueDisplay);
OPERATIONS(ValidationInterface, bool() const, HasLowerLimit, HasUpperLimit, HasNominal, IsResultInverted);
OPERATIONS(ValidationInterface, QVariant() const, GetLowerLimit, GetUpperLimit);
OPERATIONS(ValidationInterface, QString() const, GetLowerLimitText, GetUpperLimitText, GetNominalText);
OPERATIONS(ValidationInterface, LimitOperator() const, GetLowerOperator, GetUpperOperator);
OPERATIONS(ValidationInterface, MeasurementUnit() const, GetMeasurementUnit);
OPERATIONS(ValidationInterface, QList<QString>() const, GetPropertyNames);
OPERATIONS(ValidationInterface, QVariant(Name) const, GetProperty);

FUNCTION(TestComponentFactory, CreateValidationInt,
         ValidationInterface*(int, const char*, const char*, int, int, long, long, long, long, long, long));
FUNCTION(TestComponentFactory, CreateValidationReal,
         ValidationInterface*(int, const char*, const char*, double, double, long, long, long, long, long,
                              long, QVariant, double));
FUNCTION(TestComponentFactory, CreateValidationString,
         ValidationInterface*(int, const char*, Name, long, long, long, long));

// Control objects

OPERATIONS(CtrlLogInReport, bool() const, GetLogInReport);
OPERATIONS(CtrlLogInReport, void(), LogInReportOn, LogInReportOff);
OPERATIONS(CtrlEnable, bool() const, IsEnabled);
OPERATIONS(CtrlEnable, void(), EnableOn, EnableOff);
OPERATIONS(CtrlValidation, Shared<ValidationInterface>() const, GetValidation);
OPERATIONS(CtrlAttributes, QList<TestComponentAttr*>() const, GetAttributes);
OPERATIONS(CtrlTestPlanValues, bool() const, GetLogInReport, IsEnabled);
FUNCTION(TestComponentAttr, TypeToString, QString(TestComponentAttr::TestComponentAttrType));

// Test plans

CONSTRUCTOR(TestPlan, QFileInfo);
OPERATIONS(TestPlan, void(Name, TestPlanData*), AddProperties, AddValidation, AddAttributes);
CONSTRUCTOR(TestPlanData);
OPERATIONS(TestPlanData, void(Name, const QVariant&), SetProperty);
OPERATIONS(TestPlanData, void(TestPlanCategory*), AddCategory);
CONSTRUCTOR(TestPlanCategory, Name);
OPERATIONS(TestPlanCategory, void(TestPlanData*), SetAttributes);

// Tools

FUNCTION(ZYNTools, GetMediaDir, QDir());
FUNCTION(ZYNTools, AddressToDataTypeString, QString(EN_ZYN_ADDRESS));
FUNCTION(ZYNApplication, GetVersion, QString(ZYNAppType::Type));

CONSTRUCTOR(IniReader, QIODevice*);
OPERATIONS(IniReader, bool(), read);
OPERATIONS(IniReader, QList<IniSection>() const, getAllSections);
OPERATIONS(IniReader, QString(Name, Name) const, getPropertyValue);

} // namespace

class ContractTest : public QObject {
    Q_OBJECT
private slots:
    void classesAreKnownToObjectCasts()
    {
        // A class without its own meta object answers with its base's name and casts to anything of the base.
#define KNOWN(Class) QCOMPARE(Class::staticMetaObject.className(), "ZYN::" #Class)
        KNOWN(ZYNSession);
        KNOWN(ZYNUser);
        KNOWN(ProductType);
        KNOWN(ProductionLot);
        KNOWN(Station);
        KNOWN(TestGroup);
        KNOWN(TestMeasurement);
        KNOWN(TestProgram);
        KNOWN(TestResultSet);
        KNOWN(TestStep);
        KNOWN(UUTTest);
        KNOWN(UnitUnderTest);
        KNOWN(WorkSpace);
    }
};

QTEST_APPLESS_MAIN(ContractTest)
#include "ContractTest.moc"
