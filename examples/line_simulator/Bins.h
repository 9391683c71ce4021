#pragma once

#include <QtCore/QByteArray>

namespace ZYN::Simulation {

/// Hard bins of the sorter behind the tester.
enum HardBin : int {
    BinGood = 1,
    BinContact = 2,
    BinPassiveParts = 3,
    BinSupply = 4,
    BinProcessor = 5,
    BinMotorOutputs = 6,
    BinCommunication = 7
};

/// The bin ids of one measurement's outcomes.
struct BinIds {
    long hard;     ///< of a failure
    long pass;     ///< hard bin of a pass
    long softLow;  ///< below the lower limit, or simply wrong
    long softHigh; ///< above the upper limit
    long softPass;
};

BinIds BinsOfFailure(int hardBin);

/// The binning definition of all bins that `BinsOfFailure` can name, as an INI file.
QByteArray BinsIni();

} // namespace ZYN::Simulation
