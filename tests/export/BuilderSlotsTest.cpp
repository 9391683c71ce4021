#include "RecordedWalk.h"
#include "support/Test.h"

#include "export/CExportBuilderDelegation.h"
#include "export/CExportDirectorReport.h"
#include "export/CExportDirectorTestPlan.h"

#include <ZYNCommon/StatisticsDataReport.h>

#include <array>
#include <cstring>

using namespace ZYN;
using namespace ZYN::RecordedWalk;

namespace {

class Delegation : public CExportBuilderDelegation {
public:
    using CExportBuilderDelegation::CExportBuilderDelegation;
    bool OpenFile(const QString&) override { return true; }
};

/// Index of an operation in the table of virtual functions. The C++ ABI of the platforms in use stores
/// it in the member pointer ("Itanium C++ ABI", 2.3): the offset in the table plus 1.
template <class Signature>
int SlotOf(Signature IExportBuilder::*operation)
{
    std::uintptr_t offset = 0;
    std::memcpy(&offset, &operation, sizeof(offset));
    return static_cast<int>((offset - 1) / sizeof(void*));
}

#define OBJECT(Name, ...)                                                                                    \
    SlotOf<bool(__VA_ARGS__)>(&IExportBuilder::Begin##Name),                                                 \
        SlotOf<bool(__VA_ARGS__)>(&IExportBuilder::End##Name)
#define COMPONENT(Name)                                                                                      \
    SlotOf<bool(Name*)>(&IExportBuilder::Begin##Name),                                                       \
        SlotOf<bool(Name*, TestResult*)>(&IExportBuilder::Begin##Name),                                      \
        SlotOf<bool(Name*)>(&IExportBuilder::End##Name)

} // namespace

class BuilderSlotsTest : public QObject {
    Q_OBJECT

private slots:
    void OrderIsFixed()
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
            COMPONENT(TestProgram),
            COMPONENT(TestGroup),
            COMPONENT(TestStep),
            COMPONENT(TestParameter),
            COMPONENT(TestMeasurement),
            OBJECT(UnitUnderTest, UnitUnderTest*),
            OBJECT(ProductionLot, ProductionLot*),
            OBJECT(ProductType, ProductType*),
            OBJECT(Fixture, Fixture*),
            OBJECT(UUTTest, UUTTest*),
            OBJECT(Session, ZYNSession*),
            OBJECT(TestResultSet, TestResultSet*),
            OBJECT(StatisticsData, StatisticsData*),
            OBJECT(TestResults, ),
            OBJECT(SubUnitTests, ),
            OBJECT(SubUnitTest, ),
        };
        QCOMPARE(slotsInOrder.size(), 46);
        // The destructor comes first and has two entries: destroy, and destroy with delete.
        for (int index = 0; index < 46; ++index)
            QCOMPARE(slotsInOrder.at(static_cast<std::size_t>(index)), index + 2);
    }

    /// The three walks together call every operation.
    void DelegationForwardsEverySlot()
    {
        const WalkedProgram program;
        UUTTest panel(1, "U");
        FillHeader(panel);
        panel.AssignResultSet(program.Run(1));
        panel.AddUUTTest(QSharedPointer<UUTTest>::create(2, "item"));
        StatisticsDataReport statistics;
        statistics.AddTestData(new StatisticsData(program.components["M1"]));

        const auto walkAll = [&](IExportBuilder* builder) {
            return CExportDirectorReport().ExportUUTTest(&panel, builder) &&
                   CExportDirectorTestPlan().ExportTestPlan(program.program.data(), builder) &&
                   CExportDirectorBase::ExportStatistics(&statistics, builder);
        };
        for (const QString refused : {"", "BeginTestGroup G1(G1)", "BeginTestMeasurement M1", "Open"}) {
            RecordingBuilder direct;
            auto* const target = new RecordingBuilder;
            direct.refused = target->refused = QStringList(refused);
            Delegation delegation(target);
            QCOMPARE(walkAll(&delegation), walkAll(&direct));
            QCOMPARE(target->calls, direct.calls);
            QSet<QString> operations{"Open", "Close"};
            for (const QString& call : direct.calls)
                operations += call.section(' ', 0, 0) + (call.contains('(') ? " with result" : "");
            if (refused.isEmpty())
                QCOMPARE(operations.size(), 37 + 2);
        }
    }

    void DelegationForwardsSettings()
    {
        auto* const target = new RecordingBuilder;
        Delegation delegation(target);
        delegation.SetProperty("key", "value");
        QCOMPARE(target->calls.takeLast(), "key=value");
        QBuffer device;
        delegation.SetDevice(&device);
        QCOMPARE(delegation.GetDevice(), &device);
        for (const bool flag : {true, false}) {
            delegation.SetUseScaledData(flag);
            QCOMPARE(delegation.GetUseScaledData(), flag);
            target->opened = flag;
            QCOMPARE(delegation.IsOpened(), flag);
        }
        target->refused = QStringList{"BeginTestResults", "Close"};
        QVERIFY(!delegation.BeginTestResults() && !delegation.Close());
    }
};

QTEST_GUILESS_MAIN(BuilderSlotsTest)
#include "BuilderSlotsTest.moc"
