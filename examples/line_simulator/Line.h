#pragma once

#include "Blueprint.h"
#include "Faults.h"

#include <QtCore/QDateTime>

#include <memory>

namespace ZYN {
class Fixture;
class ProductType;
class ProductionLot;
class Station;
class TestResultSet;
class UUTTest;
class UnitUnderTest;
class WorkSpace;
class ZYNSession;
} // namespace ZYN

namespace ZYN::Simulation {

struct LineSettings {
    quint64 seed = 1;
    int itemsPerPanel = 4;      ///< 1 makes single boards without a panel
    int sweepSteps = 0;         ///< steps of a further group, for reports of any size
    int sweepMeasurements = 10; ///< measurements of each of these steps
};

/// How a panel is tested by one of many testers.
struct PanelTest {
    int panel = 1;        ///< number of the panel in the lot, from 1
    QDateTime start = {}; ///< by the tester's clock
    QString machine = {}; ///< the tester's name
    quint64 attempt = 0;  ///< each measures anew
};

/// A simulated production line that tests panels of motor controller boards.
///
/// What it measures follows from the settings and the panel's number alone, never from the clock, the
/// machine or the panels made before: any panel of a lot of any length can be made at any time. One line is
/// used by one thread; lines of the same settings in several threads make the same panels.
class Line {
public:
    explicit Line(const LineSettings& settings);
    ~Line();

    /// The test of one panel, complete and independent of the line.
    /// \param number number of the panel in the lot, from 1
    std::unique_ptr<UUTTest> MakePanel(int number) const;
    /// The same by a tester with a clock of its own: what is measured follows from the panel and the attempt.
    /// Items start at whole slots behind the panel.
    std::unique_ptr<UUTTest> MakePanel(const PanelTest& test) const;
    /// When the line starts a panel.
    QDateTime StartOf(int number) const;
    /// A fresh instance of the test program, for its test plan.
    QSharedPointer<TestProgram> Program() const;
    /// The fault of an item, null for a good one.
    /// \param item place on the panel, from 1
    const Fault* FaultOf(int panel, int item) const;

private:
    quint64 BoardNumber(int panel, int item) const;
    std::unique_ptr<UUTTest> Make(const PanelTest& test, bool isItemInSlot) const;
    void AddRuns(UUTTest* test, const PanelTest& panel, int item, QDateTime* clock) const;
    QSharedPointer<UnitUnderTest> MakeUnit(quint64 board, int item) const;
    void AddHeader(UUTTest* test, const QString& machine) const;

    LineSettings m_settings;
    Blueprint m_blueprint;
    qint64 m_boardSlotSeconds;
    FaultDeck m_faults;
    QSharedPointer<ProductType> m_productType;
    QSharedPointer<ProductionLot> m_lot;
    QSharedPointer<Fixture> m_fixture;
    QSharedPointer<Station> m_station;
    QSharedPointer<WorkSpace> m_workSpace;
};

} // namespace ZYN::Simulation
