#pragma once

namespace ZYN::Figures {

/// A small probability, also one that a double cannot hold: its natural logarithm.
struct Probability {
    double log = 0;
    double Get() const;
};

/// That a normally distributed number is as far from 0 as this one, on either side.
Probability BeyondNormal(double z);

} // namespace ZYN::Figures
