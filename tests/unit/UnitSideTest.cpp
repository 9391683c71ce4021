

#include "examples/line_simulator/Line.h"
#include "support/Model.h"
#include "support/Test.h"

#include <cmath>

using namespace ZYN;

class UnitSideTest : public QObject {
    Q_OBJECT
private slots:
    void ASessionIsOwned()
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

    void AProductTypeThatSaysNothingIsNone()
    {
        UUTTest test(1, QString());
        const auto unit = QSharedPointer<UnitUnderTest>::create(0, QString());
        test.SetUnitUnderTest(unit);
        QVERIFY(!test.IsValid());
        unit->SetSerialNo("SN 1");
        QVERIFY(test.IsValid());

        unit->SetProductType(QSharedPointer<ProductType>::create(0, QString()));
        QVERIFY(!test.GetProductType());
        unit->SetProductType(QSharedPointer<ProductType>::create(0, "board"));
        QCOMPARE(test.GetProductType(), unit->GetProductType());
    }

    void KeysThatAreNoNames()
    {
        const QStringList good{"BoardRevision", "_a", QString("\u00c4_1.-"), "_GoldenDevice1"};
        const QStringList bad{"",    "1a",     "no name", "a:b",          "xmlns",        "a=\"\" b",
                              "a<b", "a\nb",   "a&b",     "a=\"\"/><b c", "a=\"\"/><!--", "a/>",
                              "a\t", "P a=''", " a"};
        ProductType type(1, "board");
        for (const QString& key : good + bad)
            type.SetParameter(key, "value");
        QStringList expected = bad;
        expected.sort();
        QCOMPARE(type.GetUnsafeParameterKeys(), expected);
        // What the simulated line writes.
        const auto panel = Simulation::Line({}).MakePanel(1);
        QCOMPARE(panel->GetProductType()->GetUnsafeParameterKeys(), QStringList());
    }

    void Durations()
    {
        UUTTest test(1, QString());
        QCOMPARE(test.GetDurationStringFormated(), QString());
        for (const auto& [seconds, milliseconds] :
             {std::pair(1.2506, 1251LL), {std::nan(""), 0LL}, {1e300, 0LL}}) {
            test.SetDuration(seconds);
            QCOMPARE(test.GetDuration_ms(), milliseconds);
        }
    }

    void Passwords()
    {
        ZYNUser user("operator");
        QVERIFY(user.CheckPassword(QString()));
        QVERIFY(!user.CheckPassword("x"));
        user.SetPassword("geheim \u00E4");
        QVERIFY(user.CheckPassword("geheim \u00E4"));
        QVERIFY(!user.CheckPassword("geheim a"));
        QVERIFY(!user.CheckPassword(QString()));
    }

    void LogIn()
    {
        const auto workSpace = QSharedPointer<WorkSpace>::create(42, "line 3");
        ZYNSession session;
        QCOMPARE(session.GetCurrentUserName(), QString());
        session.SetWorkSpace(workSpace);
        const auto anna = QSharedPointer<ZYNUser>::create("Anna");
        anna->SetPassword("secret");
        workSpace->SetUserList({nullptr, anna});
        workSpace->CreateNewUser("Ben");
        QCOMPARE(workSpace->GetUserNames(), (QMap<int, QString>{{0, "Anna"}, {1, "Ben"}}));
        QCOMPARE(workSpace->Login(0, "secret"), WorkSpace::LOGIN_OK);
        QCOMPARE(session.GetCurrentUserName(), "Anna");
        QCOMPARE(workSpace->Login(1, "guess"), WorkSpace::LOGIN_WRONG_PASSWORD);
        QCOMPARE(workSpace->Login(-1, QString()), WorkSpace::LOGIN_UNKNOWN_USER);
        QCOMPARE(workSpace->GetCurrentUser(), anna);
        QVERIFY(workSpace->Reset());
        QVERIFY(!workSpace->Reset());
        QCOMPARE(workSpace->Login(1, QString()), WorkSpace::LOGIN_OK);
        workSpace->SetUserList({anna});
        QVERIFY(!workSpace->GetCurrentUser());
    }
};

QTEST_APPLESS_MAIN(UnitSideTest)
#include "UnitSideTest.moc"
