#pragma once

#include "Blueprint.h"
#include "Faults.h"
#include "Random.h"

#include <QtCore/QDateTime>

#include <memory>

namespace ZYN {
class Station;
class TestResultSet;
} // namespace ZYN

namespace ZYN::Simulation {

/// One run of the test program on one board.
struct BoardRun {
    Random random;
    const Fault* fault = nullptr;
    double warmth = 0.0; ///< 0 for a cold line, towards 1 after hours
    int index = 1;       ///< 1 for the first test of a board, 2 for its retest
    QDateTime start;
};

/// The results of a run and how it went.
struct BoardOutcome {
    std::unique_ptr<TestResultSet> results;
    double seconds = 0.0;
    QString firstFailure; ///< "step: measurement", or why the test ended early; empty for a good board
};

BoardOutcome TestBoard(const Blueprint& blueprint, const QSharedPointer<Station>& station, BoardRun run);

} // namespace ZYN::Simulation
