#pragma once

#include "Line.h"

#include <QtCore/QString>

#include <memory>
#include <vector>

namespace ZYN::Simulation {

/// A tester of many that test one lot at once, as they are in a factory: it tests panels of its own, retests
/// those of its neighbour, sends a report twice or corrects an earlier one, its clock is wrong at times, and
/// while the network is lost it keeps what it has and sends it later, in its order.
///
/// What it does at a tick follows from the settings, its number and the tick alone: a station that is killed
/// goes on where it was. A tick gives one report; there are panelsOfStation at most. No two runs of a lot
/// begin at the same instant.
class BusyStation {
public:
    static constexpr int most = 90; ///< stations of a lot
    static constexpr int panelsOfStation = 10'000;

    /// \param station from 1
    BusyStation(const LineSettings& settings, int station);

    /// Whether what is made at this tick is sent later.
    bool IsOffline(int tick) const;
    /// The report of a tick, from 0.
    std::unique_ptr<UUTTest> ReportOf(int tick) const;
    /// What the file of a tick is called, without extension: "s07-000012". Sorts in the order of the ticks.
    QString NameOf(int tick) const;

private:
    enum class Act { Test, Retest, Copy, Correction };

    Random Dice(int purpose, int number) const;
    Act ActOf(int tick) const;
    int TickBefore(int tick) const;
    qint64 ClockError(int tick) const;
    std::unique_ptr<UUTTest> Tested(int tick) const;

    LineSettings m_settings;
    Line m_line;
    int m_station;
};

} // namespace ZYN::Simulation
