#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/ProductTypeMultiPanel.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/WorkSpace.h>
#include <ZYNCommon/ZYNSession.h>
#include <ZYNCommon/ZYNUser.h>

#include <QtTest/QTest>

#include <limits>

using namespace ZYN;

class UnitSideTest : public QObject {
    Q_OBJECT
private slots:
    void aBareTestHasNothing();
    void aProductTypeThatSaysNothingIsNone();
    void durations_data();
    void durations();
    void timesAreKeptVerbatim();
    void passwords();
    void logIn();
    void workSpaceLists();
    void multiPanelAndPrograms();
};

void UnitSideTest::aBareTestHasNothing()
{
    UUTTest test(1, QString());
    QVERIFY(!test.GetUnitUnderTest());
    QVERIFY(!test.GetProductType());
    QVERIFY(!test.GetProductionLot());
    QVERIFY(!test.GetFixture());
    QVERIFY(!test.GetSession());
    QVERIFY(!test.IsValid());
    test.AssignResultSet(nullptr);
    QVERIFY(test.GetResultSets().isEmpty());

    auto* const session = new ZYNSession;
    test.SetSession(session);
    test.SetSession(session);
    QCOMPARE(test.GetSession(), session);
    test.SetSession(new ZYNSession); // frees the first one
}

void UnitSideTest::aProductTypeThatSaysNothingIsNone()
{
    UUTTest test(1, QString());
    const auto unit = QSharedPointer<UnitUnderTest>::create(0, QString());
    test.SetUnitUnderTest(unit);
    QVERIFY(!test.IsValid());
    unit->SetSerialNo(QStringLiteral("SN 1"));
    QVERIFY(test.IsValid());

    unit->SetProductType(QSharedPointer<ProductType>::create(0, QString()));
    QVERIFY(!test.GetProductType());
    unit->SetProductType(QSharedPointer<ProductType>::create(0, QStringLiteral("board")));
    QCOMPARE(test.GetProductType(), unit->GetProductType());
}

void UnitSideTest::durations_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<qlonglong>("milliseconds");
    QTest::addColumn<QString>("forPeople");
    QTest::newRow("not recorded") << 0.0 << 0ll << QString();
    QTest::newRow("rounded") << 1.2506 << 1251ll << QStringLiteral("1.251 s");
    QTest::newRow("minutes") << 123.0 << 123000ll << QStringLiteral("2 min 03 s");
}

void UnitSideTest::durations()
{
    QFETCH(double, seconds);
    UUTTest test(1, QString());
    test.SetDuration(seconds);
    QTEST(qlonglong(test.GetDuration_ms()), "milliseconds");
    QTEST(test.GetDurationStringFormated(), "forPeople");
    test.SetDuration(std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(test.GetDuration_ms(), 0ll);
    test.SetDuration(1e300);
    QCOMPARE(test.GetDuration_ms(), 0ll);
}

void UnitSideTest::timesAreKeptVerbatim()
{
    UUTTest test(1, QString());
    test.SetStopTimeString(QStringLiteral("0"));
    QCOMPARE(test.GetStopTimeString(), QStringLiteral("0"));
    QVERIFY(!test.GetStopTime().isValid());

    test.SetStartTimeString(QStringLiteral("2024-02-29T08:00:00.5+01:00"));
    const QDateTime start(QDate(2024, 2, 29), QTime(7, 0, 0, 500), Qt::UTC);
    QCOMPARE(test.GetStartTime(), start);
    test.SetStartTime(start);
    QCOMPARE(test.GetStartTimeString(), QStringLiteral("2024-02-29T07:00:00.500Z"));
    QCOMPARE(test.GetStartTime(), start);
}

void UnitSideTest::passwords()
{
    ZYNUser user(QStringLiteral("operator"));
    QVERIFY(user.CheckPassword(QString()));
    QVERIFY(!user.CheckPassword(QStringLiteral("x")));
    user.SetPassword(QStringLiteral("geheim \u00E4"));
    QVERIFY(user.CheckPassword(QStringLiteral("geheim \u00E4")));
    QVERIFY(!user.CheckPassword(QStringLiteral("geheim a")));
    QVERIFY(!user.CheckPassword(QString()));
    user.SetPassword(QString());
    QVERIFY(user.CheckPassword(QString()));
}

void UnitSideTest::logIn()
{
    const auto workSpace = QSharedPointer<WorkSpace>::create(42, QStringLiteral("line 3"));
    ZYNSession session;
    QCOMPARE(session.GetWorkspaceName() + session.GetCurrentUserName(), QString());
    session.SetWorkSpace(workSpace);
    QCOMPARE(session.GetWorkspaceName(), QStringLiteral("line 3"));
    QCOMPARE(workSpace->Login(0, QString()), WorkSpace::LOGIN_UNKNOWN_USER);

    const auto anna = QSharedPointer<ZYNUser>::create(QStringLiteral("Anna"));
    anna->SetPassword(QStringLiteral("secret"));
    workSpace->SetUserList({nullptr, anna});
    workSpace->CreateNewUser(QStringLiteral("Ben"));
    QCOMPARE(workSpace->GetUserNames(),
             (QMap<int, QString>{{0, QStringLiteral("Anna")}, {1, QStringLiteral("Ben")}}));
    QCOMPARE(workSpace->Login(0, QStringLiteral("secret")), WorkSpace::LOGIN_OK);
    QCOMPARE(session.GetCurrentUserName(), QStringLiteral("Anna"));
    QCOMPARE(workSpace->Login(1, QStringLiteral("guess")), WorkSpace::LOGIN_WRONG_PASSWORD);
    QCOMPARE(workSpace->Login(-1, QString()), WorkSpace::LOGIN_UNKNOWN_USER);
    QCOMPARE(workSpace->GetCurrentUser(), anna);
    QVERIFY(workSpace->Reset());
    QVERIFY(!workSpace->Reset());
    QCOMPARE(workSpace->Login(1, QString()), WorkSpace::LOGIN_OK);
    workSpace->SetUserList({anna});
    QVERIFY(!workSpace->GetCurrentUser());
}

void UnitSideTest::workSpaceLists()
{
    WorkSpace workSpace(1, QString());
    workSpace.SetPluginList({QStringLiteral("a"), QStringLiteral("b")});
    QCOMPARE(workSpace.CreateNewPlugin(QStringLiteral("b")), 1);
    QCOMPARE(workSpace.CreateNewPlugin(QStringLiteral("c")), 2);
    QCOMPARE(workSpace.GetPlugin(2), QStringLiteral("c"));
    QCOMPARE(workSpace.GetPlugin(3), QString());

    QVERIFY(workSpace.IsAppUsageAllowed(QStringLiteral("editor")));
    workSpace.SetAppUsageList({QStringLiteral("engine")});
    QVERIFY(!workSpace.IsAppUsageAllowed(QStringLiteral("editor")));
    QVERIFY(workSpace.IsAppUsageAllowed(QStringLiteral("engine")));
}

void UnitSideTest::multiPanelAndPrograms()
{
    ProductType productType(3, QString());
    QVERIFY(productType.GetMultiPanelInfo());
    QVERIFY(!productType.GetMultiPanelInfo()->IsMultiPanel());
    for (const int program : {7, 5, 7})
        productType.AddTestProgram(program);
    QCOMPARE(productType.GetTestPrograms(), (QList<int>{7, 5}));

    productType.SetParameters({{QStringLiteral("b"), QStringLiteral("2")}, {QStringLiteral("a"), QString()}});
    QVERIFY(productType.HasParameter(QStringLiteral("a")));
    QCOMPARE(productType.GetParameters().firstKey(), QStringLiteral("a"));
    QVERIFY(!productType.CanSaveProperty(QString()));
}

QTEST_APPLESS_MAIN(UnitSideTest)
#include "UnitSideTest.moc"
