#pragma once

#include "Random.h"

#include <ZYNCommon/ZYNTypes.h>

#include <QtCore/QList>
#include <QtCore/QString>

namespace ZYN::Simulation {

/// What a defect does to one measurement. A defect shows in several related places.
struct FaultEffect {
    long step;
    long measurement; ///< 0 is the measurement with id 0
    double value;     ///< what is measured instead, before noise
    const char* text; ///< the same for texts, else null
};

/// A defect of a board, or a mishap of the test.
struct Fault {
    const char* cause; ///< for people who debug the simulation; no tester knows it
    QList<FaultEffect> effects = {};
    bool goneOnRetest = false;              ///< the unit is tested again and passes
    long stoppedAtStep = 0;                 ///< the test ends in this step; 0: it runs to its end
    EN_ZYN_RESULT stop = ZYN_RESULT_PASSED; ///< with this result
    const char* stopComment = nullptr;
};

/// Deals the faults out over a lot: of every forty boards each fault meets one, in an order and at places
/// that the seed decides.
class FaultDeck {
public:
    static constexpr int boardsPerDeal = 40;

    explicit FaultDeck(quint64 seed);
    /// The fault of a board, counted from 0 over the lot; null for a good one.
    const Fault* ForBoard(quint64 board) const;
    static const QList<Fault>& All();

private:
    quint64 m_seed;
};

} // namespace ZYN::Simulation
