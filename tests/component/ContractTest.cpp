/// What others rely on in the model and no use of it here would show: which operations a class of theirs may
/// override, the size of the enumerations, which classes object casts know.

#include <ZYNCommon/LimitOperator.h>
#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductionLot.h>
#include <ZYNCommon/Station.h>
#include <ZYNCommon/StatisticsDataDecoration.h>
#include <ZYNCommon/TestComponentAttr.h>
#include <ZYNCommon/TestGroup.h>
#include <ZYNCommon/TestMeasurement.h>
#include <ZYNCommon/TestProgram.h>
#include <ZYNCommon/TestResultSet.h>
#include <ZYNCommon/TestStep.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/ValueDisplay.h>
#include <ZYNCommon/WorkSpace.h>
#include <ZYNCommon/ZYNApplication.h>
#include <ZYNCommon/ZYNSession.h>
#include <ZYNCommon/ZYNUser.h>

#include <QtTest/QTest>

#include <type_traits>

using namespace ZYN;

namespace {

template <typename... Enumerations>
constexpr bool AreInt = (std::is_same_v<std::underlying_type_t<Enumerations>, int> && ...);
static_assert(
    AreInt<EN_ZYN_RESULT, EN_ZYN_GROUP, EN_ZYN_ADDRESS, LimitOperator::Code, ValueDisplay::ScaleFactor,
           TestComponentAttr::TestComponentAttrType, ZYNAppType::Type, WorkSpace::LOGIN_ERROR>);

using Name = const QString&;

// Compile only where the base declares these virtual.

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

class WorkSpaceVirtuals : public WorkSpace {
    QSharedPointer<ZYNUser> GetCurrentUser() const override = 0;
    QString GetCurrentUserName() const override = 0;
    QList<QSharedPointer<ZYNUser>> GetUserList() const override = 0;
    void SetUserList(const QList<QSharedPointer<ZYNUser>>&) override = 0;
    QMap<int, QString> GetUserNames() const override = 0;
    QSharedPointer<ZYNUser> CreateNewUser(Name) override = 0;
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

} // namespace

class ContractTest : public QObject {
    Q_OBJECT
private slots:
    void ClassesAreKnownToObjectCasts()
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
