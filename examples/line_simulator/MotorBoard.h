#pragma once

#include "Blueprint.h"

namespace ZYN::Simulation {

/// The function test of the board that the line makes: a 48 V controller for three-phase motors.
/// \param sweepSteps steps of a further group that sweeps the torque; 0 leaves the group out
/// \param sweepMeasurements measurements of each of these steps
QList<GroupDef> MotorBoardTest(int sweepSteps, int sweepMeasurements);

} // namespace ZYN::Simulation
