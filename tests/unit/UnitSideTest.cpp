#include <ZYNCommon/ProductType.h>
#include <ZYNCommon/UUTTest.h>
#include <ZYNCommon/UnitUnderTest.h>
#include <ZYNCommon/WorkSpace.h>
#include <ZYNCommon/ZYNSession.h>
#include <ZYNCommon/ZYNUser.h>

#include <QtTest/QTest>

#include <limits>

using namespace ZYN;
using namespace Qt::StringLiterals;

class UnitSideTest : public QObject {
    Q_OBJECT
private slots:
    void aSessionIsOwned();
    void aProductTypeThatSaysNothingIsNone();
    void durations();
    void timesAreKeptVerbatim();
    void passwords();
    void logIn();
};

void UnitSideTest::aSessionIsOwned()
{
    UUTTest test(1, QString());
    auto* const session = new ZYNSession;
    test.SetSession(session);
    test.SetSession(session);
    QCOMPARE(test.GetSession(), session);
    test.SetSession(new ZYNSession); // frees the first one
    test.AssignResultSet(nullptr);
    QVERIFY(test.GetResultSets().isEmpty());
}

void UnitSideTest::aProductTypeThatSaysNothingIsNone()
{
    UUTTest test(1, QString());
    const auto unit = QSharedPointer<UnitUnderTest>::create(0, QString());
    test.SetUnitUnderTest(unit);
    QVERIFY(!test.IsValid());
    unit->SetSerialNo(u"SN 1"_s);
    QVERIFY(test.IsValid());

    unit->SetProductType(QSharedPointer<ProductType>::create(0, QString()));
    QVERIFY(!test.GetProductType());
    unit->SetProductType(QSharedPointer<ProductType>::create(0, u"board"_s));
    QCOMPARE(test.GetProductType(), unit->GetProductType());
}

void UnitSideTest::durations()
{
    UUTTest test(1, QString());
    QCOMPARE(test.GetDurationStringFormated(), QString());
    test.SetDuration(1.2506);
    QCOMPARE(test.GetDuration_ms(), 1251ll);
    QCOMPARE(test.GetDurationStringFormated(), u"1.251 s"_s);
    for (const double absurd : {std::numeric_limits<double>::quiet_NaN(), 1e300}) {
        test.SetDuration(absurd);
        QCOMPARE(test.GetDuration_ms(), 0ll);
    }
}

void UnitSideTest::timesAreKeptVerbatim()
{
    UUTTest test(1, QString());
    test.SetStopTimeString(u"0"_s);
    QCOMPARE(test.GetStopTimeString(), u"0"_s);
    QVERIFY(!test.GetStopTime().isValid());

    test.SetStartTimeString(u"2024-02-29T08:00:00.5+01:00"_s);
    const QDateTime start(QDate(2024, 2, 29), QTime(7, 0, 0, 500), Qt::UTC);
    QCOMPARE(test.GetStartTime(), start);
    test.SetStartTime(start);
    QCOMPARE(test.GetStartTimeString(), u"2024-02-29T07:00:00.500Z"_s);
    QCOMPARE(test.GetStartTime(), start);
}

void UnitSideTest::passwords()
{
    ZYNUser user(u"operator"_s);
    QVERIFY(user.CheckPassword(QString()));
    QVERIFY(!user.CheckPassword(u"x"_s));
    user.SetPassword(u"geheim \u00E4"_s);
    QVERIFY(user.CheckPassword(u"geheim \u00E4"_s));
    QVERIFY(!user.CheckPassword(u"geheim a"_s));
    QVERIFY(!user.CheckPassword(QString()));
}

void UnitSideTest::logIn()
{
    const auto workSpace = QSharedPointer<WorkSpace>::create(42, u"line 3"_s);
    ZYNSession session;
    QCOMPARE(session.GetCurrentUserName(), QString());
    session.SetWorkSpace(workSpace);
    const auto anna = QSharedPointer<ZYNUser>::create(u"Anna"_s);
    anna->SetPassword(u"secret"_s);
    workSpace->SetUserList({nullptr, anna});
    workSpace->CreateNewUser(u"Ben"_s);
    QCOMPARE(workSpace->GetUserNames(), (QMap<int, QString>{{0, u"Anna"_s}, {1, u"Ben"_s}}));
    QCOMPARE(workSpace->Login(0, u"secret"_s), WorkSpace::LOGIN_OK);
    QCOMPARE(session.GetCurrentUserName(), u"Anna"_s);
    QCOMPARE(workSpace->Login(1, u"guess"_s), WorkSpace::LOGIN_WRONG_PASSWORD);
    QCOMPARE(workSpace->Login(-1, QString()), WorkSpace::LOGIN_UNKNOWN_USER);
    QCOMPARE(workSpace->GetCurrentUser(), anna);
    QVERIFY(workSpace->Reset());
    QVERIFY(!workSpace->Reset());
    QCOMPARE(workSpace->Login(1, QString()), WorkSpace::LOGIN_OK);
    workSpace->SetUserList({anna});
    QVERIFY(!workSpace->GetCurrentUser());
}

QTEST_APPLESS_MAIN(UnitSideTest)
#include "UnitSideTest.moc"
