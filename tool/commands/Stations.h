#pragma once

#include "examples/line_simulator/Line.h"

#include <QtCore/QString>

namespace ZYN::Tool {

struct StationSettings {
    int stations = 0; ///< 0: none
    int first = 1;    ///< number of the first one
    int rate = 60;    ///< reports a minute of each
    int seconds = 0;  ///< 0: until a signal ends it
};

/// Lets simulated stations put reports into a folder as they test, each in a thread, in real time. A station
/// remembers what it has written in a file of the folder, ".station-07": when it ends, in whatever way, the
/// next one of this number goes on there. \return exit code
int RunStations(const StationSettings& stations, const Simulation::LineSettings& line, const QString& folder);

} // namespace ZYN::Tool
