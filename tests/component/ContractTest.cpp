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
#define OPERATION(Class, Name, ...)                                                                          \
    static_assert(std::is_convertible_v<decltype(&Class::Name), Member<Class, __VA_ARGS__>>)
#define FUNCTION(Class, Name, ...) static_assert(std::is_same_v<decltype(Class::Name), __VA_ARGS__>)
#define CONSTRUCTOR(...) static_assert(std::is_constructible_v<__VA_ARGS__>)
#define ENUMERATION(Type) static_assert(std::is_same_v<std::underlying_type_t<Type>, int>)

using Name = const QString&;
using Display = const ValueDisplay*;
template <typename T>
using Shared = QSharedPointer<T>;

// Enumerations

ENUMERATION(EN_ZYN_RESULT);
ENUMERATION(EN_ZYN_GROUP);
ENUMERATION(EN_ZYN_ADDRESS);
ENUMERATION(LimitOperator::Code);
ENUMERATION(ValueDisplay::ScaleFactor);
ENUMERATION(TestComponentAttr::TestComponentAttrType);
ENUMERATION(ZYNAppType::Type);
ENUMERATION(WorkSpace::LOGIN_ERROR);

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
OPERATION(TestComponent, GetName, QString() const);
OPERATION(TestComponent, GetIdentString, QString() const);
OPERATION(TestComponent, GetTypeString, QString() const);
OPERATION(TestComponent, GetLogInReportCtrl, CtrlLogInReport*() const);
OPERATION(TestComponent, GetEnableCtrl, CtrlEnable*() const);
OPERATION(TestComponent, GetValidationCtrl, CtrlValidation*() const);
OPERATION(TestComponent, GetAttributesCtrl, CtrlAttributes*() const);
OPERATION(TestComponent, GetTestPlanValuesCtrl, CtrlTestPlanValues*() const);
OPERATION(TestComponent, IsTestplanDisabled, bool() const);
OPERATION(TestComponent, SetResult, void(TestResult*));
OPERATION(TestComponent, id, long);
OPERATION(TestComponent, type, EN_ZYN_ADDRESS);
OPERATION(TestMeasurement, resultState, EN_ZYN_RESULT);

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
OPERATION(TestProgram, GetGroupCount, int() const);
OPERATION(TestProgram, GetGroupForIndex, Shared<TestGroup>(int) const);
OPERATION(TestProgram, AddGroup, int(Shared<TestGroup>));
OPERATION(TestProgram, GetDisplayName, QString() const);
OPERATION(TestProgram, GetCreator, QString() const);
OPERATION(TestProgram, GetVersion, QString() const);
OPERATION(TestProgram, GetFileVersion, QString() const);
OPERATION(TestProgram, GetFileInfo, const QFileInfo&() const);
OPERATION(TestProgram, SetDisplayName, void(Name));
OPERATION(TestProgram, SetCreator, void(Name));
OPERATION(TestProgram, SetVersion, void(Name));
OPERATION(TestProgram, SetFileName, void(const char*));

static_assert(std::is_base_of_v<TestComponent, TestGroup>);
CONSTRUCTOR(TestGroup, long, Name, TestProgram*, unsigned int, long, EN_ZYN_GROUP, void*);
OPERATION(TestGroup, GetParameterCount, int() const);
OPERATION(TestGroup, GetParameterForIndex, Shared<TestParameter>(int) const);
OPERATION(TestGroup, GetStepCount, int() const);
OPERATION(TestGroup, GetStepForIndex, Shared<TestStep>(int) const);
OPERATION(TestGroup, AddStep, int(Shared<TestStep>));
OPERATION(TestGroup, IsUserGroup, bool() const);

static_assert(std::is_base_of_v<TestComponent, TestStep>);
CONSTRUCTOR(TestStep, long, Name, TestGroup*, unsigned int, long, Name);
OPERATION(TestStep, GetMeasurementCount, int() const);
OPERATION(TestStep, GetMeasurementForIndex, Shared<TestMeasurement>(int) const);
OPERATION(TestStep, GetMeasurementForID, Shared<TestMeasurement>(long) const);
OPERATION(TestStep, AddMeasurement, int(Shared<TestMeasurement>));

static_assert(std::is_base_of_v<TestComponent, TestParameter>);
static_assert(std::is_base_of_v<TestComponent, TestMeasurement>);
CONSTRUCTOR(TestMeasurement, long, Name, EN_ZYN_ADDRESS, TestStep*, unsigned int, long);

// Results

CONSTRUCTOR(TestResult, Shared<TestComponent>);
OPERATION(TestResult, GetResult, EN_ZYN_RESULT() const);
OPERATION(TestResult, GetResultString, QString() const);
OPERATION(TestResult, GetValueTypeString, QString() const);
OPERATION(TestResult, GetBaseUnitString, QString() const);
OPERATION(TestResult, GetComment, QString() const);
OPERATION(TestResult, GetAttribute, QString() const);
OPERATION(TestResult, GetTimeString, QString() const);
OPERATION(TestResult, GetDurationString, QString() const);
OPERATION(TestResult, GetDurationStringFormated, QString() const);
OPERATION(TestResult, GetValue, QVariant() const);
OPERATION(TestResult, GetValueString, QString(Display) const);
OPERATION(TestResult, GetLowerLimitString, QString(Display) const);
OPERATION(TestResult, GetUpperLimitString, QString(Display) const);
OPERATION(TestResult, GetUnitString, QString(Display, bool) const);
OPERATION(TestResult, GetDuration, double() const);
OPERATION(TestResult, GetValidation, Shared<ValidationInterface>() const);
OPERATION(TestResult, SetResult, void(EN_ZYN_RESULT));
OPERATION(TestResult, SetValue, void(const QVariant&));
OPERATION(TestResult, SetComment, void(Name));
OPERATION(TestResult, SetAttribute, void(Name));
OPERATION(TestResult, SetDuration, void(double));
OPERATION(TestResult, SetValidation, void(Shared<ValidationInterface>));

CONSTRUCTOR(TestResultSet, Shared<TestProgram>, Shared<Station>);
OPERATION(TestResultSet, GetTestProgram, Shared<TestProgram>() const);
OPERATION(TestResultSet, GetResult, TestResult*(const TestComponent*) const);
OPERATION(TestResultSet, AddResult, void(TestResult*));
OPERATION(TestResultSet, GetTestIndex, long() const);
OPERATION(TestResultSet, SetTestIndex, void(long));
OPERATION(TestResultSet, GetStationID, long() const);
OPERATION(TestResultSet, GetStationDescription, QString() const);
OPERATION(TestResultSet, GetFaildStepCount, int() const);
OPERATION(TestResultSet, GetFailedTestGroups, QList<QString>() const);

// Unit side

static_assert(std::is_base_of_v<ManagedObject, UUTTest>);
CONSTRUCTOR(UUTTest, long, Name);
OPERATION(UUTTest, GetUnitUnderTest, Shared<UnitUnderTest>() const);
OPERATION(UUTTest, GetProductType, Shared<ProductType>() const);
OPERATION(UUTTest, GetProductionLot, Shared<ProductionLot>() const);
OPERATION(UUTTest, GetFixture, Shared<Fixture>() const);
OPERATION(UUTTest, GetSession, ZYNSession*() const);
OPERATION(UUTTest, GetResultSets, QList<TestResultSet*>() const);
OPERATION(UUTTest, GetUUTTests, QList<Shared<UUTTest>>() const);
OPERATION(UUTTest, GetResult, EN_ZYN_RESULT() const);
OPERATION(UUTTest, GetResultString, QString() const);
OPERATION(UUTTest, GetResultDescription, QString() const);
OPERATION(UUTTest, GetStartTimeString, QString() const);
OPERATION(UUTTest, GetStopTimeString, QString() const);
OPERATION(UUTTest, GetDurationString, QString() const);
OPERATION(UUTTest, GetDurationStringFormated, QString() const);
OPERATION(UUTTest, GetStartTime, QDateTime() const);
OPERATION(UUTTest, GetStopTime, QDateTime() const);
OPERATION(UUTTest, GetDuration_ms, long long() const);
OPERATION(UUTTest, IsValid, bool() const);
OPERATION(UUTTest, SetUnitUnderTest, void(Shared<UnitUnderTest>));
OPERATION(UUTTest, SetProductionLot, void(Shared<ProductionLot>));
OPERATION(UUTTest, SetSession, void(ZYNSession*));
OPERATION(UUTTest, SetResult, void(EN_ZYN_RESULT));
OPERATION(UUTTest, SetResultDescription, void(Name));
OPERATION(UUTTest, SetStartTimeString, void(Name));
OPERATION(UUTTest, SetStopTimeString, void(Name));
OPERATION(UUTTest, SetDuration, void(double));
OPERATION(UUTTest, AssignResultSet, void(TestResultSet*));
OPERATION(UUTTest, AddUUTTest, void(Shared<UUTTest>));

CONSTRUCTOR(UnitUnderTest, long, Name);
OPERATION(UnitUnderTest, GetSerialNo, QString() const);
OPERATION(UnitUnderTest, GetIdentString, QString() const);
OPERATION(UnitUnderTest, GetPanelIndex, long() const);
OPERATION(UnitUnderTest, GetProductType, Shared<ProductType>() const);
OPERATION(UnitUnderTest, IsValid, bool() const);
OPERATION(UnitUnderTest, SetSerialNo, void(Name));
OPERATION(UnitUnderTest, SetIdentString, void(Name));
OPERATION(UnitUnderTest, SetPanelIndex, void(long));
OPERATION(UnitUnderTest, SetProductType, void(Shared<ProductType>));

CONSTRUCTOR(ProductType, long, Name);
OPERATION(ProductType, GetArticelCode, QString() const);
OPERATION(ProductType, GetCustomer, QString() const);
OPERATION(ProductType, GetDescription, QString() const);
OPERATION(ProductType, GetClusterLevel, long() const);
OPERATION(ProductType, GetMultiPanelInfo, Shared<ProductTypeMultiPanel>() const);
OPERATION(ProductType, IsValid, bool() const);
OPERATION(ProductType, SetArticelCode, void(Name));
OPERATION(ProductType, SetCustomer, void(Name));
OPERATION(ProductType, SetDescription, void(Name));
OPERATION(ProductType, SetClusterLevel, void(long));
OPERATION(ProductType, AddTestProgram, void(int));

OPERATION(ProductTypeMultiPanel, IsMultiPanel, bool() const);
OPERATION(ProductTypeMultiPanel, HasSplitting, bool() const);
OPERATION(ProductTypeMultiPanel, GetPanelItems, long() const);
OPERATION(ProductTypeMultiPanel, GetSplittingString, QString() const);
OPERATION(ProductTypeMultiPanel, SetMultiPanel, void(bool));
OPERATION(ProductTypeMultiPanel, SetSplitting, void(bool));
OPERATION(ProductTypeMultiPanel, SetPanelItems, void(long));
OPERATION(ProductTypeMultiPanel, SetSplittingString, void(Name));

CONSTRUCTOR(ProductionLot, long, Name);
OPERATION(ProductionLot, GetOrderCode, QString() const);
OPERATION(ProductionLot, SetOrderCode, void(Name));
OPERATION(ProductionLot, IsValid, bool() const);

OPERATION(FixtureBase, GetIdent, QString() const);
OPERATION(FixtureBase, GetDescription, QString() const);
static_assert(std::is_base_of_v<FixtureBase, Fixture>);
OPERATION(Fixture, GetSerialNo, QString() const);
OPERATION(Fixture, GetFixtureTypeName, QString() const);

CONSTRUCTOR(Station, long, Name);
OPERATION(Station, SetDescription, void(Name));

CONSTRUCTOR(ZYNSession);
OPERATION(ZYNSession, GetMachineName, QString() const);
OPERATION(ZYNSession, GetWorkspaceName, QString() const);
OPERATION(ZYNSession, GetCurrentUserName, QString() const);
OPERATION(ZYNSession, SetMachineName, void(Name));
OPERATION(ZYNSession, SetWorkSpace, void(Shared<WorkSpace>));

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
OPERATION(ZYNUser, SetPassword, void(Name));

// Statistics

OPERATION(StatisticsDataReport, GetSession, ZYNSession*() const);
OPERATION(StatisticsDataReport, GetProductType, Shared<ProductType>() const);
OPERATION(StatisticsDataReport, GetUnitUnderTest, Shared<UnitUnderTest>() const);
OPERATION(StatisticsDataReport, GetTestProgram, Shared<TestProgram>() const);
OPERATION(StatisticsDataReport, GetTestData, QList<StatisticsData*>() const);

OPERATION(StatisticsData, GetComponent, TestComponent*() const);
OPERATION(StatisticsData, GetResult, TestResult*(int) const);
OPERATION(StatisticsData, Size, int() const);
OPERATION(StatisticsData, GetNrPass, int() const);
OPERATION(StatisticsData, GetNrFail, int() const);
OPERATION(StatisticsData, HasStatisticDetails, bool() const);

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

OPERATION(ValueDisplay, ToString, QString(const QVariant&) const);
FUNCTION(ValueDisplay, StaticToString, QString(const QVariant&));
OPERATION(ValueDisplay, GetScaleFactor, ValueDisplay::ScaleFactor() const);
OPERATION(ValueDisplay, GetScaleString, QString() const);
FUNCTION(ValueDisplay, ScaleFactorToString, QString(ValueDisplay::ScaleFactor));
CONSTRUCTOR(LimitOperator);
static_assert(std::is_copy_assignable_v<LimitOperator>);
OPERATION(LimitOperator, ToString, QString() const);
OPERATION(MeasurementUnit, ToString, QString() const);
FUNCTION(ValueComperator, Verify, bool(double, double, LimitOperator::Code));

OPERATION(ValidationInterface, GetValueDisplay, ValueDisplay*() const);
OPERATION(ValidationInterface, HasLowerLimit, bool() const);
OPERATION(ValidationInterface, HasUpperLimit, bool() const);
OPERATION(ValidationInterface, GetLowerLimit, QVariant() const);
OPERATION(ValidationInterface, GetUpperLimit, QVariant() const);
OPERATION(ValidationInterface, GetLowerLimitText, QString() const);
OPERATION(ValidationInterface, GetUpperLimitText, QString() const);
OPERATION(ValidationInterface, GetLowerOperator, LimitOperator() const);
OPERATION(ValidationInterface, GetUpperOperator, LimitOperator() const);
OPERATION(ValidationInterface, HasNominal, bool() const);
OPERATION(ValidationInterface, GetNominalText, QString() const);
OPERATION(ValidationInterface, GetMeasurementUnit, MeasurementUnit() const);
OPERATION(ValidationInterface, IsResultInverted, bool() const);
OPERATION(ValidationInterface, GetPropertyNames, QList<QString>() const);
OPERATION(ValidationInterface, GetProperty, QVariant(Name) const);

FUNCTION(TestComponentFactory, CreateValidationInt,
         ValidationInterface*(int, const char*, const char*, int, int, long, long, long, long, long, long));
FUNCTION(TestComponentFactory, CreateValidationReal,
         ValidationInterface*(int, const char*, const char*, double, double, long, long, long, long, long,
                              long, QVariant, double));
FUNCTION(TestComponentFactory, CreateValidationString,
         ValidationInterface*(int, const char*, Name, long, long, long, long));

// Control objects

OPERATION(CtrlLogInReport, GetLogInReport, bool() const);
OPERATION(CtrlLogInReport, LogInReportOn, void());
OPERATION(CtrlLogInReport, LogInReportOff, void());
OPERATION(CtrlEnable, IsEnabled, bool() const);
OPERATION(CtrlEnable, EnableOn, void());
OPERATION(CtrlEnable, EnableOff, void());
OPERATION(CtrlValidation, GetValidation, Shared<ValidationInterface>() const);
OPERATION(CtrlAttributes, GetAttributes, QList<TestComponentAttr*>() const);
OPERATION(CtrlTestPlanValues, GetLogInReport, bool() const);
OPERATION(CtrlTestPlanValues, IsEnabled, bool() const);
FUNCTION(TestComponentAttr, TypeToString, QString(TestComponentAttr::TestComponentAttrType));

// Test plans

CONSTRUCTOR(TestPlan, QFileInfo);
OPERATION(TestPlan, AddProperties, void(Name, TestPlanData*));
OPERATION(TestPlan, AddValidation, void(Name, TestPlanData*));
OPERATION(TestPlan, AddAttributes, void(Name, TestPlanData*));
CONSTRUCTOR(TestPlanData);
OPERATION(TestPlanData, SetProperty, void(Name, const QVariant&));
OPERATION(TestPlanData, AddCategory, void(TestPlanCategory*));
CONSTRUCTOR(TestPlanCategory, Name);
OPERATION(TestPlanCategory, SetAttributes, void(TestPlanData*));

// Tools

FUNCTION(ZYNTools, GetMediaDir, QDir());
FUNCTION(ZYNTools, AddressToDataTypeString, QString(EN_ZYN_ADDRESS));
FUNCTION(ZYNApplication, GetVersion, QString(ZYNAppType::Type));

CONSTRUCTOR(IniReader, QIODevice*);
OPERATION(IniReader, read, bool());
OPERATION(IniReader, getAllSections, QList<IniSection>() const);
OPERATION(IniReader, getPropertyValue, QString(Name, Name) const);

} // namespace

class ContractTest : public QObject {
    Q_OBJECT
private slots:
    void classesAreKnownToObjectCasts_data();
    void classesAreKnownToObjectCasts();
};

void ContractTest::classesAreKnownToObjectCasts_data()
{
    QTest::addColumn<const QMetaObject*>("metaObject");
    QTest::addColumn<QByteArray>("name");
    const auto row = [](const QMetaObject& metaObject, const char* name) {
        QTest::newRow(name) << &metaObject << QByteArray(name);
    };
    row(ZYNSession::staticMetaObject, "ZYN::ZYNSession");
    row(ZYNUser::staticMetaObject, "ZYN::ZYNUser");
    row(ProductType::staticMetaObject, "ZYN::ProductType");
    row(ProductionLot::staticMetaObject, "ZYN::ProductionLot");
    row(Station::staticMetaObject, "ZYN::Station");
    row(TestGroup::staticMetaObject, "ZYN::TestGroup");
    row(TestMeasurement::staticMetaObject, "ZYN::TestMeasurement");
    row(TestProgram::staticMetaObject, "ZYN::TestProgram");
    row(TestResultSet::staticMetaObject, "ZYN::TestResultSet");
    row(TestStep::staticMetaObject, "ZYN::TestStep");
    row(UUTTest::staticMetaObject, "ZYN::UUTTest");
    row(UnitUnderTest::staticMetaObject, "ZYN::UnitUnderTest");
    row(WorkSpace::staticMetaObject, "ZYN::WorkSpace");
}

void ContractTest::classesAreKnownToObjectCasts()
{
    // A class without its own meta object answers with its base's name and casts to anything of the base.
    QFETCH(const QMetaObject*, metaObject);
    QTEST(QByteArray(metaObject->className()), "name");
}

QTEST_APPLESS_MAIN(ContractTest)
#include "ContractTest.moc"
